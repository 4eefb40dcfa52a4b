// How an add-in that links projects to an outside tool takes part in what the project manager does.
#pragma once

#include "base/export.h"
#include "base/strings.h"
#include "manager/handler_list.h"

namespace ryv {

/// An add-in's side. Copies have no subscribers of their own.
class RYV_EXPORT IRyvAddinHandler {
public:
    IRyvAddinHandler() = default;
    IRyvAddinHandler(const IRyvAddinHandler&) = default;
    IRyvAddinHandler& operator=(const IRyvAddinHandler&) = default;
    IRyvAddinHandler(IRyvAddinHandler&&) = default;
    IRyvAddinHandler& operator=(IRyvAddinHandler&&) = default;
    virtual ~IRyvAddinHandler() = default;

    HandlerList<bool&> onSynchronize;
    HandlerList<bool> onSynchronizeCompleted;
    HandlerList<CStringArray&> onQueryOZMFiles;
    HandlerList<const CString&, const CString&> onRelinkProject;
    HandlerList<const CString&, CStringArray&> onQueryNonActiveProjOZMFiles;

    // NOLINTNEXTLINE(bugprone-reserved-identifier): sibling modules know it by this name
    void __RemoveAllEventHandlers(const void* receiver);

    /// Synchronises the active project with the outside tool; true when a handler did so.
    virtual bool synchronize() = 0;
    virtual void synchronizeCompleted(bool succeeded) = 0;
    /// Adds the files of the outside tool that belong to the active project.
    virtual void queryOZMFiles(CStringArray& files) = 0;
    virtual void relinkProject(const CString& oldPath, const CString& newPath) = 0;
    virtual void queryNonActiveProjOZMFiles(const CString& projectId, CStringArray& files) = 0;
};

/// The one handler of the module: each operation fires the event of its name.
class RYV_EXPORT RyvOZMAddinHandler final : public IRyvAddinHandler {
public:
    /// Made at the first call; lasts as long as the module is loaded.
    static RyvOZMAddinHandler* GetInstance();

    bool synchronize() override;
    void synchronizeCompleted(bool succeeded) override { onSynchronizeCompleted(succeeded); }
    void queryOZMFiles(CStringArray& files) override { onQueryOZMFiles(files); }
    void relinkProject(const CString& oldPath, const CString& newPath) override {
        onRelinkProject(oldPath, newPath);
    }
    void queryNonActiveProjOZMFiles(const CString& projectId, CStringArray& files) override {
        onQueryNonActiveProjOZMFiles(projectId, files);
    }
};

} // namespace ryv
