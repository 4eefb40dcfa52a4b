// What the dialogs that make projects and drawings need around them: files in memory, LISP with the package's
// functions, drawings with a settings block, and a host that runs scripts.
#pragma once

#include "base/encoding.h"
#include "base/text.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "model/drawing_settings.h"
#include "resources/creation_message_numbers.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_drawing.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/told_messages.h"
#include "toolkit/dialog_script.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

namespace ryv::test {

/// Drawings whose content is in memory, made from one template. What was saved last can be looked at.
class ScriptedDrawings final : public HostDrawings {
public:
    std::vector<DrawingAttribute> templateBlock; ///< of the settings block; empty: the template has none
    bool readable = true;
    bool writable = true;
    std::map<CString, CString> saved; ///< values of the settings block by tag

    std::unique_ptr<DrawingDatabase> open(CStringView path, DrawingResult& result) override {
        if (!readable) {
            result = {false, CString(path) + u": not a drawing"};
            return nullptr;
        }
        auto drawing = std::make_unique<View>(*this);
        drawing->blockFiles[u"\\lib\\KQ_M.dwg"] = {{u"RUNGHORV", u"H", {}}};
        if (!templateBlock.empty())
            drawing->add(0, u"KQ_M", templateBlock);
        return drawing;
    }
    std::unique_ptr<DrawingDatabase> ofDocument(DocumentId) override { return nullptr; }
    std::unique_ptr<DrawingDatabase> byNumber(std::int32_t) override { return nullptr; }

private:
    class View final : public MemoryDrawing {
    public:
        explicit View(ScriptedDrawings& owner) : owner_(owner) {}
        DrawingResult save() override {
            if (!owner_.writable)
                return {false, u"n.dwg: the disk is full"};
            for (const DrawingAttribute& each : spaces[0].second[0].attributes)
                owner_.saved[each.tag] = each.value;
            return {};
        }

    private:
        ScriptedDrawings& owner_;
    };
};

/// Runs what a test has put down in place of the script.
class ScriptRunner final : public HostCommands {
public:
    std::function<void()> script = [] {};
    std::vector<CStringArray> runs;
    bool addCommand(HostCommand) override { return false; }
    bool removeGroup(CStringView) override { return false; }
    bool runCommand(const CStringArray& words) override {
        runs.push_back(words);
        script();
        return true;
    }
};

class CreationFixture : public ::testing::Test {
protected:
    CreationFixture() {
        setNavState(&state);
        state.createProjectManager();
        manager = state.projectManager();
        surroundings.ports.host.drawings = &drawings;
        surroundings.ports.host.commands = &commands;
        surroundings.profile.templates = u"C:\\T";
        surroundings.documents.open = true;
        files.put(u"C:\\T\\qdra.dwt", "template");
        files.put(u"C:\\T\\default.kqp", "?[5]%L%N\n");
        surroundings.lisp.answer(u"c:kq_getenv", HostResultBuffer().addString(u"C:/P"));
        surroundings.lisp.answer(
            u"kq_fio_does_block_exist_disk", HostResultBuffer().addString(u"/lib/KQ_M.dwg"));
        surroundings.lisp.setVariable(u"GBL_kq_usr", HostResultBuffer().addString(u"C:/U/"));
    }
    ~CreationFixture() override { state.destroyProjectManager(); }

    /// Makes "C:\P\NAME.kqp" and opens it as the active project; its ID.
    CString activate(const std::string& name, const std::string& lines) {
        const CString id = u"C:\\P\\" + decodeUtf8(name) + u".kqp";
        files.put(id, lines);
        EXPECT_TRUE(manager->openProject(id, true));
        return id;
    }
    std::string content(CStringView path) { return files.get(path).value_or("(none)"); }

    /// A user of the next dialog, who does the steps of a script; what cannot be done fails the test. A
    /// dialog that is left open then is cancelled.
    void answerDialog(CStringView script) {
        surroundings.ui.answerDialog([script = CString(script)](Dialog& dialog) {
            dialog.begin();
            play(dialog, script);
            dialog.pressCancel();
            return dialog.result();
        });
    }
    /// A user who closes the next dialog.
    void closeDialog() {
        surroundings.ui.answerDialog([](Dialog&) { return Dialog::idCancel; });
    }
    static void play(Dialog& dialog, CStringView script) {
        const ScriptResult result = runDialogScript(dialog, script);
        EXPECT_TRUE(result.ok()) << toUtf8(result.failedStep) << ": " << toUtf8(result.problem);
    }
    static std::string text(const Dialog& dialog, int id) {
        return toUtf8(dialog.control<TextField>(id).text());
    }
    std::string messages() { return takeMessages(surroundings.ui); }

    MemoryFiles files;
    FaultFiles faults{files};
    ScriptedPlatform surroundings{&faults};
    ScriptedDrawings drawings;
    ScriptRunner commands;
    NavState state;
    RyvPrmProjectManager* manager = nullptr;
};

} // namespace ryv::test
