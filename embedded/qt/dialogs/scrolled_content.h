// What may be higher than the screen, in a frame that scrolls it then.
#pragma once

#include <QScrollArea>

namespace drafta {

/// Asks for the room that its content needs, but for no more than a part of the screen; nobody sees it as
/// long as that is enough. Widgets in it that get the keyboard scroll into view.
class ScrolledContent final : public QScrollArea {
public:
    /// Takes the content. `partOfScreen` is of the screen's height, from 0 to 1.
    ScrolledContent(QWidget* content, double partOfScreen, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize withinScreen(QSize wanted) const;

    double part_;
};

} // namespace drafta
