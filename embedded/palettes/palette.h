// A palette: what stands above, and two group controls that share the height below it.
#pragma once

#include "embedded/palettes/group_control.h"

namespace drafta {

class Palette final : public ryv::HostPalette {
public:
    /// The main window outlives the palette.
    Palette(ryv::HostMainWindow& mainWindow, ryv::CStringView name)
        : mainWindow_(mainWindow), name_(name), theme_(mainWindow.theme()) {}

    /// What a view shows is different: the header, how the height is shared out.
    ryv::Event<> changed;

    /// What stands above the groups; null when nothing does.
    ryv::Control* header() const noexcept { return header_; }
    /// The looks that the palette has taken on.
    ryv::HostTheme theme() const noexcept { return theme_; }

    ryv::CString name() override { return name_; }
    void setHeader(ryv::Control& content) override;
    GroupControl& top() override { return top_; }
    GroupControl& bottom() override { return bottom_; }
    double topToWholeRatio() override { return ratio_; }
    /// A number that is none changes nothing.
    void setTopToWholeRatio(double ratio) override;
    void applyTheme() override { theme_ = mainWindow_.theme(); }

private:
    ryv::HostMainWindow& mainWindow_;
    ryv::CString name_;
    ryv::Control* header_ = nullptr;
    GroupControl top_;
    GroupControl bottom_;
    double ratio_ = 0.5;
    ryv::HostTheme theme_;
};

} // namespace drafta
