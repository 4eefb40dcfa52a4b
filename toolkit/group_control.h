// A stack of pages under captions, of which one is shown; it can be minimized to the captions.
#pragma once

#include "toolkit/control.h"

namespace ryv {

/// Pages are counted from 0 in the order of adding; -1 stands for no page.
class GroupControl : public Control {
public:
    struct Page {
        CString caption;
        Control* content = nullptr;
    };

    explicit GroupControl(int id) noexcept : Control(ControlKind::group, id) {}

    /// `content` is not owned and outlives the group. The first page is selected. A group that would be a
    /// page of its own is a fault of the program and throws std::invalid_argument.
    void addPage(CString caption, Control& content);
    const CArray<Page>& pages() const noexcept { return pages_; }

    int selectedPage() const noexcept { return selected_; }
    /// Selecting a page that is not there changes nothing.
    void selectPage(int index);

    /// Of a minimized group only the captions are shown.
    bool isMinimized() const noexcept { return minimized_; }
    void setMinimized(bool minimized) { set(minimized_, minimized); }

    /// The user has clicked a caption, which also ends being minimized. False as for other gestures: the
    /// group cannot be used, or there is no such page.
    bool click(int index);

private:
    bool hasPage(int index) const noexcept {
        return index >= 0 && static_cast<std::size_t>(index) < pages_.size();
    }

    CArray<Page> pages_;
    int selected_ = -1;
    bool minimized_ = false;
};

} // namespace ryv
