#include "embedded/drawings/drawing_view.h"
#include "base/fold.h"
#include "embedded/drawings/block_inserter.h"
#include "embedded/drawings/drawing_file.h"

#include <unordered_set>

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

/// A space is there when it has a block, or no space has one: then the drawing is of a form without blocks
/// for spaces, and has model and paper space.
bool isThere(const DrawingIndex& index, SpaceId space) {
    const bool isEarly = !index.atLeast(DxfRelease::r13);
    return space == modelSpace || isEarly || index.spaces[space].block != nowhere ||
           index.spaces[modelSpace].block == nowhere;
}

} // namespace

DrawingView::DrawingView(std::shared_ptr<Drawing> drawing) : drawing_(std::move(drawing)) {}

CString DrawingView::fileName() {
    return drawing_->path();
}

std::size_t DrawingView::layoutCount() {
    if (drawing_->isClosed())
        return 0;
    const DrawingIndex& index = drawing_->content().index();
    std::size_t count = 0;
    for (SpaceId space = 0; space < index.spaces.size(); ++space)
        count += isThere(index, space) ? 1U : 0U;
    return count;
}

bool DrawingView::setSpace(CStringView name) {
    if (drawing_->isClosed())
        return false;
    const DrawingContent& content = drawing_->content();
    const DrawingIndex& index = content.index();
    for (SpaceId space = 0; space < index.spaces.size(); ++space)
        if (content.sameName(index.spaces[space].name, name) && isThere(index, space)) {
            space_ = space;
            open_.reset();
            wanted_.clear();
            isWanted_.clear();
            position_ = 0;
            return true;
        }
    return false;
}

bool DrawingView::firstReference(CStringView block) {
    wanted_ = block;
    isWanted_.clear();
    return openFrom(0);
}

bool DrawingView::nextReference() {
    return openFrom(position_);
}

bool DrawingView::openFrom(std::size_t position) {
    open_.reset();
    if (drawing_->isClosed() || wanted_.empty())
        return false;
    const DrawingContent& content = drawing_->content();
    const DrawingIndex& index = content.index();
    while (isWanted_.size() < index.names.size())
        isWanted_.push_back(content.sameName(index.names[isWanted_.size()], wanted_) ? 1 : 0);
    const std::vector<ReferenceId>& references = index.spaces[space_].references;
    for (position_ = position; position_ < references.size();) {
        const ReferenceId reference = references[position_++];
        if (isWanted_[index.references[reference].name]) {
            open_ = reference;
            return true;
        }
    }
    return false;
}

bool DrawingView::hasOpenReference() {
    return open_.has_value() && !drawing_->isClosed();
}

void DrawingView::closeReference() {
    open_.reset();
}

ryv::CStringArray DrawingView::referredBlocks() {
    ryv::CStringArray names;
    if (drawing_->isClosed())
        return names;
    const DrawingContent& content = drawing_->content();
    const DrawingIndex& index = content.index();
    std::vector<char> isSeen(index.names.size());
    std::unordered_set<CString> folded;
    for (const ReferenceId reference : index.spaces[space_].references) {
        const std::size_t name = index.references[reference].name;
        if (isSeen[name])
            continue;
        isSeen[name] = 1;
        CString text = content.text().decode(trimmed(index.names[name]));
        if (folded.insert(ryv::toUpper(text)).second)
            names.push_back(std::move(text));
    }
    return names;
}

AttributeRun& DrawingView::run() {
    if (!run_ || run_->reference() != *open_ || !run_->isCurrent())
        run_.emplace(drawing_->content(), *open_);
    return *run_;
}

std::vector<ryv::DrawingAttribute> DrawingView::attributes() {
    if (!hasOpenReference())
        return {};
    return listAttributes(drawing_->content(), *open_);
}

bool DrawingView::hasAttribute(CStringView tag) {
    return hasOpenReference() && run().has(tag);
}

bool DrawingView::readAttribute(CStringView tag, CString& value) {
    return hasOpenReference() && run().read(tag, value);
}

bool DrawingView::writeAttribute(CStringView tag, CStringView value) {
    return hasOpenReference() && run().write(tag, value);
}

bool DrawingView::addAttribute(
    CStringView after, CStringView tag, CStringView value, ryv::DrawingPoint displacement) {
    return hasOpenReference() && run().add(after, tag, value, displacement);
}

ryv::DrawingResult DrawingView::insertBlock(const ryv::BlockInsertion& insertion) {
    if (drawing_->isClosed())
        return drawingFailure(drawing_->path(), 0, u"the drawing has been closed");
    ReferenceId reference = 0;
    const ryv::DrawingResult result = drafta::insertBlock(
        drawing_->files(), drawing_->content(), drawing_->path(), space_, insertion, reference);
    if (result.ok())
        open_ = reference;
    return result;
}

ryv::DrawingResult DrawingView::save() {
    if (drawing_->isClosed())
        return drawingFailure(drawing_->path(), 0, u"the drawing has been closed");
    const Drawing::SaveHook hook = drawing_->saveHook(); // the hook may take itself off
    return hook ? hook() : drawing_->save();
}

} // namespace drafta
