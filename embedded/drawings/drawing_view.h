// A view of a drawing: where in it somebody is at work.
#pragma once

#include "embedded/drawings/attribute_run.h"
#include "embedded/drawings/drawing.h"

namespace drafta {

/// The operations of DrawingDatabase on a drawing that is shared with other views. Starts in model space with
/// no reference open. Once the drawing is closed there is no space and no reference any more: all questions
/// are answered as for an empty drawing, changes and save() fail.
class DrawingView final : public ryv::DrawingDatabase {
public:
    explicit DrawingView(std::shared_ptr<Drawing> drawing);

    const std::shared_ptr<Drawing>& drawing() const noexcept { return drawing_; }

    ryv::CString fileName() override;
    std::size_t layoutCount() override;
    bool setSpace(ryv::CStringView name) override;
    bool firstReference(ryv::CStringView block) override;
    bool nextReference() override;
    bool hasOpenReference() override;
    void closeReference() override;
    ryv::CStringArray referredBlocks() override;
    std::vector<ryv::DrawingAttribute> attributes() override;
    bool hasAttribute(ryv::CStringView tag) override;
    bool readAttribute(ryv::CStringView tag, ryv::CString& value) override;
    bool writeAttribute(ryv::CStringView tag, ryv::CStringView value) override;
    bool addAttribute(ryv::CStringView after, ryv::CStringView tag, ryv::CStringView value,
        ryv::DrawingPoint displacement) override;
    ryv::DrawingResult insertBlock(const ryv::BlockInsertion& insertion) override;
    /// Calls the drawing's save hook when it has one, and its save() otherwise.
    ryv::DrawingResult save() override;

private:
    bool openFrom(std::size_t position);
    AttributeRun& run();

    std::shared_ptr<Drawing> drawing_;
    SpaceId space_ = modelSpace;
    ryv::CString wanted_;        // the block that firstReference() was last asked for
    std::vector<char> isWanted_; // by DrawingIndex::names: each spelling is decoded once
    std::size_t position_ = 0;   // behind the last reference found, in the order of the space
    std::optional<ReferenceId> open_;
    std::optional<AttributeRun> run_; // of the open reference, made when it is asked for
};

} // namespace drafta
