#include "toolkit/script_values.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/grid.h"
#include "toolkit/group_control.h"
#include "toolkit/list_box.h"
#include "toolkit/radio_group.h"
#include "toolkit/script_text.h"
#include "toolkit/text_field.h"
#include "toolkit/tree_control.h"

#include <algorithm>
#include <utility>

namespace ryv {

namespace {

constexpr CStringView refused = u"does not take the value";

CString doneIf(bool done) {
    return done ? CString() : CString(refused);
}

CString noSuch(CStringView value) {
    return format(u"has no choice \"%s\"", {value});
}

/// The first of `texts` that is `value`, or else the one whose number it is.
std::optional<std::size_t> indexOf(const CStringArray& texts, CStringView value) {
    const auto hit = std::find_if(
        texts.begin(), texts.end(), [&](const CString& text) { return equalNoCase(text, value); });
    if (hit != texts.end())
        return static_cast<std::size_t>(hit - texts.begin());
    const std::optional<long long> number = parseInteger(value);
    if (!number || *number < 1 || static_cast<std::size_t>(*number) > texts.size())
        return std::nullopt;
    return static_cast<std::size_t>(*number) - 1;
}

CStringArray textsOf(const Choices& choices) {
    CStringArray texts;
    for (const Choice& choice : choices)
        texts.push_back(choice.text);
    return texts;
}

template <class C>
CString choose(C& control, const CStringArray& texts, CStringView value) {
    const CString wanted = unquoted(value);
    const std::optional<std::size_t> index = indexOf(texts, wanted);
    return index ? doneIf(control.choose(*index)) : noSuch(wanted);
}

CString linesOf(CStringView value) {
    CString text;
    bool isFirst = true;
    for (const CString& line : splitUnquoted(value, u'|')) {
        if (!std::exchange(isFirst, false))
            text += u'\n';
        text += unquoted(line);
    }
    return text;
}

CString typeText(TextField& field, CStringView value) {
    if (field.isReadOnly())
        return u"is only to be read";
    CString text = field.isMultiLine() ? linesOf(value) : unquoted(value);
    if (field.maxLength() != 0 && text.size() > field.maxLength())
        return format(u"holds no more than %d characters", {field.maxLength()});
    return doneIf(field.type(std::move(text)));
}

CString click(CheckBox& box, CStringView value) {
    if (value != u"1" && value != u"0")
        return u"takes 1 or 0";
    return doneIf(box.isChecked() == (value == u"1") || box.click());
}

CString chooseRows(ListBox& list, CStringView value) {
    std::vector<std::size_t> rows;
    const CStringArray texts = textsOf(list.rows());
    for (const CString& part : value.empty() ? CStringArray() : splitUnquoted(value, u'|')) {
        const CString wanted = unquoted(part);
        const std::optional<std::size_t> row = indexOf(texts, wanted);
        if (!row)
            return noSuch(wanted);
        rows.push_back(*row);
    }
    if (rows.size() > 1 && !list.choosesMany())
        return u"takes one choice";
    return doneIf(list.choose(rows));
}

CString chooseOrType(ComboBox& box, CStringView value) {
    const CString wanted = unquoted(value);
    if (!box.isEditable() || findChoice(box.rows(), wanted))
        return choose(box, textsOf(box.rows()), value);
    if (box.maxLength() != 0 && wanted.size() > box.maxLength())
        return format(u"holds no more than %d characters", {box.maxLength()});
    return doneIf(box.type(wanted));
}

CString chooseRow(Grid& grid, CStringView value) {
    CStringArray texts;
    for (std::size_t row = 0; row < grid.rowCount() && !grid.columns().empty(); ++row)
        texts.push_back(grid.text(row, 0));
    return choose(grid, texts, value);
}

CString turnTo(GroupControl& group, CStringView value) {
    CStringArray texts;
    for (const GroupControl::Page& page : group.pages())
        texts.push_back(page.caption);
    const CString wanted = unquoted(value);
    const std::optional<std::size_t> index = indexOf(texts, wanted);
    return index ? doneIf(group.click(static_cast<int>(*index))) : noSuch(wanted);
}

/// The row at the end of labels parted by "/", null when there is none; rows above it are expanded.
TreeItem* findRow(TreeControl& tree, CStringView path) {
    TreeItem* found = nullptr;
    for (const CString& part : splitUnquoted(path, u'/')) {
        if (found)
            tree.expand(*found, true);
        TreeItem* row = tree.shownChild(found, 0);
        while (row && !equalNoCase(row->label(), unquoted(part)))
            row = row->next(TreeCount::shown);
        if (!row)
            return nullptr;
        found = row;
    }
    return found;
}

CString clickRows(TreeControl& tree, CStringView value) {
    Modifiers modifiers;
    for (const CString& path : splitUnquoted(value, u'|')) {
        TreeItem* const row = value.empty() ? nullptr : findRow(tree, path);
        if (!row && !value.empty())
            return noSuch(path);
        tree.click(row, modifiers);
        modifiers.ctrl = true;
    }
    return {};
}

} // namespace

CString giveValue(Control& control, CStringView value) {
    if (!control.isUsable())
        return control.isVisible() ? u"is disabled" : u"is not shown";
    if (auto* const field = dynamic_cast<TextField*>(&control))
        return typeText(*field, value);
    if (auto* const box = dynamic_cast<CheckBox*>(&control))
        return click(*box, value);
    if (auto* const radio = dynamic_cast<RadioGroup*>(&control))
        return choose(*radio, textsOf(radio->choices()), value);
    if (auto* const list = dynamic_cast<ListBox*>(&control))
        return chooseRows(*list, value);
    if (auto* const combo = dynamic_cast<ComboBox*>(&control))
        return chooseOrType(*combo, value);
    if (auto* const grid = dynamic_cast<Grid*>(&control))
        return chooseRow(*grid, value);
    if (auto* const tree = dynamic_cast<TreeControl*>(&control))
        return clickRows(*tree, value);
    if (auto* const group = dynamic_cast<GroupControl*>(&control))
        return turnTo(*group, value);
    return u"holds no value";
}

} // namespace ryv
