// Every class and function that the module exports, as another module uses them: what is linked here is the
// module's file, and what is included are its headers. Each test fails to link when something stays inside.
#include "RyvPageMan/controls.h"
#include "RyvPageMan/host.h"
#include "RyvPageMan/manager.h"
#include "RyvPageMan/model.h"
#include "RyvPageMan/module.h"

#include "tests/support/memory_files.h"

#include <gtest/gtest.h>

extern "C" int ryvModuleEntry(int message, ryv::ModuleContext* context) noexcept;

namespace ryv::test {
namespace {

constexpr CStringView path = u"\\p\\A.kqp";
constexpr CStringView drawingPath = u"\\p\\one.dwg";

std::unique_ptr<RyvPrmFileDetails> drawing(CStringView name) {
    return std::make_unique<RyvPrmFileDetails>(name);
}

TEST(SiblingDrawing, content_isKeptAndCompared) {
    RyvPrmFileDetails details(drawingPath);
    details.setFileId(7);
    details.setDescription1(u"one");
    details.setDescription2(u"two");
    details.setDescriptions({u"three"});
    details.addDescription(u"four");
    details.setReferenceOnly(true);
    const RyvPrmFileDetails copy = details;
    EXPECT_TRUE(copy == details);
    const DescriptionLines lines = copy.getDescriptions();
    EXPECT_EQ(CStringArray(lines.begin(), lines.end()), (CStringArray{u"three", u"four"}));
    EXPECT_TRUE(lines == details.getDescriptions());
    EXPECT_EQ(copy.getFileName(), drawingPath);
    EXPECT_THROW(static_cast<void>(lines[2]), std::invalid_argument);
}

TEST(SiblingSubfolder, items_comeAndGo) {
    RyvPrmSubfolder folder(u"F");
    RyvPrmItem& second = folder.add(drawing(u"2"));
    folder.insert(0, std::make_unique<RyvPrmSubfolder>(u"G"));
    EXPECT_EQ(dynamic_cast<RyvPrmFileDetails*>(&second), asFileDetails(&second));
    const RyvPrmItem* const first = folder.getItems()[0].get();
    EXPECT_EQ(dynamic_cast<const RyvPrmSubfolder*>(first), asSubfolder(first));
    EXPECT_EQ(asFileDetails(first), nullptr);
    EXPECT_THROW(static_cast<void>(folder.take(2)), std::invalid_argument);
    folder.park(folder.take(second));
    const auto back = RyvPrmSubfolder::unpark(second);
    EXPECT_EQ(back.get(), &second);
    EXPECT_EQ(folder.takeAll({true}).size(), 1u);
    RyvPrmSubfolder other;
    other = folder;
    other.setName(u"F2");
    EXPECT_FALSE(other == folder);
    folder.clear();
}

TEST(SiblingProject, tree_isSearchedAndChanged) {
    class OwnItem : public RyvPrmItem {};
    RyvPrmProjectData project, other;
    const CString trace = u"POWER/MOTORS";
    EXPECT_TRUE(project.addFile(drawing(drawingPath), &trace));
    EXPECT_TRUE(project.addFile(std::make_unique<OwnItem>()));
    EXPECT_EQ(dynamic_cast<RyvPrmFileDetails*>(project.getProjFileDetails()[1].get()), nullptr);
    RyvPrmSubfolder* motors = nullptr;
    EXPECT_TRUE(project.getSubfolderByTrace(u"power/motors", motors, false, false));
    EXPECT_EQ(project.findSubfolder(trace), motors);
    EXPECT_EQ(project.findFile(drawingPath)->parent(), motors);
    CArray<RyvPrmFileDetails*> flat;
    project.generateFlatFileDetailsArray(flat);
    EXPECT_EQ(flat.size(), 1u);
    EXPECT_TRUE(project.replaceFile(drawingPath, u"\\p\\two.dwg"));
    project.setProjDescriptions({u"line"});
    project.swap(other);
    EXPECT_FALSE(other == project);
    EXPECT_TRUE(other.removeFiles({u"\\p\\two.dwg"}));
    EXPECT_TRUE(other.removeSubfolders({u"power"}));
    other.removeAllFiles();
}

TEST(SiblingSettings, records_areFilledAndCompared) {
    class Open : public RyvCfgDrawingSettings {
    public:
        using RyvCfgDrawingSettings::mergeWireLays;
    };
    RyvPmMiscProjSettings misc;
    const CString value = u"12x";
    EXPECT_EQ(misc.setValue(39, &value), RyvPmMiscProjSettings::Status::present);
    EXPECT_EQ(misc.getInteger(39), 12);
    RyvCfgDrawingSettings settings, merged;
    settings.fillWithDefaults(misc);
    settings.fillWithDefaults(nullptr, true);
    merged = settings;
    merged.CopyNonDrawingSpecificValues(settings, true);
    EXPECT_TRUE(merged == settings && merged.CompareNonDrawingSpecificValues(settings));
    CString tag;
    EXPECT_TRUE(RyvCfgDrawingSettings::getKQ_MTagForIndex(13, tag));
    EXPECT_EQ(RyvCfgDrawingSettings::getIndexForKQ_MTag(tag), 13);
    CString layers = u"WIRES";
    EXPECT_TRUE(Open::mergeWireLays(u"wires,RED", layers));
    EXPECT_EQ(layers, u"WIRES,RED");
    RyvPrmProjectData project;
    project.setProjDefKQMVals(settings);
    project.setMiscProjSettings(misc);
    EXPECT_TRUE(project.getMiscProjSettings() == misc);
}

TEST(SiblingRawFiler, sections_areReadAndWrittenThroughThePortsThatItIsGiven) {
    class Writer : public RyvPmUtilsKQPFiler {
    public:
        using RyvPmUtilsKQPFiler::commit;
        using RyvPmUtilsKQPFiler::RyvPmUtilsKQPFiler;
    };
    MemoryFiles files;
    files.put(path, "*[1]line\n+[39]x\none.dwg\n");
    Writer filer(files, path, true);
    ASSERT_TRUE(filer.readProject());
    RyvPmMiscProjSettings misc;
    EXPECT_TRUE(filer.initMiscProjSettings(misc));
    EXPECT_EQ(misc.values().size(), 1u);
    EXPECT_EQ(filer.sections().descriptionLines().size(), 1u);
    EXPECT_EQ(filer.sections().settings().size(), 0u);
    EXPECT_EQ(filer.sections().lineNumberOf(0), 3u);
    EXPECT_TRUE(filer.AddFile(drawingPath));
    EXPECT_NE(filer.GetFileId(drawingPath), 0);
    EXPECT_TRUE(filer.commit("two.dwg\n")) << filer.getLastError();
    EXPECT_EQ(files.get(path), "two.dwg\n");
    filer.closeProject();
    EXPECT_FALSE(filer.openProject(u"\\none.kqp", false));
    EXPECT_EQ(filer.lastStatus().error, FileError::missing);
}

TEST(SiblingLocker, pathsThatAreNone_areTold) {
    RyvPrmVirtualFileLocker locker;
    CString who, machine, time;
    EXPECT_EQ(locker.whoLocked({}, who), lockInvalid);
    EXPECT_EQ(locker.whoLocked({}, who, machine, time), lockInvalid);
    EXPECT_FALSE(locker.lockFile({}) || locker.isLocked({}) || locker.unlockFile({}));
    EXPECT_TRUE(locker.unlockAllFiles());
}

/// Counts what it is told.
struct Receiver {
    void synchronize(bool& result) { result = true; }
    void veto(bool& veto) { veto = true; }
    void opened(const CString&) { ++count; }
    int count = 0;
};

TEST(SiblingHandlers, ownAndTheModules_areCalled) {
    class Own : public IRyvAddinHandler {
    public:
        bool synchronize() override { return true; }
        void synchronizeCompleted(bool) override {}
        void queryOZMFiles(CStringArray&) override {}
        void relinkProject(const CString&, const CString&) override {}
        void queryNonActiveProjOZMFiles(const CString&, CStringArray&) override {}
    };
    Receiver receiver;
    Own().__RemoveAllEventHandlers(&receiver);
    IRyvAddinHandler& handler = *RyvOZMAddinHandler::GetInstance();
    EXPECT_FALSE(handler.synchronize());
    handler.onSynchronize.subscribe(receiver, &Receiver::synchronize);
    EXPECT_TRUE(handler.synchronize());
    handler.__RemoveAllEventHandlers(&receiver);
    EXPECT_NE(dynamic_cast<RyvOZMAddinHandler*>(&handler), nullptr);
}

TEST(SiblingEvents, veto_isAsked) {
    ProjectEvents events;
    Receiver receiver;
    EXPECT_FALSE(events.sendEventVetoCheck());
    events.OnProjectEventVetoCheck.subscribe(receiver, &Receiver::veto);
    EXPECT_TRUE(events.sendEventVetoCheck());
    events.__RemoveAllEventHandlers(&receiver);
    EXPECT_FALSE(events.sendEventVetoCheck());
}

TEST(SiblingControls, factory_makesThoseOfTheSibling) {
    struct Box : RyvPrmComboBox {
        void OnItemSelection(const ryvprmComboDataTag& data) override { selected = data.kind; }
        std::int32_t selected = 0;
    };
    class Own final : public IRyvPrmControlFactoryImpl {
    public:
        explicit Own(bool& ended) : ended_(ended) {}
        void Destroy() override {
            ended_ = true;
            delete this;
        }
        CProjectTree* NewProjectTree() override { return nullptr; }
        RyvPrmComboBox* NewProjectComboBox() override { return new Box; }

    private:
        bool& ended_;
    };
    bool ended = false;
    RyvPrmControlFactory& factory = RyvPrmControlFactory::Instance();
    factory.RegisterImplementation(new Own(ended));
    const std::unique_ptr<RyvPrmComboBox> box = factory.NewProjectComboBox();
    auto* const own = dynamic_cast<Box*>(box.get());
    ASSERT_NE(own, nullptr);
    own->Create();
    own->InsertItem(0, {77, {}, u"Own", true});
    EXPECT_TRUE(own->choose(0));
    EXPECT_EQ(own->selected, 77);
    EXPECT_NE(factory.NewProjectTree(), nullptr);
    factory.RegisterImplementation(nullptr);
    EXPECT_TRUE(ended);
}

TEST(SiblingFunctions, beforeTheStart_thereIsNothing) {
    EXPECT_EQ(GetProjectManager(), nullptr);
    EXPECT_EQ(GetActiveProject(), nullptr);
    EXPECT_EQ(FindDwgInOpenProject(drawingPath), nullptr);
    registerBeginQuiescentStateCB([] {});
    registerSaveCompleteCB([](bool) {});
    registerOZMCompUpdate();
    EXPECT_FALSE(checkClientQueueStatus());
    unregisterOZMCompUpdate();
    EXPECT_TRUE(checkQuiescentState());
    EXPECT_FALSE(checkZeroDocState());
    removeLocationPalette(nullptr);
    RyvPrmProject project;
    EXPECT_FALSE(project.readProject(path));
    EXPECT_EQ(project.getLastError(), RyvPmUtilsKQPFiler::cannotOpen);
}

/// The module is running, in a host that has files and nothing else.
class SiblingOfTheRunningModule : public ::testing::Test {
protected:
    SiblingOfTheRunningModule() {
        host.os.files = &files;
        context.platform = &host;
        send(ModuleMessage::initialiseApplication);
        files.put(path, "one.dwg\n");
        files.put(drawingPath, "");
    }
    ~SiblingOfTheRunningModule() override { send(ModuleMessage::unloadApplication); }
    void send(ModuleMessage message) {
        EXPECT_EQ(
            ryvModuleEntry(static_cast<int>(message), &context), static_cast<int>(ModuleResult::success));
    }

