// The one pass over a drawing's bytes: is it whole, and where in it are the things that views ask for?
#pragma once

#include "embedded/drawings/dxf_pairs.h"

#include <array>
#include <string>
#include <vector>

namespace drafta {

/// Releases of the format in their order. Later ones than the last known are read like it.
enum class DxfRelease : int { r12 = 1009, r13 = 1012, r14 = 1014, r2000 = 1015, r2007 = 1021, r2010 = 1024 };

/// A space by its place in DrawingIndex::spaces.
using SpaceId = std::size_t;
inline constexpr SpaceId modelSpace = 0;
inline constexpr SpaceId paperSpace = 1;

/// A reference by its place in DrawingIndex::references; never changes, as no reference is ever removed.
using ReferenceId = std::size_t;

inline constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// A section or a table: where its first pair begins, and the pair that ends it.
struct DxfRange {
    std::string name;
    std::size_t begin = nowhere;
    std::size_t end = nowhere; ///< of the ENDSEC, ENDTAB or ENDBLK pair
};

/// A block definition.
struct DxfBlock : DxfRange {
    std::size_t content = nowhere; ///< of the first record behind BLOCK
};

/// A block reference in a space: the INSERT record and, when it has attributes, all up to the end of SEQEND.
struct DxfReference {
    std::size_t begin = 0;
    std::size_t recordLength = 0; ///< bytes of the INSERT record alone
    std::size_t length = 0;       ///< bytes in all; as recordLength when no attributes follow
    std::size_t name = 0;         ///< in DrawingIndex::names

    bool hasSequence() const noexcept { return length > recordLength; }
};

/// A space: its references in their order, and the block that holds it; model space and the active paper
/// space have (some or all of) theirs in the entities section.
struct DxfSpace {
    std::string name;
    std::size_t block = nowhere; ///< in DrawingIndex::blocks
    std::vector<ReferenceId> references;
};

/// A variable of the header; only those that somebody asks for are kept.
struct DxfVariable {
    std::string name;
    std::size_t valueBegin = nowhere; ///< of its first value
    std::string value;
    std::array<std::string, 2> more; ///< second and third value, of a point
};

/// Where things are. Every offset is that of the first byte of a pair.
struct DrawingIndex {
    int release = static_cast<int>(DxfRelease::r12); ///< the four digits of its name
    std::vector<DxfVariable> header;
    std::vector<DxfRange> sections;
    std::vector<DxfRange> tables;
    std::vector<DxfBlock> blocks;
    std::vector<DxfSpace> spaces;
    std::vector<DxfReference> references;
    std::vector<std::string> names; ///< of blocks, as spelled in references; each spelling once

    const DxfRange* section(std::string_view name) const noexcept;
    const DxfRange* table(std::string_view name) const noexcept;
    const DxfVariable* variable(std::string_view name) const noexcept;
    bool atLeast(DxfRelease wanted) const noexcept { return release >= static_cast<int>(wanted); }
};

/// Why bytes are not a drawing.
struct DxfFault {
    const char16_t* reason = nullptr; ///< null: there is none
    std::size_t offset = 0;           ///< of the line that it is about

    explicit operator bool() const noexcept { return reason != nullptr; }
};

/// Goes through all pairs once. After a fault the index is of no use.
DxfFault scanDrawing(std::string_view bytes, DrawingIndex& index);

/// The number of the line at an offset, the first one being 1.
std::size_t lineNumber(std::string_view bytes, std::size_t offset) noexcept;

} // namespace drafta
