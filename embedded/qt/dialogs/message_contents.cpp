#include "embedded/qt/dialogs/message_contents.h"

#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/qt_text.h"

#include <QGuiApplication>

namespace drafta {

namespace {

using ryv::Answer;
using Role = QDialogButtonBox::ButtonRole;

constexpr int firstLink = 1000;
constexpr int idYes = 6;
constexpr int idNo = 7;

QuestionButton buttonOf(Answer answer) {
    const int id = static_cast<int>(answer);
    switch (answer) {
    case Answer::ok:
        return {id, QObject::tr("OK"), Role::AcceptRole};
    case Answer::yes:
        return {id, QObject::tr("&Yes"), Role::YesRole};
    case Answer::no:
        return {id, QObject::tr("&No"), Role::NoRole};
    case Answer::retry:
        return {id, QObject::tr("&Retry"), Role::AcceptRole};
    case Answer::cancel:
        break;
    }
    return {id, QObject::tr("Cancel"), Role::RejectRole};
}

std::vector<Answer> offered(ryv::MessageButtons buttons) {
    switch (buttons) {
    case ryv::MessageButtons::ok:
        break;
    case ryv::MessageButtons::okCancel:
        return {Answer::ok, Answer::cancel};
    case ryv::MessageButtons::yesNo:
        return {Answer::yes, Answer::no};
    case ryv::MessageButtons::yesNoCancel:
        return {Answer::yes, Answer::no, Answer::cancel};
    case ryv::MessageButtons::retryCancel:
        return {Answer::retry, Answer::cancel};
    }
    return {Answer::ok};
}

Role roleOf(int id) {
    switch (id) {
    case ryv::UserInterface::idOk:
        return Role::AcceptRole;
    case ryv::UserInterface::idCancel:
        return Role::RejectRole;
    case idYes:
        return Role::YesRole;
    case idNo:
        return Role::NoRole;
    default:
        return Role::ActionRole;
    }
}

QString titleOf(const ryv::CString& given) {
    return given.empty() ? QGuiApplication::applicationDisplayName() : toQt(given);
}

} // namespace

QuestionContent contentOf(const ryv::MessageBoxRequest& request) {
    QuestionContent content;
    content.title = titleOf(request.caption);
    content.icon = request.icon;
    content.text = toQt(request.text);
    for (const Answer answer : offered(request.buttons))
        content.buttons.push_back(buttonOf(answer));
    content.defaultButton = content.buttons.front().id;
    content.closed = static_cast<int>(ryv::NullUserInterface().messageBox(request));
    return content;
}

QuestionContent contentOf(const ryv::TaskDialogRequest& request) {
    QuestionContent content;
    content.title = titleOf(request.title);
    content.instruction = toQt(request.instruction);
    content.text = toQt(request.content);
    for (const ryv::TaskDialogButton& button : request.buttons)
        content.buttons.push_back(
            {button.id, asWidgetLabel(button.text), roleOf(button.id), button.id >= firstLink});
    content.defaultButton = request.defaultButton;
    content.closed = ryv::UserInterface::idCancel;
    return content;
}

} // namespace drafta
