#include "embedded/drawings/attribute_run.h"
#include "base/fold.h"
#include "base/text.h"
#include "embedded/drawings/geometry.h"
#include "embedded/drawings/record_converter.h"

#include <algorithm>
#include <array>
#include <utility>

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

DrawingPoint sum(DrawingPoint a, DrawingPoint b) noexcept {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

/// By how many bytes replacements make a text longer; modulo the range of the type when it gets shorter.
std::size_t growthOf(const std::vector<DxfSplice>& splices) noexcept {
    std::size_t growth = 0;
    for (const DxfSplice& splice : splices)
        growth += splice.text.size() - splice.removed;
    return growth;
}

/// An attribute that looks like another one. A point is written whole where the first of its coordinates, or
/// the height behind it, stands.
class AttributeCopy {
public:
    AttributeCopy(const DxfRecord& model, DrawingPoint moved, std::string_view tag, std::string_view value,
        DxfWriter writer)
        : model_(model), moved_(moved), tag_(tag), value_(value), writer_(std::move(writer)) {}

    const DxfWriter& write(const std::vector<DxfPair>& pairs, std::uint64_t handle) {
        for (const DxfPair& pair : pairs)
            if (pair.code != dxf::handle)
                writePair(pair);
            else if (handle != 0)
                writer_.handle(dxf::handle, handle);
        return writer_;
    }

private:
    void writePair(const DxfPair& pair) {
        isAttributePart_ =
            isAttributePart_ || (pair.code == dxf::subclass && trimmed(pair.value).ends_with("Attribute"));
        if (isPointCode(pair.code, 10) || pair.code == 40)
            writePointOnce(10, hasPlace_);
        if (isPointCode(pair.code, 11))
            writePointOnce(11, hasAlignment_);
        if (isPointCode(pair.code, 10) || isPointCode(pair.code, 11))
            return;
        if (pair.code == 2 && !hasValue_)
            writer_.pair(1, value_);
        hasValue_ = hasValue_ || pair.code == 1 || pair.code == 2;
        if (pair.code == 71 && isAttributePart_)
            writer_.integer(71, 1); // an attribute with several lines has a single one here
        else
            writer_.pair(pair.code, pair.code == 1 ? value_ : pair.code == 2 ? tag_ : pair.value);
    }
    void writePointOnce(int code, bool& isWritten) {
        if (!std::exchange(isWritten, true))
            writePoint(writer_, model_, code, sum(pointOf(model_, code), moved_));
    }

    const DxfRecord& model_;
    DrawingPoint moved_;
    std::string_view tag_, value_;
    DxfWriter writer_;
    bool hasValue_ = false, isAttributePart_ = false, hasPlace_ = false, hasAlignment_ = false;
};

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
    for (std::size_t at = where.recordLength; at < where.length;) {
        const DxfRecord record = recordAt(at);
        const std::size_t end = record.end() - where.begin;
        if (record.kind() == "SEQEND") {
            sequenceEnd_ = at;
        } else if (record.kind() == "ATTRIB") {
            attributes_.push_back(
                {at, nowhere, end, ryv::toUpper(content.text().decode(trimmed(record.text(2))))});
        } else if (!attributes_.empty()) {
            attributes_.back().lines = at;
            attributes_.back().end = end;
        }
        at = end;
    }
}

/// Nowhere when there is no attribute with this tag.
std::size_t AttributeRun::find(CStringView tag) const {
    const CString upper = ryv::toUpper(tag);
    const auto found = std::find_if(attributes_.begin(), attributes_.end(),
        [&](const Attribute& attribute) { return ryv::sameText(attribute.upperTag, upper); });
    return found == attributes_.end() ? nowhere : static_cast<std::size_t>(found - attributes_.begin());
}

DxfRecord AttributeRun::recordAt(std::size_t distance) const {
    return content_->record(content_->index().references[reference_].begin + distance);
}

bool AttributeRun::read(CStringView tag, CString& value) const {
    const std::size_t found = find(tag);
    if (found != nowhere)
        value = content_->text().decode(recordAt(attributes_[found].begin).text(1));
    return found != nowhere;
}

bool AttributeRun::write(CStringView tag, CStringView value) {
    const std::size_t found = find(tag);
    std::string bytes;
    if (found == nowhere || !content_->text().encode(value, bytes))
        return false;
    Attribute& attribute = attributes_[found];
    const DxfRecord record = recordAt(attribute.begin);
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
    if (attribute.lines != nowhere) {
        const DxfRecord lines = recordAt(attribute.lines);
        attribute.lines += growthOf(splices);
        replaceLines(lines, 0, lines.ownCount(), bytes, splices);
    }
    const std::size_t growth = growthOf(splices);
    content_->applyTo(reference_, std::move(splices), 0);
    attribute.end += growth;
    applied(found + 1, growth);
    return true;
}

