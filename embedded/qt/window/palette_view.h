// The widgets of one palette: what stands above, and its two groups of pages.
#pragma once

#include "base/event.h"
#include "embedded/palettes/palette.h"
#include "embedded/qt/controls/captioned_pages.h"
#include "embedded/qt/controls/control_view.h"

#include <QWidget>

class QSplitter;

namespace drafta {

/// A group control of a palette. One page that is not minimized needs no caption.
class PaletteGroupView : public CaptionedPages {
public:
    /// The group outlives the view.
    PaletteGroupView(GroupControl& group, ViewContext& context, QWidget* parent);

private:
    void follow();
    void perform(std::function<void(GroupControl&)> gesture);

    GroupControl& group_;
    ViewContext& context_;
    ryv::Subscription subscription_;
};

class PaletteView : public QWidget {
public:
    /// The palette outlives the view.
    PaletteView(Palette& palette, ViewContext& context, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void follow();
    void share();
    void addHeader();

    Palette& palette_;
    ViewContext& context_;
    QSplitter* splitter_;
    PaletteGroupView* top_;
    PaletteGroupView* bottom_;
    QWidget* header_ = nullptr;
    bool following_ = false;
    std::vector<ryv::Subscription> subscriptions_;
};

} // namespace drafta
