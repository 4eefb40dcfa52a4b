#include "base/fold.h"
#include "base/text.h"
#include "embedded/documents/lisp_arguments.h"
#include "embedded/documents/lisp_functions.h"

namespace drafta {

namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;
using ryv::DocumentId;

/// The document that an optional argument names; the current one without it.
DocumentId documentArgument(Interpreter& lisp, LispHost& host, Arguments arguments) {
    if (arguments.empty() || arguments[0].isNil())
        return host.documents.currentDocument();
    return DocumentId(integerArgument(lisp, arguments[0]));
}

Value idValue(DocumentId id) {
    return id == DocumentId::none ? Value() : Value::integer(static_cast<std::int32_t>(id));
}

Value told(Interpreter& lisp, const LispHost& host, const ryv::DrawingResult& result) {
    if (!result.ok())
        printProblem(lisp, host, result.problem);
    return lisp.boolean(result.ok());
}

void defineLists(Interpreter& interpreter, LispHost& host) {
    interpreter.define(u"doc-list", 0, 0, [&host](Interpreter& lisp, Arguments) {
        lisp::ListBuilder list(lisp);
        for (const DocumentId id : host.documents.documents()) {
            const Value name = lisp.makeString(host.documents.fileName(id));
            list.add(lisp.list({idValue(id), name, lisp.boolean(host.documents.isNamed(id))}));
        }
        return list.take();
    });
    interpreter.define(u"doc-current", 0, 0,
        [&host](Interpreter&, Arguments) { return idValue(host.documents.currentDocument()); });
    interpreter.define(u"doc-name", 0, 1, [&host](Interpreter& lisp, Arguments arguments) {
        const ryv::CString name = host.documents.fileName(documentArgument(lisp, host, arguments));
        return name.empty() ? Value() : lisp.makeString(name);
    });
    interpreter.define(u"doc-quiescent", 0, 1, [&host](Interpreter& lisp, Arguments arguments) {
        return lisp.boolean(host.documents.isQuiescent(documentArgument(lisp, host, arguments)));
    });
}

void defineLife(Interpreter& interpreter, LispHost& host) {
    interpreter.define(u"doc-open", 1, 1, [&host](Interpreter& lisp, Arguments arguments) {
        ryv::DrawingResult result;
        const DocumentId id = host.documents.open(pathArgument(lisp, arguments[0]), result);
        told(lisp, host, result);
        return idValue(id);
    });
    interpreter.define(u"doc-activate", 1, 1, [&host](Interpreter& lisp, Arguments arguments) {
        return lisp.boolean(host.documents.activate(documentArgument(lisp, host, arguments)));
    });
    interpreter.define(u"doc-close", 0, 1, [&host](Interpreter& lisp, Arguments arguments) {
        return lisp.boolean(host.documents.close(documentArgument(lisp, host, arguments)));
    });
    interpreter.define(u"doc-save", 0, 1, [&host](Interpreter& lisp, Arguments arguments) {
        return told(lisp, host, host.documents.save(documentArgument(lisp, host, arguments)));
    });
    interpreter.define(u"doc-save-as", 1, 1, [&host](Interpreter& lisp, Arguments arguments) {
        const ryv::CString path = pathArgument(lisp, arguments[0]);
        return told(lisp, host, host.documents.saveAs(host.documents.currentDocument(), path));
    });
}

void defineCommands(Interpreter& interpreter, LispHost& host) {
    interpreter.define(
        u"command", 1, Interpreter::anyNumber, [&host](Interpreter& lisp, Arguments arguments) {
            ryv::CStringArray words;
            for (const Value word : arguments)
                words.push_back(word.isString() ? stringArgument(lisp, word) : lisp.printed(word));
            return lisp.boolean(host.commandLine.runCommand(words));
        });
    interpreter.define(u"send-string", 1, 1, [&host](Interpreter& lisp, Arguments arguments) {
        const ryv::CString text = stringArgument(lisp, arguments[0]);
        host.documents.sendStringToExecute(host.documents.currentDocument(), text, {});
        return Value();
    });
}

/// Values cross from one document's LISP to another's as a chain, so only strings, numbers and lists of them
/// can be kept.
void defineBlackboard(Interpreter& interpreter, LispHost& host) {
    interpreter.define(u"bb-set", 2, 2, [&host](Interpreter& lisp, Arguments arguments) {
        const ryv::CString name = ryv::toUpper(stringArgument(lisp, arguments[0]));
        host.blackboard[name] = lisp.resultChain(lisp.list({arguments[1]}));
        return arguments[1];
    });
    interpreter.define(u"bb-get", 1, 1, [&host](Interpreter& lisp, Arguments arguments) {
        const auto hit = host.blackboard.find(ryv::toUpper(stringArgument(lisp, arguments[0])));
        if (hit == host.blackboard.end())
            return Value();
        return lisp.listFromChain(hit->second).value_or(Value()).car();
    });
}

Value variableValue(Interpreter& lisp, const ryv::SystemVariable& variable) {
    if (const auto* const number = std::get_if<std::int32_t>(&variable))
        return Value::integer(*number);
    if (const auto* const real = std::get_if<double>(&variable))
        return Value::real(*real);
    return lisp.makeString(std::get<ryv::CString>(variable));
}

void defineVariables(Interpreter& interpreter, LispHost& host) {
    interpreter.define(u"getvar", 1, 1, [&host](Interpreter& lisp, Arguments arguments) {
        ryv::SystemVariable variable;
        if (!host.editor.systemVariable(stringArgument(lisp, arguments[0]), variable))
            return Value();
        return variableValue(lisp, variable);
    });
    interpreter.define(u"setvar", 2, 2, [&host](Interpreter& lisp, Arguments arguments) {
        ryv::SystemVariable variable;
        if (arguments[1].isInteger())
            variable = arguments[1].asInteger();
        else if (arguments[1].isNumber())
            variable = arguments[1].asReal();
        else
            variable = stringArgument(lisp, arguments[1]);
        const ryv::CString name = stringArgument(lisp, arguments[0]);
        if (!host.editor.setSystemVariable(name, variable))
            throw lisp::LispError(u"system variable cannot be set: " + name);
        return arguments[1];
    });
}

} // namespace

void printProblem(Interpreter& interpreter, const LispHost& host, const ryv::CString& problem) {
    interpreter.print(u"\n" + host.shown(problem) + u"\n");
}

void defineDocumentFunctions(Interpreter& interpreter, LispHost& host) {
    defineLists(interpreter, host);
    defineLife(interpreter, host);
    defineCommands(interpreter, host);
    defineBlackboard(interpreter, host);
    defineVariables(interpreter, host);
}

} // namespace drafta
