// Block references of a drawing and their attributes, as the package's sibling modules reach them.
#pragma once

#include "platform/host/drawings.h"

namespace ryv {

/// Walks the block references of one drawing, space by space, with at most one of them open. Names of spaces,
/// blocks and tags are compared without regard to case. Every operation is false when it cannot be done, and
/// leaves its outputs alone then. Changes are in memory until the drawing is saved, which is its owner's
/// business.
class RyvDbxBlockRef {
public:
    /// `drawing` outlives the object. Its current space and open reference are taken over as they are.
    explicit RyvDbxBlockRef(DrawingDatabase& drawing) noexcept : drawing_(drawing) {}

    /// How many layouts the drawing has, the one of model space included.
    std::size_t layoutCount() { return drawing_.layoutCount(); }

    /// Makes a space current ("*Model_Space", "*Paper_Space", "*Paper_Space0" ...); no reference is open
    /// then. False when there is no such space.
    bool setSpace(CStringView name) { return drawing_.setSpace(name); }

    /// Opens the first reference of a block in the current space, and the next one of the same block.
    bool findFirst(CStringView block) { return drawing_.firstReference(block); }
    bool findNext() { return drawing_.nextReference(); }

    /// True while a reference is open.
    bool isOpen() { return drawing_.hasOpenReference(); }

    /// Attributes of the open reference, by tag.
    bool hasAttribute(CStringView tag) { return drawing_.hasAttribute(tag); }
    bool getAttribute(CStringView tag, CString& value) { return drawing_.readAttribute(tag, value); }
    bool setAttribute(CStringView tag, CStringView value) { return drawing_.writeAttribute(tag, value); }

    /// Adds an attribute behind the one with tag `after`, `verticalOffset` drawing units above it (below when
    /// negative). With `after` empty the open reference must have no attribute; the new one is then placed at
    /// its insertion point.
    bool addAttribute(CStringView tag, CStringView value, CStringView after, double verticalOffset);

    /// Steps through the attributes of the open reference as they were when the first was asked for: tag and
    /// insertion point of each. False behind the last one.
    bool firstAttribute(CString& tag, DrawingPoint& position);
    bool nextAttribute(CString& tag, DrawingPoint& position);

    /// Inserts a block from a drawing file into the current space, and opens the reference. `rotation` is in
    /// radians, against the clock.
    bool insertBlock(
        CStringView block, CStringView file, DrawingPoint position, DrawingPoint scale, double rotation);

private:
    DrawingDatabase& drawing_;
    std::vector<DrawingAttribute> attributes_; // those that are stepped through
    std::size_t next_ = 0;
};

} // namespace ryv
