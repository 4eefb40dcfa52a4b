// The attributes of one block reference: they follow it, up to its SEQEND, and belong to it by that order
// alone.
#pragma once

#include "embedded/drawings/drawing_content.h"
#include "platform/host/drawings.h"

namespace drafta {

/// All attributes of a reference in their order: one pass over their bytes, cheaper than an AttributeRun.
std::vector<ryv::DrawingAttribute> listAttributes(const DrawingContent& content, ReferenceId reference);

/// The attributes of a reference as they are when this is made; good until the drawing is changed in another
/// way than through this.
class AttributeRun {
public:
    AttributeRun(DrawingContent& content, ReferenceId reference);

    /// False once the drawing was changed in another way, or a first attribute was added by this.
    bool isCurrent() const noexcept { return revision_ == content_->revision(); }
    ReferenceId reference() const noexcept { return reference_; }

    bool has(ryv::CStringView tag) const { return find(tag) != nowhere; }
    bool read(ryv::CStringView tag, ryv::CString& value) const;

    /// DrawingDatabase::writeAttribute and addAttribute say what these do. An attribute with several lines
    /// gets the value as its only line, in its plain text and in its formatted one.
    bool write(ryv::CStringView tag, ryv::CStringView value);
    bool add(
        ryv::CStringView after, ryv::CStringView tag, ryv::CStringView value, ryv::DrawingPoint displacement);

private:
    /// An ATTRIB record, and the MTEXT record behind it that holds its lines in some releases. Places are
    /// distances from the begin of the reference.
    struct Attribute {
        std::size_t begin;
        std::size_t lines; // nowhere: there is none
        std::size_t end;
        ryv::CString upperTag;
    };
    /// What an attribute is added with.
    struct NewAttribute {
        ryv::CString upperTag;
        std::string tag, value;
    };

    std::size_t find(ryv::CStringView tag) const;
    DxfRecord recordAt(std::size_t distance) const;
    bool canAdd(ryv::CStringView after, ryv::CStringView tag) const;
    bool addBehind(std::size_t model, const NewAttribute& added, ryv::DrawingPoint displacement);
    bool addFirst(const NewAttribute& added);
    void applied(std::size_t first, std::size_t growth);

    DrawingContent* content_;
    ReferenceId reference_;
    std::size_t revision_;
    std::vector<Attribute> attributes_;
    std::size_t sequenceEnd_ = nowhere; // of the SEQEND pair, from the begin of the reference
};

} // namespace drafta
