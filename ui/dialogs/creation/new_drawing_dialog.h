// What a new drawing is called, where it lies, what it is made from and what it says of itself.
#pragma once

#include "toolkit/dialog.h"
#include "ui/dialogs/creation/new_drawing_panels.h"

#include <functional>

namespace ryv {

/// Edits the values of a new drawing for one project, and closes at once when that is not open. OK checks
/// them; whatever is wrong is told, and the dialog stays open with the focus on the field at fault. The
/// template is remembered for the user; an empty field stands for "qdra.dwt" among the host's templates.
///
/// The codes that the project's drawings have are looked up when it opens, but in a large project only when
/// the user asks for them, since LISP reads every drawing. The project may be read again or closed while the
/// dialog stands.
class CRyvCfgDrawingNewDlg : public Dialog {
public:
    static constexpr int nameId = 1001;
    static constexpr int folderId = 1002;
    static constexpr int browseFolderId = 1003;
    static constexpr int templateId = 1004;
    static constexpr int browseTemplateId = 1005;
    static constexpr int pathId = 1006;
    static constexpr int description1Id = 1007; ///< and the two behind it
    static constexpr int referenceId = 1010;
    static constexpr int propertiesId = 1011;

    /// The longest description line that can be typed, in UTF-16 units.
    static constexpr std::size_t longestDescription = 256;
    /// With more drawings, codes in use are looked up on demand.
    static constexpr std::size_t mostDrawingsRead = 200;

    /// Makes the drawing's file, and tells the user when that fails (false): the dialog stays, with all that
    /// was typed.
    using Maker = std::function<bool(const NewDrawingValues& values)>;
    CRyvCfgDrawingNewDlg(CStringView projectId, Maker maker);

    /// The values as they were confirmed.
    const NewDrawingValues& values() const noexcept { return values_; }

protected:
    bool onInit() override;
    void onChange(Control& control) override;
    void onPress(int id) override;
    bool onOk() override;

private:
    CString textOf(int id) const;
    void setPath(int id, CStringView path);
    CString composedPath() const;
    CString templateFile() const;
    void showPath();
    void offer(const UsedTexts& used);
    void browse(bool forFolder);
    bool refuse(int focus, int text, CStringView argument = {});
    bool isPathFree(const CString& path);
    void store(NewDrawingValues& values) const;

    CString projectId_;
    NewDrawingCodesPanel codes_;
    NewDrawingSheetPanel sheet_;
    NewDrawingValues values_;
    Maker maker_;
};

} // namespace ryv
