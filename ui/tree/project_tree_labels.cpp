// What drawings are called in the project tree.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "resources/message_numbers.h"

#include <iterator>
#include <utility>

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

/// `databaseField` gives the text of a field that the database holds, good until it is asked again.
template <class DatabaseField>
CString composeLabel(
    const RyvPrmFileDetails& details, const TreeLabelling& labelling, const DatabaseField& databaseField) {
    CString text;
    text.reserve(usualLength); // a label keeps no more memory than it needs
    bool first = true;
    for (const int fieldCode : labelling.displayOrder) {
        const CStringView value =
            columnOf(fieldCode).empty() ? projectField(details, fieldCode) : databaseField(fieldCode);
        if (value.empty() && fieldCode != message::fieldFileName)
            continue;
        if (!std::exchange(first, false))
            text.append(u" ").append(labelling.separator).append(u" ");
        text += value;
    }
    return {text.data(), text.size()};
}

CString& databaseValueOf(_dwgdatastruct& record, int fieldCode) {
    switch (fieldCode) {
    case message::fieldInstallationCode:
        return record.installation;
    case message::fieldLocationCode:
        return record.location;
    case message::fieldSheet:
        return record.sheet;
    default:
        return record.drawingNumber;
    }
}

} // namespace

/// The database is asked once for each value, also for those that the label has no part of: drawings are
/// found by them.
TreeRow CProjectTree::labelledRow(const RyvPrmFileDetails& drawing, const TreeLabelling& labelling) {
    std::unique_ptr<_dwgdatastruct> record = drawingRecord(drawing);
    CString label;
    if (record && labelling.database) {
        askDatabase(*record, *labelling.database);
        label = composeLabel(drawing, labelling,
            [&record](int fieldCode) { return CStringView(databaseValueOf(*record, fieldCode)); });
    } else {
        GetDwgNodeName(label, drawing, labelling);
    }
    return drawingRow(drawing, std::move(label), std::move(record));
}

void CProjectTree::askDatabase(_dwgdatastruct& record, DatabaseRecordset& database) {
    for (const int fieldCode : {message::fieldSheet, message::fieldDrawingNumber,
             message::fieldInstallationCode, message::fieldLocationCode})
        GetValueFromScratchDb(
            databaseValueOf(record, fieldCode), record.details.getFileName(), fieldCode, database);
}

void CProjectTree::GetDwgNodeName(
    CString& label, const RyvPrmFileDetails& details, const TreeLabelling& labelling) {
    if (!label.empty())
        return;
    CString answer;
    label = composeLabel(details, labelling, [&](int fieldCode) {
        answer.clear();
        if (labelling.database)
            GetValueFromScratchDb(answer, details.getFileName(), fieldCode, *labelling.database);
        return CStringView(answer);
    });
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
