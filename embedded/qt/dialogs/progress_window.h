// Progress on the screen.
#pragma once

#include "embedded/qt/dialogs/open_questions.h"
#include "platform/ui/user_interface.h"
#include "toolkit/progress_model.h"

#include <QPointer>
#include <memory>

class QDialog;
class QLabel;
class QProgressBar;
class QString;
class QVBoxLayout;
class QWidget;

namespace drafta {

/// What a progress display needs; outlives it.
struct ProgressSite {
    std::function<QWidget*()> parent;           ///< of the window
    std::function<std::int64_t()> milliseconds; ///< a clock that only goes forward
    std::function<bool()> hasQuit;              ///< the user is leaving, and what runs is to end
};

/// Its window appears when the work takes longer than half a second. Each step lets the window answer when
/// it has not for a while; the host's own messages wait, since what works does not expect them.
class ProgressWindow final : public ryv::Progress {
public:
    ProgressWindow(const ProgressSite& site, ryv::CString title, std::size_t count);
    ~ProgressWindow() override;

    bool step(std::size_t done, ryv::CStringView item) override;

private:
    void open();
    void addTexts(QVBoxLayout& rows);
    QString placeAt(std::size_t done) const;
    void show();
    void letAnswer();

    const ProgressSite& site_;
    ryv::ProgressModel model_;
    std::int64_t begun_;
    std::int64_t answered_;
    QPointer<QDialog> window_;
    QLabel* item_ = nullptr;
    QLabel* place_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

/// Whether an event's receiver is part of the progress window that stands in front of all others, or is its
/// window on the screen.
bool belongsToProgress(const QObject* receiver);

} // namespace drafta
