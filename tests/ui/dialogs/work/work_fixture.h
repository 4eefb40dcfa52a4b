// A project with drawings on a disk in memory, some of them open in the host, and a user who fills dialogs
// in.
#pragma once

#include "base/encoding.h"
#include "embedded/drawings/drawing_view.h"
#include "embedded/drawings/dxf_writer.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/reread_window.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/told_messages.h"
#include "toolkit/dialog_script.h"
#include "toolkit/text_field.h"

#include <gtest/gtest.h>

namespace ryv::test {

/// Values of settings by index; all others are those of a new drawing outside of projects.
using Values = std::map<int, CString>;

inline RyvCfgDrawingSettings settingsOf(const Values& values) {
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(nullptr, false);
    for (const auto& [index, value] : values)
        settings.setValue(index, &value);
    return settings;
}

/// A drawing whose settings block has an attribute for each value that is present.
inline std::string drawingText(const RyvCfgDrawingSettings& settings, const std::string& block = "KQ_M") {
    drafta::DxfWriter writer({true, true});
    writer.pair(0, "SECTION").pair(2, "ENTITIES").pair(0, "INSERT").pair(8, "0").integer(66, 1);
    writer.pair(2, block).real(10, 0).real(20, 0);
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        CString tag;
        RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag);
        if (const CString* const value = settings.find(index)) {
            writer.pair(0, "ATTRIB").pair(8, "0").real(10, 0).real(20, -index).real(40, 1);
            writer.pair(1, toUtf8(*value)).pair(2, toUtf8(tag)).integer(70, 1);
        }
    }
    writer.pair(0, "SEQEND").pair(8, "0").pair(0, "ENDSEC").pair(0, "EOF");
    return writer.text();
}

/// Drawings by their files; those that are open in the host are shared by all views.
class FileDrawings final : public HostDrawings {
public:
    explicit FileDrawings(Files& files) : files_(files) {}
    std::map<CString, std::shared_ptr<drafta::Drawing>> documents;   ///< by path in capitals
    std::map<DocumentId, std::shared_ptr<drafta::Drawing>> untitled; ///< those that have no file
    std::function<void()> onOpen = [] {}; ///< runs once, with a drawing that was just opened

    std::unique_ptr<DrawingDatabase> open(CStringView path, DrawingResult& result) override {
        const auto hit = documents.find(toUpper(path));
        const auto drawing =
            hit != documents.end() ? hit->second : drafta::Drawing::load(files_, path, result);
        std::exchange(onOpen, [] {})();
        return drawing ? std::make_unique<drafta::DrawingView>(drawing) : nullptr;
    }
    std::unique_ptr<DrawingDatabase> ofDocument(DocumentId document) override {
        const auto hit = untitled.find(document);
        return hit != untitled.end() ? std::make_unique<drafta::DrawingView>(hit->second) : nullptr;
    }
    std::unique_ptr<DrawingDatabase> byNumber(std::int32_t) override { return nullptr; }

private:
    Files& files_;
};

/// Project A, active: a.dwg, b.dwg, and c.dwg in a subfolder.
class WorkFixture : public ::testing::Test {
protected:
    WorkFixture() {
        surroundings.ports.host.drawings = &drawings;
        surroundings.documents.open = true;
        setNavState(&state);
        state.createProjectManager();
        manager = state.projectManager();
        for (const char* const name : {"a", "b", "c"})
            drawing(name, {});
        files.put(id, projectText);
        EXPECT_TRUE(manager->openProject(id, true));
    }
    ~WorkFixture() override { state.destroyProjectManager(); }

    static CString path(const std::string& name) { return u"C:\\P\\" + decodeUtf8(name); }
    void drawing(const std::string& name, const Values& values) {
        files.put(path(name + ".dwg"), drawingText(settingsOf(values)));
    }
    /// One value of a drawing's settings block, or "(none)".
    std::string valueIn(const std::string& name, CStringView tag) {
        DrawingResult result;
        CString value = u"(none)";
        if (const auto view = drawings.open(path(name + ".dwg"), result);
            view && view->firstReference(u"KQ_M"))
            view->readAttribute(tag, value);
        return toUtf8(value);
    }
    /// A default setting of the project as its file has it.
    std::string valueInProject(int index) {
        RyvPrmProject file;
        EXPECT_TRUE(file.readProject(id));
        const CString* const value = file.getProjectData().getProjDefKQMVals().find(index);
        return value ? toUtf8(*value) : "(none)";
    }
    std::string content(CStringView file) { return files.get(file).value_or("(none)"); }
    /// All files as they are.
    std::map<CString, std::string> disk() {
        std::map<CString, std::string> found;
        for (const CString& each : files.paths())
            found[each] = content(each);
        return found;
    }

    /// A user of the next dialog, who does the steps of a script when `meanwhile` is over.
    void answerDialog(
        CStringView script, std::function<void()> meanwhile = [] {}) {
        surroundings.ui.answerDialog([script = CString(script), meanwhile](Dialog& dialog) {
            dialog.begin();
            meanwhile();
            const ScriptResult result = runDialogScript(dialog, script);
            EXPECT_TRUE(result.ok()) << toUtf8(result.failedStep) << ": " << toUtf8(result.problem);
            dialog.pressCancel();
            return dialog.result();
        });
    }
    /// The next dialog is a report; it goes to `report` as "title: line/line".
    void answerReport() {
        surroundings.ui.answerDialog([this](Dialog& dialog) {
            dialog.begin();
            report = toUtf8(dialog.title()) + ": " +
                     toUtf8(replaceAll(dialog.control<TextField>(1201).text(), u'\n', u'/'));
            dialog.pressCancel();
            return dialog.result();
        });
    }
    std::string messages() { return takeMessages(surroundings.ui); }
    /// What was queued for the host, as "(c:a) (c:b)".
    std::string queued() {
        surroundings.documents.runApplicationContext();
        std::string texts;
        for (const SentString& each : std::exchange(surroundings.documents.sent, {}))
            if (each.text != u"kq_menu_clear_kqmenu2use\r") // the sheet's own
                texts += (texts.empty() ? "" : " ") + toUtf8(each.text.substr(0, each.text.size() - 1));
        return texts;
    }
    bool called(CStringView function) const {
        for (const auto& call : surroundings.lisp.calls())
            if (!call.empty() && call[0] == function)
                return true;
        return false;
    }
    std::size_t lockCount() const { return surroundings.lockCheck.locked.size(); }

    static constexpr const char* projectText =
        "*[1]One\n*[2]Two\n+[9]nine\n?[5]%F%N\n===first\na.dwg\nb.dwg\n=====SUB=S\nc.dwg\n";
    MemoryFiles files;
    FaultFiles faults{files};
    ScriptedPlatform surroundings{&faults};
    FileDrawings drawings{faults};
    NavState state;
    RereadWindow window{state};
    RyvPrmProjectManager* manager = nullptr;
    CString id = path("A.kqp");
    std::string report;
};

} // namespace ryv::test
