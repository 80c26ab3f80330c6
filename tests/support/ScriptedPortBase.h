#pragma once
// The user interface port with scripted answers, for every test framework: every
// message is recorded, and each question and dialog takes the next queued answer.
// A question or a dialog with nothing queued goes to unexpected(), which the port of
// each framework reports in its own way (ScriptedUserPort.h for GoogleTest,
// QtScriptedPort.h for the window tests).

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/UserPort.h"

namespace morvane::testing {

class ScriptedPortBase : public UserPort {
  public:
    std::vector<Message> messages;
    std::deque<Answer> answers;
    std::vector<FileDialog> openDialogs, saveDialogs;
    std::deque<std::optional<std::string>> openAnswers, saveAnswers;
    // The filter the user picks before choosing a file; none queued leaves it.
    std::deque<int> openFilterChoices;
    std::vector<InputRequest> inputs;
    std::deque<std::optional<std::string>> inputAnswers;

    Answer ask(const Message& message) override {
        messages.push_back(message);
        if (message.buttons == Buttons::Ok)
            return Answer::Ok;
        if (answers.empty()) {
            unexpected("unexpected question: " + message.text);
            return message.defaultAnswer;
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> openFileName(const FileDialog& dialog) override {
        openDialogs.push_back(dialog);
        std::optional<std::string> answer = next(openAnswers, "open dialog");
        if (answer && dialog.chosenFilter && !openFilterChoices.empty()) {
            *dialog.chosenFilter = openFilterChoices.front();
            openFilterChoices.pop_front();
        }
        return answer;
    }
    std::optional<std::string> saveFileName(const FileDialog& dialog) override {
        saveDialogs.push_back(dialog);
        return next(saveAnswers, "save dialog");
    }
    std::optional<std::string> inputBox(const InputRequest& request) override {
        inputs.push_back(request);
        return next(inputAnswers, "input box");
    }

  protected:
    virtual void unexpected(const std::string& what) = 0;

  private:
    std::optional<std::string> next(std::deque<std::optional<std::string>>& queue,
                                    const char* what) {
        if (queue.empty()) {
            unexpected(std::string("unexpected ") + what);
            return std::nullopt;
        }
        std::optional<std::string> answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

}  // namespace morvane::testing
