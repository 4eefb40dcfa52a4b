#include "siblings/project_sections.h"

#include "base/text.h"
#include "siblings/misc_proj_settings.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace ryv {

namespace {

constexpr std::size_t longestIndex = 24; // characters between the brackets: a number and some blanks
constexpr std::size_t prefixLength = 2;  // "*[", "+[" and "?["

/// The number between the brackets of an indexed line, and where its text begins.
struct Index {
    long long number;
    std::size_t textStart;
};

std::optional<Index> readIndex(CStringView line) {
    const std::size_t end = line.substr(0, prefixLength + longestIndex + 1).find(u']');
    if (end == CStringView::npos)
        return std::nullopt;
    const auto number = parseInteger(trim(line.substr(prefixLength, end - prefixLength)));
    if (!number)
        return std::nullopt;
    return Index{*number, end + 1};
}

/// True when a unit can only come from bytes that mean nothing in the encoding: a surrogate on its own, or
/// one of the undefined bytes of Windows-1252.
bool holdsUndecodable(CStringView text, TextEncoding encoding) {
    if (encoding == TextEncoding::windows1252)
        return text.find_first_of(u"\u0081\u008D\u008F\u0090\u009D") != CStringView::npos;
    return hasLoneSurrogate(text);
}

} // namespace

bool ProjectSections::load(ByteBuffer bytes, ProjectReporter* reporter) {
    clear();
    constexpr std::size_t limit = std::numeric_limits<std::int32_t>::max();
    if (bytes.size() >= limit)
        return false;
    text_ = std::make_shared<const CString>(decodeDetecting(bytes.view(), encoding_));
    const bool oddByte = mark(encoding_).size() == 2 && bytes.size() % 2 != 0;
    sortLines(std::move(bytes), reporter);
    if (reporter && oddByte)
        reporter->found(lineAt(text_->size()), ProjectFinding::undecodableBytes, {});
    return true;
}

void ProjectSections::clear() {
    text_ = std::make_shared<const CString>();
    furthest_ = Section::descriptions;
    descriptions_ = {};
    misc_.clear();
    settings_.clear();
    drawingLines_ = {};
    cursor_ = {};
}

/// Finds the line ends. Where every unit came from one byte, and that is nearly always, they are looked for
/// in the bytes, which the standard library searches many at a time.
void ProjectSections::sortLines(ByteBuffer bytes, ProjectReporter* reporter) {
    const CStringView text = *text_;
    const std::string_view oneByteEach = bytes.view().substr(markLength(encoding_));
    if (oneByteEach.size() == text.size()) {
        sortLines(
            reporter, [&](std::size_t from) { return std::min(oneByteEach.find('\n', from), text.size()); });
    } else {
        bytes.clear();
        sortLines(reporter, [&](std::size_t from) { return findUnit(text, u'\n', from); });
    }
}

template <class FindLineFeed>
void ProjectSections::sortLines(ProjectReporter* reporter, const FindLineFeed& findLineFeed) {
    constexpr std::size_t usualLine = 16;
    const CStringView text = *text_;
    drawingLines_.reserve(text.size() / usualLine);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t lineFeed = findLineFeed(start);
        const std::size_t end = lineFeed > start && text[lineFeed - 1] == u'\r' ? lineFeed - 1 : lineFeed;
        if (end > start)
            sortLine({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end - start)}, reporter);
        start = lineFeed + 1;
    }
}

void ProjectSections::sortLine(TextSlice line, ProjectReporter* reporter) {
    const CStringView text = view(line);
    if (text[0] == u'=' && !reporter) { // nearly every line of a large project
        furthest_ = Section::drawings;
        drawingLines_.push_back(line);
        return;
    }
    const bool mayBeBlank = text[0] <= u' ' || text[0] >= 0x80;
    if (mayBeBlank && trimLeft(text).empty())
        return;
    Section section = Section::drawings;
    if (text.size() >= prefixLength && text[1] == u'[')
        section = text[0] == u'*'   ? Section::descriptions
                  : text[0] == u'+' ? Section::misc
                  : text[0] == u'?' ? Section::settings
                                    : Section::drawings;
    if (reporter)
        checkText(line, *reporter);
    const bool accepted = section == Section::drawings || sortIndexed(section, line, reporter);
    if (section == Section::drawings)
        drawingLines_.push_back(line);
    if (reporter && accepted && section < furthest_)
        reporter->found(lineAt(line.start), ProjectFinding::sectionOrder, text);
    furthest_ = std::max(furthest_, section);
}

