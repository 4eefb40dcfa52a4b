// The button or combo box that the user has used last, below which its menu opens.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <optional>

namespace drafta {

/// Watches the application's events.
class LastUsedControl final : public QObject {
public:
    LastUsedControl();

    /// Where on the screen the upper left corner of a menu of that size is to be: below the control, above it
    /// where the screen ends before the menu does. Nothing when something else was used since, or the control
    /// is no longer there.
    std::optional<QPoint> placeFor(QSize menu) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> control_;
};

} // namespace drafta
