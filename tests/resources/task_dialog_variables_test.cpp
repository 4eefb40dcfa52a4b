#include "resources/task_dialog_variables.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

TEST(TaskDialogVariables, variables_areFilledInOnce) {
    const std::vector<std::pair<CString, CString>> values{
        {u"A", u"old"}, {u"B", u"{A}"}, {u"A", u"new"}, {u"Unused", u"x"}};
    const std::pair<const char16_t*, const char*> cases[] = {{u"{A}", "new"}, {u"<{A}{A}>", "<newnew>"},
        {u"{B}", "{A}"}, {u"{a}", "{a}"}, {u"{C} {A}", "{C} new"}, {u"{{A}", "{new"}, {u"{A", "{A"},
        {u"}{}", "}{}"}, {u"", ""}};
    for (const auto& [text, filled] : cases)
        EXPECT_EQ(toAscii(fillVariables(text, values)), filled);
}

} // namespace
} // namespace ryv::test
