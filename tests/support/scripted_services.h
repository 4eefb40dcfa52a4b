// The package's sibling services, as small as tests need them.
#pragma once

#include "base/fold.h"
#include "base/text.h"
#include "platform/services/catalog_browser.h"
#include "platform/services/client_manager.h"
#include "platform/services/event_log.h"
#include "platform/services/global_variables.h"
#include "platform/services/help.h"
#include "platform/services/lock_check.h"
#include "platform/services/menu_hook.h"
#include "platform/services/package_settings.h"
#include "platform/services/project_database.h"
#include "platform/services/task_dialogs.h"
#include "platform/services/user_folders.h"
#include "platform/services/wait_cursor.h"
#include "tests/support/scripted_observers.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <utility>

namespace ryv::test {

/// Replaces "${NAME}" by the value of NAME.
class ScriptedVariables final : public GlobalVariables {
public:
    std::map<CString, CString> values;
    CString Gbl_ReplaceGblVars(CStringView text) override {
        CString result(text);
        for (const auto& [name, value] : values)
            for (std::size_t hit; (hit = result.find(u"${" + name + u"}")) != CString::npos;)
                result.replace(hit, name.size() + 3, value);
        return result;
    }
};

class ScriptedUserFolders final : public UserFolders {
public:
    CString userDirectory;
    CString settingsFolder = u"C:\\Users\\ann\\Drafta\\";
    CString GetUserDirectory() override { return userDirectory; }
    CString GblPm_GetDefaultKqUserValue() override { return settingsFolder; }
};

class ScriptedPackageSettings final : public PackageSettings {
public:
    std::map<std::pair<CString, CString>, CString> values;
    bool readOnly = false;
    bool RyvGetRegSetting(CStringView first, CStringView second, CString& value) override {
        const auto hit = values.find({CString(first), CString(second)});
        if (hit != values.end())
            value = hit->second;
        return hit != values.end();
    }
    bool RyvSetRegSetting(CStringView first, CStringView second, CStringView value) override {
        if (!readOnly)
            values[{CString(first), CString(second)}] = value;
        return !readOnly;
    }
};

class ScriptedProjectDatabase final : public ProjectDatabase {
public:
    std::map<CString, CString> paths; ///< by the folded project ID
    bool helperProcess = false;
    std::map<CString, CStringArray> rows; ///< by "table|column|key column|key in capitals"
    std::map<CString, CString> problems;  ///< what opening a database says, by its folded path
    CString queryProblem;                 ///< what every question says, unless empty
    int opened = 0;
    int openNow = 0; ///< databases that are open now
    std::vector<ProjectDatabaseObserver*> observers;
    CStringArray renames; ///< "started ID|old path|file ID" and "completed ID|new path"

    std::unique_ptr<DatabaseRecordset> open(CStringView database, CString& problem) override {
        const auto hit = problems.find(toUpper(database));
        if (hit != problems.end()) {
            problem = hit->second;
            return nullptr;
        }
        ++opened;
        return std::make_unique<Recordset>(*this);
    }
    bool PmGetProjectDb(CStringView projectId, CString& path) override {
        const auto hit = paths.find(toUpper(projectId));
        const bool fits = hit != paths.end() && hit->second.size() < 260;
        if (fits)
            path = hit->second;
        return fits;
    }
    void PmRenameStarted(CStringView projectId, CStringView oldPath, std::int32_t fileId) override {
        renames.push_back(u"started " + CString(projectId) + u"|" + CString(oldPath) + u"|" + toText(fileId));
    }
    void PmRenameCompleted(CStringView projectId, CStringView newPath) override {
        renames.push_back(u"completed " + CString(projectId) + u"|" + CString(newPath));
    }
    bool PmIsHelperProcess() override { return helperProcess; }
    void add(ProjectDatabaseObserver& observer) override { observers.push_back(&observer); }
    void remove(ProjectDatabaseObserver& observer) override { std::erase(observers, &observer); }

private:
    class Recordset final : public DatabaseRecordset {
    public:
        explicit Recordset(ScriptedProjectDatabase& owner) : owner_(owner) { ++owner_.openNow; }
        Recordset(const Recordset&) = delete;
        Recordset& operator=(const Recordset&) = delete;
        ~Recordset() override { --owner_.openNow; }
        bool query(const DatabaseQuery& query, CStringArray& row, CString& problem) override {
            if (!owner_.queryProblem.empty()) {
                problem = owner_.queryProblem;
                return false;
            }
            const auto hit = owner_.rows.find(
                query.table + u"|" + query.column + u"|" + query.keyColumn + u"|" + toUpper(query.key));
            row = hit != owner_.rows.end() ? hit->second : CStringArray();
            return true;
        }

