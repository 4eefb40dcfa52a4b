#include "embedded/drawings/drawing_content.h"
#include "base/fold.h"
#include "siblings/file_content.h"

#include <algorithm>
#include <limits>

namespace drafta {

using ryv::CStringView;

namespace {

constexpr std::string_view seedName = "$HANDSEED";

/// Reasons that can be told from the bytes alone, before any pair is read.
DxfFault findForeign(std::string_view bytes) {
    const std::string_view start = bytes.substr(0, 32);
    if (bytes.empty())
        return {u"the file is empty", 0};
    if (start.find(" Binary DXF") != std::string_view::npos)
        return {u"binary DXF is not supported, only its text form is", 0};
    if (start.starts_with("AC10"))
        return {u"this is a binary drawing; only DXF text content is supported", 0};
    if (const std::size_t zero = bytes.find('\0'); zero != std::string_view::npos)
        return {u"a zero byte stands in the text", zero};
    return {};
}

std::string codePageOf(const DrawingIndex& index) {
    const DxfVariable* const variable = index.variable("$DWGCODEPAGE");
    return variable ? std::string(trimmed(variable->value)) : std::string();
}

} // namespace

std::optional<DrawingContent> DrawingContent::read(ryv::ByteBuffer& bytes, DxfFault& fault) {
    DrawingIndex index;
    fault = findForeign(bytes.view());
    if (!fault)
        fault = scanDrawing(bytes.view(), index);
    if (fault)
        return std::nullopt;
    return DrawingContent(std::move(bytes), std::move(index));
}

DrawingContent::DrawingContent(ryv::ByteBuffer bytes, DrawingIndex index)
    : loaded_(std::move(bytes)), index_(std::move(index)),
      text_(index_.atLeast(DxfRelease::r2007), codePageOf(index_)), style_(styleOf(loaded_.view())) {}

std::uint64_t DrawingContent::readHash() const noexcept {
    return edited_ ? readHash_ : ryv::contentHash(loaded_.view());
}

std::string_view DrawingContent::variable(std::string_view name) const noexcept {
    const DxfVariable* const found = index_.variable(name);
    return found ? trimmed(found->value) : std::string_view();
}

bool DrawingContent::sameName(std::string_view inFile, CStringView name) const {
    return ryv::equalNoCase(text_.decode(trimmed(inFile)), name);
}

std::size_t DrawingContent::findBlock(CStringView name) const {
    const auto found = std::find_if(index_.blocks.begin(), index_.blocks.end(),
        [&](const DxfBlock& block) { return sameName(block.name, name); });
    return found == index_.blocks.end() ? nowhere : static_cast<std::size_t>(found - index_.blocks.begin());
}

std::size_t DrawingContent::findTableEntry(std::string_view table, CStringView name) const {
    const DxfRange* const range = index_.table(table);
    if (!range)
        return nowhere;
    for (std::size_t at = record(range->begin).end(); at < range->end;) {
        const DxfRecord entry = record(at);
        if (entry.kind() == table && sameName(entry.text(2), name))
            return at;
        at = entry.end();
    }
    return nowhere;
}

void DrawingContent::surveyHandles() {
    constexpr std::uint64_t last = std::numeric_limits<std::uint64_t>::max();
    const DxfVariable* const seed = index_.variable(seedName);
    std::uint64_t largest = 0;
    bool isDimensionStyle = false; // whose 5 is a name
    DxfPairReader reader(bytes(), bytes().find_first_of(" 0123456789"));
    for (DxfPair pair; reader.next(pair) == DxfPairReader::Step::pair;) {
        if (pair.code == 0)
            isDimensionStyle = trimmed(pair.value) == "DIMSTYLE";
        else if ((pair.code == dxf::handle && !isDimensionStyle &&
                     !(seed && seed->valueBegin == pair.valueBegin)) ||
                 pair.code == dxf::tableHandle)
            largest = std::max(largest, parseHandle(pair.value).value_or(0));
    }
    hasHandles_ = largest > 0 && (index_.atLeast(DxfRelease::r13) || variable("$HANDLING") != "0");
    nextHandle_ = largest == last ? last : std::max(parseHandle(variable(seedName)).value_or(0), largest + 1);
}

bool DrawingContent::hasHandles() {
    if (!nextHandle_)
        surveyHandles();
    return hasHandles_;
}

std::optional<std::uint64_t> DrawingContent::takeHandles(std::size_t count) {
    if (!hasHandles())
        return 0;
    const std::uint64_t first = *nextHandle_;
    if (count >= std::numeric_limits<std::uint64_t>::max() - first)
        return std::nullopt;
    nextHandle_ = first + count;
    return first;
}

void DrawingContent::addSeed(std::vector<DxfSplice>& splices) {
    const auto seed = std::find_if(index_.header.begin(), index_.header.end(),
        [](const DxfVariable& variable) { return variable.name == seedName; });
    if (!nextHandle_ || !hasHandles_ || seed == index_.header.end() || seed->valueBegin == nowhere)
        return;
    const std::string text = handleText(*nextHandle_);
    if (parseHandle(seed->value) == nextHandle_)
        return;
    splices.push_back({seed->valueBegin, seed->value.size(), text});
    seed->value = text;
}

void DrawingContent::shift(const std::vector<const DxfSplice*>& sorted) {
    // A text put in front of a pair moves the pair; one put in place of an empty value does not move the
    // value.
    const auto moved = [&sorted](std::size_t& place, bool stays = false) {
        std::size_t added = 0, removed = 0;
        for (const DxfSplice* const splice : sorted) {
            if (place == nowhere || splice->offset + splice->removed + (stays ? 1 : 0) > place)
                break;
            added += splice->text.size();
            removed += splice->removed;
        }
        place += added - removed;
    };
    for (DxfVariable& variable : index_.header)
        moved(variable.valueBegin, true);
    for (std::vector<DxfRange>* const ranges : {&index_.sections, &index_.tables})
        for (DxfRange& range : *ranges) {
            moved(range.begin);
            moved(range.end);
        }
    for (DxfBlock& block : index_.blocks) {
        moved(block.begin);
        moved(block.content, true);
        moved(block.end);
    }
    for (DxfReference& reference : index_.references)
        moved(reference.begin);
}

std::vector<std::size_t> DrawingContent::apply(std::vector<DxfSplice> splices) {
    if (splices.empty())
        return {};
    addSeed(splices);
    std::vector<const DxfSplice*> sorted(splices.size());
    std::transform(
        splices.begin(), splices.end(), sorted.begin(), [](const DxfSplice& splice) { return &splice; });
    std::stable_sort(sorted.begin(), sorted.end(),
        [](const DxfSplice* a, const DxfSplice* b) { return a->offset < b->offset; });
    if (!edited_) {
        readHash_ = readHash();
        edited_.emplace(loaded_.view());
        loaded_.clear();
    }
    for (auto splice = sorted.rbegin(); splice != sorted.rend(); ++splice)
        edited_->replace((*splice)->offset, (*splice)->removed, (*splice)->text);
    std::vector<std::size_t> begins(splices.size());
    std::size_t added = 0, removed = 0;
    for (const DxfSplice* const splice : sorted) {
        begins[static_cast<std::size_t>(splice - splices.data())] = splice->offset + added - removed;
        added += splice->text.size();
        removed += splice->removed;
    }
    shift(sorted);
    ++revision_;
    return begins;
}

void DrawingContent::applyTo(
    ReferenceId reference, std::vector<DxfSplice> splices, std::size_t recordSplices) {
    DxfReference& where = index_.references[reference];
    for (std::size_t i = 0; i < splices.size(); ++i) {
        const std::size_t growth = splices[i].text.size() - splices[i].removed;
        where.recordLength += i < recordSplices ? growth : 0;
        where.length += growth;
    }
    apply(std::move(splices));
}

void DrawingContent::addBlock(
    std::string_view name, std::size_t begin, std::size_t content, std::size_t end) {
    DxfBlock& block = index_.blocks.emplace_back();
    block.name = name;
    block.begin = begin;
    block.content = content;
    block.end = end;
}

void DrawingContent::addSection(std::string_view name, std::size_t begin, std::size_t end) {
    index_.sections.push_back({std::string(name), begin, end});
}

void DrawingContent::addTable(std::string_view name, std::size_t begin, std::size_t end) {
    index_.tables.push_back({std::string(name), begin, end});
}

ReferenceId DrawingContent::addReference(SpaceId space, std::string_view block, const DxfReference& where) {
    const auto name = std::find(index_.names.begin(), index_.names.end(), block);
    const auto number = static_cast<std::size_t>(name - index_.names.begin());
    if (name == index_.names.end())
        index_.names.emplace_back(block);
    index_.references.push_back(where);
    index_.references.back().name = number;
    index_.spaces[space].references.push_back(index_.references.size() - 1);
    return index_.references.size() - 1;
}

} // namespace drafta
