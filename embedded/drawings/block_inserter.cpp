#include "embedded/drawings/block_inserter.h"
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

/// Makes the records of one reference.
class ReferenceWriter {
public:
    ReferenceWriter(DrawingContent& content, RecordHead head, const BlockPlacement& placement)
        : content_(content), head_(std::move(head)), placement_(placement), writer_(content.writer()) {}

    /// False when no handle is left.
    bool write(const DxfBlock& block);
    const DxfWriter& writer() const noexcept { return writer_; }
    std::size_t recordLength() const noexcept { return recordLength_; }

private:
    std::vector<DxfRecord> definitionsOf(const DxfBlock& block) const;
    void writeInsert(std::string_view name, bool hasAttributes, std::uint64_t handle);
    void writeAttribute(const DxfRecord& definition, std::uint64_t handle);
    void writeChanged(const DxfPair& pair, double value);
    bool writePlaced(const DxfRecord& definition, const DxfPair& pair);

    DrawingContent& content_;
    RecordHead head_;
    BlockPlacement placement_;
    DxfWriter writer_;
    std::size_t recordLength_ = 0;
};

std::vector<DxfRecord> ReferenceWriter::definitionsOf(const DxfBlock& block) const {
    constexpr int constant = 2;
    std::vector<DxfRecord> definitions;
    for (std::size_t at = block.content; at < block.end;) {
        DxfRecord record = content_.record(at);
        at = record.end();
        if (record.kind() == "ATTDEF" && (record.integer(70, 0) & constant) == 0)
            definitions.push_back(std::move(record));
    }
    return definitions;
}

bool ReferenceWriter::write(const DxfBlock& block) {
    const std::vector<DxfRecord> definitions = definitionsOf(block);
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
    if (parseReal(pair.value) == value || !std::isfinite(value))
        writer_.pair(pair.code, pair.value);
    else
        writer_.real(pair.code, value);
}

/// Writes a pair of the geometry as the reference places it; false for other pairs.
bool ReferenceWriter::writePlaced(const DxfRecord& definition, const DxfPair& pair) {
    const int corner = pair.code % 10;
    if (pair.code >= 10 && pair.code <= 31 && (corner == 0 || corner == 1)) {
        const ObjectAxes axes(definition);
        const DrawingPoint moved =
            axes.fromSpace(placement_.placed(axes.toSpace(pointOf(definition, 10 + corner))));
        writeChanged(pair, pair.code < 20 ? moved.x : pair.code < 30 ? moved.y : moved.z);
        return true;
    }
    const double old = parseReal(pair.value).value_or(0);
    const double narrowing = std::abs(placement_.scale.x / placement_.scale.y);
    const double direction = placement_.placedDirection(definition.real(50).value_or(0));
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

DrawingResult check(
    const DrawingContent& content, CStringView drawing, const ryv::BlockInsertion& insertion) {
    std::string name;
    if (insertion.block.empty() || insertion.block.front() == u'*' ||
        !content.text().encode(insertion.block, name))
        return drawingFailure(drawing, 0, u"\"" + insertion.block + u"\" is no name for a block");
    const DrawingPoint& scale = insertion.scale;
    const bool isUsable = isFinite(insertion.position) && isFinite(scale) &&
                          std::isfinite(insertion.rotation) && scale.x != 0 && scale.y != 0 && scale.z != 0;
    if (!isUsable)
        return drawingFailure(drawing, 0, u"a block cannot be inserted at such a place");
    if (!content.index().section("ENTITIES"))
        return drawingFailure(drawing, 0, u"the drawing has no section for entities");
    return {};
}

/// Defines the block from the file, unless the drawing has it.
DrawingResult define(
    ryv::Files& files, DrawingContent& content, CStringView drawing, const ryv::BlockInsertion& insertion) {
    if (content.findBlock(insertion.block) != nowhere)
        return {};
    DrawingResult result;
    ryv::Fingerprint unused;
    const std::optional<DrawingContent> source = readDrawing(files, insertion.file, unused, result);
    if (!source)
        return result;
    const CopyFault fault = BlockCopier(*source, content).copy(insertion.block);
    if (!fault)
        return {};
    return fault.offset == nowhere
               ? drawingFailure(drawing, 0, fault.reason)
               : drawingFailure(insertion.file, lineNumber(source->bytes(), fault.offset), fault.reason);
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
    if (const DrawingResult result = define(files, content, drawing, insertion); !result.ok())
        return result;
    const DxfBlock block = content.index().blocks[content.findBlock(insertion.block)];
    const BlockPlacement placement{
        pointOf(content.record(block.begin), 10), insertion.position, insertion.scale, insertion.rotation};
    ReferenceWriter writer(content, *head, placement);
    if (!writer.write(block))
        return drawingFailure(drawing, 0, u"the drawing has no free handle left");
    const std::size_t begin = content.apply({{endOf(content, space), 0, writer.writer().text()}}).front();
    reference = content.addReference(
        space, block.name, {begin, writer.recordLength(), writer.writer().size(), nowhere});
    return {};
}

} // namespace drafta
