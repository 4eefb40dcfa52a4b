#include "embedded/qt/dialogs/qt_user_interface.h"

#include "base/at_end.h"
#include "base/text.h"
#include "embedded/qt/dialogs/dialog_window.h"
#include "embedded/qt/dialogs/file_chooser.h"
#include "embedded/qt/dialogs/form_window.h"
#include "embedded/qt/dialogs/kept_size.h"
#include "embedded/qt/dialogs/menu_popup.h"
#include "embedded/qt/dialogs/message_contents.h"
#include "embedded/qt/dialogs/question_window.h"
#include "embedded/qt/qt_text.h"
#include "resources/messages.h"

#include <QApplication>
#include <QCursor>
#include <QFileInfo>
#include <chrono>

namespace drafta {

namespace {

std::int64_t systemMilliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

} // namespace

QtUserInterface::QtUserInterface(
    TextUserInterface& text, ViewContext& context, QtUserInterfaceOptions options)
    : text_(text), context_(context), options_(std::move(options)),
      questions_(options_.questionStands, options_.hasQuit), progress_{[this] { return parent(); },
                                                                 options_.milliseconds ? options_.milliseconds
                                                                                       : systemMilliseconds,
                                                                 options_.hasQuit} {}

/// A question out of a question stands before that one.
QWidget* QtUserInterface::parent() const {
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    return options_.window ? options_.window() : nullptr;
}

/// By the file when it answers that question; with `cancelled` when the host is being left; else in a window,
/// for as long as the question stands.
template <class FromFile, class Cancelled, class InWindow>
auto QtUserInterface::answered(ryv::CStringView kind, ryv::CStringView name, const FromFile& fromFile,
    const Cancelled& cancelled, const InWindow& inWindow) -> decltype(fromFile()) {
    if (text_.hasAnswer(kind, name))
        return fromFile();
    if (questions_.hasQuit())
        return cancelled();
    OpenQuestions::Standing standing(questions_);
    return inWindow(standing);
}

int QtUserInterface::ask(const QuestionContent& content, OpenQuestions::Standing& standing) const {
    QuestionWindow window(content, parent());
    standing.closeWith([&window] { window.reject(); });
    return window.ask();
}

ryv::Answer QtUserInterface::messageBox(const ryv::MessageBoxRequest& request) {
    return answered(
        u"message", ryv::toText(request.message), [&] { return text_.messageBox(request); },
        [&] { return ryv::NullUserInterface().messageBox(request); },
        [&](auto& standing) { return static_cast<ryv::Answer>(ask(contentOf(request), standing)); });
}

int QtUserInterface::taskDialog(const ryv::TaskDialogRequest& request) {
    return answered(
        u"task", request.id, [&] { return text_.taskDialog(request); }, [] { return idCancel; },
        [&](auto& standing) { return ask(contentOf(request), standing); });
}

bool QtUserInterface::mayReplace(ryv::CStringView path) {
    const ryv::CString shown = context_.shownPath ? fromQt(context_.shownPath(path)) : ryv::CString(path);
    return messageBox(TextUserInterface::replaceQuestion(shown)) == ryv::Answer::yes;
}

/// The file names the place; whether something there may be replaced is a question of its own, which a window
/// asks when the file does not answer it.
std::vector<ryv::CString> QtUserInterface::filesFromAnswers(const ryv::FileRequest& request) {
    ryv::FileRequest unconfirmed = request;
    unconfirmed.confirmsReplacing = false;
    std::vector<ryv::CString> paths = text_.chooseFiles(unconfirmed);
    if (request.save && request.confirmsReplacing)
        for (const ryv::CString& path : paths)
            if (QFileInfo::exists(options_.toNative(path)) && !mayReplace(path))
                return {};
    return paths;
}

std::vector<ryv::CString> QtUserInterface::chooseFiles(const ryv::FileRequest& request) {
    return answered(
        u"file", ryv::toText(request.title), [&] { return filesFromAnswers(request); },
        [] { return std::vector<ryv::CString>(); },
        [&](auto& standing) { return filesFromWindow(request, standing); });
}

std::vector<ryv::CString> QtUserInterface::filesFromWindow(
    const ryv::FileRequest& request, OpenQuestions::Standing& standing) {
    const auto mayReplaceFile = [this](
                                    const QString& path) { return mayReplace(options_.toModulePath(path)); };
    const QString folder = request.folder.empty() ? QString() : options_.toNative(request.folder);
    FileChooser window({toQt(request.text), folder, toQt(request.name), toQt(request.extension), request.save,
                           request.many, request.choosesFolder},
        request.confirmsReplacing ? std::function<bool(const QString&)>(mayReplaceFile) : nullptr, parent());
    standing.closeWith([&window] { window.breakOff(); });
    std::vector<ryv::CString> paths;
    for (const QString& path : window.ask())
        paths.push_back(options_.toModulePath(path));
    return paths;
}

bool QtUserInterface::fillForm(ryv::FormRequest& request) {
    return answered(
        u"form", request.name, [&] { return text_.fillForm(request); }, [] { return false; },
        [&](auto& standing) {
            FormWindow window(request, parent());
            standing.closeWith([&window] { window.reject(); });
            const KeptSize kept(window, options_.sizes);
            return window.ask(request);
        });
}

int QtUserInterface::runModal(ryv::Dialog& dialog) {
    return answered(
        u"dialog", dialog.name(), [&] { return text_.runModal(dialog); }, [] { return idCancel; },
        [&](auto& standing) { return runInWindow(dialog, standing); });
}

int QtUserInterface::runInWindow(ryv::Dialog& dialog, OpenQuestions::Standing& standing) {
    const ryv::AtEnd closed([&dialog] { dialog.end(idCancel); });
    dialog.begin();
    if (dialog.isOpen() && !questions_.hasQuit()) {
        DialogWindow window(dialog, context_, options_.sizes, parent());
        standing.closeWith([&window] { window.breakOff(); });
        const ryv::AtEnd gone([&standing] { standing.closeWith(nullptr); });
        window.run();
    }
    dialog.pressCancel();
    return dialog.result();
}

QPoint QtUserInterface::placeOf(ryv::ScreenPoint place, QSize menu) const {
    if (place != ryv::ScreenPoint::atControl())
        return {place.x, place.y};
    return lastUsed_.placeFor(menu).value_or(QCursor::pos());
}

int QtUserInterface::popupMenu(const ryv::Menu& menu, ryv::ScreenPoint place) {
    return answered(
        u"menu", menu.name(), [&] { return text_.popupMenu(menu, place); }, [] { return 0; },
        [&](auto& standing) {
            QMenu popup(parent());
            fillMenu(popup, menu);
            standing.closeWith([&popup] { popup.close(); });
            return commandOf(popup.exec(placeOf(place, popup.sizeHint())));
        });
}

std::unique_ptr<ryv::Progress> QtUserInterface::beginProgress(int title, std::size_t count) {
    return std::make_unique<ProgressWindow>(progress_, ryv::CString(ryv::messageText(title)), count);
}

} // namespace drafta
