#include "embedded/services/task_dialog_catalogue.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

TEST(TaskDialogCatalogue, knownDialog_isFilledInWhole) {
    TaskDialogCatalogue catalogue;
    ryv::TaskDialogRequest request;
    request.buttons = {{99, u"left over"}};
    const std::vector<std::pair<ryv::CString, ryv::CString>> variables{{u"ItemsToRemove", u"- A.dwg\n"}};
    ASSERT_TRUE(catalogue.load(u"RyvPageMan.RemoveSubfoldersAndDrawings", variables, request));
    EXPECT_EQ(ryv::toAscii(request.id), "RyvPageMan.RemoveSubfoldersAndDrawings");
    EXPECT_FALSE(request.title.empty() || request.instruction.empty());
    EXPECT_TRUE(request.content.starts_with(u"- A.dwg\n")) << ryv::toAscii(request.content);
    ASSERT_EQ(request.buttons.size(), 2u);
    EXPECT_EQ(ryv::toAscii(request.buttons[0].text), "Yes");
    EXPECT_EQ(request.defaultButton, request.buttons[1].id);
    EXPECT_EQ(request.variables, variables);
}

TEST(TaskDialogCatalogue, unknownDialog_leavesTheRequestAlone) {
    TaskDialogCatalogue catalogue;
    ryv::TaskDialogRequest request;
    request.title = u"kept";
    EXPECT_FALSE(catalogue.load(u"RyvPageMan.NoSuchDialog", {}, request));
    EXPECT_EQ(ryv::toAscii(request.title), "kept");
}

} // namespace
} // namespace drafta
