#include "embedded/services/text_user_interface.h"

#include "base/at_end.h"
#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/services/host_texts.h"
#include "embedded/services/text_dialog.h"
#include "embedded/services/text_progress.h"
#include "resources/messages.h"
#include "toolkit/menu.h"
#include "toolkit/plain_text.h"

#include <algorithm>
#include <array>

namespace drafta {

namespace {

using ryv::Answer;
using ryv::FormField;
using ryv::MessageButtons;

constexpr int replaceMessage = 2; // the host's own message of that number

struct Choice {
    Answer answer;
    ryv::CStringView word;
};

constexpr std::array<Choice, 5> words = {{{Answer::ok, u"ok"}, {Answer::cancel, u"cancel"},
    {Answer::yes, u"yes"}, {Answer::no, u"no"}, {Answer::retry, u"retry"}}};

std::vector<Answer> offered(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::ok:
        return {Answer::ok};
    case MessageButtons::okCancel:
        return {Answer::ok, Answer::cancel};
    case MessageButtons::yesNo:
        return {Answer::yes, Answer::no};
    case MessageButtons::yesNoCancel:
        return {Answer::yes, Answer::no, Answer::cancel};
    case MessageButtons::retryCancel:
        return {Answer::retry, Answer::cancel};
    }
    return {};
}

ryv::CStringView wordOf(Answer answer) {
    for (const Choice& choice : words)
        if (choice.answer == answer)
            return choice.word;
    return {};
}

ryv::CString joined(const std::vector<ryv::CString>& parts, ryv::CStringView between) {
    ryv::CString text;
    for (const ryv::CString& part : parts)
        text += text.empty() ? part : ryv::CString(between) + part;
    return text;
}

bool startsNoCase(ryv::CStringView text, ryv::CStringView start) {
    return !start.empty() && text.size() >= start.size() &&
           ryv::equalNoCase(text.substr(0, start.size()), start);
}

/// One of `choices` by its text, or by its number counted from 1 when no choice has that text.
const ryv::CString* chosen(const ryv::CStringArray& choices, ryv::CStringView text) {
    for (const ryv::CString& choice : choices)
        if (ryv::equalNoCase(choice, text))
            return &choice;
    const std::optional<long long> number = ryv::parseInteger(text);
    if (!number || *number < 1 || static_cast<std::size_t>(*number) > choices.size())
        return nullptr;
    return &choices[static_cast<std::size_t>(*number) - 1];
}

ryv::CString promptOf(const FormField& field) {
    ryv::CString prompt = ryv::onOneLine(field.label.empty() ? field.name : field.label);
    int number = 0;
    for (const ryv::CString& choice : field.choices)
        prompt += ryv::format(u"\n  %d %s", {++number, ryv::onOneLine(choice)});
    const std::vector<ryv::CString> proposed(field.values.begin(), field.values.end());
    if (!proposed.empty())
        prompt += ryv::format(u" <%s>", {ryv::onOneLine(joined(proposed, u" | "))});
    return prompt + u": ";
}

/// The command of a menu or of one inside it, by its number or its text; null when there is none that can be
/// chosen.
const ryv::MenuItem* findCommand(const ryv::Menu& menu, ryv::CStringView answer) {
    for (const ryv::MenuItem& item : menu.items()) {
        const ryv::MenuItem* hit = nullptr;
        if (item.submenu && item.enabled)
            hit = findCommand(*item.submenu, answer);
        else if (ryv::toText(item.id) == answer || ryv::equalNoCase(ryv::withoutMarks(item.text), answer))
            hit = &item;
        if (hit && hit->isUsable())
            return hit;
    }
    return nullptr;
}

/// Names from drawings and projects reach people through here: a terminal would act upon what is in them.
std::function<void(ryv::CStringView)> cleaned(std::function<void(ryv::CStringView)> print) {
    return [print = std::move(print)](ryv::CStringView text) { print(ryv::onLines(text)); };
}

} // namespace

TextUserInterface::TextUserInterface(TextTerminal terminal) : terminal_(std::move(terminal)) {
    terminal_.print = cleaned(std::move(terminal_.print));
    terminal_.warn = cleaned(std::move(terminal_.warn));
    terminal_.ask = [ask = std::move(terminal_.ask)](
                        ryv::CStringView prompt) { return ask(ryv::onLines(prompt)); };
}

std::optional<ryv::CString> TextUserInterface::answer(
    ryv::CStringView kind, ryv::CStringView name, ryv::CStringView prompt) {
    if (std::optional<ryv::CString> line = answers_.next(kind, name))
        return line;
    return terminal_.ask(prompt);
}

void TextUserInterface::unanswered(ryv::CStringView kind, ryv::CStringView name) {
    terminal_.warn(ryv::format(u"cancelled, nobody answered it: %s %s\n", {kind, name}));
}

void TextUserInterface::doesNotFit(
    ryv::CStringView kind, ryv::CStringView name, ryv::CStringView line, ryv::CStringView problem) {
    const ryv::CString reason = problem.empty() ? ryv::CString() : u" (" + ryv::CString(problem) + u")";
    terminal_.warn(
        ryv::format(u"cancelled, the answer does not fit: %s %s: %s%s\n", {kind, name, line, reason}));
}

