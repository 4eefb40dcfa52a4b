#include "embedded/drawings/record_converter.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace drafta {

using ryv::CString;

namespace {

constexpr std::string_view entityMark = "Entity";

bool isEntityMark(const DxfPair& pair) noexcept {
    return pair.code == dxf::subclass && trimmed(pair.value).ends_with(entityMark);
}

template <class Values, class Value>
bool holds(const Values& values, const Value& value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// The codes that all entities share, beside layer and line type.
bool isCommon(int code) noexcept {
    constexpr std::array codes{dxf::lineType, dxf::layer, 48, 60, 62, 284, 370, 420, 430, 440};
    return holds(codes, code);
}

bool isTextCode(int code) noexcept {
    return (code >= 1 && code <= 9) || (code >= 300 && code <= 309) || (code >= 430 && code <= 439);
}

constexpr std::array<std::string_view, 14> earlyKinds{"LINE", "POINT", "CIRCLE", "ARC", "TEXT", "ATTDEF",
    "SOLID", "TRACE", "3DFACE", "POLYLINE", "VERTEX", "SEQEND", "INSERT", "ATTRIB"};
/// Kinds of later releases: those that never changed, and those that a release may have extended.
constexpr std::array<std::string_view, 5> settledKinds{"LWPOLYLINE", "ELLIPSE", "SPLINE", "RAY", "XLINE"};
constexpr std::array<std::string_view, 2> growingKinds{"MTEXT", "HATCH"};

/// Where the first entity of a space stands in the entities section.
DxfRecord sampleOf(const DrawingContent& content, SpaceId space) {
    const DxfRange* const section = content.index().section("ENTITIES");
    for (std::size_t at = section ? content.record(section->begin).end() : nowhere;
         section && at < section->end;) {
        DxfRecord record = content.record(at);
        if ((record.integer(dxf::onPaper, 0) == 1) == (space == paperSpace) && record.find(dxf::subclass))
            return record;
        at = record.end();
    }
    return {};
}

} // namespace

std::vector<DxfPair> ownPairs(const DxfRecord& record) {
    std::vector<DxfPair> pairs;
    bool inGroup = false;
    for (std::size_t i = 0; i < record.ownCount(); ++i) {
        const DxfPair& pair = record.pairs()[i];
        if (pair.code == dxf::subclass && trimmed(pair.value).ends_with("Xrecord"))
            break;
        if (pair.code == dxf::group)
            inGroup = pair.value.starts_with('{');
        else if (!inGroup && pair.code != dxf::comment)
            pairs.push_back(pair);
    }
    return pairs;
}

std::optional<RecordHead> RecordHead::of(const DrawingContent& content, const DxfRecord& entity) {
    RecordHead head;
    if (const DxfPair* const layer = entity.find(dxf::layer))
        head.layer = layer->value;
    head.onPaper = entity.integer(dxf::onPaper, 0) == 1;
    head.layout = entity.text(dxf::layout);
    head.hasOwner = entity.find(dxf::owner) != nullptr;
    head.owner = trimmed(entity.text(dxf::owner));
    if (!content.index().atLeast(DxfRelease::r13))
        return head;
    const auto mark = std::find_if(entity.pairs().begin(), entity.pairs().end(), isEntityMark);
    if (mark == entity.pairs().end())
        return std::nullopt;
    head.markPrefix = trimmed(mark->value);
    head.markPrefix.resize(head.markPrefix.size() - entityMark.size());
    return head;
}

std::optional<RecordHead> RecordHead::forSpace(const DrawingContent& content, SpaceId space) {
    const std::size_t block = content.index().spaces[space].block;
    const bool isLater = content.index().atLeast(DxfRelease::r13);
    const DxfRecord sample = isLater ? sampleOf(content, space) : DxfRecord();
    const DxfRecord definition =
        block == nowhere ? DxfRecord() : content.record(content.index().blocks[block].begin);
    std::optional<RecordHead> head = of(content, definition.find(dxf::subclass) ? definition : sample);
    if (!head)
        return std::nullopt;
    const std::string_view layer = content.variable("$CLAYER");
    head->layer = layer.empty() ? "0" : layer;
    head->onPaper = space != modelSpace;
    head->layout = space == modelSpace || space == paperSpace ? sample.text(dxf::layout) : std::string_view();
    return head;
}

void RecordHead::write(DxfWriter& writer, std::string_view kind, std::uint64_t handle) const {
    writeTop(writer, kind, handle);
    writer.pair(dxf::layer, layer);
}

void RecordHead::writeTop(DxfWriter& writer, std::string_view kind, std::uint64_t handle) const {
    writer.pair(0, kind);
    if (handle != 0)
        writer.handle(dxf::handle, handle);
    if (hasOwner && !owner.empty())
        writer.pair(dxf::owner, owner);
    writeMark(writer, entityMark);
    if (onPaper)
        writer.integer(dxf::onPaper, 1);
    if (!layout.empty())
        writer.pair(dxf::layout, layout);
}

void RecordHead::writeMark(DxfWriter& writer, std::string_view suffix) const {
    if (!markPrefix.empty())
        writer.pair(dxf::subclass, markPrefix + std::string(suffix));
}

/// A part of an entity behind the common one: its mark, and the codes that belong to it; the first part has
/// all that the others do not name.
struct RecordConverter::Part {
    std::string_view mark;
    std::vector<int> codes;
};

RecordConverter::RecordConverter(const DrawingContent& source, DrawingContent& target, RecordHead head)
    : source_(source), target_(target), head_(std::move(head)) {}

std::string RecordConverter::text(std::string_view value) const {
    std::string bytes;
    const bool plain = std::all_of(value.begin(), value.end(), [](char c) { return (c & 0x80) == 0; });
    if (plain || !target_.text().encode(source_.text().decode(value), bytes))
        return std::string(value);
    return bytes;
}

bool RecordConverter::isKnown(std::string_view kind) const {
    if (holds(earlyKinds, kind))
        return true;
    const bool bothLater =
        target_.index().atLeast(DxfRelease::r14) && source_.index().atLeast(DxfRelease::r13);
    return bothLater &&
           (holds(settledKinds, kind) ||
               (holds(growingKinds, kind) && source_.index().release <= target_.index().release));
}

/// Links to other objects cannot be followed into the target; those that all entities may have (plot style,
/// material) mean nothing there and go.
CopyFault RecordConverter::check(const DxfRecord& entity) const {
    const CString kind = ryv::fromAscii(entity.kind());
    if (!isKnown(entity.kind()))
        return {u"a " + kind + u" cannot be brought into a drawing of this release", entity.begin()};
    bool inBody = false, hadEntityMark = false;
    for (const DxfPair& pair : ownPairs(entity)) {
        inBody = inBody || (pair.code == dxf::subclass && hadEntityMark);
        hadEntityMark = hadEntityMark || isEntityMark(pair);
        if (inBody && isReferenceCode(pair.code) && parseHandle(pair.value).value_or(0) != 0)
            return {u"a " + kind + u" refers to other objects of its drawing", pair.begin};
    }
    return {};
}

bool RecordConverter::keepsCommon(int code) const {
    const DrawingIndex& index = target_.index();
    constexpr int trueColours = 1018;
    if (code == 284)
        return index.atLeast(DxfRelease::r2007);
    if (code >= 420)
        return index.release >= trueColours;
    if (code == 370)
        return index.atLeast(DxfRelease::r2000);
    return (code != 48 && code != 60) || index.atLeast(DxfRelease::r13);
}

/// What an older target does not know in parts that releases have extended.
bool RecordConverter::keepsBody(const DxfRecord& entity, const DxfPair& pair, bool inLastPart) const {
    const bool isAttribute = entity.kind() == "ATTDEF" || entity.kind() == "ATTRIB";
    const bool isOlder = target_.index().release < source_.index().release;
    if (isReferenceCode(pair.code) || (isAttribute && isOlder && pair.code == 280))
        return false;
    return !isAttribute || pair.code != 71 || !inLastPart;
}

void RecordConverter::note(std::string_view kind, const DxfPair& pair, const std::string& value) {
    if (pair.code == dxf::layer)
        needed_.layers.insert(value);
    else if (pair.code == dxf::lineType)
        needed_.lineTypes.insert(value);
    else if (pair.code == dxf::textStyle)
        needed_.textStyles.insert(value);
    else if (pair.code == 2 && kind == "INSERT")
        needed_.blocks.push_back(value);
}

void RecordConverter::writePair(DxfWriter& writer, std::string_view kind, const DxfPair& pair) {
    const std::string value = isTextCode(pair.code) ? text(pair.value) : std::string(pair.value);
    note(kind, pair, value);
    writer.pair(pair.code, value);
}

/// The handle of the owner that an entity has when it belongs to the one before it, else 0.
std::uint64_t RecordConverter::enter(const DxfRecord& entity, std::uint64_t handle) {
    const std::string_view kind = entity.kind();
    if (kind == "VERTEX" || kind == "ATTRIB" || kind == "SEQEND")
        return parent_;
    parent_ = handle;
    parentFlags_ = kind == "POLYLINE" ? entity.integer(70, 0) : 0;
    return 0;
}

CopyFault RecordConverter::convert(const DxfRecord& entity, DxfWriter& writer) {
    if (CopyFault fault = check(entity))
        return fault;
    const std::optional<std::uint64_t> handle = target_.takeHandles(1);
    if (!handle)
        return {u"the drawing has no free handle left"};
    RecordHead head = head_;
    if (const std::uint64_t parent = enter(entity, *handle))
        head.owner = handleText(parent);
    head.writeTop(writer, entity.kind(), *handle);
    needed_.hasAttributes = needed_.hasAttributes || entity.kind() == "ATTDEF";
    const std::vector<DxfPair> pairs = ownPairs(entity);
    bool inBody = false, hadEntityMark = false;
    std::vector<DxfPair> body;
    for (std::size_t i = 1; i < pairs.size(); ++i) {
        const DxfPair& pair = pairs[i];
        inBody = inBody || (pair.code == dxf::subclass && hadEntityMark);
        hadEntityMark = hadEntityMark || isEntityMark(pair);
        if (!inBody && isCommon(pair.code)) {
            if (keepsCommon(pair.code))
                writePair(writer, entity.kind(), pair);
        } else if (inBody ||
                   !(pair.code == dxf::handle || pair.code == dxf::subclass || pair.code == dxf::onPaper ||
                       pair.code == dxf::layout || isReferenceCode(pair.code))) {
            body.push_back(pair);
        }
    }
    writeBody(entity, body, writer);
    return {};
}

void RecordConverter::writeBody(
    const DxfRecord& entity, const std::vector<DxfPair>& pairs, DxfWriter& writer) {
    const bool isMarked = std::any_of(
        pairs.begin(), pairs.end(), [](const DxfPair& pair) { return pair.code == dxf::subclass; });
    if (isMarked || head_.markPrefix.empty()) {
        int parts = 0;
        for (const DxfPair& pair : pairs) {
            parts += pair.code == dxf::subclass ? 1 : 0;
            if ((pair.code != dxf::subclass || !head_.markPrefix.empty()) &&
                keepsBody(entity, pair, parts > 1))
                writePair(writer, entity.kind(), pair);
        }
        return;
    }
    const std::vector<Part> parts = partsOf(entity);
    const auto partOf = [&parts](const DxfPair& pair) {
        for (std::size_t i = 1; i < parts.size(); ++i)
            if (holds(parts[i].codes, pair.code))
                return i;
        return std::size_t{0};
    };
    for (std::size_t i = 0; i < parts.size(); ++i) {
        head_.writeMark(writer, parts[i].mark);
        for (const DxfPair& pair : pairs)
            if (partOf(pair) == i && keepsBody(entity, pair, false))
                writePair(writer, entity.kind(), pair);
    }
}

std::vector<RecordConverter::Part> RecordConverter::partsOf(const DxfRecord& entity) const {
    const std::string_view kind = entity.kind();
    constexpr int isThreeD = 8, isMesh = 16, isPolyFace = 64, isVertexOfFaces = 64;
    const int flags = kind == "POLYLINE" ? entity.integer(70, 0) : parentFlags_;
    if (kind == "POLYLINE")
        return {{flags & isPolyFace ? "PolyFaceMesh"
                 : flags & isMesh   ? "PolygonMesh"
                 : flags & isThreeD ? "3dPolyline"
                                    : "2dPolyline",
            {}}};
    if (kind == "VERTEX" && (flags & isPolyFace) != 0 && (entity.integer(70, 0) & isVertexOfFaces) == 0)
        return {{"FaceRecord", {}}};
    if (kind == "VERTEX")
        return {{"Vertex", {}}, {flags & isPolyFace    ? "PolyFaceMeshVertex"
                                    : flags & isMesh   ? "PolygonMeshVertex"
                                    : flags & isThreeD ? "3dPolylineVertex"
                                                       : "2dVertex",
                                    {10, 20, 30, 40, 41, 42, 50, 70, 71, 72, 73, 74}}};
    if (kind == "INSERT") {
        const bool isArray = entity.integer(70, 1) > 1 || entity.integer(71, 1) > 1;
        return {{isArray ? "MInsertBlock" : "BlockReference", {}}};
    }
    if (kind == "ARC")
        return {{"Circle", {}}, {"Arc", {50, 51}}};
    if (kind == "TEXT")
        return {{"Text", {}}, {"Text", {73}}};
    if (kind == "ATTDEF")
        return {{"Text", {}}, {"AttributeDefinition", {2, 3, 70, 73, 74}}};
    if (kind == "ATTRIB")
        return {{"Text", {}}, {"Attribute", {2, 70, 73, 74}}};
    constexpr std::array<std::pair<std::string_view, std::string_view>, 6> single{
        {{"LINE", "Line"}, {"POINT", "Point"}, {"CIRCLE", "Circle"}, {"SOLID", "Trace"}, {"TRACE", "Trace"},
            {"3DFACE", "Face"}}};
    for (const auto& [name, mark] : single)
        if (name == kind)
            return {{mark, {}}};
    return {};
}

namespace {

/// The pairs of table entries that every release knows, and what some later ones add to layers.
bool isEntryCode(std::string_view table, int code, const DrawingIndex& target) {
    if (code == 2 || code == 70)
        return true;
    if (table == "LAYER")
        return code == 62 || code == dxf::lineType ||
               (target.atLeast(DxfRelease::r2000) && (code == 290 || code == 370));
    if (table == "LTYPE")
        return code == 3 || code == 72 || code == 73 || code == 40 || code == 49;
    return code == 40 || code == 41 || code == 50 || code == 71 || code == 42 || code == 3 || code == 4;
}

} // namespace

CopyFault RecordConverter::convertEntry(const DxfRecord& entry, const DxfRecord& sample, DxfWriter& writer) {
    const std::optional<std::uint64_t> handle = target_.takeHandles(1);
    if (!handle)
        return {u"the drawing has no free handle left"};
    const std::string_view table = entry.kind();
    writer.pair(0, table);
    if (*handle != 0)
        writer.handle(dxf::handle, *handle);
    if (sample.find(dxf::owner) && !head_.markPrefix.empty())
        writer.pair(dxf::owner, sample.text(dxf::owner));
    for (const DxfPair& pair : ownPairs(sample))
        if (pair.code == dxf::subclass && !head_.markPrefix.empty())
            writer.pair(pair.code, pair.value);
    for (const DxfPair& pair : ownPairs(entry)) {
        if (pair.code == 74 && table == "LTYPE" && parseInteger(pair.value) != 0)
            return {u"a line type with shapes or texts cannot be copied", entry.begin()};
        if (pair.code == 0 || !isEntryCode(table, pair.code, target_.index()))
            continue;
        writePair(writer, table, pair);
        if (pair.code == 49 && !head_.markPrefix.empty())
            writer.integer(74, 0);
    }
    // Plot style and material of a layer are objects of the target.
    for (const DxfPair& pair : ownPairs(sample))
        if (table == "LAYER" && (pair.code == 390 || pair.code == 347))
            writer.pair(pair.code, pair.value);
    return {};
}

} // namespace drafta
