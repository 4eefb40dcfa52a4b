// A project manager over files in memory, and all of its events as lines.
#pragma once

#include "base/encoding.h"
#include "base/paths.h"
#include "manager/last_project_list.h"
#include "tests/support/memory_manager.h"
#include "tests/support/project_builder.h"

#include <gtest/gtest.h>

namespace ryv::test {

/// Subscribes to every event and notes each as a line: its short name and what it was given, project IDs
/// without their folder.
class EventRecorder {
public:
    explicit EventRecorder(ProjectEvents& events) : events_(events) {
        using Me = EventRecorder;
        events.onProjectOpen.subscribe(*this, &Me::open);
        events.onProjectClose.subscribe(*this, &Me::close);
        events.onProjectCloseAllNA.subscribe(*this, &Me::closeAll);
        events.onPreProjectReRead.subscribe(*this, &Me::preReRead);
        events.onProjectReRead.subscribe(*this, &Me::reRead);
        events.onProjectSetActive.subscribe(*this, &Me::setActive);
        events.onProjectActived.subscribe(*this, &Me::actived);
        events.onProjectDeactivate.subscribe(*this, &Me::deactivate);
        events.OnProjectEventVetoCheck.subscribe(*this, &Me::vetoCheck);
        events.onProjectLocked.subscribe(*this, &Me::locked);
        events.onProjectUnlocked.subscribe(*this, &Me::unlocked);
        events.onProjectReadOnlyChanged.subscribe(*this, &Me::readOnly);
        events.onProjectAddDrawing.subscribe(*this, &Me::addDrawing);
        events.onProjectAddDrawings.subscribe(*this, &Me::addDrawings);
        events.onProjectRemoveDrawing.subscribe(*this, &Me::removeDrawing);
        events.onProjectRemoveDrawings.subscribe(*this, &Me::removeDrawings);
        events.onProjectReplaceDrawing.subscribe(*this, &Me::replaceDrawing);
        events.onProjectTasksAdded.subscribe(*this, &Me::tasksAdded);
        events.onProjectTasksDeleted.subscribe(*this, &Me::tasksDeleted);
        events.onPreProjectDrawingDetailsModify.subscribe(*this, &Me::modify);
        events.onPreProjectSetMiscProjectSettings.subscribe(*this, &Me::setMisc);
        events.onStartupProjectLoadingComplete.subscribe(*this, &Me::startUp);
        events.onDrawingActivate.subscribe(*this, &Me::drawingActivate);
        events.onAddinSynchronize.subscribe(*this, &Me::synchronize);
        events.onAddinQueryOZMFiles.subscribe(*this, &Me::queryFiles);
        events.onAddinRelinkProject.subscribe(*this, &Me::relink);
        events.onAddinQueryNonActiveProjOZMFiles.subscribe(*this, &Me::queryOther);
    }
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;
    ~EventRecorder() { events_.__RemoveAllEventHandlers(this); }

    /// The lines since the last call, joined by ", ".
    std::string story() { return std::exchange(story_, {}); }

    bool veto = false; ///< what the veto check is answered
    std::function<void(const std::string& line)> during = [](const std::string&) {}; ///< runs at each event

private:
    static std::string name(CStringView path) { return toUtf8(paths::findFileName(path)); }
    void note(std::string line) {
        story_ += (story_.empty() ? "" : ", ") + line;
        during(line);
    }
    static std::string names(const CArray<RyvPrmFileDetails>& drawings) {
        std::string text;
        for (const RyvPrmFileDetails& drawing : drawings)
            text += " " + name(drawing.getFileName());
        return text;
    }