/// Keeps the text of an indexed line; false when the line is dropped.
bool ProjectSections::sortIndexed(Section section, TextSlice line, ProjectReporter* reporter) {
    const auto report = [&](ProjectFinding finding) {
        if (reporter)
            reporter->found(lineAt(line.start), finding, view(line));
    };
    const auto index = readIndex(view(line));
    TextSlice* const slot = index ? slotFor(section, index->number) : nullptr;
    if (!slot) {
        report(index ? ProjectFinding::indexOutOfRange : ProjectFinding::malformedIndex);
        return false;
    }
    if (slot->start != 0)
        report(ProjectFinding::repeatedIndex);
    const auto textStart = static_cast<std::uint32_t>(index->textStart);
    *slot = {line.start + textStart, line.length - textStart};
    return true;
}

/// Where the text of an indexed line is kept; null when the number is out of range. A kept text never starts
/// at 0, as its prefix stands in front of it.
TextSlice* ProjectSections::slotFor(Section section, long long index) {
    if (section == Section::settings)
        return index >= 0 && index <= largestSetting ? &settings_[static_cast<int>(index)] : nullptr;
    if (section == Section::misc) {
        const bool inRange = index >= 1 && index <= RyvPmMiscProjSettings::getMaxBracketIndex();
        return inRange ? &misc_[static_cast<int>(index)] : nullptr;
    }
    const auto largest =
        static_cast<long long>(std::max(descriptionFloor, text_->size() / unitsPerDescription));
    if (index < 1 || index > largest)
        return nullptr;
    const auto number = static_cast<std::size_t>(index);
    if (descriptions_.size() < number)
        descriptions_.resize(number);
    return &descriptions_[number - 1];
}

void ProjectSections::checkText(TextSlice line, ProjectReporter& reporter) const {
    const CStringView text = view(line);
    if (holdsUndecodable(text, encoding_))
        reporter.found(lineAt(line.start), ProjectFinding::undecodableBytes, text);
    if (text.find(u'\0') != CStringView::npos)
        reporter.found(lineAt(line.start), ProjectFinding::nulCharacter, text);
    if (text.find(u'\r') != CStringView::npos)
        reporter.found(lineAt(line.start), ProjectFinding::lineBreakInText, text);
}

CStringList ProjectSections::descriptionLines() const {
    CStringList lines;
    lines.reserve(descriptions_.size());
    for (const TextSlice text : descriptions_)
        lines.emplace_back(view(text));
    return lines;
}

std::map<int, CString> ProjectSections::settings() const {
    std::map<int, CString> values;
    for (const auto& [index, text] : settings_)
        values.emplace(index, view(text));
    return values;
}

void ProjectSections::initMiscProjSettings(RyvPmMiscProjSettings& misc) const {
    for (const auto& [index, text] : misc_) {
        const CString value(view(text));
        misc.setValue(index, &value);
    }
}

std::size_t ProjectSections::lineNumberOf(std::size_t drawingLine) const noexcept {
    return lineAt(drawingLines_[drawingLine].start);
}

std::size_t ProjectSections::settingLine(int index) const noexcept {
    const auto hit = settings_.find(index);
    return hit == settings_.end() ? 0 : lineAt(hit->second.start);
}

std::size_t ProjectSections::lineAt(std::size_t offset) const noexcept {
    if (offset < cursor_.offset)
        cursor_ = {};
    const CStringView between = CStringView(*text_).substr(cursor_.offset, offset - cursor_.offset);
    cursor_.line += static_cast<std::size_t>(std::count(between.begin(), between.end(), u'\n'));
    cursor_.offset = offset;
    return cursor_.line;
}

} // namespace ryv
