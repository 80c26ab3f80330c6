#pragma once
// The scripted user port of the GoogleTest tests: a question or a dialog with no
// answer queued fails the test.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ScriptedPortBase.h"

namespace morvane::testing {

class ScriptedUserPort : public ScriptedPortBase {
  public:
    // The texts of the messages so far, in order.
    std::vector<std::string> texts() const {
        std::vector<std::string> out;
        for (const auto& m : messages)
            out.push_back(m.text);
        return out;
    }

  protected:
    void unexpected(const std::string& what) override { ADD_FAILURE() << what; }
};

}  // namespace morvane::testing
