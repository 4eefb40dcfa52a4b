#include "embedded/qt/window/host_loop.h"

#include "base/encoding.h"
#include "embedded/qt/dialogs/progress_window.h"
#include "embedded/qt/qt_text.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSocketNotifier>
#include <QTimer>

#include <exception>

namespace drafta {

/// Counts what runs, and tells when the outermost is over.
class HostLoop::Work {
public:
    explicit Work(HostLoop& loop) : loop_(loop) { loop_.beginWork(); }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;
    ~Work() { loop_.endWork(); }

private:
    HostLoop& loop_;
};

void HostLoop::beginWork() {
    ++depth_;
    startAlarm();
}

/// Around what ends, a question may stand.
void HostLoop::endWork() {
    --depth_;
    rest();
    emit ran();
    if (depth_ == 0)
        for (std::function<void()>& work : std::exchange(postponed_, {}))
            perform(std::move(work));
    sayIfLeft();
}

void HostLoop::rest() {
    if (depth_ > 0)
        startAlarm();
    else if (alarm_)
        alarm_->stop();
    if (std::exchange(isBusy_, false))
        emit busy(false);
}

/// From the beginning.
void HostLoop::startAlarm() {
    workingSince_.start();
    alarm_->start();
}

/// In the middle of LISP: the window draws itself and takes Escape, and nothing else happens.
void HostLoop::breathe() {
    constexpr int atMost = 20; // milliseconds
    // A request from the time of a question is first met by what runs behind it.
    if (breathing_ || asking_ || workingSince_.elapsed() < BusyAlarm::firstAfter)
        return;
    const QScopedValueRollback<bool> guard(breathing_, true);
    if (!std::exchange(isBusy_, true))
        emit busy(true);
    qApp->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers, atMost);
    qApp->removeEventFilter(this);
}

bool HostLoop::eventFilter(QObject* receiver, QEvent* event) {
    if (belongsToProgress(receiver))
        return false; // cancelling is only noted there
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            host_->interrupt();
        return true;
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    case QEvent::Close:
        event->ignore();
        return true;
    default:
        return false;
    }
}

HostLoop::HostLoop(QObject* parent) : QObject(parent) {}

HostLoop::~HostLoop() = default;

HostOptions HostLoop::connected(HostOptions options) {
    const auto text = [](std::string_view bytes) { return toQt(ryv::nameFromBytes(bytes)); };
    options.print = [this, text](std::string_view bytes) { tell(text(bytes), false); };
    options.printError = [this, text](std::string_view bytes) { tell(text(bytes), true); };
    options.breathe = [this] { breathe(); };
    options.readLine = [this](std::string_view prompt) { return readLine(prompt); };
    return options;
}

void HostLoop::tell(QString text, bool isProblem) {
    if (!host_) {
        early_.emplace_back(std::move(text), isProblem);
        return;
    }
    if (isProblem)
        emit problemPrinted(text);
    else
        emit printed(text);
}

void HostLoop::follow(Host& host) {
    host_ = &host;
    alarm_.emplace(host);
    for (auto& [text, isProblem] : std::exchange(early_, {}))
        tell(std::move(text), isProblem);
    notifier_ = new QSocketNotifier(host.pendingDescriptor(), QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] { runPending(); });
}

/// The notifier goes on in loops inside this one, so that messages are handled while a question stands.
void HostLoop::runPending() {
    if (hasLeft_)
        return;
    guarded([this] { host_->runPending(); });
}

void HostLoop::guarded(const std::function<void()>& work) {
    const Work counted(*this);
    try {
        work();
    } catch (const std::exception& fault) {
        emit problemPrinted(tr("\nInternal fault: %1\n").arg(QString::fromUtf8(fault.what())));
    }
}

void HostLoop::enter(const QString& line) {
    if (asking_) {
        answer_ = line;
        asking_->quit();
        return;
    }
    perform([this, line] { host_->runLine(fromQt(line)); });
}

void HostLoop::cancel() {
    if (asking_) {
        answer_.reset();
        asking_->quit();
    } else if (host_ && isAtWork()) {
        host_->interrupt();
    }
}

/// The widget whose event asks for the work may be gone when that is done.
void HostLoop::perform(std::function<void()> work) {
    QTimer::singleShot(0, this, [this, work = std::move(work)] {
        if (hasLeft_)
            return;
        if (breathing_)
            return postponed_.push_back(work);
        guarded([this, &work] {
            work();
            host_->runPending();
        });
    });
}

void HostLoop::leave() {
    if (asking_) {
        wantsToLeave_ = true;
        cancel();
        return;
    }
    perform([this] { host_->quit(); });
}

QString HostLoop::prompt() const {
    return asking_ ? question_ : host_ ? toQt(host_->prompt()) : QString();
}

/// Of a prompt of several lines only the last one stands in front of what is typed.
std::optional<std::string> HostLoop::readLine(std::string_view prompt) {
    if (hasLeft_ || wantsToLeave_)
        return std::nullopt;
    const QString whole = toQt(ryv::nameFromBytes(prompt));
    const qsizetype last = whole.lastIndexOf(u'\n') + 1;
    tell(whole.left(last), false);
    QEventLoop loop;
    const QScopedValueRollback<QEventLoop*> asking(asking_, &loop);
    const QScopedValueRollback<QString> question(question_, whole.mid(last));
    answer_.reset();
    rest();
    emit prompted();
    loop.exec();
    const std::optional<QString> answer = std::exchange(answer_, std::nullopt);
    QTimer::singleShot(0, this, [this] { emit prompted(); });
    return answer ? std::optional(answer->toStdString()) : std::nullopt;
}

void HostLoop::sayIfLeft() {
    if (!host_ || hasLeft_)
        return;
    if (host_->hasQuit()) {
        if (asking_)
            asking_->quit();
        if (depth_ > 0) {
            emit leaving();
            return;
        }
        hasLeft_ = true;
        notifier_->setEnabled(false);
        emit left();
    } else if (depth_ == 0 && std::exchange(wantsToLeave_, false)) {
        leave();
    }
}

} // namespace drafta
