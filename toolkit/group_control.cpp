#include "toolkit/group_control.h"

namespace ryv {

void GroupControl::addPage(CString caption, Control& content) {
    if (&content == this)
        throw std::invalid_argument("a group as a page of its own");
    pages_.push_back({std::move(caption), &content});
    if (selected_ < 0)
        selected_ = 0;
    notify();
}

void GroupControl::selectPage(int index) {
    if (hasPage(index))
        set(selected_, index);
}

bool GroupControl::click(int index) {
    if (!isUsable() || !hasPage(index))
        return false;
    setMinimized(false);
    edit(selected_, index);
    return true;
}

} // namespace ryv
