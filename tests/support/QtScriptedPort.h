#pragma once
// The scripted user port of the window tests (Qt Test): what was asked with no answer
// queued is noted in failures, which each test checks at its end.

#include <QString>
#include <QStringList>
#include <string>

#include "support/ScriptedPortBase.h"

namespace morvane::testing {

class QtScriptedPort : public ScriptedPortBase {
  public:
    QStringList failures;

    // The texts of the messages so far.
    QStringList texts() const {
        QStringList out;
        for (const Message& m : messages)
            out << QString::fromStdString(m.text);
        return out;
    }
    QString lastText() const {
        return messages.empty() ? QString() : QString::fromStdString(messages.back().text);
    }

  protected:
    void unexpected(const std::string& what) override { failures << QString::fromStdString(what); }
};

}  // namespace morvane::testing
