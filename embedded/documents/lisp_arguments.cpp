#include "embedded/documents/lisp_arguments.h"

#include "base/text.h"

namespace drafta {

namespace {

[[noreturn]] void refuse(lisp::Interpreter& interpreter, ryv::CStringView wanted, lisp::Value value) {
    throw lisp::LispError(u"bad argument type: " + ryv::CString(wanted) + u" " + interpreter.printed(value));
}

} // namespace

ryv::CString stringArgument(lisp::Interpreter& interpreter, lisp::Value value) {
    if (!value.isString())
        refuse(interpreter, u"stringp", value);
    return ryv::CString(value.text());
}

std::int32_t integerArgument(lisp::Interpreter& interpreter, lisp::Value value) {
    if (!value.isInteger())
        refuse(interpreter, u"fixnump", value);
    return value.asInteger();
}

double numberArgument(lisp::Interpreter& interpreter, lisp::Value value) {
    if (!value.isNumber())
        refuse(interpreter, u"numberp", value);
    return value.asNumber();
}

std::vector<lisp::Value> listArgument(lisp::Interpreter& interpreter, lisp::Value value) {
    std::vector<lisp::Value> elements;
    for (lisp::Value rest = value; !rest.isNil(); rest = rest.cdr()) {
        if (!rest.isCons())
            refuse(interpreter, u"listp", value);
        elements.push_back(rest.car());
    }
    return elements;
}

ryv::CStringArray stringsArgument(lisp::Interpreter& interpreter, lisp::Value value) {
    ryv::CStringArray texts;
    for (const lisp::Value element : listArgument(interpreter, value))
        texts.push_back(stringArgument(interpreter, element));
    return texts;
}

lisp::Value stringList(lisp::Interpreter& interpreter, const ryv::CStringArray& texts) {
    lisp::ListBuilder list(interpreter);
    for (const ryv::CString& text : texts)
        list.add(interpreter.makeString(text));
    return list.take();
}

ryv::CString pathArgument(lisp::Interpreter& interpreter, lisp::Value value) {
    return ryv::replaceAll(stringArgument(interpreter, value), u'/', u'\\');
}

} // namespace drafta