    private:
        ScriptedProjectDatabase& owner_;
    };
};

/// Locks what it is asked for, unless one of the files is held by somebody else; of files that are only
/// looked at (the second flag), projects alone.
class ScriptedLockCheck final : public LockCheck {
public:
    struct Check {
        CStringList files;
        int firstFlag = 0;
        int secondFlag = 0;
    };
    std::set<CString> heldByOthers;          ///< folded paths
    bool refuses = false;                    ///< every check
    std::vector<Check> checks;               ///< all that were asked for
    CStringList locked;                      ///< what is locked now
    std::function<void()> meanwhile = [] {}; ///< runs in each check, before it looks

    bool LispCheckFileLockStatusAndLock(
        const CStringList& files, int firstFlag, int secondFlag, CStringList& taken) override {
        checks.push_back({files, firstFlag, secondFlag});
        meanwhile();
        const bool held = std::any_of(files.begin(), files.end(),
            [this](const CString& file) { return heldByOthers.contains(toUpper(file)); });
        if (refuses || held)
            return false;
        for (const CString& file : files) {
            if (isLocked(file) || (secondFlag == 1 && !toUpper(file).ends_with(u".KQP")))
                continue;
            locked.push_back(file);
            taken.push_back(file);
        }
        return true;
    }
    void LispUpdUnlockFiles(const CStringList& files) override {
        for (const CString& file : files)
            std::erase_if(locked, [&file](const CString& each) { return equalNoCase(each, file); });
    }
    bool isLocked(CStringView file) const {
        return std::any_of(
            locked.begin(), locked.end(), [file](const CString& each) { return equalNoCase(each, file); });
    }
};

/// Knows every dialog, except the missing ones; `dialogs` may hold what one looks like.
class ScriptedTaskDialogs final : public TaskDialogs {
public:
    std::map<CString, TaskDialogRequest> dialogs;
    std::set<CString> missing;
    bool load(CStringView id, const std::vector<std::pair<CString, CString>>& variables,
        TaskDialogRequest& request) override {
        const CString wanted(id);
        if (missing.contains(wanted))
            return false;
        request = dialogs[wanted];
        request.id = wanted;
        request.variables = variables;
        return true;
    }
};

class ScriptedClientManager final : public RyvPdsClientManager {
public:
    bool available = true;
    ScriptedObservers<RyvPdsClientReactor> reactors;
    void update() {
        reactors.tell([](RyvPdsClientReactor& each) { each.onUpdate(); });
    }
    void complete() {
        reactors.tell([](RyvPdsClientReactor& each) { each.onCompletion(); });
    }
    bool isAvailable() override { return available; }
    void addReactor(RyvPdsClientReactor& reactor) override {
        if (available)
            reactors.add(reactor);
    }
    void removeReactor(RyvPdsClientReactor& reactor) override {
        if (available)
            reactors.remove(reactor);
    }
};

class ScriptedCatalogBrowser final : public CatalogBrowserModule, private CatalogBrowser {
public:
    bool available = true;
    CStringArray loaded;      ///< the modules that were asked for
    std::size_t notified = 0; ///< how often the browser heard of a change
    CatalogBrowser* load(CStringView moduleName) override {
        loaded.emplace_back(moduleName);
        return available ? this : nullptr;
    }

private:
    void projectChanged() override { ++notified; }
};

class ScriptedWaitCursor final : public WaitCursor {
public:
    bool available = true;
    bool shown = false;
    bool RyvBeginWaitCursor() override {
        shown = shown || available;
        return available;
    }
    void RyvEndWaitCursor() override { shown = false; }
};

class ScriptedHelp final : public Help {
public:
    CStringArray topics; ///< those that were opened
    void showTopic(CStringView topic) override { topics.emplace_back(topic); }
};

class ScriptedMenuHook final : public MenuHook {
public:
    bool exists = false;
    void remove() override { exists = false; }
};

class ScriptedEventLog final : public EventLog {
public:
    CStringArray lines; ///< what was noted: "onProjectOpen C:\P\A.kqp"
    void log(CStringView event, const CStringArray& details) override {
        CString& line = lines.emplace_back(event);
        for (const CString& detail : details)
            line += u' ' + detail;
    }
};

} // namespace ryv::test
