#include "embedded/drawings/display_tables.h"
#include "base/fold.h"

#include <cmath>
#include <cstdlib>

namespace drafta {

using ryv::CString;

namespace {

constexpr std::size_t longestPattern = 64;
constexpr int frozenFlag = 1;

/// The lengths in a LTYPE record as dash, gap, dash, gap: neighbours of one kind together, the dash first.
std::vector<double> dashesOf(const DxfRecord& record) {
    std::vector<double> lengths;
    for (std::size_t i = 1; i < record.ownCount() && lengths.size() < longestPattern; ++i) {
        const DxfPair& pair = record.pairs()[i];
        const double length = pair.code == 49 ? parseReal(pair.value).value_or(0) : 0;
        if (pair.code != 49)
            continue;
        const bool isGap = length < 0;
        if (!lengths.empty() && isGap == (lengths.size() % 2 == 0))
            lengths.back() += std::abs(length);
        else if (!lengths.empty() || !isGap)
            lengths.push_back(std::abs(length));
    }
    if (lengths.size() % 2 != 0)
        lengths.push_back(0);
    return lengths.size() < 2 ? std::vector<double>() : lengths;
}

std::uint16_t colourNumber(int colour, std::uint16_t otherwise) {
    return colour >= 1 && colour <= 255 ? static_cast<std::uint16_t>(colour) : otherwise;
}

} // namespace

DisplayTables::DisplayTables(const DrawingContent& content) : content_(content), scale_(lineTypeScale()) {
    patterns_.emplace_back();
    layerNumber("0"); // is display::layerOfReference
    readLineTypes();
    readLayers();
    nameBlocks();
}

CString DisplayTables::folded(std::string_view name) const {
    return ryv::toUpper(content_.text().decode(trimmed(name)));
}

template <class Take>
void DisplayTables::forEachEntry(std::string_view table, const Take& take) const {
    const DxfRange* const range = content_.index().table(table);
    if (!range)
        return;
    for (std::size_t at = content_.record(range->begin).end(); at < range->end;) {
        const DxfRecord record = content_.record(at);
        if (record.kind() == table)
            take(record);
        at = record.end();
    }
}

double DisplayTables::lineTypeScale() const {
    const DxfRange* const header = content_.index().section("HEADER");
    if (!header)
        return 1;
    DxfPairReader reader(content_.bytes(), header->begin);
    DxfPair pair;
    bool isScale = false;
    while (reader.next(pair) == DxfPairReader::Step::pair && pair.begin < header->end) {
        if (isScale && pair.code == 40)
            return parseReal(pair.value).value_or(1);
        if (pair.code == 9)
            isScale = trimmed(pair.value) == "$LTSCALE";
    }
    return 1;
}

void DisplayTables::readLineTypes() {
    forEachEntry("LTYPE", [this](const DxfRecord& record) {
        lineTypes_.try_emplace(folded(record.text(2)), dashesOf(record));
    });
}

void DisplayTables::readLayers() {
    forEachEntry("LAYER", [this](const DxfRecord& record) {
        DisplayLayer& layer = layers_[layerNumber(record.text(2))];
        const int colour = record.integer(62, 7);
        layer.colour = colourNumber(colour < -255 ? 7 : std::abs(colour), 7);
        layer.isOff = colour < 0;
        layer.isFrozen = (record.integer(70, 0) & frozenFlag) != 0;
        layer.pattern = patternNumber(record.text(6), 1);
    });
}

void DisplayTables::nameBlocks() {
    const std::vector<DxfBlock>& blocks = content_.index().blocks;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        blocks_.try_emplace(folded(blocks[i].name), i);
}

std::size_t DisplayTables::block(std::string_view name) const {
    const auto hit = blocks_.find(folded(name));
    return hit == blocks_.end() ? display::noBlock : hit->second;
}

std::uint32_t DisplayTables::layerNumber(std::string_view name) {
    const auto spelled = spelledLayers_.find(name);
    if (spelled != spelledLayers_.end())
        return spelled->second;
    const auto [entry, isNew] =
        layerNumbers_.try_emplace(folded(name), static_cast<std::uint32_t>(layers_.size()));
    if (isNew)
        layers_.emplace_back();
    spelledLayers_.emplace(name, entry->second);
    return entry->second;
}

/// Line types are few, and so are scales in real drawings; past the number that fits lines are unbroken.
std::uint16_t DisplayTables::patternNumber(std::string_view lineType, double scale) {
    const CString name = folded(lineType);
    if (name == u"BYLAYER")
        return display::patternOfLayer;
    if (name == u"BYBLOCK")
        return display::patternOfBlock;
    const auto type = lineTypes_.find(name);
    const double factor = scale_ * scale;
    if (type == lineTypes_.end() || type->second.empty() || !(factor > 0) || !std::isfinite(factor) ||
        patterns_.size() >= display::largestPattern)
        return 0;
    const auto [entry, isNew] =
        patternNumbers_.try_emplace({name, factor}, static_cast<std::uint16_t>(patterns_.size()));
    if (isNew) {
        patterns_.push_back(type->second);
        for (double& length : patterns_.back())
            length *= factor;
    }
    return entry->second;
}

DisplayStyle DisplayTables::styleOf(const DxfRecord& record) {
    DisplayStyle style{display::colourOfLayer, display::patternOfLayer, layerNumber(record.text(dxf::layer))};
    const DxfPair* const colour = record.find(62);
    if (colour) {
        const int number = parseInteger(colour->value).value_or(display::colourOfLayer);
        style.colour = number == 0 ? display::colourOfBlock : colourNumber(number, display::colourOfLayer);
    }
    if (const DxfPair* const type = record.find(dxf::lineType))
        style.pattern = patternNumber(type->value, record.real(48).value_or(1));
    return style;
}

} // namespace drafta