/// The button that the answers file names, else the one that the person does, who is asked again after a
/// typing error. Null when nobody answers, or the file's answer does not fit, which is told.
template <class Button, class Pressed>
const Button* TextUserInterface::choose(const Question& question, const Pressed& pressed) {
    if (const std::optional<ryv::CString> line = answers_.next(question.kind, question.name)) {
        const Button* const button = pressed(*line);
        if (!button)
            doesNotFit(question.kind, question.name, *line);
        return button;
    }
    for (auto line = terminal_.ask(question.prompt); line;
         line = terminal_.ask(hostText(u"Please choose one of them: ")))
        if (const Button* const button = pressed(*line))
            return button;
    unanswered(question.kind, question.name);
    return nullptr;
}

/// Whoever breaks off is not asked on, and needs no word about it.
bool TextUserInterface::isBrokenOff() const {
    return terminal_.isInterrupted && terminal_.isInterrupted();
}

Answer TextUserInterface::messageBox(const ryv::MessageBoxRequest& request) {
    if (isBrokenOff())
        return NullUserInterface::messageBox(request);
    const ryv::CStringView between = request.caption.empty() ? u"" : u": ";
    terminal_.print(ryv::format(u"\n%s%s%s\n", {request.caption, between, request.text}));
    const std::vector<Answer> buttons = offered(request.buttons);
    if (buttons.size() == 1)
        return buttons[0];
    std::vector<ryv::CString> names;
    for (const Answer button : buttons)
        names.emplace_back(wordOf(button));
    const ryv::CString number = ryv::toText(request.message);
    const auto pressed = [&](const ryv::CString& line) -> const Answer* {
        const auto hit = std::find_if(buttons.begin(), buttons.end(),
            [&](Answer button) { return startsNoCase(wordOf(button), line); });
        return hit != buttons.end() ? &*hit : nullptr;
    };
    const Answer* const button =
        choose<Answer>({u"message", number, ryv::format(u"[%s]: ", {joined(names, u"/")})}, pressed);
    return button ? *button : NullUserInterface::messageBox(request);
}

int TextUserInterface::taskDialog(const ryv::TaskDialogRequest& request) {
    if (isBrokenOff())
        return idCancel;
    terminal_.print(ryv::format(u"\n%s\n%s\n%s\n", {request.title, request.instruction, request.content}));
    ryv::CString prompt;
    for (const ryv::TaskDialogButton& button : request.buttons)
        prompt += ryv::format(u"  %d %s\n", {button.id, button.text});
    const auto pressed = [&](const ryv::CString& line) -> const int* {
        if (line.empty() && request.defaultButton != 0)
            return &request.defaultButton;
        for (const ryv::TaskDialogButton& button : request.buttons)
            if (ryv::equalNoCase(line, button.text) || line == ryv::toText(button.id))
                return &button.id;
        return nullptr;
    };
    const int* const button =
        choose<int>({u"task", request.id, prompt + ryv::CString(hostText(u"Choose: "))}, pressed);
    return button ? *button : idCancel;
}

std::vector<ryv::CString> TextUserInterface::chooseFiles(const ryv::FileRequest& request) {
    const ryv::CString number = ryv::toText(request.title);
    const std::optional<ryv::CString> line = answer(u"file", number,
        request.text + (request.choosesFolder ? ryv::CString() : u" (" + request.extension + u")") + u": ");
    if (!line)
        unanswered(u"file", number);
    std::vector<ryv::CString> paths;
    if (!line || line->empty() || ryv::equalNoCase(*line, u"cancel"))
        return paths;
    for (const ryv::CString& part : ryv::split(*line, u'|'))
        paths.push_back(terminal_.toModulePath(ryv::trim(part)));
    if (!request.many)
        paths.resize(1);
    for (ryv::CString& path : paths)
        if (!acceptFile(request, path))
            return {};
    return paths;
}

bool TextUserInterface::acceptFile(const ryv::FileRequest& request, ryv::CString& path) {
    if (!request.save) {
        const bool isThere = terminal_.exists(path);
        const ryv::CStringView kind = request.choosesFolder ? u"folder" : u"file";
        if (!isThere)
            terminal_.warn(
                ryv::format(u"cancelled, there is no such %s: %s\n", {kind, terminal_.shownPath(path)}));
        return isThere;
    }
    const std::size_t length = request.extension.size();
    if (path.size() < length ||
        !ryv::equalNoCase(ryv::CStringView(path).substr(path.size() - length), request.extension))
        path += request.extension;
    if (!request.confirmsReplacing || !terminal_.exists(path))
        return true;
    return messageBox(replaceQuestion(terminal_.shownPath(path))) == Answer::yes;
}

ryv::MessageBoxRequest TextUserInterface::replaceQuestion(ryv::CStringView path) {
    ryv::MessageBoxRequest question;
    question.message = replaceMessage;
    question.text = ryv::format(hostText(u"%s exists already. Replace it?"), {path});
    question.icon = ryv::MessageIcon::warning;
    question.buttons = MessageButtons::yesNo;
    return question;
}

