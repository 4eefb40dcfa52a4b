#include "model/drawing_section_reader.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "model/line_prefixes.h"

#include <algorithm>

namespace ryv {

namespace {

template <class IsLeading>
CStringView withoutLeading(CStringView text, const IsLeading& isLeading) noexcept {
    std::size_t start = 0;
    while (start < text.size() && isLeading(text[start]))
        ++start;
    return {text.data() + start, text.size() - start};
}

constexpr auto isSign = [](char16_t unit) { return unit == u'='; };
constexpr auto isMarkerLetter = [](char16_t unit) { return unit == u'S' || unit == u'U' || unit == u'B'; };

} // namespace

DrawingSectionReader::DrawingSectionReader(
    RyvPrmProjectData& data, const ProjectSections& sections, ProjectReporter* reporter)
    : data_(data), sections_(sections), reporter_(reporter) {
    startPool();
}

void DrawingSectionReader::startPool() {
    constexpr std::size_t usualBlock = 8; // lines of a drawing with a few descriptions
    const std::size_t lines = pools_.empty() ? sections_.drawingLineCount() : 0;
    pool_ = pools_.emplace_back(std::make_shared<DrawingPool>(sections_.text()));
    pool_->reserve(lines / 2, lines / usualBlock);
}

void DrawingSectionReader::begin() {
    if (pending_)
        return;
    if (!pool_->hasRoom())
        startPool();
    number_ = pool_->add();
    pending_ = true;
    placed_ = nullptr;
    hasAttributes_ = firstDescription_ = secondDescription_ = false;
}

void DrawingSectionReader::attributeLine(std::size_t line) {
    line_ = line;
    const CStringView text = sections_.drawingLine(line);
    const CStringView value = withoutLeading(text, isSign);
    const std::size_t signs = text.size() - value.size();
    begin();
    if (signs == 5 && value.starts_with(prefix::subfolderWord))
        return markerLine(text);
    hasAttributes_ = true;
    if (signs == 4 && value.starts_with(prefix::referenceWord)) {
        pool_->last().referenceOnly = true;
        if (value != prefix::referenceWord)
            report(ProjectFinding::unknownAttribute, text);
    } else {
        descriptionLine(text, value);
    }
}

void DrawingSectionReader::descriptionLine(CStringView text, CStringView value) {
    const std::size_t signs = text.size() - value.size();
    if (signs >= prefix::furtherDescription.size()) {
        if (signs > prefix::furtherDescription.size())
            report(ProjectFinding::unknownAttribute, text);
        pool_->addDescription(value);
    } else if (signs == prefix::secondDescription.size()) {
        setOnce(secondDescription_, text);
        pool_->setDescription2(value);
    } else {
        setOnce(firstDescription_, text);
        pool_->setDescription1(value);
    }
}

void DrawingSectionReader::setOnce(bool& stood, CStringView text) {
    if (stood)
        report(ProjectFinding::attributeOverwritten, text);
    stood = true;
}

void DrawingSectionReader::markerLine(CStringView text) {
    if (lastSubfolder_ && sameText(text, lastMarker_))
        return place(*lastSubfolder_);
    const std::size_t mark = text.find(prefix::empty);
    const bool empty = mark != CStringView::npos;
    if (empty && mark + prefix::empty.size() != text.size())
        report(ProjectFinding::emptyMarkerTail, text);
    // As many characters go as the word has, wherever it stands.
    RyvPrmSubfolder* const subfolder =
        subfolderOf(empty ? text.substr(0, text.size() - prefix::empty.size()) : text);
    if (!subfolder)
        return report(ProjectFinding::emptyTrace, text);
    if (empty)
        return;
    place(*subfolder);
    lastMarker_ = text;
    lastSubfolder_ = subfolder;
}

RyvPrmSubfolder* DrawingSectionReader::subfolderOf(CStringView marker) {
    // The marker's letters are stripped as a set, so a name that begins with them is safe behind the last
    // "=".
    const CStringView trace =
        trimLeft(withoutLeading(withoutLeading(withoutLeading(marker, isSign), isMarkerLetter), isSign));
    const CStringView inner = trace.substr(trace.starts_with(u'/') ? 1 : 0);
    if (reporter_ && !inner.empty() &&
        (inner.front() == u'/' || inner.back() == u'/' || inner.find(u"//") != CStringView::npos))
        report(ProjectFinding::emptyTraceComponent, marker);
    RyvPrmSubfolder* subfolder = nullptr;
    data_.getSubfolderByTrace(trace, subfolder, true, false);
    return subfolder;
}

/// A drawing is in one place only: a second marker moves it.
void DrawingSectionReader::place(RyvPrmSubfolder& subfolder) {
    hasAttributes_ = true;
    std::unique_ptr<RyvPrmItem> drawing;
    if (placed_) {
        report(ProjectFinding::markerRepeated, sections_.drawingLine(line_));
        drawing = placed_->parent()->take(*placed_);
    } else {
        drawing.reset(placed_ = new RyvPrmFileDetails(pool_, number_));
    }
    subfolder.add(std::move(drawing));
}

void DrawingSectionReader::pathLine(std::size_t line, CStringView path) {
    line_ = line;
    begin();
    if (reporter_)
        checkPath(path);
    if (placed_)
        placed_->aboutToBeNamed(path);
    pool_->setFileName(path);
    if (!placed_)
        data_.addFile(std::unique_ptr<RyvPrmItem>(new RyvPrmFileDetails(pool_, number_)));
    pending_ = false;
}

void DrawingSectionReader::finish() {
    if (pending_ && hasAttributes_)
        report(ProjectFinding::attributesWithoutDrawing, sections_.drawingLine(line_));
    if (pending_ && placed_)
        placed_->parent()->take(*placed_);
}

std::size_t DrawingSectionReader::count() const noexcept {
    std::size_t records = 0;
    for (const auto& pool : pools_)
        records += pool->size();
    return records - (pending_ ? 1 : 0);
}

CStringArray DrawingSectionReader::names() const {
    CStringArray names;
    names.reserve(count());
    for (const auto& pool : pools_)
        for (std::uint32_t number = 0; number < pool->size() && names.size() < count(); ++number)
            names.emplace_back(pool->fileName(number));
    return names;
}

void DrawingSectionReader::assignFileIds(const CArray<std::int32_t>& ids) {
    if (ids.size() != count())
        return;
    auto id = ids.begin();
    for (const auto& pool : pools_)
        for (std::uint32_t number = 0; number < pool->size() && id != ids.end(); ++number)
            pool->record(number).fileId = *id++;
}

void DrawingSectionReader::checkPath(CStringView path) {
    const CStringView line = sections_.drawingLine(line_);
    if (trim(line) == u"\"")
        report(ProjectFinding::emptyPath, line);
    else if (paths::isRelative(path))
        report(ProjectFinding::pathNotJoined, line);
    if (!seen_.insert(toUpper(path)).second)
        report(ProjectFinding::duplicateDrawing, line);
}

void DrawingSectionReader::report(ProjectFinding finding, CStringView text) const {
    if (reporter_)
        reporter_->found(sections_.lineNumberOf(line_), finding, text);
}

} // namespace ryv
