#include "cli/ConsoleUserPort.h"

#include <ostream>

namespace morvane::cli {

Answer ConsoleUserPort::ask(const Message& message) {
    switch (message.buttons) {
        case Buttons::YesNo:
        case Buttons::YesNoCancel:
            return yesNo_;
        case Buttons::OkCancel:
            return okCancel_;
        case Buttons::Ok:
            break;
    }
    if (!quiet_.empty() && message.text == quiet_)
        return Answer::Ok;
    err_ << message.text << '\n';
    ++written_;
    return Answer::Ok;
}

}  // namespace morvane::cli
