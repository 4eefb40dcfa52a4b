// The properties sheets at work: what is stored, what others changed meanwhile, and what LISP hears.
#include "tests/ui/dialogs/work/work_fixture.h"
#include "ui/dialogs/work/drawing_properties.h"
#include "ui/dialogs/work/project_properties.h"

namespace ryv::test {
namespace {

class Properties : public WorkFixture {
protected:
    std::string headOf(CStringView file) { return content(file).substr(0, content(file).find("?[0]")); }
    Properties() { manager->onPreProjectDrawingDetailsModify.subscribe(*this, &Properties::modify); }
    ~Properties() override {
        manager->onPreProjectDrawingDetailsModify.unsubscribe(*this, &Properties::modify);
    }
    std::shared_ptr<drafta::Drawing> openInHost() {
        DrawingResult result;
        surroundings.documents.openDocument(a);
        return drawings.documents[toUpper(a)] = drafta::Drawing::load(faults, a, result);
    }
    void closeInHost() {
        drawings.documents.clear();
        surroundings.documents.closeDocument(surroundings.documents.documentOfFile(a));
    }
    std::function<void()> onModify = [] {}; ///< runs before a drawing's entry is changed
    const CString a = path("a.dwg");

private:
    void modify(const CString&, const RyvPrmFileDetails&) {
        const auto now = onModify; // which may put another one in its place
        now();
    }
};

TEST_F(Properties, ofProject_areStoredAndToldToLisp) {
    answerDialog(u"tagFormat=%S%N; descriptions=One|Zwei|Three; value9=neun; ok");
    showProjectProperties(id);
    EXPECT_EQ(valueInProject(5), "%S%N");
    EXPECT_EQ(headOf(id), "*[1]One\n*[2]Zwei\n*[3]Three\n+[9]neun\n");
    EXPECT_TRUE(called(u"c:ryv_kqp_reread"));
    EXPECT_EQ(queued(), "") << "the globals are what they were";
    const auto& check = surroundings.lockCheck.checks.front();
    EXPECT_EQ(check.files, CStringList{id});
    EXPECT_EQ(check.secondFlag, 0);

    int reads = 0;
    surroundings.lisp.define(u"ryv_get_var", [&reads](const HostResultBuffer&, HostResultBuffer& out) {
        out = HostResultBuffer().addInteger(++reads > 3 ? 1 : 0);
        return LispStatus::success;
    });
    answerDialog(u"ok");
    showProjectProperties(id);
    EXPECT_EQ(queued(), "(c:kq_iec_tag_freshen)");
}

TEST_F(Properties, ofProject_cancelledOrWithoutDrawings_leaveLispAlone) {
    const std::string before = content(id);
    answerDialog(u"tagFormat=%S; cancel");
    showProjectProperties(id);
    EXPECT_EQ(content(id), before);
    files.put(id, "*[1]One\n");
    manager->reReadProject(CStringView(id));
    answerDialog(u"tagFormat=%S; ok");
    showProjectProperties(id);
    EXPECT_EQ(valueInProject(5), "%S");
    EXPECT_FALSE(called(u"c:ryv_kqp_reread"));
    showProjectProperties(path("closed.kqp"));
    EXPECT_EQ(surroundings.ui.asked, (CStringArray{u"dialog", u"dialog"}));
}

/// Read again or not: theirs stays where both changed a value, all else of both is there.
TEST_F(Properties, ofProject_keepWhatOthersChanged) {
    for (const bool isRead : {false, true}) {
        files.put(id, projectText);
        manager->reReadProject(CStringView(id));
        answerDialog(u"tagFormat=%M; wireFormat=%W%N; descriptions=Mine|My two|Three; value9=m; ok", [&] {
            std::string others = projectText;
            others.replace(others.find("One"), 3, "Theirs");
            others.replace(others.find("nine"), 4, "t");
            others.replace(others.find("%F%N"), 4, "%T");
            files.put(id, others + "?[11]25\n");
            if (isRead)
                manager->reReadProject(CStringView(id));
        });
        answerReport();
        showProjectProperties(id);
        EXPECT_EQ(headOf(id), "*[1]Theirs\n*[2]My two\n*[3]Three\n+[9]t\n");
        EXPECT_EQ(valueInProject(5), "%T");
        EXPECT_EQ(valueInProject(9), "%W%N");
        EXPECT_NE(
            report.find("Description line 1/Settings: Value 9/Components: Tag format"), std::string::npos)
            << report;
        EXPECT_EQ(messages(), "");
        EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
    }
}

TEST_F(Properties, ofProject_afterAFailure_goBackToWhatWasTyped) {
    answerDialog(
        u"tagFormat=%S%N; ok", [this] { faults.arm({.error = FileError::noSpace, .lasting = true}); });
    surroundings.ui.answerMessage(2806, Answer::retry);
    answerDialog(u"tagFormat=%M; wireFormat=%W; ok", [this] {
        faults.disarm();
        const auto project = manager->holdProject(CStringView(id));
        EXPECT_EQ(*project->getProjectData().getProjDefKQMVals().find(5), u"%F%N") << "not left in memory";
    });
    showProjectProperties(id);
    EXPECT_EQ(messages(), "2806");
    EXPECT_EQ(valueInProject(5) + valueInProject(9), "%M%W");
    EXPECT_EQ(surroundings.ui.asked, (CStringArray{u"dialog", u"message 2806", u"dialog"})) << "no conflict";

    answerDialog(u"tagFormat=%C; ok", [this] { manager->closeProject(id, true); });
    surroundings.ui.answerMessage(2808, Answer::retry);
    answerDialog(u"ok");
    showProjectProperties(id);
    EXPECT_EQ(messages(), "2808");
    EXPECT_EQ(valueInProject(5), "%C");
    EXPECT_TRUE(manager->getProject(id));

    answerDialog(u"tagFormat=%D; ok", [this] { manager->closeProject(id, true); });
    showProjectProperties(id);
    EXPECT_EQ(valueInProject(5), "%C") << "dropped";
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(Properties, ofDrawing_goIntoItsBlockAndItsEntry) {
    answerDialog(u"tagFormat=%X; sheet=7; section=S1; descriptions=first|more; referenceOnly=1; ok");
    showDrawingProperties(a, true);
    EXPECT_EQ(valueIn("a", u"TAGFMT") + valueIn("a", u"SHEET"), "%X7");
    const auto project = manager->holdProject(CStringView(id));
    const RyvPrmFileDetails& entry = *project->getProjectData().findFile(a);
    EXPECT_EQ(toUtf8(entry.getDescription1()), "S1");
    EXPECT_EQ(entry.getDescriptions().size(), 2u);
    EXPECT_TRUE(entry.isReferenceOnly());
    EXPECT_EQ(queued(), "(c:kq_reread_dwg_params)");
    EXPECT_TRUE(manager->notifyLispKQ_MAndRemove(CStringView(a)));
    queued();

    const auto before = disk(); // nothing changed, nothing written
    answerDialog(u"ok");
    showDrawingProperties(a, true);
    EXPECT_EQ(disk(), before);
}

TEST_F(Properties, ofDrawing_keepWhatOthersChanged) {
    answerDialog(u"tagFormat=%M; wireFormat=%W; section=mine; subSection=my; ok", [this] {
        drawing("a", {{5, u"%T"}, {11, u"25"}});
        files.put(id, "=theirs\na.dwg\n"); // not read again
    });
    answerReport();
    showDrawingProperties(a, true);
    EXPECT_EQ(valueIn("a", u"TAGFMT") + valueIn("a", u"WIREFMT") + valueIn("a", u"RUNGDIST"), "%T%W25");
    EXPECT_EQ(content(id).substr(content(id).find("=theirs")), "=theirs\n==my\na.dwg\n");
    EXPECT_NE(report.find("Section/Components: Tag format"), std::string::npos) << report;
}

TEST_F(Properties, ofDrawingInTheHost_changeTheDocumentAlone) {
    const auto document = openInHost();
    const std::string before = content(a);
    answerDialog(u"tagFormat=%X; ok");
    showDrawingProperties(a, true);
    EXPECT_EQ(content(a), before);
    EXPECT_TRUE(document->isModified());
    EXPECT_EQ(valueIn("a", u"TAGFMT"), "%X");
    EXPECT_EQ(lockCount(), 0u);
}

/// Another document comes to the front under the sheet, and at last the sheet's own is closed.
TEST_F(Properties, ofDrawingWithoutAFile_stayThoseOfItsDocument) {
    const auto open = [this](CStringView name) {
        const DocumentId id = surroundings.documents.openDocument(name, false);
        DrawingResult result;
        drawings.untitled[id] = drafta::Drawing::load(faults, path("b.dwg"), result);
        return id;
    };
    const DocumentId first = open(u"Drawing1.dwg");
    DocumentId second = DocumentId::none;
    answerDialog(u"sheet=9; ok", [&] { second = open(u"Drawing2.dwg"); });
    showDrawingProperties(u"Drawing1.dwg", false);
    EXPECT_TRUE(drawings.untitled[first]->isModified());
    EXPECT_FALSE(drawings.untitled[second]->isModified());

    surroundings.documents.activate(first);
    answerDialog(u"sheet=10; ok", [&] {
        surroundings.documents.closeDocument(first);
        drawings.untitled.erase(first);
    });
    showDrawingProperties(u"Drawing1.dwg", false);
    EXPECT_EQ(messages(), "2807");
    EXPECT_FALSE(drawings.untitled[second]->isModified());
}

/// What was made of the file would not be seen in the window, nor saved with it, and the other way round.
TEST_F(Properties, ofDrawingThatIsOpenedOrClosedWhileItIsWritten_areStoredOnceMore) {
    openInHost();
    for (const bool opens : {false, true}) {
        SCOPED_TRACE(opens);
        const std::string before = content(a);
        answerDialog(u"tagFormat=%X; ok",
            [&] { drawings.onOpen = [&] { opens ? void(openInHost()) : closeInHost(); }; });
        surroundings.ui.answerMessage(2807, Answer::retry);
        answerDialog(opens ? u"tagFormat=%Y; ok" : u"tagFormat=%Z; ok");
        showDrawingProperties(a, true);
        EXPECT_EQ(messages(), "2807");
        EXPECT_EQ(valueIn("a", u"TAGFMT"), opens ? "%Y" : "%Z");
        EXPECT_EQ(content(a) == before, opens);
        EXPECT_EQ(std::exchange(surroundings.ui.asked, {}).size(), 3u) << "no conflict";
    }
}

TEST_F(Properties, ofDrawingThatLeavesTheProject_areTheSettingsAlone) {
    for (const bool isRead : {false, true}) {
        SCOPED_TRACE(isRead);
        for (const bool changesEntry : {true, false}) {
            drawing("a", {});
            files.put(id, projectText);
            manager->reReadProject(CStringView(id));
            answerDialog(changesEntry ? u"tagFormat=%X; section=S1; ok" : u"tagFormat=%X; ok", [&] {
                files.put(id, "b.dwg\n");
                if (isRead)
                    manager->reReadProject(CStringView(id));
            });
            showDrawingProperties(a, true);
            EXPECT_EQ(messages(), changesEntry ? "2817" : "");
            EXPECT_EQ(valueIn("a", u"TAGFMT"), "%X");
            EXPECT_EQ(content(id), "b.dwg\n");
        }
    }
}

/// What the drawing does not say itself comes from its own project to the end.
TEST_F(Properties, ofDrawingWhoseProjectIsClosed_takeNothingFromTheActiveOne) {
    RyvCfgDrawingSettings partial = settingsOf({});
    partial.setValue(5, nullptr);
    files.put(a, drawingText(partial));
    files.put(path("B.kqp"), "?[5]%B\n");
    ASSERT_TRUE(manager->openProject(path("B.kqp"), true));
    answerDialog(u"wireFormat=%W; ok", [this] { manager->closeProject(id, true); });
    showDrawingProperties(a, true);
    EXPECT_EQ(valueIn("a", u"TAGFMT") + valueIn("a", u"WIREFMT"), "%F%N%W");
    EXPECT_EQ(surroundings.ui.asked, CStringArray{u"dialog"}) << "no conflict";
}

/// Neither block nor entry is stored without the other.
TEST_F(Properties, ofDrawing_whoseEntryCannotBeStored_leaveItsBlock) {
    const std::string before = content(a) + content(id);
    answerDialog(
        u"tagFormat=%X; section=S1; ok", [this] { surroundings.lockCheck.heldByOthers = {toUpper(id)}; });
    surroundings.ui.answerMessage(2807, Answer::retry);
    answerDialog(u"ok", [this] {
        surroundings.lockCheck.heldByOthers.clear();
        faults.arm({.error = FileError::noSpace, .kind = FileCall::write, .lasting = true});
    });
    surroundings.ui.answerMessage(2807, Answer::retry);
    answerDialog(u"ok", [this] {
        faults.disarm();
        manager->closeProject(id, true);
    });
    surroundings.ui.answerMessage(2808, Answer::cancel);
    showDrawingProperties(a, true);
    EXPECT_EQ(messages(), "2807 2807 2808");
    EXPECT_EQ(content(a) + content(id), before);
    EXPECT_EQ(queued().find("dwg_params"), std::string::npos);
    EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
}

TEST_F(Properties, ofDrawing_whoseBlockCannotBeStored_leaveItsEntry) {
    // The entry is taken back when the drawing turns out to be missing; the second time that fails, too.
    for (const bool isTakenBack : {true, false}) {
        SCOPED_TRACE(isTakenBack);
        files.put(id, projectText);
        manager->reReadProject(CStringView(id));
        drawing("a", {});
        int changes = 0;
        onModify = [&] {
            if (++changes == 2 && !isTakenBack)
                faults.arm({.error = FileError::io, .lasting = true});
        };
        answerDialog(u"tagFormat=%X; section=S1; ok", [this] { files.erase(a); });
        surroundings.ui.answerMessage(2807, Answer::retry);
        answerDialog(u"tagFormat=%Y; section=S2; ok", [&] {
            faults.disarm();
            EXPECT_EQ(content(id).find("=S1") == std::string::npos, isTakenBack);
            EXPECT_EQ(
                surroundings.ui.messages.back().text.find(u"not be put back") == CString::npos, isTakenBack);
            drawing("a", {});
        });
        showDrawingProperties(a, true);
        EXPECT_EQ(valueIn("a", u"TAGFMT"), "%Y");
        EXPECT_NE(content(id).find("=S2\n===first\na.dwg"), std::string::npos) << content(id);
        EXPECT_EQ(
            std::exchange(surroundings.ui.asked, {}), (CStringArray{u"dialog", u"message 2807", u"dialog"}))
            << "no conflict";
        messages();
    }
}

/// A handler of the event before the change reads what others have written just then.
TEST_F(Properties, ofDrawing_keepWhatComesInWhileTheEntryIsStored) {
    onModify = [this] {
        onModify = [] {};
        files.put(id, "=theirs\na.dwg\n");
        manager->reReadProject(CStringView(id));
    };
    answerDialog(u"section=mine; subSection=my; ok");
    answerReport();
    showDrawingProperties(a, true);
    EXPECT_NE(content(id).find("=theirs\n==my\na.dwg\n"), std::string::npos) << content(id);
    EXPECT_NE(report.find("Section"), std::string::npos) << report;
}

} // namespace
} // namespace ryv::test
