#include "programs/drafta/window_session.h"

#include "embedded/palettes/palette_text.h"
#include "embedded/qt/dialogs/qt_user_interface.h"
#include "embedded/qt/drawing/drawing_source.h"
#include "embedded/qt/look/outlined_style.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/qt_wait_cursor.h"
#include "embedded/qt/translation.h"
#include "embedded/qt/window/command_pane.h"
#include "embedded/qt/window/help_window.h"
#include "embedded/qt/window/host_window.h"
#include "embedded/qt/window/kept_sizes.h"
#include "programs/drafta/exit_codes.h"
#include "programs/drafta/host_signals.h"
#include "programs/drafta/standard_output.h"
#include "programs/drafta/start_up.h"
#include "toolkit/control_page.h"
#include "toolkit/tree_control.h"

#include <QApplication>
#include <QTimer>

#include <limits>

namespace drafta {

namespace {

/// The library wants a command line of its own, which it may change and which lives as long as it does.
struct ApplicationArguments {
    int count = 1;
    std::string name = "drafta";
    std::vector<char*> words{name.data(), nullptr};
};

/// From the host to the window, in the order in which they need each other.
class WindowSession {
public:
    explicit WindowSession(const Options& options)
        : options_(options), application_(arguments_.count, arguments_.words.data()),
          hostOwner_(std::make_unique<Host>(loop_.connected(hostOptionsOf(options)))), host_(*hostOwner_),
          drawings_(host_.mapper()) {
        QApplication::setStyle(new OutlinedStyle);
        QApplication::setApplicationName(QStringLiteral("drafta"));
        translation_.emplace(application_);
        QApplication::setQuitOnLastWindowClosed(false); // the host decides
        context_.drawings = &drawings_;
        context_.perform = [this](std::function<void()> work) { loop_.perform(std::move(work)); };
        context_.shownPath = [this](ryv::CStringView path) { return toNative(path); };
        context_.showHelp = [this](
                                ryv::CStringView topic) { host_.platform().services.help->showTopic(topic); };
        host_.setFrontEnd({&questions_, &waitCursor_, [this] { return questions_.hasOpenDialog(); },
            [this](ryv::CStringView file) {
                HelpWindow::showPage(toNative(file), window_ ? &*window_ : nullptr);
            }});
        QObject::connect(&loop_, &HostLoop::leaving, [this] { questions_.closeAll(); });
    }

    WindowSession(const WindowSession&) = delete;
    WindowSession& operator=(const WindowSession&) = delete;
    /// What modules ask while they end is answered still.
    ~WindowSession() {
        window_.reset();
        hostOwner_.reset();
    }

    /// False, with one line in `problem`, when the host cannot begin its work.
    bool begin(std::string& problem) {
        giveFirstLayout(options_);
        if (!prepare(host_, options_, problem))
            return false;
        window_.emplace(host_, loop_, context_);
        window_->open();
        loop_.follow(host_);
        if (!loadModules(host_, options_, problem))
            return false;
        opened_ = openFirst(host_, options_);
        emit loop_.ran();
        return true;
    }

    int run() {
        const HostSignals endings(host_);
        // quit() would ask the window first, which asks the host.
        QObject::connect(
            &loop_, &HostLoop::left, &application_, [] { QApplication::exit(); }, Qt::QueuedConnection);
        if (!host_.hasQuit())
            QApplication::exec();
        end();
        return endings.ending() != 0 ? signalError + endings.ending() : done;
    }

    /// Draws the window when all that was begun is done.
    int draw(const std::string& file) {
        window_->resize(1280, 800);  // whatever screen is pretended
        constexpr int settles = 400; // milliseconds, for previews that are read in the background
        host_.projectDatabase().updates().finish(); // labels show what the drawings say
        QTimer::singleShot(settles, &application_, [] { QApplication::exit(); });
        QApplication::exec();
        const bool written = window_->picture().save(QString::fromLocal8Bit(file.c_str()), "PNG");
        end();
        return written ? done : complain(file + ": the picture cannot be written");
    }

private:
    QString toNative(ryv::CStringView path) {
        return toQt(ryv::nameFromBytes(host_.platform().os.paths->toNative(path)));
    }

    QtUserInterfaceOptions questionOptions() {
        QtUserInterfaceOptions options;
        options.window = [this] { return window_ ? &*window_ : nullptr; };
        options.toNative = [this](ryv::CStringView path) { return toNative(path); };
        options.toModulePath = [this](const QString& path) {
            return host_.platform().os.paths->fromNative(ryv::nameToBytes(fromQt(path)));
        };
        options.questionStands = [this](bool stands) {
            host_.questionStands(stands);
            loop_.rest();
            waitCursor_.questionStands(stands);
        };
        options.sizes = sizesKeptIn(*host_.platform().os.registry);
        options.hasQuit = [this] { return host_.hasQuit(); };
        return options;
    }

    /// The layouts are kept while the views are there; these go before what they show.
    void end() {
        host_.keepLayouts();
        window_->letGo();
        window_->hide();
    }

    const Options& options_;
    ApplicationArguments arguments_;
    QApplication application_;
    std::optional<Translation> translation_;
    HostLoop loop_;
    ViewContext context_;
    std::unique_ptr<Host> hostOwner_;
    Host& host_;
    FileDrawingSource drawings_;
    QtWaitCursor waitCursor_{host_.waitCursor()};
    QtUserInterface questions_{host_.userInterface(), context_, questionOptions()};
    std::optional<HostWindow> window_;
    bool opened_ = true;
};

/// Expands what the palettes show: nobody can do so later.
void expandTrees(PaletteFramework& palettes) {
    for (const PaletteSet* const set : palettes.sets())
        for (const auto& palette : set->palettes())
            for (const GroupControl::Page& page : palette->top().pages()) {
                const auto* const inside = dynamic_cast<const ryv::ControlPage*>(page.content);
                ryv::Control* const content = inside ? inside->content() : page.content;
                if (auto* const tree = dynamic_cast<ryv::TreeControl*>(content))
                    tree->expandAll(nullptr, true);
            }
}

int inWindow(const Options& options, const std::function<int(WindowSession&)>& run) {
    WindowSession session(options);
    std::string problem;
    return session.begin(problem) ? run(session) : complain(problem);
}

} // namespace

int runWindow(const Options& options) {
    return inWindow(options, [](WindowSession& session) { return session.run(); });
}

int runScreenshot(const Options& options) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return inWindow(
        options, [&options](WindowSession& session) { return session.draw(options.pictureFile); });
}

int runWithoutDisplay(const Options& options) {
    std::fputs("drafta: there is no display to open a window on; this is what it would show.\n"
               "drafta --console works without one.\n",
        stderr);
    StandardOutput screen(false, [] {});
    HostOptions hostOptions = hostOptionsOf(options);
    hostOptions.print = [&screen](std::string_view text) { screen.print(text); };
    hostOptions.printError = [](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); };
    Host host(std::move(hostOptions));
    std::string problem;
    if (!prepare(host, options, problem) || !loadModules(host, options, problem))
        return complain(problem);
    const HostSignals endings(host);
    const bool opened = openFirst(host, options);
    expandTrees(host.palettes());
    screen.print(ryv::nameToBytes(shownPalettes(host.palettes(), std::numeric_limits<std::size_t>::max())));
    return opened ? done : inputError;
}

} // namespace drafta
