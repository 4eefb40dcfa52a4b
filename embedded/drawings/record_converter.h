// Records of one drawing as they have to look in another one, which may be of another release.
//
// From release 13 on a record says what it is part by part (subclass marks), who owns it, and has a handle;
// release 12 knows handles alone. Everything that has a meaning in its own file only goes: handles, owners,
// links to other objects, application data.
#pragma once

#include "embedded/drawings/drawing_content.h"

#include <set>

namespace drafta {

/// The pairs that are a record's own and can stand in a copy: no embedded object, application data, groups of
/// handles, nor the part that ties an attribute to a text of several lines.
std::vector<DxfPair> ownPairs(const DxfRecord& record);

/// What stands at the head of an entity beside its kind and handle.
struct RecordHead {
    std::string markPrefix; ///< what all subclass marks of the drawing begin with; empty in release 12
    std::string owner;      ///< handle; empty: owners are not written
    bool hasOwner = false;
    std::string layer = "0";
    bool onPaper = false;
    std::string layout; ///< name of the layout; empty: not written

    /// As in an entity of the drawing, all taken over. Nothing when marks are needed and no record shows
    /// them.
    static std::optional<RecordHead> of(const DrawingContent& content, const DxfRecord& entity);

    /// For a new entity of a space, on the current layer.
    static std::optional<RecordHead> forSpace(const DrawingContent& content, SpaceId space);

    /// Writes the pairs up to the layer; handle 0 is left out.
    void write(DxfWriter& writer, std::string_view kind, std::uint64_t handle) const;
    /// The same without the layer, for records that bring it along.
    void writeTop(DxfWriter& writer, std::string_view kind, std::uint64_t handle) const;
    /// Writes a subclass mark, or nothing in release 12.
    void writeMark(DxfWriter& writer, std::string_view suffix) const;
};

/// What a copied record refers to, as spelled in the target.
struct NeededNames {
    std::set<std::string> layers, lineTypes, textStyles;
    std::vector<std::string> blocks;
    bool hasAttributes = false; ///< there was an attribute definition
};

/// Why a record cannot be copied.
struct CopyFault {
    ryv::CString reason;          ///< empty: it can
    std::size_t offset = nowhere; ///< the place in the source; nowhere: it is the target's fault

    explicit operator bool() const noexcept { return !reason.empty(); }
};

/// Copies the entities of a block one after the other.
class RecordConverter {
public:
    /// `head` is that of the block's entities in the target.
    RecordConverter(const DrawingContent& source, DrawingContent& target, RecordHead head);

    /// Appends the copy of an entity. What follows a POLYLINE or an INSERT has to come right behind it.
    CopyFault convert(const DxfRecord& entity, DxfWriter& writer);

    /// Appends the copy of a layer, line type or text style to be put beside `sample`, an entry of the same
    /// table in the target.
    CopyFault convertEntry(const DxfRecord& entry, const DxfRecord& sample, DxfWriter& writer);

    const NeededNames& needed() const noexcept { return needed_; }

    /// A value of the source as bytes of the target.
    std::string text(std::string_view value) const;

private:
    struct Part;
    CopyFault check(const DxfRecord& entity) const;
    bool isKnown(std::string_view kind) const;
    bool keepsCommon(int code) const;
    bool keepsBody(const DxfRecord& entity, const DxfPair& pair, bool inLastPart) const;
    void note(std::string_view kind, const DxfPair& pair, const std::string& value);
    void writePair(DxfWriter& writer, std::string_view kind, const DxfPair& pair);
    void writeBody(const DxfRecord& entity, const std::vector<DxfPair>& pairs, DxfWriter& writer);
    std::vector<Part> partsOf(const DxfRecord& entity) const;
    std::uint64_t enter(const DxfRecord& entity, std::uint64_t handle);

    const DrawingContent& source_;
    DrawingContent& target_;
    RecordHead head_;
    NeededNames needed_;
    std::uint64_t parent_ = 0; // the handle of what VERTEX, ATTRIB and SEQEND records belong to
    int parentFlags_ = 0;      // of a POLYLINE
};

} // namespace drafta