    void open(const CString& id) { note("open " + name(id)); }
    void close(const CString& id) { note("close " + name(id)); }
    void closeAll() { note("closeAll"); }
    void preReRead(const CString& id) { note("preReRead " + name(id)); }
    void reRead(const CString& id) { note("reRead " + name(id)); }
    void setActive(const CString& id) { note("setActive " + name(id)); }
    void actived(const CString& id) { note("actived " + name(id)); }
    void deactivate(const CString& id) { note("deactivate " + name(id)); }
    void vetoCheck(bool& vetoed) {
        note("veto?");
        vetoed = vetoed || veto;
    }
    void locked(const CString& id) { note("locked " + name(id)); }
    void unlocked(const CString& id) { note("unlocked " + name(id)); }
    void readOnly(const CString& id, bool on) { note((on ? "readOnly " : "writable ") + name(id)); }
    void addDrawing(const CString& id, const RyvPrmFileDetails& drawing) {
        note("add " + name(id) + " " + name(drawing.getFileName()));
    }
    void addDrawings(const CString& id, const CArray<RyvPrmFileDetails>& drawings) {
        note("addAll " + name(id) + names(drawings));
    }
    void removeDrawing(const CString& id, const CString& path, bool reference) {
        note("remove " + name(id) + " " + name(path) + (reference ? " REF" : ""));
    }
    void removeDrawings(const CString& id, const CArray<RyvPrmFileDetails>& drawings) {
        note("removeAll " + name(id) + names(drawings));
    }
    void replaceDrawing(const CString& id, const CString& from, std::int32_t oldId, const CString& to,
        std::int32_t newId, bool reference) {
        note("replace " + name(id) + " " + name(from) + ":" + std::to_string(oldId) + " " + name(to) + ":" +
             std::to_string(newId) + (reference ? " REF" : ""));
    }
    void tasksAdded(const CString& id, const CString& file) { note("tasks+ " + name(id) + " " + name(file)); }
    void tasksDeleted(const CString& id, const CString& file) {
        note("tasks- " + name(id) + " " + name(file));
    }
    void modify(const CString& id, const RyvPrmFileDetails& drawing) {
        note("preModify " + name(id) + " " + name(drawing.getFileName()));
    }
    void setMisc(const CString& id, const RyvPmMiscProjSettings&) { note("preMisc " + name(id)); }
    void startUp() { note("startUpComplete"); }
    void drawingActivate(const CString& drawing) { note("drawing " + name(drawing)); }
    void synchronize(bool& result) {
        note("synchronize");
        result = true;
    }
    void queryFiles(CStringArray& files) { files.push_back(u"a.ozm"); }
    void relink(const CString& from, const CString& to) { note("relink " + name(from) + " " + name(to)); }
    void queryOther(const CString& id, CStringArray& files) { files.push_back(id); }

    ProjectEvents& events_;
    std::string story_;
};

class ManagerFixture : public MemoryManager {
protected:
    ManagerFixture() {
        recorder.emplace(*manager);
        surroundings.catalogBrowser.notified = 0;
    }

    /// Makes "C:\P\NAME.kqp" that lists drawings, which exist, and gives its ID.
    CString project(const std::string& name, const std::vector<std::string>& drawings = {}) {
        std::string lines;
        for (const std::string& drawing : drawings) {
            lines += drawing + ".dwg\n";
            files.put(path(drawing + ".dwg"), "drawing");
        }
        files.put(path(name + ".kqp"), lines.empty() ? "\n" : lines);
        return path(name + ".kqp");
    }
    bool open(const CString& id, bool activate = false) { return manager->openProject(id, activate); }
    std::string story() { return recorder->story(); }
    std::string bytes(const CString& id) { return files.get(id).value_or("no file"); }
    /// The last-project list as "A.kqp:2 B.kqp:1".
    static std::string lastProjects() {
        RecentProjects list;
        readLastProjects(list);
        std::string text;
        for (std::size_t i = 0; i < list.paths.size(); ++i)
            text += (i == 0 ? "" : " ") + toUtf8(paths::findFileName(list.paths[i])) + ":" +
                    toUtf8(list.flags[i]);
        return text;
    }

    std::optional<EventRecorder> recorder;
};

} // namespace ryv::test
