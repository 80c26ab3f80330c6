#pragma once
// How logic code asks or tells the user something. The desktop shell implements this
// port with Qt dialogs, morvane-cli with standard error and fixed answers, and the
// tests with scripted answers, so no logic routine ever needs a window.

#include <optional>
#include <string>

namespace morvane {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
// The icon of a message box. Exclamation is the warning icon, Critical the error icon.
// None leaves the choice to the port, which gives the icon that fits the box: the
// question icon to a box with a choice, the information icon to a plain notice.
enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No };

// A message box. Lines of the text are joined by a line feed. An empty title means
// the application's title, "Morvane".
struct Message {
    std::string text;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    Answer defaultAnswer = Answer::Ok;
    std::string title;
};

// A file dialog. The filter is written "Description (*.ext)|*.ext", pairs joined by
// "|". The answer is the full path of the chosen file, or none when cancelled.
struct FileDialog {
    std::string title;
    std::string filter;
    std::string fileName;  // the name offered in the dialog, may be empty
    std::string folder;    // the folder the dialog opens in, may be empty
    // The pair of the filter shown first, counting from 1; 0 is the first. When
    // chosenFilter is set, a dialog that returns a file writes there the pair the user
    // had chosen last, counting from 1.
    int filterIndex = 0;
    int* chosenFilter = nullptr;
};

// An input box with one line of text. The answer is none when cancelled.
struct InputRequest {
    std::string prompt;
    std::string title;
    std::string defaultText;
};

// The icon that a box shows: its own, or when it has none, the question icon for a
// box with a choice and the information icon for a plain notice.
inline Icon FittingIcon(const Message& message) {
    if (message.icon != Icon::None)
        return message.icon;
    return message.buttons == Buttons::Ok ? Icon::Information : Icon::Question;
}

class UserPort {
  public:
    virtual ~UserPort() = default;

    // Shows the message and waits for the button the user presses.
    virtual Answer ask(const Message& message) = 0;
    virtual std::optional<std::string> openFileName(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> saveFileName(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> inputBox(const InputRequest& request) = 0;

    // A plain OK box with the application's title.
    void tell(const std::string& text) { ask(Message{text}); }
    // The same box for an input that is refused: the warning icon.
    void warn(const std::string& text) { ask(Message{text, Buttons::Ok, Icon::Exclamation}); }
    // The same box for a file that could not be read or written, or a command that
    // stopped: the error icon.
    void tellError(const std::string& text) { ask(Message{text, Buttons::Ok, Icon::Critical}); }
};

}  // namespace morvane
