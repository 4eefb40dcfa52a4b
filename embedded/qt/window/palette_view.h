// The widgets of one palette: what stands above, and its two groups of pages.
#pragma once

#include "base/event.h"
#include "embedded/palettes/palette.h"
#include "embedded/qt/controls/control_view.h"

#include <QWidget>

class QSplitter;
class QStackedWidget;
class QTabBar;
class QToolButton;

namespace drafta {

/// A group control: captions that select pages, and a button that minimizes it to them.
class GroupView : public QWidget {
public:
    /// The group outlives the view.
    GroupView(GroupControl& group, ViewContext& context, QWidget* parent);

    bool isEmpty() const;
    /// The height of the captions, which a minimized group has.
    int captionHeight() const;

private:
    void follow();
    void addPages();

    GroupControl& group_;
    ViewContext& context_;
    QTabBar* captions_;
    QToolButton* minimize_;
    QStackedWidget* pages_;
    QWidget* bar_;
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
    GroupView* top_;
    GroupView* bottom_;
    QWidget* header_ = nullptr;
    bool following_ = false;
    std::vector<ryv::Subscription> subscriptions_;
};

} // namespace drafta
