// The smaller ports of the host: editor, commands, console, search path, profile and main window.
#pragma once

#include "base/fold.h"
#include "platform/host/commands.h"
#include "platform/host/console.h"
#include "platform/host/editor.h"
#include "platform/host/host_files.h"
#include "platform/host/main_window.h"
#include "platform/host/profile.h"
#include "tests/support/scripted_observers.h"

#include <map>
#include <optional>
#include <utility>

namespace ryv::test {

class ScriptedConsole final : public HostConsole {
public:
    CString printed; ///< all that was printed so far
    void print(CStringView text) override { printed += text; }
};

/// Keeps the commands that it is given; those of others are recorded and succeed while `succeeds` is set.
class ScriptedCommands final : public HostCommands {
public:
    std::vector<HostCommand> commands; ///< in the order of adding
    std::vector<CStringArray> runs;    ///< what runCommand() was asked for
    bool succeeds = true;

    /// Runs the newest command of a global name; false when there is none.
    bool run(CStringView globalName) {
        const auto newest = std::find_if(commands.rbegin(), commands.rend(),
            [globalName](const HostCommand& each) { return equalNoCase(each.globalName, globalName); });
        if (newest == commands.rend())
            return false;
        const std::function<void()> handler = newest->handler; // it may remove the commands
        handler();
        return true;
    }

    bool addCommand(HostCommand command) override {
        commands.push_back(std::move(command));
        return true;
    }
    bool removeGroup(CStringView group) override {
        return std::erase_if(
                   commands, [group](const HostCommand& each) { return equalNoCase(each.group, group); }) > 0;
    }
    bool runCommand(const CStringArray& words) override {
        runs.push_back(words);
        return succeeds;
    }
};

class ScriptedHostFiles final : public HostFiles {
public:
    std::map<CString, CString> found; ///< by the folded name: where it is
    CString findFile(CStringView name) override {
        const auto hit = found.find(toUpper(name));
        return hit == found.end() ? CString() : hit->second;
    }
};

class ScriptedEditor final : public NullHostEditor {
public:
    bool userBreak = false; ///< the break key was pressed

    /// Defines or changes a variable; observers are told.
    void set(CStringView name, SystemVariable value) {
        variables_[toUpper(name)] = std::move(value);
        observers_.tell([name](EditorObserver& each) { each.systemVariableChanged(name); });
    }
    /// Whether somebody vetoes.
    bool quitIsVetoed() {
        bool veto = false;
        observers_.tell([&veto](EditorObserver& each) { each.beginQuit(veto); });
        return veto;
    }
    void saved(CStringView path) {
        observers_.tell([path](EditorObserver& each) { each.saveComplete(path); });
    }
    std::size_t observerCount() const noexcept { return observers_.count(); }

    bool systemVariable(CStringView name, SystemVariable& value) override {
        const auto hit = variables_.find(toUpper(name));
        if (hit != variables_.end())
            value = hit->second;
        return hit != variables_.end();
    }
    bool setSystemVariable(CStringView name, const SystemVariable& value) override {
        SystemVariable old;
        const bool fits = systemVariable(name, old) && old.index() == value.index();
        if (fits)
            set(name, value);
        return fits;
    }
    bool takeUserBreak() override { return std::exchange(userBreak, false); }
    void add(EditorObserver& observer) override { observers_.add(observer); }
    void remove(EditorObserver& observer) override { observers_.remove(observer); }

private:
    std::map<CString, SystemVariable> variables_;
    ScriptedObservers<EditorObserver> observers_;
};

class ScriptedProfile final : public HostProfile {
public:
    CString key = u"Software\\Drafta\\Profiles\\Standard";
    CString product = u"Software\\Drafta";
    CString templates;
    CStringArray support;

    CString profileKey() override { return key; }
    CString productKey() override { return product; }
    CString templateFolder() override { return templates; }
    CStringArray supportFolders() override { return support; }
};

/// A main window in front of the user, unless the test says otherwise.
class ScriptedMainWindow final : public HostMainWindow {
public:
    WindowHandle handle{4711};
    ScreenRectangle place{0, 0, 1920, 1080};
    std::optional<ScreenRectangle> document; ///< the client area of the active document's window
    bool background = false;
    DpiFactors dpi;
    int height = 1080;
    std::size_t focused = 0; ///< how often it was given the keyboard

    void setTheme(HostTheme theme) {
        theme_ = theme;
        observers_.tell([](ThemeObserver& each) { each.themeChanged(); });
    }
    std::size_t observerCount() const noexcept { return observers_.count(); }

    WindowHandle window() override { return handle; }
    ScreenRectangle rectangle() override { return place; }
    bool documentArea(ScreenRectangle& area) override {
        area = document.value_or(area);
        return document.has_value();
    }
    void focus() override { ++focused; }
    bool isInBackground() override { return background; }
    DpiFactors dpiFactors() override { return dpi; }
    int screenHeight() override { return height; }
    HostTheme theme() override { return theme_; }
    void add(ThemeObserver& observer) override { observers_.add(observer); }
    void remove(ThemeObserver& observer) override { observers_.remove(observer); }

private:
    HostTheme theme_ = HostTheme::light;
    ScriptedObservers<ThemeObserver> observers_;
};

} // namespace ryv::test
