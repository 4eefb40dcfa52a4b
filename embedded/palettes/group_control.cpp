#include "embedded/palettes/group_control.h"

#include "base/fold.h"

#include <algorithm>

namespace drafta {

int GroupControl::findPage(ryv::CStringView caption) const noexcept {
    const auto hit = std::find_if(pages_.begin(), pages_.end(),
        [caption](const Page& page) { return ryv::equalNoCase(page.caption, caption); });
    return hit == pages_.end() ? -1 : static_cast<int>(hit - pages_.begin());
}

void GroupControl::addPage(ryv::CStringView caption, ryv::Control& content) {
    pages_.push_back({ryv::CString(caption), &content});
    selected_ = std::max(selected_, 0);
    changed.fire();
}

void GroupControl::selectPage(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= pages_.size() || index == selected_)
        return;
    selected_ = index;
    changed.fire();
}

void GroupControl::setMinimized(bool minimized) {
    if (minimized_ == minimized)
        return;
    minimized_ = minimized;
    changed.fire();
}

} // namespace drafta
