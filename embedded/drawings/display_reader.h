// Reads the entities of a drawing into blocks of shapes.
#pragma once

#include "embedded/drawings/display_polyline.h"
#include "embedded/drawings/display_tables.h"
#include "embedded/drawings/display_text.h"

#include <optional>

namespace drafta {

class DisplayReader {
public:
    /// Texts, and what was not understood, go to the list. All have to outlive this object.
    DisplayReader(
        const DrawingContent& content, DisplayTables& tables, const DisplayLimits& limits, DisplayList& list)
        : content_(content), tables_(tables), limits_(limits), list_(list), fillSteps_(limits.steps) {}

    /// What lies in model space.
    DisplayBlock modelSpace();

    /// What a block definition holds.
    DisplayBlock definition(const DxfBlock& range);

private:
    struct Kind;
    static const Kind* kindOf(std::string_view name);

    void readRecords(std::size_t begin, std::size_t end);
    bool hasRoom();
    void take(const DxfRecord& record);
    void takePart(const DxfRecord& record, std::string_view kind);
    bool isHidden(const DxfRecord& record) const;
    void finishPolyline();
    std::size_t room() const { return limits_.shapes - std::min(shapes_ + block_.size(), limits_.shapes); }

    void line(const DxfRecord& record);
    void point(const DxfRecord& record);
    void arc(const DxfRecord& record);
    void circle(const DxfRecord& record);
    void ellipse(const DxfRecord& record);
    void area(const DxfRecord& record);
    void face(const DxfRecord& record);
    void hatch(const DxfRecord& record);
    void spline(const DxfRecord& record);
    void lightweight(const DxfRecord& record);
    void polyline(const DxfRecord& record);
    void text(const DxfRecord& record);
    void paragraphs(const DxfRecord& record);
    void attributeDefinition(const DxfRecord& record);
    void reference(const DxfRecord& record);
    void dimension(const DxfRecord& record);
    void nothing(const DxfRecord&) {}

    void addArc(const DxfRecord& record, double start, double sweep);
    void addWriting(std::optional<DisplayWriting> writing, const DisplayStyle& style);

    const DrawingContent& content_;
    DisplayTables& tables_;
    const DisplayLimits& limits_;
    DisplayList& list_;
    DisplayBlock block_;
    DisplayStyle style_;     // of the record that is being read
    std::size_t shapes_ = 0; // of the blocks that are finished
    std::size_t textUnits_ = 0;
    std::size_t fillSteps_; // that hatches may still take
    bool isModelSpace_ = false;
    bool isHeadHidden_ = false; // the entity whose parts follow is not shown
    bool hasAttributes_ = false;
    DisplayStyle headStyle_;
    std::optional<Polyline> polyline_; // that vertices are being added to
    PolylineVertex widths_;
};

} // namespace drafta
