// The ports on which a module only hears of things: editor, main window, client manager, project databases.
#pragma once

#include "embedded/modules/left_behind.h"
#include "platform/host/editor.h"
#include "platform/host/main_window.h"
#include "platform/services/client_manager.h"
#include "platform/services/project_database.h"

namespace drafta {

class ModuleEditor final : public ryv::HostEditor {
public:
    explicit ModuleEditor(ryv::HostEditor& editor) noexcept : editor_(editor) {}

    /// Takes observers off.
    void drop() {
        observers_.drop([&](ryv::EditorObserver* observer) { editor_.remove(*observer); });
    }

    bool systemVariable(ryv::CStringView name, ryv::SystemVariable& value) override {
        return editor_.systemVariable(name, value);
    }
    bool setSystemVariable(ryv::CStringView name, const ryv::SystemVariable& value) override {
        return editor_.setSystemVariable(name, value);
    }
    bool takeUserBreak() override { return editor_.takeUserBreak(); }
    void add(ryv::EditorObserver& observer) override {
        editor_.add(observer);
        observers_.add(&observer);
    }
    void remove(ryv::EditorObserver& observer) override {
        editor_.remove(observer);
        observers_.remove(&observer);
    }

private:
    ryv::HostEditor& editor_;
    LeftBehind<ryv::EditorObserver*> observers_;
};

class ModuleMainWindow final : public ryv::HostMainWindow {
public:
    explicit ModuleMainWindow(ryv::HostMainWindow& window) noexcept : window_(window) {}

    /// Takes observers off.
    void drop() {
        observers_.drop([&](ryv::ThemeObserver* observer) { window_.remove(*observer); });
    }

    ryv::WindowHandle window() override { return window_.window(); }
    ryv::ScreenRectangle rectangle() override { return window_.rectangle(); }
    bool documentArea(ryv::ScreenRectangle& area) override { return window_.documentArea(area); }
    void focus() override { window_.focus(); }
    bool isInBackground() override { return window_.isInBackground(); }
    ryv::DpiFactors dpiFactors() override { return window_.dpiFactors(); }
    int screenHeight() override { return window_.screenHeight(); }
    ryv::HostTheme theme() override { return window_.theme(); }
    void add(ryv::ThemeObserver& observer) override {
        window_.add(observer);
        observers_.add(&observer);
    }
    void remove(ryv::ThemeObserver& observer) override {
        window_.remove(observer);
        observers_.remove(&observer);
    }

private:
    ryv::HostMainWindow& window_;
    LeftBehind<ryv::ThemeObserver*> observers_;
};

class ModuleClientManager final : public ryv::RyvPdsClientManager {
public:
    explicit ModuleClientManager(ryv::RyvPdsClientManager& manager) noexcept : manager_(manager) {}

    /// Takes reactors off.
    void drop() {
        reactors_.drop([&](ryv::RyvPdsClientReactor* reactor) { manager_.removeReactor(*reactor); });
    }

    bool isAvailable() override { return manager_.isAvailable(); }
    void addReactor(ryv::RyvPdsClientReactor& reactor) override {
        manager_.addReactor(reactor);
        reactors_.add(&reactor);
    }
    void removeReactor(ryv::RyvPdsClientReactor& reactor) override {
        manager_.removeReactor(reactor);
        reactors_.remove(&reactor);
    }

private:
    ryv::RyvPdsClientManager& manager_;
    LeftBehind<ryv::RyvPdsClientReactor*> reactors_;
};

class ModuleProjectDatabase final : public ryv::ProjectDatabase {
public:
    explicit ModuleProjectDatabase(ryv::ProjectDatabase& database) noexcept : database_(database) {}

    /// Takes observers off.
    void drop() {
        observers_.drop([&](ryv::ProjectDatabaseObserver* observer) { database_.remove(*observer); });
    }

    bool PmGetProjectDb(ryv::CStringView projectId, ryv::CString& path) override {
        return database_.PmGetProjectDb(projectId, path);
    }
    std::unique_ptr<ryv::DatabaseRecordset> open(ryv::CStringView path, ryv::CString& problem) override {
        return database_.open(path, problem);
    }
    void PmRenameStarted(ryv::CStringView projectId, ryv::CStringView oldPath, std::int32_t fileId) override {
        database_.PmRenameStarted(projectId, oldPath, fileId);
    }
    void PmRenameCompleted(ryv::CStringView projectId, ryv::CStringView newPath) override {
        database_.PmRenameCompleted(projectId, newPath);
    }
    bool PmIsHelperProcess() override { return database_.PmIsHelperProcess(); }
    void add(ryv::ProjectDatabaseObserver& observer) override {
        database_.add(observer);
        observers_.add(&observer);
    }
    void remove(ryv::ProjectDatabaseObserver& observer) override {
        database_.remove(observer);
        observers_.remove(&observer);
    }

private:
    ryv::ProjectDatabase& database_;
    LeftBehind<ryv::ProjectDatabaseObserver*> observers_;
};

} // namespace drafta
