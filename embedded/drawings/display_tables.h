// Layers, line types and block names of a drawing, as its display list needs them.
#pragma once

#include "embedded/drawings/display_block.h"
#include "embedded/drawings/drawing_content.h"

#include <map>
#include <string>
#include <unordered_map>

namespace drafta {

struct DisplayLayer {
    std::uint16_t colour = 7;
    std::uint16_t pattern = 0;
    bool isOff = false;
    bool isFrozen = false;
};

class DisplayTables {
public:
    /// Reads the tables; the content outlives this object.
    explicit DisplayTables(const DrawingContent& content);

    /// The style of an entity as its record says it. A layer that no table has is made up.
    DisplayStyle styleOf(const DxfRecord& record);

    /// The number of a block by its name in a record; display::noBlock when there is none.
    std::size_t block(std::string_view name) const;

    const DisplayLayer& layer(std::uint32_t number) const { return layers_[number]; }
    std::vector<std::vector<double>> takePatterns() { return std::move(patterns_); }

private:
    void readLineTypes();
    void readLayers();
    void nameBlocks();
    double lineTypeScale() const;
    template <class Take>
    void forEachEntry(std::string_view table, const Take& take) const;
    std::uint32_t layerNumber(std::string_view name);
    std::uint16_t patternNumber(std::string_view lineType, double scale);
    ryv::CString folded(std::string_view name) const;

    const DrawingContent& content_;
    double scale_ = 1;
    std::vector<DisplayLayer> layers_;
    std::map<ryv::CString, std::uint32_t> layerNumbers_;                // by folded name
    std::unordered_map<std::string_view, std::uint32_t> spelledLayers_; // as records spell them
    std::map<ryv::CString, std::vector<double>> lineTypes_;
    std::map<std::pair<ryv::CString, double>, std::uint16_t> patternNumbers_;
    std::vector<std::vector<double>> patterns_;
    std::map<ryv::CString, std::size_t> blocks_;
};

} // namespace drafta
