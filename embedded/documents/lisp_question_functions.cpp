#include "base/fold.h"
#include "embedded/documents/lisp_arguments.h"
#include "embedded/documents/lisp_functions.h"

#include <array>

namespace drafta {

namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;
using ryv::Answer;
using ryv::FormField;

template <class Meaning>
struct Word {
    ryv::CStringView word;
    Meaning meaning;
};

constexpr std::array<Word<FormField::Kind>, 4> fieldKinds = {
    {{u"text", FormField::Kind::text}, {u"choice", FormField::Kind::choice}, {u"list", FormField::Kind::list},
        {u"check", FormField::Kind::check}}};
constexpr std::array<Word<ryv::MessageButtons>, 3> buttonSets = {{{u"ok", ryv::MessageButtons::ok},
    {u"okcancel", ryv::MessageButtons::okCancel}, {u"yesno", ryv::MessageButtons::yesNo}}};
constexpr std::array<Word<Answer>, 5> answerWords = {{{u"ok", Answer::ok}, {u"cancel", Answer::cancel},
    {u"yes", Answer::yes}, {u"no", Answer::no}, {u"retry", Answer::retry}}};

template <class Meaning, std::size_t size>
Meaning meaningOf(const std::array<Word<Meaning>, size>& words, ryv::CStringView text) {
    for (const auto& word : words)
        if (ryv::equalNoCase(word.word, text))
            return word.meaning;
    throw lisp::LispError(u"unknown word: " + ryv::CString(text));
}

/// (kind name label value choices), of which the last two may be left out.
FormField fieldArgument(Interpreter& lisp, Value value) {
    const std::vector<Value> parts = listArgument(lisp, value);
    if (parts.size() < 3 || parts.size() > 5)
        throw lisp::LispError(u"bad field of a form: " + lisp.printed(value));
    FormField field;
    field.kind = meaningOf(fieldKinds, stringArgument(lisp, parts[0]));
    field.name = stringArgument(lisp, parts[1]);
    field.label = stringArgument(lisp, parts[2]);
    if (parts.size() > 3 && parts[3].isString())
        field.values = {stringArgument(lisp, parts[3])};
    else if (parts.size() > 3)
        field.values = stringsArgument(lisp, parts[3]);
    if (parts.size() > 4)
        field.choices = stringsArgument(lisp, parts[4]);
    return field;
}

Value answerOf(Interpreter& lisp, const FormField& field) {
    if (field.kind == FormField::Kind::list)
        return stringList(lisp, field.values);
    return lisp.makeString(field.values.empty() ? ryv::CString() : field.values[0]);
}

Value form(Interpreter& lisp, LispHost& host, Arguments arguments) {
    ryv::FormRequest request;
    request.name = stringArgument(lisp, arguments[0]);
    request.title = stringArgument(lisp, arguments[1]);
    for (const Value field : listArgument(lisp, arguments[2]))
        request.fields.push_back(fieldArgument(lisp, field));
    if (!host.platform.ui->fillForm(request))
        return {};
    lisp::ListBuilder answers(lisp);
    for (const FormField& field : request.fields) {
        const lisp::Root answer(lisp, answerOf(lisp, field));
        const Value name = lisp.makeString(field.name);
        answers.add(lisp.cons(name, answer));
    }
    return answers.take();
}

Value messageBox(Interpreter& lisp, LispHost& host, Arguments arguments) {
    ryv::MessageBoxRequest request;
    request.message = integerArgument(lisp, arguments[0]);
    request.text = stringArgument(lisp, arguments[1]);
    request.caption = stringArgument(lisp, arguments[2]);
    request.buttons = meaningOf(buttonSets, stringArgument(lisp, arguments[3]));
    if (request.buttons != ryv::MessageButtons::ok)
        request.icon = ryv::MessageIcon::question;
    const Answer answer = host.platform.ui->messageBox(request);
    for (const auto& word : answerWords)
        if (word.meaning == answer)
            return lisp.makeString(word.word);
    return {};
}

Value chooseFile(Interpreter& lisp, LispHost& host, Arguments arguments) {
    ryv::FileRequest request;
    request.title = integerArgument(lisp, arguments[0]);
    request.text = stringArgument(lisp, arguments[1]);
    request.folder = pathArgument(lisp, arguments[2]);
    request.extension = stringArgument(lisp, arguments[3]);
    request.save = !arguments[4].isNil();
    request.confirmsReplacing = !(arguments[4].isString() && ryv::equalNoCase(arguments[4].text(), u"new"));
    const std::vector<ryv::CString> chosen = host.platform.ui->chooseFiles(request);
    return chosen.empty() ? Value() : lisp.makeString(chosen[0]);
}

} // namespace

void defineQuestionFunctions(Interpreter& interpreter, LispHost& host) {
    interpreter.define(
        u"form", 3, 3, [&host](Interpreter& lisp, Arguments given) { return form(lisp, host, given); });
    interpreter.define(u"message-box", 4, 4,
        [&host](Interpreter& lisp, Arguments given) { return messageBox(lisp, host, given); });
    interpreter.define(u"choose-file", 5, 5,
        [&host](Interpreter& lisp, Arguments given) { return chooseFile(lisp, host, given); });
    interpreter.define(u"alert", 1, 1, [&host](Interpreter& lisp, Arguments given) {
        host.platform.ui->messageBox({0, stringArgument(lisp, given[0]), {}, {}, {}});
        return Value();
    });
}

} // namespace drafta
