// The cross-references of one component while its project is read again or closed.
#include "tests/support/memory_manager.h"
#include "toolkit/dialog_script.h"
#include "ui/dialogs/settings/override_dialog.h"

namespace ryv::test {
namespace {

class OverrideDialog : public MemoryManager {};

TEST_F(OverrideDialog, rereadOrClosedProject_leavesValuesAndFilesAlone) {
    const CString id = path("a.kqp");
    const std::string theirs = "?[60]2\n?[14]%S\n";
    const CStringArray given = {u"%N", u"%S-%N", u"0", u"1", u"0", u"x", u"0", u",", u"1", u"0", u"NO"};
    const std::function<void()> events[] = {[&] { EXPECT_TRUE(manager->reReadProject(CStringView(id))); },
        [&] { EXPECT_TRUE(manager->closeProject(id, true)); }};
    for (const auto& event : events) {
        files.put(id, "?[60]1\n");
        ASSERT_TRUE(manager->openProject(id, true));
        CRyvCfgCrossRefCompOverrideDlg dialog(given);
        dialog.begin();
        EXPECT_TRUE(runDialogScript(dialog, u"referenceFormat=%N!; unusedText=y").ok());
        files.put(id, theirs);
        event();
        EXPECT_TRUE(runDialogScript(dialog, u"referenceStyle=Table; ok").ok());
        CStringArray expected = given;
        expected.resize(CRyvCfgCrossRefCompOverrideDlg::valueCount);
        expected[0] = u"%N!";
        expected[2] = u"2";
        expected[5] = u"y";
        EXPECT_EQ(dialog.values(), expected);
        EXPECT_EQ(files.get(id), theirs);
    }
}

} // namespace
} // namespace ryv::test
