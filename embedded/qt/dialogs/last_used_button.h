// The button that the user has pressed last, below which its menu opens.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <optional>

class QAbstractButton;

namespace drafta {

/// Watches the application's events.
class LastUsedButton final : public QObject {
public:
    LastUsedButton();

    /// The lower left corner of the button on the screen; nothing when something else was used since, or the
    /// button is no longer there.
    std::optional<QPoint> placeBelow() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QAbstractButton> button_;
};

} // namespace drafta
