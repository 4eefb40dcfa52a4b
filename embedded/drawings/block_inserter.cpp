#include "embedded/drawings/block_inserter.h"
#include "base/text.h"
#include "embedded/drawings/block_copier.h"
#include "embedded/drawings/drawing_file.h"
#include "embedded/drawings/geometry.h"

#include <algorithm>
#include <cmath>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::DrawingPoint;
using ryv::DrawingResult;

namespace {

constexpr const char16_t* badPlace = u"a block cannot be inserted at such a place";

/// Makes the records of one reference.
class ReferenceWriter {
public:
    ReferenceWriter(DrawingContent& content, RecordHead head, const BlockPlacement& placement)
        : content_(content), head_(std::move(head)), placement_(placement), writer_(content.writer()) {}

    /// The block lies in `bytes`. False when no handle is left.
    bool write(const DxfBlock& block, std::string_view bytes);
    const DxfWriter& writer() const noexcept { return writer_; }
    std::size_t recordLength() const noexcept { return recordLength_; }

private:
    void writeInsert(std::string_view name, bool hasAttributes, std::uint64_t handle);
    void writeAttribute(const DxfRecord& definition, std::uint64_t handle);
    void writeChanged(const DxfPair& pair, double value);
    bool writePlaced(const DxfRecord& definition, const DxfPair& pair);
    void writePointOnce(const DxfRecord& definition, int code, bool& isWritten);

    DrawingContent& content_;
    RecordHead head_;
    BlockPlacement placement_;
    DxfWriter writer_;
    std::size_t recordLength_ = 0;
    bool hasPlace_ = false, hasAlignment_ = false; // the attribute that is being written
};

/// The attribute definitions that give attributes.
std::vector<DxfRecord> definitionsOf(const DxfBlock& block, std::string_view bytes) {
    constexpr int constant = 2;
    std::vector<DxfRecord> definitions;
    for (std::size_t at = block.content; at < block.end;) {
        DxfRecord record(bytes, at);
        at = record.end();
        if (record.kind() == "ATTDEF" && (record.integer(70, 0) & constant) == 0)
            definitions.push_back(std::move(record));
    }
    return definitions;
}

bool ReferenceWriter::write(const DxfBlock& block, std::string_view bytes) {
    const std::vector<DxfRecord> definitions = definitionsOf(block, bytes);
    const std::optional<std::uint64_t> first = content_.takeHandles(definitions.size() + 2);
    if (!first)
        return false;
    const std::uint64_t step = *first == 0 ? 0 : 1;
    writeInsert(block.name, !definitions.empty(), *first);
    recordLength_ = writer_.size();
    if (definitions.empty())
        return true;
    std::uint64_t handle = *first;
    if (step != 0)
        head_.owner = handleText(*first);
    for (const DxfRecord& definition : definitions)
        writeAttribute(definition, handle += step);
    head_.write(writer_, "SEQEND", handle + step);
    return true;
}

void ReferenceWriter::writeInsert(std::string_view name, bool hasAttributes, std::uint64_t handle) {
    head_.write(writer_, "INSERT", handle);
    head_.writeMark(writer_, "BlockReference");
    if (hasAttributes)
        writer_.integer(66, 1);
    const auto& [base, position, scale, rotation] = placement_;
    writer_.pair(2, name).real(10, position.x).real(20, position.y).real(30, position.z);
    if (scale.x != 1 || scale.y != 1 || scale.z != 1)
        writer_.real(41, scale.x).real(42, scale.y).real(43, scale.z);
    if (rotation != 0)
        writer_.real(50, toDegrees(rotation));
}

/// Writes the number, in the old spelling when it is still the same.
void ReferenceWriter::writeChanged(const DxfPair& pair, double value) {
    if (parseReal(pair.value) == value)
        writer_.pair(pair.code, pair.value);
    else
        writer_.real(pair.code, value);
}

/// Writes a point as the reference places it, whole, where the first of its pairs is.
void ReferenceWriter::writePointOnce(const DxfRecord& definition, int code, bool& isWritten) {
    if (isWritten)
        return;
    isWritten = true;
    const ObjectAxes axes(definition);
    writePoint(writer_, definition, code,
        axes.fromSpace(placement_.placed(axes.toSpace(pointOf(definition, code)))));
}

/// Writes a pair of the geometry as the reference places it; false for other pairs.
bool ReferenceWriter::writePlaced(const DxfRecord& definition, const DxfPair& pair) {
    if (isPointCode(pair.code, 10) || pair.code == 40)
        writePointOnce(definition, 10, hasPlace_);
    if (isPointCode(pair.code, 11))
        writePointOnce(definition, 11, hasAlignment_);
    if (isPointCode(pair.code, 10) || isPointCode(pair.code, 11))
        return true;
    const double old = parseReal(pair.value).value_or(0);
    const double narrowing = std::abs(placement_.scale.x / placement_.scale.y);
    const double direction =
        placement_.placedDirection(definition.real(50).value_or(0), ObjectAxes(definition));
    if (pair.code == 40) {
        writeChanged(pair, old * std::abs(placement_.scale.y));
        if (!definition.find(41) && narrowing != 1)
            writer_.real(41, narrowing);
        if (!definition.find(50) && direction != 0)
            writer_.real(50, direction);
        return true;
    }
    if (pair.code == 41)
        writeChanged(pair, old * narrowing);
    else if (pair.code == 50)
        writeChanged(pair, direction);
    return pair.code == 41 || pair.code == 50;
}

void ReferenceWriter::writeAttribute(const DxfRecord& definition, std::uint64_t handle) {
    head_.writeTop(writer_, "ATTRIB", handle);
    constexpr std::string_view definitionMark = "AttributeDefinition";
    bool isAttributePart = false;
    hasPlace_ = hasAlignment_ = false;
    for (const DxfPair& pair : ownPairs(definition)) {
        const std::string_view value = trimmed(pair.value);
        const bool isMark = pair.code == dxf::subclass;
        if (pair.code == 0 || pair.code == dxf::handle || pair.code == dxf::owner ||
            pair.code == dxf::onPaper || pair.code == dxf::layout || pair.code == 3 ||
            (isMark && value.ends_with("Entity")))
            continue;
        isAttributePart = isAttributePart || (isMark && value.ends_with(definitionMark));
        if (isMark && value.ends_with(definitionMark))
            head_.writeMark(writer_, "Attribute");
        else if (pair.code == 71 && isAttributePart)
            writer_.integer(71, 1); // one line, whatever the definition has
        else if (!writePlaced(definition, pair))
            writer_.pair(pair.code, pair.value);
    }
}

bool isBlockName(CStringView name) {
    constexpr CStringView forbidden = u"<>/\\\":;?*|,=`";
    return !name.empty() && !ryv::isSpace(name.front()) && !ryv::isSpace(name.back()) &&
           std::none_of(name.begin(), name.end(), [&](char16_t unit) {
               return unit < u' ' || unit == 0x7F || forbidden.find(unit) != CStringView::npos;
           });
}

DrawingResult check(
    const DrawingContent& content, CStringView drawing, const ryv::BlockInsertion& insertion) {
    if (!isBlockName(insertion.block))
        return drawingFailure(drawing, 0,
            u"\"" + insertion.block +
                u"\" is no name for a block: it must not be empty, begin or end with a blank, or hold "
                u"control "
                u"characters or any of < > / \\ \" : ; ? * | , = `");
    const DrawingPoint& scale = insertion.scale;
    const bool isUsable = isFinite(insertion.position) && isFinite(scale) &&
                          std::isfinite(insertion.rotation) && scale.x != 0 && scale.y != 0 && scale.z != 0;
    if (!isUsable)
        return drawingFailure(drawing, 0, badPlace);
    if (!content.index().section("ENTITIES"))
        return drawingFailure(drawing, 0, u"the drawing has no section for entities");
    return {};
}

/// A block that is on its way into the drawing.
struct NewBlock {
    std::optional<DrawingContent> source;
    std::optional<BlockCopier> copier; // refers to `source`
};

/// Makes the records of a block that the drawing lacks.
DrawingResult copyBlock(ryv::Files& files, DrawingContent& content, CStringView drawing,
    const ryv::BlockInsertion& insertion, NewBlock& block) {
    DrawingResult result;
    ryv::Fingerprint unused;
    block.source = readDrawing(files, insertion.file, unused, result);
    if (!block.source)
        return result;
    const CopyFault fault = block.copier.emplace(*block.source, content).copy(insertion.block);
    if (!fault)
        return {};
    return fault.offset == nowhere ? drawingFailure(drawing, 0, fault.reason)
                                   : drawingFailure(insertion.file,
                                         lineNumber(block.source->bytes(), fault.offset), fault.reason);
}

/// Where a new entity of the space goes: to the end.
std::size_t endOf(const DrawingContent& content, SpaceId space) {
    const DrawingIndex& index = content.index();
    const bool hasOwnPlace = space != modelSpace && space != paperSpace;
    return hasOwnPlace ? index.blocks[index.spaces[space].block].end : index.section("ENTITIES")->end;
}

} // namespace

