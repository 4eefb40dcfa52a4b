// The host in the event loop of the window: its messages, commands and questions on the command line.
#pragma once

#include "base/event.h"
#include "embedded/documents/host.h"
#include "embedded/qt/window/busy_alarm.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

class QEventLoop;
class QSocketNotifier;

namespace drafta {

/// Everything that the person asks for runs through here, so that what it queues runs behind it and the
/// window hears when it is over. A fault in it is told and ends nothing else. Main thread only.
class HostLoop : public QObject {
    Q_OBJECT

public:
    explicit HostLoop(QObject* parent = nullptr);
    ~HostLoop() override;

    /// What the host talks through; set into its options before it is made. What is printed before somebody
    /// listens is kept.
    HostOptions connected(HostOptions options);

    /// Follows the host's messages from now on; it outlives that.
    void follow(Host& host);

    /// Runs a line as typed on the command line. While a question stands there, it is the answer.
    void enter(const QString& line);

    /// Answers the question that stands on the command line with nothing, or breaks off what runs.
    void cancel();

    /// Runs work that may call the module: when the event that asks for it is over.
    void perform(std::function<void()> work);

    /// Asks the host to leave. A question on the command line is cancelled first.
    void leave();

    /// A question begins or ends: nothing is busy, and what works counts anew from now.
    void rest();

    /// True while something runs, so that what comes in between is nested in it.
    bool isAtWork() const noexcept { return depth_ > 0; }

    /// True while a question stands on the command line.
    bool isAsking() const noexcept { return asking_ != nullptr; }

    /// What stands in front of the command line now.
    QString prompt() const;

signals:
    void printed(const QString& text);
    void problemPrinted(const QString& text);
    /// Something has run: documents, palettes, and the prompt may be different.
    void ran();
    /// The prompt is another one: a question stands, or does no longer.
    void prompted();
    /// Something is at work for more than half a second, and no longer is.
    void busy(bool isBusy);
    /// The host is being left while questions stand, which are to be cancelled.
    void leaving();
    /// The host has left; nothing may be asked of it any more.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Work;
    void breathe();
    void startAlarm();
    void beginWork();
    void endWork();
    void runPending();
    void guarded(const std::function<void()>& work);
    std::optional<std::string> readLine(std::string_view prompt);
    void tell(QString text, bool isProblem);
    void sayIfLeft();

    Host* host_ = nullptr;
    QSocketNotifier* notifier_ = nullptr;
    QEventLoop* asking_ = nullptr; // the innermost question on the command line
    QString question_;
    std::optional<QString> answer_;
    std::vector<std::pair<QString, bool>> early_; // printed before anybody listens
    std::optional<BusyAlarm> alarm_;
    QElapsedTimer workingSince_;                   // the innermost work began, or a question began or ended
    std::vector<std::function<void()>> postponed_; // asked for in the middle of LISP
    bool breathing_ = false;
    bool isBusy_ = false;
    int depth_ = 0;
    bool wantsToLeave_ = false;
    bool hasLeft_ = false;
};

} // namespace drafta