/// Follows an own edit: the attributes from `first` on have moved.
void AttributeRun::applied(std::size_t first, std::size_t growth) {
    for (std::size_t i = first; i < attributes_.size(); ++i) {
        Attribute& attribute = attributes_[i];
        attribute.begin += growth;
        attribute.lines += attribute.lines == nowhere ? 0 : growth;
        attribute.end += growth;
    }
    sequenceEnd_ += growth;
    revision_ = content_->revision();
}

bool AttributeRun::canAdd(CStringView after, CStringView tag) const {
    const bool hasBlank =
        std::any_of(tag.begin(), tag.end(), [](char16_t unit) { return ryv::isSpace(unit); });
    if (tag.empty() || hasBlank || has(tag))
        return false;
    return after.empty() ? attributes_.empty() : has(after);
}

bool AttributeRun::add(CStringView after, CStringView tag, CStringView value, DrawingPoint displacement) {
    NewAttribute added{ryv::toUpper(tag), {}, {}};
    if (!canAdd(after, tag) || !content_->text().encode(tag, added.tag) ||
        !content_->text().encode(value, added.value))
        return false;
    return after.empty() ? addFirst(added) : addBehind(find(after), added, displacement);
}

bool AttributeRun::addBehind(std::size_t model, const NewAttribute& added, DrawingPoint displacement) {
    const DxfRecord record = recordAt(attributes_[model].begin);
    const std::vector<DxfPair> pairs = ownPairs(record);
    // A damaged record may have its tag where a copy leaves off.
    const bool hasTag =
        std::any_of(pairs.begin(), pairs.end(), [](const DxfPair& pair) { return pair.code == 2; });
    HandleReservation reservation(*content_);
    const std::optional<std::uint64_t> handle = hasTag ? content_->takeHandles(1) : std::nullopt;
    if (!handle)
        return false;
    AttributeCopy copy(
        record, ObjectAxes(record).fromSpace(displacement), added.tag, added.value, content_->writer());
    const DxfWriter& writer = copy.write(pairs, *handle);
    if (!writer.isFinite())
        return false;
    reservation.keep();
    const std::size_t begin = attributes_[model].end, size = writer.size();
    content_->applyTo(
        reference_, {{content_->index().references[reference_].begin + begin, 0, writer.text()}}, 0);
    attributes_.insert(attributes_.begin() + static_cast<std::ptrdiff_t>(model) + 1,
        {begin, nowhere, begin + size, added.upperTag});
    applied(model + 2, size);
    return true;
}

bool AttributeRun::addFirst(const NewAttribute& added) {
    const DxfRecord insert = recordAt(0);
    const DxfPair* const name = insert.find(2);
    const std::optional<RecordHead> head = RecordHead::of(*content_, insert);
    const std::optional<std::uint64_t> handle =
        name && head ? content_->takeHandles(sequenceEnd_ == nowhere ? 2 : 1) : std::nullopt;
    if (!handle)
        return false;
    RecordHead own = *head;
    own.owner = std::string(trimmed(insert.text(dxf::handle)));
    const DrawingPoint at = pointOf(insert, 10);
    DxfWriter writer = content_->writer();
    own.write(writer, "ATTRIB", *handle);
    own.writeMark(writer, "Text");
    writer.real(10, at.x).real(20, at.y).real(30, at.z);
    writer.real(40, parseReal(content_->variable("$TEXTSIZE")).value_or(usualHeight)).pair(1, added.value);
    for (const int code : {210, 220, 230})
        if (const DxfPair* const pair = insert.find(code))
            writer.pair(code, pair->value);
    own.writeMark(writer, "Attribute");
    writer.pair(2, added.tag).integer(70, 1);
    const std::size_t begin = content_->index().references[reference_].begin;
    if (sequenceEnd_ != nowhere) {
        content_->applyTo(reference_, {{begin + sequenceEnd_, 0, writer.text()}}, 0);
        return true;
    }
    own.write(writer, "SEQEND", *handle + (*handle == 0 ? 0 : 1));
    const DxfPair* const follow = insert.find(66);
    const DxfSplice flag = follow ? DxfSplice{follow->valueBegin, follow->value.size(), "1"}
                                  : DxfSplice{name->begin, 0, content_->writer().integer(66, 1).text()};
    content_->applyTo(reference_, {flag, {insert.end(), 0, writer.text()}}, 1);
    return true;
}

} // namespace drafta
