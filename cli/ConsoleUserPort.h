#pragma once
// The user interface port of morvane-cli. A message box becomes its text and a line
// feed on the error stream; a question gets the answer the command chose, without a
// word; file dialogs and input boxes are cancelled, as nothing can be chosen on a
// command line.

#include <iosfwd>
#include <string>

#include "core/UserPort.h"

namespace morvane::cli {

class ConsoleUserPort : public UserPort {
  public:
    // err must outlive the port.
    explicit ConsoleUserPort(std::ostream& err) : err_(err) {}

    // The answer to questions with Yes and No buttons (Yes unless set), and to those
    // with OK and Cancel (OK unless set).
    void setYesNoAnswer(Answer answer) { yesNo_ = answer; }
    void setOkCancelAnswer(Answer answer) { okCancel_ = answer; }
    // A message with exactly this text is not written (empty: none is left out).
    void setQuietText(std::string text) { quiet_ = std::move(text); }

    // How many messages have been written so far.
    int written() const { return written_; }

    Answer ask(const Message& message) override;
    std::optional<std::string> openFileName(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> saveFileName(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> inputBox(const InputRequest&) override { return std::nullopt; }

  private:
    std::ostream& err_;
    Answer yesNo_ = Answer::Yes;
    Answer okCancel_ = Answer::Ok;
    std::string quiet_;
    int written_ = 0;
};

}  // namespace morvane::cli
