// What a new project is called, where it lies and which project's settings it gets.
#pragma once

#include "toolkit/dialog.h"
#include "ui/dialogs/creation/new_project_values.h"

#include <functional>

namespace ryv {

/// Edits the values of a new project. OK checks them and, when nothing is wrong with them, remembers the
/// settings file for the user and has the project made; whatever fails is told, and the dialog stays open
/// with its fields kept and the focus on the one at fault.
///
/// The settings file starts as the one that was given last; where none was and no project is active, as the
/// one that comes with the host ("default.kqp" among its templates). While a project is active, an empty
/// field stands for that project. Anything may be opened, read again or closed while the dialog stands.
class CRyvCfgProjNewDlg : public Dialog {
public:
    static constexpr int nameId = 1001;
    static constexpr int folderId = 1002;
    static constexpr int browseFolderId = 1003;
    static constexpr int ownFolderId = 1004;
    static constexpr int settingsId = 1005;
    static constexpr int browseSettingsId = 1006;
    static constexpr int linesId = 1007;
    static constexpr int editLinesId = 1008;
    static constexpr int propertiesId = 1009;
    static constexpr int pathId = 1010;
    static constexpr int value9Id = 1011;

    /// Makes the project, and tells the user when that fails (false).
    using Maker = std::function<bool(const NewProjectValues& values)>;
    explicit CRyvCfgProjNewDlg(Maker maker);

    /// The values as they were confirmed.
    const NewProjectValues& values() const noexcept { return values_; }

protected:
    bool onInit() override;
    void onChange(Control& control) override;
    void onPress(int id) override;
    bool onOk() override;
    void onCancel() override;

private:
    CString textOf(int id) const;
    void setPath(int id, CStringView path);
    CString folder() const;
    CString name() const;
    CString composedPath() const;
    void showPath();
    void editLines();
    bool refuse(int focus, int text, CStringView argument = {});
    bool isPathFree(const CString& path);
    bool hasSource(CString& source);
    void keepOwnFolder() const;

    Maker maker_;
    NewProjectValues values_;
    CString defaultFolder_;
    CStringArray lines_;
    bool isFresh_ = true; // the fields have not been filled yet
};

} // namespace ryv
