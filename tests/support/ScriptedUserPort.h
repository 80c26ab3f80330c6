#pragma once
// The user interface port with scripted answers: every message is recorded, and each
// question takes the next queued answer (a question with no answer queued fails the
// test).

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/UserPort.h"

namespace morvane::testing {

class ScriptedUserPort : public UserPort {
  public:
    std::vector<Message> messages;
    std::deque<Answer> answers;
    std::vector<FileDialog> openDialogs, saveDialogs;
    std::deque<int> openFilterChoices;
    std::deque<std::optional<std::string>> openAnswers, saveAnswers;
    std::vector<InputRequest> inputs;
    std::deque<std::optional<std::string>> inputAnswers;

    Answer ask(const Message& message) override {
        messages.push_back(message);
        if (message.buttons == Buttons::Ok)
            return Answer::Ok;
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << message.text;
            return message.defaultAnswer;
        }
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<std::string> openFileName(const FileDialog& dialog) override {
        openDialogs.push_back(dialog);
        std::optional<std::string> answer = next(openAnswers, "open dialog");
        // The filter the user picks before choosing a file; none queued leaves it.
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

    // The texts of the messages so far, in order.
    std::vector<std::string> texts() const {
        std::vector<std::string> out;
        for (const auto& m : messages)
            out.push_back(m.text);
        return out;
    }

  private:
    static std::optional<std::string> next(std::deque<std::optional<std::string>>& queue,
                                           const char* what) {
        if (queue.empty()) {
            ADD_FAILURE() << "unexpected " << what;
            return std::nullopt;
        }
        auto a = queue.front();
        queue.pop_front();
        return a;
    }
};

}  // namespace morvane::testing
