#include "embedded/drawings/attribute_run.h"
#include "base/fold.h"
#include "base/text.h"
#include "embedded/drawings/geometry.h"
#include "embedded/drawings/record_converter.h"

#include <algorithm>
#include <array>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::DrawingPoint;

namespace {

constexpr double usualHeight = 0.2;

/// Formatted text that shows exactly the value: its own marks are the backslash and the braces.
std::string formatted(std::string_view value) {
    std::string text;
    for (const char c : value) {
        if (c == '\\' || c == '{' || c == '}')
            text += '\\';
        text += c;
    }
    return text;
}

/// Makes `value` the only line in the pairs [from, to): the first chunks (3) go, the last one (1) is
/// replaced.
void replaceLines(const DxfRecord& record, std::size_t from, std::size_t to, const std::string& value,
    std::vector<DxfSplice>& splices) {
    for (std::size_t i = from; i < to; ++i) {
        const DxfPair& pair = record.pairs()[i];
        if (pair.code == 3)
            splices.push_back({pair.begin, pair.end - pair.begin, {}});
        else if (pair.code == 1)
            splices.push_back({pair.valueBegin, pair.value.size(), formatted(value)});
    }
}

/// Where a text can stand in a record that has none: behind its place and its height.
const DxfPair* textPlace(const DxfRecord& record) {
    for (const int code : {40, 30, 20, 10})
        if (const DxfPair* const pair = record.find(code))
            return pair;
    return nullptr;
}

/// The displacement of one coordinate of the insertion (10, 20, 30) or the alignment point (11, 21, 31).
double coordinateOf(DrawingPoint point, int code) noexcept {
    return code < 20 ? point.x : code < 30 ? point.y : point.z;
}

bool isCoordinate(int code) noexcept {
    return code == 10 || code == 20 || code == 30 || code == 11 || code == 21 || code == 31;
}

/// What a list of attributes says of one, taken from its pairs as they come; of several pairs with a code the
/// first counts.
class AttributeLine {
public:
    void take(const DxfPair& pair) noexcept {
        if (pair.code == dxf::group)
            inGroup_ = pair.value.starts_with('{');
        else if (pair.code == dxf::embedded || pair.code >= dxf::applicationData)
            isOver_ = true;
        else if (!inGroup_ && !isOver_)
            takeOwn(pair);
    }

    ryv::DrawingAttribute result(const DrawingText& text) const {
        const DrawingPoint position{number(2), number(3), number(4)};
        const bool isUpright = values_[5].data() == nullptr;
        return {text.decode(trimmed(values_[0])), text.decode(values_[1]),
            isUpright ? position : ObjectAxes({number(5), number(6), number(7)}).toSpace(position)};
    }

private:
    static constexpr std::size_t count = 8;

    /// Where the value of a pair is kept: tag, text, three coordinates of the place and three of the
    /// extrusion.
    static std::size_t slotOf(int code) noexcept {
        switch (code) {
        case 2:
            return 0;
        case 1:
            return 1;
        case 10:
        case 20:
        case 30:
            return static_cast<std::size_t>(code / 10 + 1);
        case 210:
        case 220:
        case 230:
            return static_cast<std::size_t>(code / 10 - 16);
        default:
            return count;
        }
    }
    void takeOwn(const DxfPair& pair) noexcept {
        const std::size_t slot = slotOf(pair.code);
        if (slot != count && values_[slot].data() == nullptr)
            values_[slot] = pair.value;
    }
    double number(std::size_t i) const { return parseReal(values_[i]).value_or(i == 7 ? 1 : 0); }

    std::array<std::string_view, count> values_;
    bool inGroup_ = false;
    bool isOver_ = false;
};

} // namespace

std::vector<ryv::DrawingAttribute> listAttributes(const DrawingContent& content, ReferenceId reference) {
    const DxfReference& where = content.index().references[reference];
    constexpr std::size_t usualAttributes = 80;
    std::vector<ryv::DrawingAttribute> list;
    list.reserve(where.hasSequence() ? usualAttributes : 0);
    AttributeLine line;
    bool isAttribute = false;
    const auto finish = [&] {
        if (isAttribute)
            list.push_back(line.result(content.text()));
    };
    DxfPairReader reader(
        content.bytes().substr(0, where.begin + where.length), where.begin + where.recordLength);
    for (DxfPair pair; reader.next(pair) == DxfPairReader::Step::pair;) {
        if (pair.code != 0) {
            line.take(pair);
            continue;
        }
        finish();
        line = {};
        isAttribute = trimmed(pair.value) == "ATTRIB";
    }
    finish();
    return list;
}

AttributeRun::AttributeRun(DrawingContent& content, ReferenceId reference)
    : content_(&content), reference_(reference), revision_(content.revision()) {
    const DxfReference& where = content.index().references[reference];
    insert_ = content.record(where.begin);
    for (std::size_t at = where.begin + where.recordLength; at < where.begin + where.length;) {
        DxfRecord record = content.record(at);
        at = record.end();
        if (record.kind() == "SEQEND")
            sequenceEnd_ = record.begin();
        else if (record.kind() == "ATTRIB")
            attributes_.push_back({std::move(record), {}});
        else if (!attributes_.empty())
            attributes_.back().lines = std::move(record);
    }
}

const AttributeRun::Attribute* AttributeRun::find(CStringView tag) const {
    if (upperTags_.empty())
        for (const Attribute& attribute : attributes_)
            upperTags_.push_back(ryv::toUpper(content_->text().decode(trimmed(attribute.record.text(2)))));
    const CString upper = ryv::toUpper(tag);
    for (std::size_t i = 0; i < attributes_.size(); ++i)
        if (ryv::sameText(upperTags_[i], upper))
            return &attributes_[i];
    return nullptr;
}

