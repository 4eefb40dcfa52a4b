#include "bridge/command_strings.h"
#include "bridge/project_reread.h"
#include "bridge/tag_format_globals.h"
#include "tests/bridge/recording_host.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_host.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

using Lines = std::vector<std::string>;

class CommandStrings : public ::testing::Test {
protected:
    RecordingHost host;
    Lines& sent = host.documents.sent;
    std::vector<std::function<void()>>& handedOver = host.documents.handedOver;
    ProjectReread reread;
};

TEST_F(CommandStrings, everyCommand_isSentToTheCurrentDocumentWithoutEcho) {
    const std::pair<CommandString, const char*> commands[] = {
        {CommandString::reportDrawings, "(c:kq_dwglst_proj)"},
        {CommandString::updateTitleBlocks, "(c:kq_tb)"},
        {CommandString::resequence, "(c:kq_bump)"},
        {CommandString::runPendingUpdates, "(c:kq_upd_pending nil)"},
        {CommandString::plotDrawings, "(c:ryv_prnt_proj nil nil)"},
        {CommandString::archiveProject, "(c:kq_zip_do_kqzip 0)"},
        {CommandString::rereadProject, "(c:ryv_kqp_reread)"},
        {CommandString::freshenTags, "(c:kq_iec_tag_freshen)"},
        {CommandString::rereadDrawingParameters, "(c:kq_reread_dwg_params)"},
        {CommandString::updateComponent, "(RYMtUpdateComponent)"},
        {CommandString::publishDrawings, "RYPUBLISH"},
        {CommandString::clearMenuChoice, "kq_menu_clear_kqmenu2use"},
        {CommandString::newProject, "_.ryvnewproject"},
        {CommandString::newDrawing, "_.ryvnewdrawing"},
        {CommandString::drawingProperties, "_.ryvdrawingprops"},
        {CommandString::compareDrawingToProject, "_.ryvcomparedtop"},
        {CommandString::projectProperties, "_.ryvprojectprops"},
        {CommandString::continueNewDrawing, "_ryvcontinuenewdrawing"},
        {CommandString::copyDrawing, "RYNAVCOPYTO"},
    };
    for (const auto& [command, text] : commands) {
        sent.clear();
        queueCommandString(command);
        EXPECT_EQ(sent, Lines{std::string("7 activate \"") + text + "<000D>\""});
    }
    host.documents.current = DocumentId::none;
    sent.clear();
    queueCommandString(CommandString::newProject);
    EXPECT_EQ(sent, Lines{});
}

TEST_F(CommandStrings, inApplicationContext_goToTheDocumentThatIsCurrentByThen) {
    runInApplicationContext(CommandString::newDrawing);
    EXPECT_EQ(sent, Lines{});
    ASSERT_EQ(handedOver.size(), 1u);
    host.documents.current = DocumentId{9};
    handedOver[0]();
    EXPECT_EQ(sent, Lines{"9 activate \"_.ryvnewdrawing<000D>\""});
}

TEST_F(CommandStrings, busyDocument_skipsTheRereadOnly) {
    host.documents.quiescent = false;
    EXPECT_FALSE(isQuiescent());
    queueCommandString(CommandString::rereadProject);
    reread.queue();
    EXPECT_EQ(sent, Lines{});
    queueCommandString(CommandString::updateTitleBlocks);
    EXPECT_EQ(sent.size(), 1u);
    host.documents.current = DocumentId::none;
    EXPECT_TRUE(isQuiescent());
}

TEST_F(CommandStrings, openingADrawing_needsAFileAndAPlainPath) {
    MemoryFiles files;
    host.ports.os.files = &files;
    const CString path = u"\\d\\100%s \u96FB.dwg";
    const CStringArray refused{u"\\d\\none.dwg", u"\\d", u"\\d\\a\" (evil).dwg", u"\\d\\a\rb.dwg", u""};
    files.put(path, "");
    files.put(refused[2], "");
    files.put(refused[3], "");
    for (const CString& each : refused)
        EXPECT_FALSE(openDrawing(each)) << shown(each);
    EXPECT_EQ(sent, Lines{});
    EXPECT_TRUE(openDrawing(path));
    EXPECT_EQ(sent, Lines{"7 activate echo " + shown(u"_.open \"" + path + u"\"\r")});
}

TEST_F(CommandStrings, openingADrawing_withoutADocumentRunsOutsideOfDocuments) {
    MemoryFiles files;
    ScriptedCommands commands;
    host.ports.os.files = &files;
    host.ports.host.commands = &commands;
    files.put(u"\\d\\a.dwg", "");
    host.documents.current = DocumentId::none;
    EXPECT_TRUE(openDrawing(u"\\d\\a.dwg"));
    EXPECT_EQ(sent, Lines{});
    ASSERT_EQ(handedOver.size(), 1u);
    EXPECT_EQ(commands.runs.size(), 0u);
    handedOver[0]();
    EXPECT_EQ(commands.runs, (std::vector<CStringArray>{{u"_.open", u"\\d\\a.dwg"}}));
}

TEST_F(CommandStrings, reread_neverEntersItself) {
    host.lisp.duringCall = [this] {
        EXPECT_TRUE(reread.isRunning());
        EXPECT_FALSE(reread.run());
        reread.queue();
    };
    EXPECT_TRUE(reread.run());
    EXPECT_EQ(host.lisp.calls, Lines{R"("c:ryv_kqp_reread")"});
    EXPECT_EQ(sent, Lines{});
    host.lisp.duringCall = nullptr;
    host.lisp.status = LispStatus::failure;
    EXPECT_FALSE(reread.run());
    reread.queue();
    EXPECT_EQ(host.lisp.calls.size(), 2u);
    EXPECT_EQ(sent, Lines{"7 activate \"(c:ryv_kqp_reread)<000D>\""});
}

TEST_F(CommandStrings, tagFormatGlobals_differInValueAndInBeingFound) {
    const auto read = [this](HostResultBuffer value) {
        host.lisp.reply = value;
        return readTagFormatGlobals();
    };
    const TagFormatGlobals zero = read(HostResultBuffer().addInteger(0));
    EXPECT_EQ(host.lisp.calls, (Lines{R"("ryv_get_var" "GBL_kq_tagloc_format_instloc_into_tag")",
                                   R"("ryv_get_var" "GBL_kq_tagloc_redundant_instloc_suppress")",
                                   R"("ryv_get_var" "GBL_kq_combined_tagloc_prefix")"}));
    EXPECT_NE(zero, read(HostResultBuffer().addInteger(1)));
    EXPECT_NE(zero, read(HostResultBuffer().addString(u"0")));
    EXPECT_EQ(read(HostResultBuffer().addNil()), read(HostResultBuffer().addString(u"0")));
    EXPECT_EQ(read(HostResultBuffer().addInteger(1)), read(HostResultBuffer().addString(u"1")));
}

} // namespace
} // namespace ryv::test