    MemoryFiles files;
    Platform host;
    ModuleContext context;
};

TEST_F(SiblingOfTheRunningModule, filerAndProject_readAndWriteItsFiles) {
    class Listener final : public ProjectReporter {
    public:
        void found(std::size_t, ProjectFinding, CStringView) override { ++count; }
        int count = 0;
    };
    files.put(path, "*[0]\none.dwg\n");
    Listener listener;
    RyvPrmKQPFiler filer(path, true, true);
    filer.setReporter(&listener);
    RyvPrmProjectData data;
    EXPECT_TRUE(filer.readProject(data) && data.isFileInProject(drawingPath));
    EXPECT_EQ(listener.count, 1);
    EXPECT_TRUE(filer.writeProject(data)) << filer.getLastError();
    CString relative = CString(drawingPath);
    EXPECT_TRUE(filer.absoluteToRelative(relative));
    filer.SwapFullPathWithVariable(relative, true);
    filer.replaceGblVars(relative);
    EXPECT_EQ(relative, u"one.dwg");

    RyvPrmProject project;
    ASSERT_TRUE(project.readProject(path));
    EXPECT_TRUE(project.addFile(drawing(u"\\p\\two.dwg"), u"SUB"));
    EXPECT_TRUE(project.writeProject()) << project.getLastError();
    EXPECT_TRUE(project.isFileUntouched());
    EXPECT_EQ(project.readAfterNotice(), RyvPrmProject::ReadResult::unchanged);
    EXPECT_TRUE(project.removeFile(drawingPath));
    EXPECT_FALSE(project.editProjectData().isFileInProject(drawingPath) || project.isOZMProject());
}

TEST_F(SiblingOfTheRunningModule, manager_opensFollowsAndCloses) {
    RyvPrmProjectManager& manager = *GetProjectManager();
    Receiver receiver;
    manager.onProjectOpen.subscribe(receiver, &Receiver::opened);
    EXPECT_TRUE(manager.openProject(path, true));
    EXPECT_EQ(receiver.count, 1);
    EXPECT_EQ(GetActiveProject(), manager.getProject(0));
    EXPECT_EQ(FindDwgInOpenProject(drawingPath), GetActiveProject());
    EXPECT_TRUE(manager.addFileToProject(drawing(u"\\p\\two.dwg")));
    EXPECT_TRUE(manager.reReadProject());
    CStringList listed;
    EXPECT_TRUE(manager.getProjectFiles(listed));
    EXPECT_EQ(listed.size(), 3u);
    CArray<int> order;
    CString separator;
    bool showSelection = false;
    EXPECT_FALSE(manager.getDwgDisplaySetting(order, separator, showSelection)) << "there is no profile";
    EXPECT_TRUE(manager.getFileTimerList().empty());
    CString who;
    EXPECT_EQ(manager.whoHasProjectFileLocked(path, &who), lockNone);
    manager.__RemoveAllEventHandlers(&receiver);
    EXPECT_TRUE(manager.closeProject(path, true));
    EXPECT_EQ(manager.getProjectCount(), 0);
}

} // namespace
} // namespace ryv::test
