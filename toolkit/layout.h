// What dialogs and panels are made of, as plain data that can be constant: which controls, in which rows,
// under which titles. Where exactly they stand is the view's business.
#pragma once

#include "toolkit/control.h"

#include <cstddef>
#include <span>

namespace ryv {

/// A text as it is, or the number of one in a catalogue, with what stands in for one that it does not have.
/// In labels of controls "&" marks the letter behind it; titles of panels, pages and dialogs, and choices,
/// are plain.
struct LayoutText {
    CStringView text;
    int number = 0;

    constexpr LayoutText() = default;
    constexpr LayoutText(const char16_t* given) : text(given) {}
    constexpr LayoutText(int catalogueNumber) : number(catalogueNumber) {}
    constexpr LayoutText(int catalogueNumber, const char16_t* otherwise)
        : text(otherwise), number(catalogueNumber) {}
};

/// Gives the text of a number, as messageText() does. Null is for layouts that have no numbers.
using TextSource = CStringView (*)(int number);

/// The text of the number when there is one with a text, else the text itself.
CString resolve(const LayoutText& text, TextSource texts);

struct ChoiceLayout {
    LayoutText text;
    CStringView value = {}; ///< stands for it in what is stored; empty: the text does
};

/// Traits of a control; combined with "|".
namespace LayoutTraits {
inline constexpr unsigned multiLine = 0x1; ///< text
inline constexpr unsigned readOnly = 0x2;  ///< text
inline constexpr unsigned many = 0x4;      ///< list: several rows can be chosen
inline constexpr unsigned editable = 0x8;  ///< combo: a text of the user's own is possible
inline constexpr unsigned sameRow = 0x10;  ///< stands beside the control before it
inline constexpr unsigned disabled = 0x20; ///< at first
inline constexpr unsigned hidden = 0x40;   ///< at first
} // namespace LayoutTraits

/// A control. Trees and groups have no layout; they are added to their panel.
struct ControlLayout {
    ControlKind kind = ControlKind::label;
    int id = 0;
    CStringView name; ///< for scripts
    LayoutText label;
    unsigned traits = 0;
    std::size_t maxLength = 0;                  ///< text and combo, in UTF-16 units; 0 for any length
    std::span<const ChoiceLayout> choices = {}; ///< list, combo and radio; of a grid, the columns
};

/// Controls under one title.
struct PanelLayout {
    LayoutText title; ///< empty: the controls stand without a frame
    std::span<const ControlLayout> controls;
    bool sameRow = false; ///< stands beside the panel before it
};

struct ButtonLayout {
    int id = 0;
    CStringView name;
    LayoutText label;
};

struct DialogLayout {
    CStringView name; ///< by which answer files address it: "NewProject"
    LayoutText title;
    std::span<const PanelLayout> panels;
    std::span<const ButtonLayout> buttons; ///< at the lower edge; empty: OK and Cancel
    int defaultButton = 1;                 ///< what Enter presses
};

} // namespace ryv
