#pragma once
// The user interface port of the benchmarks: every question gets Yes (a reverse
// slope is calculated), every dialog is cancelled, nothing is shown.

#include <optional>
#include <string>

#include "core/UserPort.h"

namespace morvane {

class SilentPort : public UserPort {
  public:
    Answer ask(const Message& message) override {
        return message.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
    }
    std::optional<std::string> openFileName(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> saveFileName(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> inputBox(const InputRequest&) override { return std::nullopt; }
};

}  // namespace morvane
