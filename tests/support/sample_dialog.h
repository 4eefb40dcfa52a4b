// A dialog with a control of each kind that layouts describe, for tests of what shows and answers dialogs.
#pragma once

#include "toolkit/property_sheet.h"

#include <array>

namespace ryv::test {

namespace sample {

inline constexpr int name = 10, folder = 11, browse = 12, own = 13, code = 14, notes = 15, direction = 16,
                     format = 17, drawings = 18, levels = 19, layers = 20, preview = 21, remark = 22,
                     heading = 23;

inline constexpr std::array<ChoiceLayout, 2> directions = {{{u"Horizontal", u"H"}, {u"Vertical", u"V"}}};
inline constexpr std::array<ChoiceLayout, 3> formats = {{{u"A3"}, {u"A4"}, {u"Letter; US"}}};
inline constexpr std::array<ChoiceLayout, 2> columns = {{{u"Setting"}, {u"Value"}}};

inline constexpr std::array<ControlLayout, 6> first = {{
    {ControlKind::label, heading, u"", u"What the drawing is to be."},
    {ControlKind::text, name, u"name", u"&Name:", 0, 8},
    {ControlKind::text, folder, u"folder", u"F&older", LayoutTraits::readOnly},
    {ControlKind::button, browse, u"browse", u"&Browse...", LayoutTraits::sameRow},
    {ControlKind::checkBox, own, u"ownFolder", u"A folder of its own"},
    {ControlKind::radio, direction, u"direction", u"Ladders", 0, 0, directions},
}};
inline constexpr std::array<ControlLayout, 8> second = {{
    {ControlKind::combo, format, u"format", u"Format", 0, 0, formats},
    {ControlKind::combo, remark, u"remark", u"Remark", LayoutTraits::editable, 12},
    {ControlKind::text, notes, u"notes", u"Notes", LayoutTraits::multiLine},
    {ControlKind::list, drawings, u"drawings", u"Drawings", LayoutTraits::many},
    {ControlKind::list, levels, u"", u"Levels", LayoutTraits::disabled},
    {ControlKind::grid, layers, u"settings", u"Settings", 0, 0, columns},
    {ControlKind::picture, preview, u"preview", u"", LayoutTraits::hidden},
    {ControlKind::text, code, u"code", u"Code", LayoutTraits::hidden},
}};
inline constexpr std::array<PanelLayout, 2> panels = {{{u"", first}, {u"More", second}}};
inline constexpr DialogLayout layout = {u"Sample", u"Sample & Co", panels, {}};

} // namespace sample

/// Keeps what it is told, and does as the test says.
class SampleDialog : public Dialog {
public:
    SampleDialog() : Dialog(sample::layout) {}

    CString story; ///< what the dialog was told, in order
    bool opens = true;
    bool confirms = true;

protected:
    bool onInit() override {
        story += u"init ";
        return opens;
    }
    void onChange(Control& control) override { story += u"change:" + control.name() + u" "; }
    void onPress(int id) override { story += u"press:" + find(id)->name() + u" "; }
    bool onOk() override {
        story += u"ok ";
        if (!confirms)
            setFocus(sample::name);
        return confirms;
    }
    void onCancel() override { story += u"cancel "; }
};

} // namespace ryv::test
