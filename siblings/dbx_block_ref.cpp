#include "siblings/dbx_block_ref.h"

namespace ryv {

bool RyvDbxBlockRef::addAttribute(
    CStringView tag, CStringView value, CStringView after, double verticalOffset) {
    return drawing_.addAttribute(after, tag, value, {0, verticalOffset, 0});
}

bool RyvDbxBlockRef::firstAttribute(CString& tag, DrawingPoint& position) {
    attributes_ = drawing_.attributes();
    next_ = 0;
    return nextAttribute(tag, position);
}

bool RyvDbxBlockRef::nextAttribute(CString& tag, DrawingPoint& position) {
    if (next_ >= attributes_.size())
        return false;
    const DrawingAttribute& attribute = attributes_[next_++];
    tag = attribute.tag;
    position = attribute.position;
    return true;
}

bool RyvDbxBlockRef::insertBlock(
    CStringView block, CStringView file, DrawingPoint position, DrawingPoint scale, double rotation) {
    return drawing_.insertBlock({CString(block), CString(file), position, scale, rotation}).ok();
}

} // namespace ryv
