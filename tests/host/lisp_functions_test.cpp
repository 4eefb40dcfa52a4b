// What the module's LISP functions do when they are called as they should be.
#include "tests/host/lisp_fixture.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_drawing.h"
#include "toolkit/dialog_script.h"

namespace ryv::test {
namespace {

using LispFunctionsTest = LispFixture;

TEST_F(LispFunctionsTest, loadLastProjects_opensTheOlderListOnce) {
    surroundings.documents.open = true;
    surroundings.lisp.answer(
        u"c:kq_get_recent_prj_lst", HostResultBuffer().addListBegin().addString(path("b.kqp")).addListEnd());
    EXPECT_EQ(call(u"ryv_loadlastprojects"), "nil/1");
    EXPECT_EQ(projects(), "A* B");
    manager().closeProject(path("b.kqp"), false);
    call(u"ryv_loadlastprojects");
    EXPECT_EQ(projects(), "A*");
}

struct Vetoer {
    void veto(bool& vetoed) { vetoed = true; }
};

TEST_F(LispFunctionsTest, closeProject_whoseSuccessorIsRefused_staysOpen) {
    manager().openProject(path("b.kqp"), false);
    Vetoer vetoer;
    manager().OnProjectEventVetoCheck.subscribe(vetoer, &Vetoer::veto);
    EXPECT_EQ(call(u"ryv_closeproject", path("a.kqp")), "nil/3");
    EXPECT_EQ(projects(), "A* B");
    manager().__RemoveAllEventHandlers(&vetoer);
}

TEST_F(LispFunctionsTest, rereadProject_takesNilForTheActiveOne) {
    manager().openProject(path("b.kqp"), false);
    folder.write("a.kqp", "one.dwg\n");
    folder.write("b.kqp", "two.dwg\n");
    EXPECT_EQ(call(u"ryv_rereadproject", HostResultBuffer().addNil()), "T/1");
    EXPECT_TRUE(manager().isFileInProject(path("one.dwg")));
    EXPECT_FALSE(manager().isFileInProject(path("two.dwg"), path("b.kqp")));
    EXPECT_EQ(call(u"ryv_rereadproject", replaceAll(path("b.kqp"), u'\\', u'/')), "T/1");
    EXPECT_TRUE(manager().isFileInProject(path("two.dwg"), path("b.kqp")));
}

TEST_F(LispFunctionsTest, activeProject_isTold) {
    EXPECT_EQ(call(u"ryv_isOZMProject"), "0/1");
    manager().closeProject(path("a.kqp"), true);
    EXPECT_EQ(call(u"ryv_getactiveproject"), "nil/1");
    EXPECT_EQ(call(u"ryv_isOZMProject"), "0/1");
    EXPECT_EQ(call(u"ryv_rereadproject", CString()), "nil/1");
    manager().openProject(path("b.kqp"), false);
    manager().openProject(path("c.kqp"), false);
    EXPECT_EQ(call(u"ryv_closeproject", path("b.kqp")), "nil/3") << "there is none that would follow it";
}

TEST_F(LispFunctionsTest, updateLastProjectFile_examinesFourItemsAndUsesNone) {
    const auto record = [this](const CString& code, const HostResultBuffer& items) {
        HostResultBuffer chain = HostResultBuffer().addString(path("b.kqp")).addString(code);
        chain.addNestedList(items);
        return call(u"ryv_updateLastProjectFile", chain);
    };
    HostResultBuffer good = HostResultBuffer().addString(u"x").addNil().addString(u"y").addNil();
    EXPECT_EQ(record(u"0", HostResultBuffer(good).addInteger(1)), "T/1") << "the fifth does not matter";
    const std::string before = folder.read("LastProj.fil");
    EXPECT_EQ(record(u"2", HostResultBuffer().addString(u"x").addInteger(1)), "nil/3");
    EXPECT_EQ(record(u"\"", good), "nil/3") << "a line cannot hold the code";
    EXPECT_EQ(folder.read("LastProj.fil"), before);
    EXPECT_EQ(record(u"X", good), "T/1");
    EXPECT_NE(folder.read("LastProj.fil"), before);
}

TEST_F(LispFunctionsTest, lockFunctions_tellTheStateOfAFile) {
    const CString file = path("b.kqp");
    const auto state = [this, &file] {
        const std::string who = call(u"ryv_getprojectwholocked", file);
        EXPECT_EQ(call(u"ryv_getdwgwholocked", file), who);
        EXPECT_EQ(call(u"ryv_getdwglockstatus", file), call(u"ryv_getprojectlockstatus", file));
        return call(u"ryv_getprojectlockstatus", file) + " " + who;
    };
    EXPECT_EQ(call(u"ryv_virtuallockproject", replaceAll(file, u'\\', u'/'), 1), "1/1");
    CString holder;
    CString machine;
    CString since;
    manager().whoHasProjectFileLocked(file, &holder, &machine, &since);
    EXPECT_FALSE(holder.empty());
    EXPECT_EQ(state(), "2/1 " + shown(holder) + "/1");
    EXPECT_EQ(call(u"ryv_virtuallockproject", file, 2), "1/1") << "any number but 1 unlocks";
    EXPECT_EQ(call(u"ryv_virtuallockproject", file, 0), "0/1") << "nothing to unlock";
    EXPECT_EQ(state(), "1/1 \"\"/1");
    ASSERT_TRUE(files.setReadOnly(file, true).ok());
    EXPECT_EQ(state(), "5/1 <122>/1");
    EXPECT_EQ(call(u"ryv_virtuallockproject", file, 1), "0/1");
}

TEST_F(LispFunctionsTest, taskDialog_getsItsValuesInTheOrderOfTheirKeys) {
    using Pairs = std::vector<std::pair<CString, CString>>;
    const auto show = [this](const HostResultBuffer& pairs) {
        surroundings.ui.answerTask(u"D", 1001);
        EXPECT_EQ(call(u"ryv_taskdialog", HostResultBuffer().addString(u"D").addNestedList(pairs)), "1001/1");
        return surroundings.ui.tasks.back().variables;
    };
    HostResultBuffer pairs;
    pairs.addListBegin().addString(u"B").addString(u"2").addListEnd();
    pairs.addListBegin().addString(u"A").addDot().addString(u"1").addListEnd();
    pairs.addListBegin().addString(u"").addString(u"x").addListEnd();
    pairs.addListBegin().addString(u"a").addString(u"4").addListEnd();
    pairs.addListBegin().addString(u"A").addString(u"3").addListEnd();
    const Pairs inOrder{{u"A", u"3"}, {u"B", u"2"}, {u"a", u"4"}};
    EXPECT_EQ(show(pairs), inOrder);
    pairs.addListBegin().addString(u"C").addString(u"5").addString(u"6").addListEnd();
    pairs.addListBegin().addString(u"D").addString(u"7").addListEnd();
    EXPECT_EQ(show(pairs), inOrder) << "reading stops at three";
    surroundings.taskDialogs.missing.insert(u"D");
    EXPECT_EQ(call(u"ryv_taskdialog", CString(u"D")), "nil/1");
}

TEST_F(LispFunctionsTest, overrideDialog_givesSixteenValuesBack) {
    CStringArray values{u"%N", u"%S.%N", u"0", u"4", u"0", u"...", u"1", u", ", u"1", u"0", u"NO,NC",
        u"Standard", u"%T", u"1,2", u"A,B", u"MC,L"};
    HostResultBuffer arguments = HostResultBuffer().addStrings(values);
    EXPECT_EQ(call(u"ryv_croverridedlg", HostResultBuffer().addStrings(CStringArray(15, u"x"))), "nil/3");
    EXPECT_EQ(call(u"ryv_croverridedlg", HostResultBuffer().addStrings(CStringArray(17, u"x"))), "nil/3");
    EXPECT_EQ(call(u"ryv_croverridedlg", arguments), "nil/1") << "cancelled";
    surroundings.ui.answerDialog([](Dialog& dialog) {
        dialog.begin();
        const ScriptResult done = runDialogScript(
            dialog, u"referenceFormat=%N/%S; fillUnused=1; referenceStyle=Table; tableTitle=Ways; ok");
        EXPECT_TRUE(done.ok()) << toUtf8(done.failedStep + u": " + done.problem);
        return dialog.result();
    });
    const LispReply reply = surroundings.lisp.call(u"ryv_croverridedlg", arguments);
    EXPECT_TRUE(reply.isList);
    values[0] = u"%N/%S";
    values[2] = u"2";
    values[3] = u"5";
    values[12] = u"Ways";
    ASSERT_EQ(reply.value.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(*reply.value.stringAt(i), values[i]) << i;
}

TEST_F(LispFunctionsTest, copyFile_makesACopyThatMayBeWritten) {
    folder.write("from.dwg", std::string(200'000, 'd'));
    using std::filesystem::perms;
    std::filesystem::permissions(folder.native("from.dwg"), perms::owner_read);
    EXPECT_EQ(call(u"ryv_copy_file", folder.module() + u"//from.dwg", path("to.dwg")), "T/1");
    EXPECT_TRUE(folder.read("to.dwg") == folder.read("from.dwg"));
    EXPECT_EQ(std::filesystem::status(folder.native("to.dwg")).permissions(),
        perms::owner_read | perms::owner_write)
        << "nobody else may read it";
    folder.write("to.dwg", "mine");
    EXPECT_EQ(call(u"ryv_copy_file", path("from.dwg"), path("to.dwg")), "nil/1") << "the name is taken";
    EXPECT_EQ(folder.read("to.dwg"), "mine");
    EXPECT_EQ(call(u"ryv_copy_file", path("sub"), path("other")), "nil/1") << "a folder";
    EXPECT_FALSE(stands("other"));
}

TEST_F(LispFunctionsTest, copyFile_looksForWhatIsMissing) {
    folder.write("found.dwg", "f");
    surroundings.hostFiles.found[u"SOUGHT.DWG"] = path("found.dwg");
    EXPECT_EQ(call(u"ryv_copy_file", u"X:\\gone\\sought.dwg", path("to.dwg")), "T/1");
    EXPECT_EQ(folder.read("to.dwg"), "f");
    const CString target = path("gone") + u"\\new.dwg";
    EXPECT_EQ(call(u"ryv_copy_file", path("found.dwg"), target), "nil/1") << "there is no support path";
    surroundings.profile.support = {path("sub"), path("gone")};
    EXPECT_EQ(call(u"ryv_copy_file", path("found.dwg"), target), "T/1");
    EXPECT_EQ(folder.read("sub/new.dwg"), "f");
    const CString longName = path("gone") + u'\\' + CString(250, u'n');
    EXPECT_EQ(call(u"ryv_copy_file", path("found.dwg"), longName), "nil/1");
}

TEST_F(LispFunctionsTest, copyFile_thatFails_leavesNothingBehind) {
    folder.write("from.dwg", std::string(200'000, 'd'));
    FaultFiles faults(files);
    surroundings.ports.os.files = &faults;
    for (const FileCall kind :
        {FileCall::open, FileCall::read, FileCall::write, FileCall::sync, FileCall::close})
        for (std::size_t number = 1; number <= 2; ++number) {
            if (kind == FileCall::sync && number == 2)
                continue; // there is one only
            faults.arm({FileError::noSpace, number, kind});
            const bool copied = call(u"ryv_copy_file", path("from.dwg"), path("to.dwg")) == "T/1";
            const bool isSource = kind == FileCall::close && number == 2; // closed last, and only read
            EXPECT_EQ(copied, isSource) << int(kind) << " number " << number;
            EXPECT_EQ(stands("to.dwg"), isSource) << int(kind) << " number " << number;
            std::filesystem::remove(folder.native("to.dwg"));
        }
}

TEST_F(LispFunctionsTest, deleteFile_looksForItOnlyWithoutItsFolder) {
    for (const char* const name : {"one.dwg", "two.dwg", "three.dwg"})
        folder.write(name, "x");
    surroundings.hostFiles.found[u"TWO.DWG"] = path("two.dwg");
    surroundings.hostFiles.found[u"THREE.DWG"] = path("three.dwg");
    EXPECT_EQ(call(u"ryv_delete_file", replaceAll(path("one.dwg"), u'\\', u'/')), "T/1");
    EXPECT_EQ(call(u"ryv_delete_file", CString(u"two.dwg")), "T/1");
    EXPECT_EQ(call(u"ryv_delete_file", path("sub") + u"\\three.dwg"), "nil/1") << "the folder is there";
    EXPECT_TRUE(stands("three.dwg"));
    EXPECT_EQ(call(u"ryv_delete_file", path("gone") + u"\\three.dwg"), "T/1");
    EXPECT_FALSE(stands("one.dwg") || stands("two.dwg") || stands("three.dwg"));
}

/// Hands out one drawing at a time, and keeps what became of each.
class KnownDrawings final : public HostDrawings {
public:
    bool hasBlock = true;
    bool saves = true;
    CStringArray asked;
    std::vector<std::size_t> attributes; ///< of the settings block of each drawing at its end
    std::size_t saved = 0;

    std::unique_ptr<DrawingDatabase> open(CStringView path, DrawingResult&) override {
        return hand(CString(path), path.ends_with(u"known.dwg"));
    }
    std::unique_ptr<DrawingDatabase> ofDocument(DocumentId document) override {
        return hand(u"document", document != DocumentId::none);
    }
    std::unique_ptr<DrawingDatabase> byNumber(std::int32_t number) override {
        return hand(toText(number), number != 0);
    }

private:
    class Handed final : public MemoryDrawing {
    public:
        explicit Handed(KnownDrawings& owner) : owner_(owner) {
            if (owner.hasBlock)
                add(0, u"KQ_M", {{u"SHEET", u"7", {}}});
        }
        ~Handed() override {
            const auto& references = spaces[0].second;
            owner_.attributes.push_back(references.empty() ? 0 : references[0].attributes.size());
        }
        DrawingResult save() override {
            ++owner_.saved;
            return {owner_.saves, {}};
        }

    private:
        KnownDrawings& owner_;
    };
    std::unique_ptr<DrawingDatabase> hand(CString what, bool known) {
        asked.push_back(std::move(what));
        return known ? std::make_unique<Handed>(*this) : nullptr;
    }
};

TEST_F(LispFunctionsTest, ensureSettingsBlock_worksOnTheChosenDrawing) {
    constexpr CStringView name = u"ryv_ensureKQMandattribsexist";
    KnownDrawings drawings;
    surroundings.ports.host.drawings = &drawings;
    EXPECT_EQ(call(name, CString(u"C:/p/known.dwg")), "T/1");
    EXPECT_EQ(drawings.saved, 1u) << "nobody else would save it";
    EXPECT_EQ(call(name, CString(u"C:/p/none.dwg")), "nil/1");
    EXPECT_EQ(call(name, HostResultBuffer().addInteger(5)), "T/1");
    EXPECT_EQ(call(name, HostResultBuffer().addLongInteger(70'000)), "T/1");
    EXPECT_EQ(call(name, CString()), "nil/1");
    EXPECT_EQ(call(name, HostResultBuffer().addNil()), "nil/1") << "there is no document";
    surroundings.documents.open = true;
    EXPECT_EQ(call(name, HostResultBuffer().addNil()), "T/1");
    EXPECT_EQ(drawings.asked, (CStringArray{u"C:\\p\\known.dwg", u"C:\\p\\none.dwg", u"5", u"70000", u"0",
                                  u"document", u"document"}));
    EXPECT_EQ(drawings.attributes, (std::vector<std::size_t>(4, 77)));
    EXPECT_EQ(drawings.saved, 1u);
    drawings.saves = false;
    EXPECT_EQ(call(name, CString(u"C:/p/known.dwg")), "nil/1") << "it cannot be written";
}

TEST_F(LispFunctionsTest, ensureSettingsBlock_thatCannotBeHad_isToldOnRequest) {
    constexpr CStringView name = u"ryv_ensureKQMandattribsexist";
    KnownDrawings drawings;
    drawings.hasBlock = false;
    surroundings.ports.host.drawings = &drawings;
    surroundings.documents.open = true;
    const std::size_t before = surroundings.lisp.calls().size();
    EXPECT_EQ(call(name, HostResultBuffer().addInteger(1).addNil()), "nil/1");
    EXPECT_EQ(surroundings.lisp.calls().size() - before, 1u);
    EXPECT_EQ(call(name, HostResultBuffer().addInteger(1).addTruth()), "nil/1");
    EXPECT_EQ(surroundings.lisp.calls().size() - before, 3u) << "LISP tells the user";
}

} // namespace
} // namespace ryv::test
