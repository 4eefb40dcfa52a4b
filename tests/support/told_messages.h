// What a test's user was told in message boxes.
#pragma once

#include "base/encoding.h"
#include "tests/support/scripted_ui.h"

#include <gtest/gtest.h>
#include <utility>

namespace ryv::test {

/// The numbers of the messages since the last call: "2801 2806". None may have been told without its
/// arguments.
inline std::string takeMessages(ScriptedUserInterface& ui) {
    std::string numbers;
    for (const MessageBoxRequest& each : std::exchange(ui.messages, {})) {
        numbers += (numbers.empty() ? "" : " ") + std::to_string(each.message);
        EXPECT_EQ(each.text.find(u"%s"), CString::npos) << toUtf8(each.text);
    }
    return numbers;
}

} // namespace ryv::test
