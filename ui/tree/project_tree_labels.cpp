// What drawings are called in the project tree.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "resources/message_numbers.h"

#include <iterator>

namespace ryv {

namespace {

constexpr CStringView drawingTable = u"FILETIME";
constexpr CStringView drawingColumn = u"DWGNAME";

constexpr std::size_t usualLength = 128; // of labels, at the most

/// Empty for a field that the database does not hold.
CStringView columnOf(int fieldCode) noexcept {
    switch (fieldCode) {
    case message::fieldInstallationCode:
        return u"IEC_I";
    case message::fieldLocationCode:
        return u"IEC_L";
    case message::fieldSheet:
        return u"SH";
    case message::fieldDrawingNumber:
        return u"SHDWGNAM";
    default:
        return {};
    }
}

CStringView descriptionLine(const RyvPrmFileDetails& details, int number) {
    const DescriptionLines lines = details.getDescriptions();
    return static_cast<int>(lines.size()) > number ? *std::next(lines.begin(), number) : CStringView();
}

/// What the project itself says of a drawing; empty for other fields.
CStringView projectField(const RyvPrmFileDetails& details, int fieldCode) {
    switch (fieldCode) {
    case message::fieldFileName:
        return paths::findFileName(details.getFileName());
    case message::fieldSection:
        return details.getDescription1();
    case message::fieldSubSection:
        return details.getDescription2();
    case message::fieldDescription1:
        return descriptionLine(details, 0);
    case message::fieldDescription2:
        return descriptionLine(details, 1);
    case message::fieldDescription3:
        return descriptionLine(details, 2);
    default:
        return {};
    }
}

} // namespace

void CProjectTree::GetDwgNodeName(
    CString& label, const RyvPrmFileDetails& details, const TreeLabelling& labelling) {
    if (!label.empty())
        return;
    CString text;
    text.reserve(usualLength); // a label keeps no more memory than it needs
    CString answer;
    bool first = true;
    for (const int fieldCode : labelling.displayOrder) {
        const bool isAsked = !columnOf(fieldCode).empty();
        answer.clear();
        if (isAsked && labelling.database)
            GetValueFromScratchDb(answer, details.getFileName(), fieldCode, *labelling.database);
        const CStringView value = isAsked ? CStringView(answer) : projectField(details, fieldCode);
        if (value.empty() && fieldCode != message::fieldFileName)
            continue;
        if (!std::exchange(first, false))
            text.append(u" ").append(labelling.separator).append(u" ");
        text += value;
    }
    label = text;
}

bool CProjectTree::GetDwgNodeName(CString& label, CStringView drawing) const {
    const TreeItem* const item = GetDrawingItem(drawing);
    if (item)
        label = item->label();
    return item;
}

bool CProjectTree::GetValueFromScratchDb(
    CString& value, CStringView drawing, int fieldCode, DatabaseRecordset& database) {
    const CStringView column = columnOf(fieldCode);
    if (column.empty())
        return false;
    CStringArray row;
    CString problem;
    const CString key = toUpper(replaceAll(drawing, u'\\', u'/'));
    if (!database.query(
            {CString(drawingTable), CString(column), CString(drawingColumn), key}, row, problem)) {
        problems_.add(std::move(problem));
        return false;
    }
    if (row.size() == 1)
        value = row.front();
    return true;
}

} // namespace ryv
