// A group control of a palette.
#pragma once

#include "base/event.h"
#include "platform/host/palettes.h"

#include <vector>

namespace drafta {

class GroupControl final : public ryv::HostGroupControl {
public:
    struct Page {
        ryv::CString caption;
        ryv::Control* content;
    };
    const std::vector<Page>& pages() const noexcept { return pages_; }

    /// What a view shows is different: pages, which one is selected, whether it is minimized.
    ryv::Event<> changed;

    /// The page with a caption, without regard to case; -1 when there is none.
    int findPage(ryv::CStringView caption) const noexcept;

    /// The first page that is added is the one shown until another is selected.
    void addPage(ryv::CStringView caption, ryv::Control& content) override;
    int selectedPage() override { return selected_; }
    void selectPage(int index) override;
    bool isMinimized() override { return minimized_; }
    void setMinimized(bool minimized) override;
    int style() override { return style_; }
    void setStyle(int style) override { style_ = style; }

private:
    std::vector<Page> pages_;
    int selected_ = -1;
    bool minimized_ = false;
    int style_ = 0;
};

} // namespace drafta
