#include "resources/message_numbers.h"
#include "tests/manager/manager_fixture.h"

namespace ryv::test {
namespace {

/// A project whose drawings lay in "D:\old" once.
class PathCheckTest : public ManagerFixture {
protected:
    void list(const std::vector<std::string>& drawings) {
        std::string lines;
        for (const std::string& drawing : drawings)
            lines += "D:\\old\\" + drawing + "\n";
        files.put(a, lines);
    }
    void exists(const CString& file) { files.put(file, "drawing"); }
    std::vector<std::string> asked() {
        std::vector<std::string> questions;
        for (const CString& question : surroundings.ui.asked)
            questions.push_back(toUtf8(question));
        return questions;
    }
    void agree(int message) { surroundings.ui.answerMessage(message, Answer::ok); }

    CString a = path("a.kqp");
    using Questions = std::vector<std::string>;
};

TEST_F(PathCheckTest, allDrawingsInTheProjectFolder_areRepairedAtOnce_andWritten) {
    list({"one.dwg", "two.dwg"});
    exists(path("one.dwg"));
    exists(path("two.dwg"));
    agree(message::allFoundInFolder);
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked(), (Questions{"message 132"}));
    EXPECT_EQ(bytes(a).substr(bytes(a).find("one")), "one.dwg\ntwo.dwg\n");
    EXPECT_NE(surroundings.ui.messages[0].text.find(u"D:\\old"), CString::npos);
    EXPECT_FALSE(files.get(a + u".FLL"));
    manager->closeProject(a, true);
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked().size(), 1u); // nothing is missing any more
}

TEST_F(PathCheckTest, drawingsInSeveralPlaces_areAskedForOneAfterTheOther) {
    list({"one.dwg", "two.dwg", "three.dwg"});
    exists(path("one.dwg"));
    exists(u"E:\\new\\two.dwg");
    exists(u"F:\\far\\three.dwg");
    surroundings.documents.open = true;
    agree(message::oneFoundInFolder);
    agree(message::drawingNotFound);
    agree(message::drawingNotFound);
    surroundings.ui.answerFiles(message::locateDrawingTitle, {u"E:\\new\\two.dwg"});
    surroundings.ui.answerFiles(message::locateDrawingTitle, {u"F:\\far\\three.dwg"});
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked(), (Questions{"message 134", "message 136", "file 138", "message 136", "file 138"}));
    EXPECT_EQ(bytes(a).substr(bytes(a).find("one")), "one.dwg\nE:\\new\\two.dwg\nF:\\far\\three.dwg\n");
    EXPECT_EQ(surroundings.ui.fileRequests[0].folder, u"C:\\P");
}

TEST_F(PathCheckTest, stoppedCheck_writesNothing) {
    list({"one.dwg", "two.dwg"});
    exists(path("one.dwg"));
    const std::string before = bytes(a);
    agree(message::oneFoundInFolder); // then Cancel about the second one
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked(), (Questions{"message 134", "message 136"}));
    EXPECT_EQ(bytes(a), before);
    EXPECT_TRUE(manager->isFileInProject(path("one.dwg"), a)); // in memory, until the file is read again
    manager->reReadProject(a);
    EXPECT_FALSE(manager->isFileInProject(path("one.dwg"), a));
}

TEST_F(PathCheckTest, fileDialogWithoutAPick_endsTheCheck) {
    list({"one.dwg"});
    agree(message::drawingNotFound);
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked(), (Questions{"message 136", "file 138"}));
}

TEST_F(PathCheckTest, helperProcess_asksNobody) {
    list({"one.dwg"});
    surroundings.projectDatabase.helperProcess = true;
    EXPECT_TRUE(open(a));
    EXPECT_TRUE(asked().empty());
}

TEST_F(PathCheckTest, projectThatCannotBeLockedOrWritten_isExplained) {
    list({"one.dwg"});
    exists(path("one.dwg"));
    files.protect(a);
    agree(message::allFoundInFolder);
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked(), (Questions{"message 132", "message 183"}));
    EXPECT_EQ(surroundings.ui.messages[1].icon, MessageIcon::error);
    EXPECT_TRUE(manager->isFileInProject(path("one.dwg"), a));
}

TEST_F(PathCheckTest, projectChangedDuringTheQuestion_isNotOverwritten) {
    list({"one.dwg"});
    exists(path("one.dwg"));
    agree(message::allFoundInFolder);
    surroundings.ui.meanwhile = [this] { files.put(a, "theirs.dwg\n"); };
    EXPECT_TRUE(open(a));
    EXPECT_EQ(asked(), (Questions{"message 132", "message 185"}));
    EXPECT_EQ(bytes(a), "theirs.dwg\n");
}

TEST_F(PathCheckTest, projectOpenedDuringTheQuestion_isOpenOnce) {
    list({"one.dwg"});
    surroundings.ui.meanwhile = [this] {
        surroundings.projectDatabase.helperProcess = true; // which asks nobody
        open(a);
    };
    EXPECT_TRUE(open(a, true));
    EXPECT_EQ(manager->getProjectCount(), 1);
    EXPECT_EQ(story(), "open a.kqp, veto?, setActive a.kqp, actived a.kqp");
}

} // namespace
} // namespace ryv::test
