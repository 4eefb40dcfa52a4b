// However the work on settings ends, its locks are gone, and what was not done left everything as it was.
#include "tests/ui/dialogs/work/work_fixture.h"
#include "ui/dialogs/work/drawing_access.h"
#include "ui/dialogs/work/drawing_properties.h"
#include "ui/dialogs/work/project_properties.h"
#include "ui/dialogs/work/settings_work.h"

#include <stdexcept>

namespace ryv::test {
namespace {

class Unlocking : public WorkFixture {
protected:
    struct Flow {
        const char* name;
        std::function<void()> run;
        const char16_t* script; ///< of its dialog
        bool writes = true;
        bool locksProject = true;
        std::string question = {}; ///< number of the message box that is answered first
    };

    void SetUp() override {
        drawing("b", {{5, u"%N"}, {26, u"LEADS"}});
        ASSERT_TRUE(copySettings(path("b.dwg")));
    }

    /// All values are there, these among them.
    void expectInDrawing(const Values& values) {
        RyvCfgDrawingSettings found;
        CString problem;
        EXPECT_TRUE(readDrawing(a, found, problem)) << toUtf8(problem);
        EXPECT_TRUE(found.CompareNonDrawingSpecificValues(settingsOf(values))) << content(a);
    }

    const CString a = path("a.dwg");
    const std::vector<Flow> flows = {
        {"project", [this] { showProjectProperties(id); }, u"tagFormat=%N; descriptions=x|y; ok"},
        {"drawing", [this] { showDrawingProperties(a, true); }, u"tagFormat=%X; section=s; ok", true, false},
        {"apply",
            [this] {
                surroundings.ui.answerMessage(2848, Answer::yes);
                applyProjectDefaults(id, {a, path("c.dwg")});
            },
            u"close", true, true, "2848"},
        {"paste",
            [this] {
                surroundings.ui.answerMessage(2849, Answer::yes);
                pasteSettings({a, path("c.dwg")});
            },
            u"close", true, false, "2849"},
        {"compare", [this] { compareDrawing(a); }, u"close", false}};
};

TEST_F(Unlocking, everyFlow_locksAndUnlocks) {
    for (const Flow& flow : flows) {
        SCOPED_TRACE(flow.name);
        const auto before = disk();
        bool heldProject = false;
        answerDialog(flow.script, [&] { heldProject = surroundings.lockCheck.isLocked(id); });
        flow.run();
        EXPECT_EQ(lockCount(), 0u);
        EXPECT_EQ(disk() != before, flow.writes);
        EXPECT_EQ(messages(), flow.question);
        EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
        if (std::string(flow.name) == "project" || std::string(flow.name) == "compare") {
            EXPECT_TRUE(heldProject);
        }
    }
}

TEST_F(Unlocking, whoIsInTheWay_isToldAndNothingChanges) {
    for (const CString& held : {id, a})
        for (const Flow& flow : flows) {
            if (held == id && !flow.locksProject && std::string(flow.name) != "drawing")
                continue;
            SCOPED_TRACE(flow.name + toUtf8(held));
            surroundings.lockCheck.heldByOthers = {toUpper(held)};
            const auto before = disk();
            const bool asksFirst = held == id && std::string(flow.name) == "drawing"; // the entry, with OK
            if (asksFirst)
                answerDialog(flow.script);
            flow.run();
            EXPECT_EQ(messages(),
                flow.question + (flow.question.empty() ? "" : " ") + (asksFirst ? "2807" : "2801"));
            EXPECT_EQ(lockCount(), 0u);
            EXPECT_EQ(disk(), before);
            EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
            surroundings.lockCheck.heldByOthers.clear();
        }
}

TEST_F(Unlocking, fileThatCannotBeWritten_staysWhole) {
    drawing("a", {{9, u"%W"}});
    drawing("c", {{9, u"%W"}});
    for (const FileCall call : {FileCall::write, FileCall::rename, FileCall::sync})
        for (const Flow& flow : flows) {
            SCOPED_TRACE(flow.name);
            const auto before = disk();
            answerDialog(flow.script);
            faults.arm({.error = FileError::noSpace, .kind = call, .lasting = true});
            flow.run();
            faults.disarm();
            EXPECT_EQ(lockCount(), 0u);
            EXPECT_EQ(disk(), before);
            const std::string flowName = flow.name;
            EXPECT_EQ(messages(), flowName == "project"   ? "2806"
                                  : flowName == "drawing" ? "2807"
                                                          : flow.question);
            EXPECT_EQ(queued().find("dwg_params"), std::string::npos);
            EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
        }
    manager->reReadProject(CStringView(id)); // memory said nothing else
    EXPECT_EQ(valueInProject(5), "%F%N");
}

TEST_F(Unlocking, drawingsThatAreNone_areToldOrSkipped) {
    struct {
        const char* bytes; ///< null: no file
        const char* reason;
    } const cases[] = {
        {nullptr, "no such file or folder"}, {"AC1027\0\0\0", ""}, {"  0\nSECTION\n  2\n", ""}};
    for (const auto& each : cases)
        for (const Flow& flow : flows) {
            if (std::string(flow.name) == "project")
                continue;
            SCOPED_TRACE(flow.name);
            drawing("c", {});
            files.erase(a);
            if (each.bytes)
                files.put(a, each.bytes);
            const bool many = std::string(flow.name) == "apply" || std::string(flow.name) == "paste";
            if (many)
                answerReport();
            const std::string project = content(id);
            flow.run();
            EXPECT_EQ(messages(), many ? flow.question : "2810");
            EXPECT_EQ(lockCount(), 0u);
            EXPECT_EQ(content(id), project);
            EXPECT_EQ(content(a), each.bytes ? each.bytes : "(none)");
            if (many) {
                EXPECT_NE(report.find("changed: 1, skipped: 1.//Skipped:/"), std::string::npos) << report;
            }
            EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
        }
}

/// Wherever the user breaks LISP off, and whatever happens while a dialog or box is open: the project file is
/// what others made of it, or that with what the user stored, and the drawing has all its values.
TEST_F(Unlocking, brokenOffOrPulledAway_leavesNoLockAndWholeFiles) {
    const std::string others = "*[1]Others\n?[5]%O\nb.dwg\na.dwg\n";
    const std::function<void()> events[] = {[] { throw std::runtime_error("broken off"); },
        [this] { manager->closeProject(id, true); }, [this] { manager->reReadProject(CStringView(id)); },
        [this, &others] {
            files.put(id, others);
            manager->reReadProject(CStringView(id));
        },
        [this] { files.erase(id); }};
    for (std::size_t i = 0; i < std::size(events); ++i)
        for (const Flow& flow : flows)
            for (const bool asks : {true, false}) {
                SCOPED_TRACE(flow.name + std::to_string(i));
                files.put(id, projectText);
                manager->openProject(id, true);
                manager->reReadProject(CStringView(id));
                drawing("a", {});
                surroundings.ui.answerDialog([&flow](Dialog& dialog) {
                    dialog.begin();
                    runDialogScript(dialog, flow.script); // as far as that is possible
                    dialog.pressCancel();
                    return dialog.result();
                });
                (asks ? surroundings.ui.meanwhile : surroundings.lockCheck.meanwhile) = events[i];
                try {
                    flow.run();
                } catch (const std::runtime_error&) {
                }
                surroundings.ui.meanwhile = surroundings.lockCheck.meanwhile = [] {};
                EXPECT_EQ(lockCount(), 0u);
                const std::string left = i == 3 ? others : i == 4 ? "(none)" : projectText;
                const bool goesOn = i == 2 || i == 3;
                const std::string name = flow.name;
                if (goesOn && (name == "project" || name == "drawing"))
                    EXPECT_TRUE(content(id).ends_with(left.substr(left.size() - 6))) << content(id);
                else
                    EXPECT_EQ(content(id), left);
                if (i == 3 && asks) // from then on, else before the sheet was filled
                    EXPECT_TRUE(content(id).starts_with("*[1]Others\n")) << content(id);
                expectInDrawing(name == "drawing" && goesOn         ? Values{{5, u"%X"}}
                                : name == "apply" && i == 3 && asks ? Values{{5, u"%O"}}
                                // what the project says by then
                                : name == "paste" && i > 0 ? Values{{5, u"%N"}, {26, u"LEADS"}}
                                                           : Values{});
                messages();
                surroundings.ui.forgetAnswers(); // those that nobody asked for
            }
}

} // namespace
} // namespace ryv::test