bool AttributeRun::read(CStringView tag, CString& value) const {
    const Attribute* const attribute = find(tag);
    if (attribute)
        value = content_->text().decode(attribute->record.text(1));
    return attribute != nullptr;
}

bool AttributeRun::write(CStringView tag, CStringView value) {
    const Attribute* const attribute = find(tag);
    std::string bytes;
    if (!attribute || !content_->text().encode(value, bytes))
        return false;
    const DxfRecord& record = attribute->record;
    const DxfPair* const text = record.find(1);
    const DxfPair* const place = text ? text : textPlace(record);
    if (!place)
        return false;
    if (content_->text().decode(record.text(1)) == value)
        return true;
    std::vector<DxfSplice> splices;
    if (text)
        splices.push_back({text->valueBegin, text->value.size(), bytes});
    else
        splices.push_back({place->end, 0, content_->writer().pair(1, bytes).text()});
    replaceLines(record, record.embeddedBegin(), record.embeddedEnd(), bytes, splices);
    replaceLines(attribute->lines, 0, attribute->lines.ownCount(), bytes, splices);
    content_->applyTo(reference_, std::move(splices), 0);
    return true;
}

bool AttributeRun::canAdd(CStringView after, CStringView tag) const {
    const bool hasBlank =
        std::any_of(tag.begin(), tag.end(), [](char16_t unit) { return ryv::isSpace(unit); });
    if (tag.empty() || hasBlank || has(tag))
        return false;
    return after.empty() ? attributes_.empty() : has(after);
}

bool AttributeRun::add(CStringView after, CStringView tag, CStringView value, DrawingPoint displacement) {
    std::string tagBytes, valueBytes;
    if (!canAdd(after, tag) || !content_->text().encode(tag, tagBytes) ||
        !content_->text().encode(value, valueBytes))
        return false;
    if (after.empty())
        return addFirst(tagBytes, valueBytes);
    return isFinite(displacement) && addBehind(*find(after), tagBytes, valueBytes, displacement);
}

bool AttributeRun::addBehind(
    const Attribute& model, const std::string& tag, const std::string& value, DrawingPoint displacement) {
    const DxfRecord& record = model.record;
    const std::vector<DxfPair> pairs = ownPairs(record);
    const DrawingPoint moved = ObjectAxes(record).fromSpace(displacement);
    // A damaged record may have its tag where a copy leaves off.
    const bool hasTag =
        std::any_of(pairs.begin(), pairs.end(), [](const DxfPair& pair) { return pair.code == 2; });
    const std::optional<std::uint64_t> handle = hasTag ? content_->takeHandles(1) : std::nullopt;
    if (!handle)
        return false;
    DxfWriter writer = content_->writer();
    bool hasValue = false, isAttributePart = false;
    for (const DxfPair& pair : pairs) {
        const double change = isCoordinate(pair.code) ? coordinateOf(moved, pair.code) : 0;
        isAttributePart =
            isAttributePart || (pair.code == dxf::subclass && trimmed(pair.value).ends_with("Attribute"));
        if (pair.code == dxf::handle)
            writer.handle(dxf::handle, *handle);
        else if (pair.code == 2)
            (hasValue ? writer : writer.pair(1, value)).pair(2, tag);
        else if (pair.code == 1)
            writer.pair(1, value);
        else if (pair.code == 71 && isAttributePart)
            writer.integer(71, 1); // an attribute with several lines has a single one here
        else if (const auto old = parseReal(pair.value); change != 0 && old)
            writer.real(pair.code, *old + change);
        else
            writer.pair(pair.code, pair.value);
        hasValue = hasValue || pair.code == 1;
    }
    content_->applyTo(reference_, {{model.end(), 0, writer.text()}}, 0);
    return true;
}

bool AttributeRun::addFirst(const std::string& tag, const std::string& value) {
    const bool hasSequence = sequenceEnd_ != nowhere;
    const DxfPair* const name = insert_.find(2);
    const std::optional<std::uint64_t> handle = content_->takeHandles(2);
    const std::optional<RecordHead> head = RecordHead::of(*content_, insert_);
    if (!name || !handle || !head)
        return false;
    RecordHead own = *head;
    own.owner = std::string(trimmed(insert_.text(dxf::handle)));
    const DrawingPoint at = pointOf(insert_, 10);
    DxfWriter writer = content_->writer();
    own.write(writer, "ATTRIB", *handle);
    own.writeMark(writer, "Text");
    writer.real(10, at.x).real(20, at.y).real(30, at.z);
    writer.real(40, parseReal(content_->variable("$TEXTSIZE")).value_or(usualHeight)).pair(1, value);
    for (const int code : {210, 220, 230})
        if (const DxfPair* const pair = insert_.find(code))
            writer.pair(code, pair->value);
    own.writeMark(writer, "Attribute");
    writer.pair(2, tag).integer(70, 1);
    if (hasSequence) {
        content_->applyTo(reference_, {{sequenceEnd_, 0, writer.text()}}, 0);
        return true;
    }
    own.write(writer, "SEQEND", *handle + (*handle == 0 ? 0 : 1));
    const DxfPair* const follow = insert_.find(66);
    const DxfSplice flag = follow ? DxfSplice{follow->valueBegin, follow->value.size(), "1"}
                                  : DxfSplice{name->begin, 0, content_->writer().integer(66, 1).text()};
    content_->applyTo(reference_, {flag, {insert_.end(), 0, writer.text()}}, 1);
    return true;
}

} // namespace drafta
