// The content of a drawing: its bytes, where things are in them, and edits that replace a few bytes and keep
// track of the rest.
#pragma once

#include "embedded/drawings/drawing_scan.h"
#include "embedded/drawings/drawing_text.h"
#include "embedded/drawings/dxf_record.h"
#include "embedded/drawings/dxf_writer.h"
#include "siblings/byte_buffer.h"

#include <optional>

namespace drafta {

/// A replacement of bytes. Removed bytes never hold the begin of a pair that the index knows.
struct DxfSplice {
    std::size_t offset = 0;
    std::size_t removed = 0;
    std::string text;
};

class DrawingContent {
public:
    /// Takes bytes that are a whole drawing; nothing, with `fault` set and the bytes left where they are,
    /// when they are not.
    static std::optional<DrawingContent> read(ryv::ByteBuffer& bytes, DxfFault& fault);

    std::string_view bytes() const noexcept { return edited_ ? std::string_view(*edited_) : loaded_.view(); }
    /// contentHash() of the bytes that were read. It is taken when somebody asks, or the first edit comes.
    std::uint64_t readHash() const noexcept;
    const DrawingIndex& index() const noexcept { return index_; }
    const DrawingText& text() const noexcept { return text_; }
    DxfWriter writer() const { return DxfWriter(style_); }
    DxfRecord record(std::size_t begin) const { return {bytes(), begin}; }

    /// Grows with every edit.
    std::size_t revision() const noexcept { return revision_; }

    /// The value of a header variable, without blanks around it; empty when there is none.
    std::string_view variable(std::string_view name) const noexcept;

    /// True when the name of a block (table entry, ...) in the file is `name`, without regard to case.
    bool sameName(std::string_view inFile, ryv::CStringView name) const;

    /// The place of a block definition in the index; nowhere when there is none of that name.
    std::size_t findBlock(ryv::CStringView name) const;

    /// The first record behind a TABLE record with that name; nowhere when there is none.
    std::size_t findTableEntry(std::string_view table, ryv::CStringView name) const;

    /// True when new records get handles: when the drawing's records have them, and release 12 says so too.
    bool hasHandles();

    /// Takes `count` handles that nothing has and gives the first; 0 when new records get none. Nothing when
    /// there are not so many left. The next edit writes down what was taken.
    std::optional<std::uint64_t> takeHandles(std::size_t count);

    /// Replaces bytes, in any order of the places; the texts for one place stay in the order given. Gives the
    /// place in the new bytes where each text begins, in the order given.
    std::vector<std::size_t> apply(std::vector<DxfSplice> splices);

    /// The same for places inside of a reference and at its end: its record grows by what the first
    /// `recordSplices` of them add, its attributes by the rest.
    void applyTo(ReferenceId reference, std::vector<DxfSplice> splices, std::size_t recordSplices);

    /// Tells of what an edit has brought in.
    void addBlock(std::string_view name, std::size_t begin, std::size_t content, std::size_t end);
    void addSection(std::string_view name, std::size_t begin, std::size_t end);
    void addTable(std::string_view name, std::size_t begin, std::size_t end);
    ReferenceId addReference(SpaceId space, std::string_view block, const DxfReference& where);

private:
    friend class HandleReservation;
    DrawingContent(ryv::ByteBuffer bytes, DrawingIndex index);
    void surveyHandles();
    void addSeed(std::vector<DxfSplice>& splices);
    void shift(const std::vector<const DxfSplice*>& sorted);

    ryv::ByteBuffer loaded_;
    std::uint64_t readHash_ = 0;        // once there are edits
    std::optional<std::string> edited_; // in place of loaded_ from the first edit on
    DrawingIndex index_;
    DrawingText text_;
    DxfStyle style_;
    std::size_t revision_ = 0;
    std::optional<std::uint64_t> nextHandle_; // nothing before the survey
    bool hasHandles_ = false;
};

/// Gives back the handles that are taken while it lives, unless they are kept.
class HandleReservation {
public:
    explicit HandleReservation(DrawingContent& content) : content_(content) {
        content.hasHandles(); // surveys them, so that there is a next one
        next_ = content.nextHandle_;
    }
    HandleReservation(const HandleReservation&) = delete;
    HandleReservation& operator=(const HandleReservation&) = delete;
    ~HandleReservation() {
        if (!isKept_)
            content_.nextHandle_ = next_;
    }

    void keep() noexcept { isKept_ = true; }

private:
    DrawingContent& content_;
    std::optional<std::uint64_t> next_;
    bool isKept_ = false;
};

} // namespace drafta