DrawingResult insertBlock(ryv::Files& files, DrawingContent& content, CStringView drawing, SpaceId space,
    const ryv::BlockInsertion& insertion, ReferenceId& reference) {
    if (const DrawingResult result = check(content, drawing, insertion); !result.ok())
        return result;
    const std::optional<RecordHead> head = RecordHead::forSpace(content, space);
    if (!head)
        return drawingFailure(
            drawing, 0, u"the drawing has no record that shows how a new one has to be marked");
    HandleReservation reservation(content);
    NewBlock added;
    const std::size_t found = content.findBlock(insertion.block);
    if (found == nowhere)
        if (const DrawingResult result = copyBlock(files, content, drawing, insertion, added); !result.ok())
            return result;
    const DxfBlock block = added.copier ? added.copier->block() : content.index().blocks[found];
    const std::string_view bytes = added.copier ? added.copier->text() : content.bytes();
    const BlockPlacement placement{
        pointOf(DxfRecord(bytes, block.begin), 10), insertion.position, insertion.scale, insertion.rotation};
    ReferenceWriter writer(content, *head, placement);
    if (!writer.write(block, bytes))
        return drawingFailure(drawing, 0, u"the drawing has no free handle left");
    if (!writer.writer().isFinite())
        return drawingFailure(drawing, 0, badPlace);
    reservation.keep();
    if (added.copier)
        added.copier->apply();
    const std::size_t begin = content.apply({{endOf(content, space), 0, writer.writer().text()}}).front();
    reference = content.addReference(
        space, block.name, {begin, writer.recordLength(), writer.writer().size(), nowhere});
    return {};
}

} // namespace drafta
