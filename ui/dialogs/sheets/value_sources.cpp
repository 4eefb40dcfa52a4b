#include "ui/dialogs/sheets/value_sources.h"

#include "base/join.h"
#include "base/text.h"
#include "manager/shown_messages.h"
#include "model/kqp_filer.h"
#include "ui/dialogs/creation/file_fields.h"

namespace ryv {

namespace {

constexpr int libraries = 4;

bool isLibrary(SettingKey key) {
    return key.number >= 1 && key.number <= libraries;
}

/// Folders, or one file, parted by ";".
template <class Change>
CString eachPath(const CString& paths, Change change) {
    CString text;
    bool first = true;
    for (const CString& path : split(paths, u';')) {
        text += (first ? u"" : u";") + (path.empty() ? path : change(path));
        first = false;
    }
    return text;
}

CString shownLibrary(CString paths) {
    RyvPrmKQPFiler(true).SwapFullPathWithVariable(paths, true);
    return eachPath(paths, [](const CString& path) { return shownPath(path); });
}

CString keptLibrary(const CString& typed) {
    CString paths = eachPath(typed, [](const CString& path) { return typedPath(path); });
    RyvPrmKQPFiler(true).SwapFullPathWithVariable(paths, false);
    return paths;
}

/// Lines at the end that are empty are none.
CStringList linesOf(CStringView text) {
    CStringList lines;
    for (const CString& line : split(text, u'\n'))
        lines.push_back(line);
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

CStringView withoutMarks(CStringView text) {
    const std::size_t start = text.find_first_not_of(u'=');
    return start == CStringView::npos ? CStringView() : text.substr(start);
}

std::optional<CString> entryValue(const DrawingValues& values, EntryField field) {
    const RyvPrmFileDetails& details = values.details;
    switch (field) {
    case EntryField::file:
        return shownPath(details.getFileName());
    case EntryField::project:
        return values.project;
    case EntryField::section:
        return CString(details.getDescription1());
    case EntryField::subSection:
        return CString(details.getDescription2());
    case EntryField::descriptions:
        return join(details.getDescriptions(), u"\n");
    case EntryField::referenceOnly:
        return CString(details.isReferenceOnly() ? u"1" : u"0");
    }
    return std::nullopt;
}

void setEntryValue(RyvPrmFileDetails& details, EntryField field, CStringView value) {
    if (field == EntryField::section)
        details.setDescription1(withoutMarks(value));
    else if (field == EntryField::subSection)
        details.setDescription2(withoutMarks(value));
    else if (field == EntryField::referenceOnly)
        details.setReferenceOnly(value == u"1");
    if (field != EntryField::descriptions)
        return;
    CStringList lines = linesOf(value);
    for (CString& line : lines)
        line = CString(withoutMarks(line));
    details.setDescriptions(lines);
}

} // namespace

std::optional<CString> ProjectValueSource::value(SettingKey key) const {
    if (key.area == SettingArea::drawing)
        return DrawingSettingSource(values_.settings).value(key);
    if (key == projectField(ProjectField::descriptions))
        return join(values_.descriptions, u"\n");
    CString text;
    if (key.area != SettingArea::misc ||
        values_.misc.getValue(key.number, text) != RyvPmMiscProjSettings::Status::present)
        return std::nullopt;
    return isLibrary(key) ? shownLibrary(std::move(text)) : text;
}

void ProjectValueSource::setValue(SettingKey key, CStringView value) {
    if (key.area == SettingArea::drawing)
        DrawingSettingSource(values_.settings).setValue(key, value);
    else if (key == projectField(ProjectField::descriptions))
        values_.descriptions = linesOf(value);
    if (key.area != SettingArea::misc)
        return;
    const CString text = isLibrary(key) ? keptLibrary(CString(value)) : CString(value);
    values_.misc.setValue(key.number, &text);
}

std::shared_ptr<const RyvCfgDrawingSettings> ProjectValueSource::usualSettings() const {
    auto usual = std::make_shared<RyvCfgDrawingSettings>();
    usual->fillWithDefaults(values_.misc);
    return usual;
}

std::optional<CString> DrawingValueSource::value(SettingKey key) const {
    if (key.area == SettingArea::drawing)
        return DrawingSettingSource(values_.settings).value(key);
    return key.area == SettingArea::entry ? entryValue(values_, static_cast<EntryField>(key.number))
                                          : std::nullopt;
}

void DrawingValueSource::setValue(SettingKey key, CStringView value) {
    if (key.area == SettingArea::drawing)
        DrawingSettingSource(values_.settings).setValue(key, value);
    else if (key.area == SettingArea::entry)
        setEntryValue(values_.details, static_cast<EntryField>(key.number), value);
}

} // namespace ryv
