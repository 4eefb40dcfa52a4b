#include "ui/dialogs/drawing_list_dialog.h"

#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "toolkit/check_box.h"
#include "toolkit/text_field.h"

#include <algorithm>
#include <array>

namespace ryv {

namespace {

using Dlg = CRyvPrmDwgListConfigDlg;

/// In the order in which they are offered.
constexpr std::array<int, 10> fields = {message::fieldInstallationCode, message::fieldLocationCode,
    message::fieldFileName, message::fieldSection, message::fieldSubSection, message::fieldSheet,
    message::fieldDrawingNumber, message::fieldDescription1, message::fieldDescription2,
    message::fieldDescription3};

constexpr std::array<ControlLayout, 1> availablePart = {
    {{ControlKind::list, Dlg::availableId, u"available", message::drawingListAvailable}}};
constexpr std::array<ControlLayout, 2> betweenPart = {
    {{ControlKind::button, Dlg::addId, u"add", message::drawingListAdd},
        {ControlKind::button, Dlg::removeId, u"remove", message::drawingListRemove}}};
constexpr std::array<ControlLayout, 1> shownPart = {
    {{ControlKind::list, Dlg::shownId, u"shown", message::drawingListShown}}};
constexpr std::array<ControlLayout, 2> orderPart = {
    {{ControlKind::button, Dlg::upId, u"up", message::drawingListUp},
        {ControlKind::button, Dlg::downId, u"down", message::drawingListDown}}};
constexpr std::array<ControlLayout, 2> otherPart = {
    {{ControlKind::text, Dlg::separatorId, u"separator", message::drawingListSeparator},
        {ControlKind::checkBox, Dlg::showSelectionId, u"showSelection", message::drawingListSelection}}};
constexpr std::array<PanelLayout, 5> panels = {{{u"", availablePart}, {u"", betweenPart, true},
    {u"", shownPart, true}, {u"", orderPart, true}, {u"", otherPart}}};
constexpr DialogLayout layout = {u"DrawingList", message::drawingListTitle, panels, {}};

std::size_t placeOf(int field) {
    return static_cast<std::size_t>(std::find(fields.begin(), fields.end(), field) - fields.begin());
}

/// A row's own number is the field's place among all fields.
Choice rowOf(std::size_t place) {
    Choice row;
    row.text = messageText(fields[place]);
    row.data = place;
    return row;
}

bool holds(const Choices& rows, std::size_t place) {
    return std::any_of(rows.begin(), rows.end(), [place](const Choice& row) { return row.data == place; });
}

Choices rowsOf(const CArray<int>& order) {
    Choices rows;
    for (const int field : order)
        if (const std::size_t place = placeOf(field); place < fields.size() && !holds(rows, place))
            rows.push_back(rowOf(place));
    return rows;
}

Choices rowsWithout(const Choices& taken) {
    Choices rows;
    for (std::size_t place = 0; place < fields.size(); ++place)
        if (!holds(taken, place))
            rows.push_back(rowOf(place));
    return rows;
}

/// Takes the chosen row out; the one that comes to stand in its place, or else the last, is chosen then.
Choice takeChosen(ListBox& list) {
    const std::size_t index = *list.firstChosen();
    Choice row = list.rows()[index];
    list.remove(index);
    if (!list.rows().empty())
        list.setChosen({std::min(index, list.rows().size() - 1)});
    return row;
}

} // namespace

CRyvPrmDwgListConfigDlg::CRyvPrmDwgListConfigDlg() : Dialog(layout, messageText) {
    setHelpTopic(u"drawing_list_display");
    addsByDoubleClick_ = available().activated.subscribe([this](std::size_t) { onPress(addId); });
    removesByDoubleClick_ = shown().activated.subscribe([this](std::size_t) { onPress(removeId); });
}

bool CRyvPrmDwgListConfigDlg::onInit() {
    CArray<int> order;
    CString separator;
    bool showSelection = true;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->getDwgDisplaySetting(order, separator, showSelection);
    shown().setRows(rowsOf(order));
    available().setRows(rowsWithout(shown().rows()));
    control<TextField>(separatorId).setText(separator);
    control<CheckBox>(showSelectionId).setChecked(showSelection);
    enableButtons();
    return true;
}

void CRyvPrmDwgListConfigDlg::onChange(Control&) {
    enableButtons();
}

void CRyvPrmDwgListConfigDlg::onPress(int id) {
    if (id == addId)
        addField();
    else if (id == removeId)
        removeField();
    else
        moveField(id == upId);
    enableButtons();
}

void CRyvPrmDwgListConfigDlg::addField() {
    if (!available().firstChosen())
        return;
    shown().add(takeChosen(available()));
    shown().setChosen({shown().rows().size() - 1});
}

void CRyvPrmDwgListConfigDlg::removeField() {
    if (!shown().firstChosen())
        return;
    Choice row = takeChosen(shown());
    const Choices& rows = available().rows();
    const auto behind =
        std::find_if(rows.begin(), rows.end(), [&row](const Choice& each) { return each.data > row.data; });
    const auto index = static_cast<std::size_t>(behind - rows.begin());
    available().insert(index, std::move(row));
    available().setChosen({index});
}

void CRyvPrmDwgListConfigDlg::moveField(bool up) {
    if (const auto index = shown().firstChosen())
        shown().exchange(*index, up ? *index - 1 : *index + 1);
}

void CRyvPrmDwgListConfigDlg::enableButtons() {
    const auto chosen = shown().firstChosen();
    control<Button>(addId).setEnabled(available().firstChosen().has_value());
    control<Button>(removeId).setEnabled(chosen.has_value());
    control<Button>(upId).setEnabled(chosen && *chosen > 0);
    control<Button>(downId).setEnabled(chosen && *chosen + 1 < shown().rows().size());
}

bool CRyvPrmDwgListConfigDlg::isComplete(const CArray<int>& order, const CString& separator) {
    const bool separated = order.size() <= 1 || !separator.empty();
    if (separated && !order.empty())
        return true;
    setFocus(separated ? availableId : separatorId);
    showMessage({separated ? message::drawingListNoField : message::drawingListNoSeparator,
                    message::drawingListTitle, MessageIcon::warning},
        {});
    return false;
}

bool CRyvPrmDwgListConfigDlg::onOk() {
    CArray<int> order;
    for (const Choice& row : shown().rows())
        order.push_back(fields[row.data]);
    const CString separator = control<TextField>(separatorId).text();
    const bool showSelection = control<CheckBox>(showSelectionId).isChecked();
    if (!isComplete(order, separator))
        return false;
    const RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager && manager->setDwgDisplaySetting(order, separator, showSelection))
        return true;
    showMessage({message::drawingListNotStored, message::drawingListTitle}, {});
    return false;
}

} // namespace ryv