bool TextUserInterface::fillForm(ryv::FormRequest& request) {
    terminal_.print(ryv::format(u"\n%s\n", {request.title}));
    if (const std::optional<ryv::CString> line = answers_.next(u"form", request.name))
        return answerForm(request, *line);
    return askForm(request);
}

bool TextUserInterface::answerForm(ryv::FormRequest& request, ryv::CStringView line) {
    if (ryv::equalNoCase(line, u"cancel"))
        return false;
    const std::optional<FormAnswer> answer = parseFormAnswer(line);
    ryv::FormRequest filled = request;
    bool good = answer.has_value();
    if (good)
        for (const auto& [name, values] : *answer)
            good = accept(filled, name, values) && good;
    if (good)
        request = std::move(filled);
    else
        doesNotFit(u"form", request.name, line);
    return good;
}

bool TextUserInterface::accept(
    ryv::FormRequest& request, ryv::CStringView name, const ryv::CStringArray& values) {
    for (FormField& field : request.fields)
        if (ryv::equalNoCase(field.name, name))
            return accept(field, values);
    return false;
}

bool TextUserInterface::accept(FormField& field, const ryv::CStringArray& values) {
    ryv::CStringArray taken;
    for (const ryv::CString& value : values) {
        const bool free = field.kind == FormField::Kind::text || field.kind == FormField::Kind::check;
        const ryv::CString* const known = free ? &value : chosen(field.choices, value);
        if (!known && !(field.kind == FormField::Kind::list && value.empty()))
            return false;
        if (known)
            taken.push_back(*known);
    }
    const bool single = field.kind != FormField::Kind::list;
    if (single && taken.size() != 1)
        return false;
    if (field.kind == FormField::Kind::check && taken[0] != u"0" && taken[0] != u"1")
        return false;
    field.values = std::move(taken);
    return true;
}

bool TextUserInterface::askForm(ryv::FormRequest& request) {
    ryv::FormRequest filled = request;
    for (std::size_t i = 0; i < filled.fields.size();) {
        FormField& field = filled.fields[i];
        const std::optional<ryv::CString> line = terminal_.ask(promptOf(field));
        if (!line) {
            unanswered(u"form", request.name);
            return false;
        }
        const ryv::CStringArray values =
            field.kind == FormField::Kind::list ? ryv::split(*line, u'|') : ryv::CStringArray{*line};
        if (line->empty() || accept(field, values))
            ++i;
        else
            terminal_.print(hostText(u"\nThat is none of the choices.\n"));
    }
    if (!filled.confirm.empty() && !isConfirmed(filled))
        return false;
    request = std::move(filled);
    return true;
}

int TextUserInterface::runModal(ryv::Dialog& dialog) {
    ++openDialogs_;
    const ryv::AtEnd closed([&] {
        --openDialogs_;
        dialog.end(idCancel);
    });
    dialog.begin();
    if (dialog.isOpen())
        answerDialog(dialog);
    dialog.pressCancel();
    return dialog.result();
}

void TextUserInterface::answerDialog(ryv::Dialog& dialog) {
    TextDialog text(terminal_, dialog);
    text.show();
    if (const std::optional<ryv::CString> line = answers_.next(u"dialog", dialog.name())) {
        const ryv::CString problem = text.answer(*line);
        if (!problem.empty())
            doesNotFit(u"dialog", dialog.name(), *line, problem);
    } else if (!text.ask()) {
        unanswered(u"dialog", dialog.name());
    }
}

int TextUserInterface::popupMenu(const ryv::Menu& menu, ryv::ScreenPoint) {
    terminal_.print(u"\n" + ryv::TextRenderer().menu(menu));
    std::optional<ryv::CString> line = answers_.next(u"menu", menu.name());
    const bool fromFile = line.has_value();
    if (!fromFile)
        line = terminal_.ask(hostText(u"Choose: "));
    while (line && !line->empty() && !ryv::equalNoCase(*line, u"cancel")) {
        if (const ryv::MenuItem* const item = findCommand(menu, *line))
            return item->id;
        if (fromFile) {
            doesNotFit(u"menu", menu.name(), *line);
            return 0;
        }
        line = terminal_.ask(hostText(u"Please choose one of them: "));
    }
    if (!line)
        unanswered(u"menu", menu.name());
    return 0;
}

std::unique_ptr<ryv::Progress> TextUserInterface::beginProgress(int title, std::size_t count) {
    return std::make_unique<TextProgress>(terminal_, ryv::CString(ryv::messageText(title)), count);
}

/// A form whose buttons say what they do is more than its fields: it asks whether to go on.
bool TextUserInterface::isConfirmed(const ryv::FormRequest& request) {
    const std::optional<ryv::CString> line =
        terminal_.ask(ryv::format(u"1 %s, 2 %s <1>: ", {request.confirm, request.cancel}));
    if (!line)
        unanswered(u"form", request.name);
    return line && (line->empty() || *line == u"1");
}

} // namespace drafta
