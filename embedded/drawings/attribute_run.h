// The attributes of one block reference: they follow it, up to its SEQEND, and belong to it by that order
// alone.
#pragma once

#include "embedded/drawings/drawing_content.h"
#include "platform/host/drawings.h"

namespace drafta {

/// All attributes of a reference in their order: one pass over their bytes, cheaper than an AttributeRun.
std::vector<ryv::DrawingAttribute> listAttributes(const DrawingContent& content, ReferenceId reference);

/// The attributes of a reference as they are when this is made; good until the drawing is changed.
class AttributeRun {
public:
    AttributeRun(DrawingContent& content, ReferenceId reference);

    /// False once the drawing was changed, by this or in another way.
    bool isCurrent() const noexcept { return revision_ == content_->revision(); }
    ReferenceId reference() const noexcept { return reference_; }

    bool has(ryv::CStringView tag) const { return find(tag) != nullptr; }
    bool read(ryv::CStringView tag, ryv::CString& value) const;

    /// DrawingDatabase::writeAttribute and addAttribute say what these do. An attribute with several lines
    /// gets the value as its only line, in its plain text and in its formatted one.
    bool write(ryv::CStringView tag, ryv::CStringView value);
    bool add(
        ryv::CStringView after, ryv::CStringView tag, ryv::CStringView value, ryv::DrawingPoint displacement);

private:
    /// An ATTRIB record, and the MTEXT record behind it that holds its lines in some releases.
    struct Attribute {
        DxfRecord record;
        DxfRecord lines;

        std::size_t end() const noexcept { return lines.pairs().empty() ? record.end() : lines.end(); }
    };

    const Attribute* find(ryv::CStringView tag) const;
    bool canAdd(ryv::CStringView after, ryv::CStringView tag) const;
    bool addBehind(const Attribute& model, const std::string& tag, const std::string& value,
        ryv::DrawingPoint displacement);
    bool addFirst(const std::string& tag, const std::string& value);

    DrawingContent* content_;
    ReferenceId reference_;
    std::size_t revision_;
    DxfRecord insert_;
    std::vector<Attribute> attributes_;
    mutable std::vector<ryv::CString> upperTags_; // made at the first search
    std::size_t sequenceEnd_ = nowhere;           // of the SEQEND pair
};

} // namespace drafta
