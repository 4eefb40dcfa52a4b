// The panels of the dialog for new drawings that hold what the drawing is found by.
#pragma once

#include "model/drawing_settings.h"
#include "toolkit/panel.h"
#include "ui/dialogs/creation/new_drawing_values.h"
#include "ui/dialogs/creation/used_texts.h"

namespace ryv {

/// Project, installation and location code. None has to be given.
class NewDrawingCodesPanel : public Panel {
public:
    static constexpr int projectId = 1101;
    static constexpr int installationId = 1102;
    static constexpr int locationId = 1103;
    static constexpr int lookUpId = 1104;
    static constexpr int foundId = 1105;

    NewDrawingCodesPanel();

    /// Proposes the codes that the project's drawings have by default.
    void propose(const RyvCfgDrawingSettings& defaults);
    /// Offers the codes in use, which LISP takes from all drawings of the active project.
    void lookUp();
    void store(NewDrawingValues& values) const;

protected:
    void onPress(int id) override;
};

/// Sheet, drawing number, section and sub-section. None has to be given.
class NewDrawingSheetPanel : public Panel {
public:
    static constexpr int sheetId = 1111;
    static constexpr int drawingId = 1112;
    static constexpr int sectionId = 1113;
    static constexpr int subSectionId = 1114;

    NewDrawingSheetPanel();

    /// Offers the sections that are in use.
    void offer(const UsedTexts& used);
    void store(NewDrawingValues& values) const;
};

} // namespace ryv
