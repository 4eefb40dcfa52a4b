#include "tests/embedded/lisp/lisp_fixture.h"

namespace drafta::lisp::test {
namespace {

using ryv::HostResultBuffer;
using ryv::LispStatus;
using ryv::ResultType;

/// A chain in short: "( 1 2L 1.5 'text' nil T . )".
std::string shown(const HostResultBuffer& chain) {
    std::string out;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        const HostResultBuffer::Node& node = chain.at(i);
        out += i > 0 ? " " : "";
        if (const auto* const text = std::get_if<ryv::CString>(&node.value))
            out += "'" + utf8(*text) + "'";
        else if (const auto* const number = std::get_if<std::int16_t>(&node.value))
            out += std::to_string(*number);
        else if (const auto* const longNumber = std::get_if<std::int32_t>(&node.value))
            out += std::to_string(*longNumber) + "L";
        else if (const auto* const real = std::get_if<double>(&node.value))
            out += std::to_string(*real);
        else if (node.type == ResultType::nestedList)
            out += "nested";
        else
            out += node.type == ResultType::listBegin ? "("
                   : node.type == ResultType::listEnd ? ")"
                   : node.type == ResultType::dot     ? "."
                   : node.type == ResultType::truth   ? "T"
                                                      : "nil";
    }
    return out;
}

class Host : public LispTest {
protected:
    std::string chainOf(const char* code) {
        return shown(lisp.resultChain(lisp.evaluate(ryv::decodeUtf8(code)).value));
    }
    std::string listOf(const HostResultBuffer& chain) {
        const std::optional<Value> list = lisp.listFromChain(chain);
        return list ? utf8(lisp.printed(*list)) : "malformed";
    }
    static HostResultBuffer call(ryv::CStringView name) { return HostResultBuffer().addString(name); }
};

TEST_F(Host, values_becomeChains) {
    const Case cases[] = {
        {"5", "5"},
        {"-32768", "-32768"},
        {"32768", "32768L"},
        {"1.5", "1.500000"},
        {"\"a\"", "'a'"},
        {"nil", "nil"},
        {"T", "T"},
        {"'abc", "'ABC'"},
        {"'(1 (2 \"a\") nil ((T)))", "1 ( 2 'a' ) nil ( ( T ) )"},
        {"'(1 . 2)", "1 . 2"},
        {"'((1 2 . 3))", "( 1 2 . 3 )"},
        {"(list car (lambda () 1))", "nil nil"},
        {"(vl-catch-all-apply '/ '(1 0))", "'divide by zero'"},
    };
    for (const Case& example : cases)
        EXPECT_EQ(chainOf(example.code), example.result) << example.code;
}

TEST_F(Host, chains_becomeLists) {
    EXPECT_EQ(listOf({}), "nil");
    EXPECT_EQ(listOf(HostResultBuffer().addInteger(1).addLongInteger(70000).addReal(0.5).addTruth().addNil()),
        "(1 70000 0.5 T nil)");
    EXPECT_EQ(
        listOf(HostResultBuffer().addListBegin().addListBegin().addListEnd().addString(u"a").addListEnd()),
        "((nil \"a\"))");
    EXPECT_EQ(listOf(HostResultBuffer().addListBegin().addInteger(1).addDot().addInteger(2).addListEnd()),
        "((1 . 2))");
    EXPECT_EQ(
        listOf(HostResultBuffer().addInteger(1).addNestedList(HostResultBuffer().addInteger(2).addNil())),
        "(1 (2 nil))");
    const HostResultBuffer malformed[] = {
        HostResultBuffer().addListBegin(),
        HostResultBuffer().addListEnd(),
        HostResultBuffer().addDot().addInteger(1),
        HostResultBuffer().addInteger(1).addDot(),
        HostResultBuffer().addInteger(1).addDot().addInteger(2).addInteger(3),
        HostResultBuffer().addInteger(1).addDot().addDot().addInteger(2),
        HostResultBuffer().addNestedList(HostResultBuffer().addListBegin()),
    };
    for (const HostResultBuffer& chain : malformed)
        EXPECT_EQ(listOf(chain), "malformed") << shown(chain);
    HostResultBuffer marks;
    HostResultBuffer nested;
    for (int i = 0; i < 1100; ++i) {
        marks.addListBegin();
        nested = HostResultBuffer().addNestedList(std::move(nested));
    }
    for (int i = 0; i < 1100; ++i)
        marks.addListEnd();
    EXPECT_EQ(listOf(marks), "malformed");
    EXPECT_EQ(listOf(nested), "malformed");
}

TEST_F(Host, invoke_callsWhatIsExposed) {
    HostResultBuffer result = HostResultBuffer().addInteger(7);
    EXPECT_EQ(run("(defun pair (a b) (list b a))"), "PAIR");
    const HostResultBuffer pair = call(u"Pair").addInteger(1).addListBegin().addString(u"x").addListEnd();
    Error error;
    EXPECT_EQ(lisp.invoke(pair, result, &error), LispStatus::failure);
    EXPECT_EQ(utf8(error.message), "no invocable function: Pair");
    EXPECT_EQ(run("(expose-function 'none)"), "error: no function definition: NONE");
    EXPECT_EQ(run("(expose-function 'pair)"), "T");
    EXPECT_EQ(lisp.invoke(HostResultBuffer(pair).addNil(), result, &error), LispStatus::failure);
    EXPECT_EQ(utf8(error.message), "too many arguments for PAIR");
    EXPECT_EQ(lisp.invoke({}, result), LispStatus::failure);
    EXPECT_EQ(shown(result), "7"); // failures leave it alone
    EXPECT_EQ(lisp.invoke(pair, result), LispStatus::success);
    EXPECT_EQ(shown(result), "( 'x' ) 1");
    EXPECT_EQ(lisp.invoke(call(u"pair").addInteger(1), result), LispStatus::success);
    EXPECT_EQ(shown(result), "nil 1") << "arguments left out at the end are nil";
    EXPECT_EQ(run("(defun pair (a b) 'newer)"), "PAIR");
    EXPECT_EQ(lisp.invoke(pair, result), LispStatus::success);
    EXPECT_EQ(shown(result), "'NEWER'");
    EXPECT_EQ(
        lisp.invoke(call(u"veval-str+").addString(u"(setq q '(1 2)) (cdr q)"), result), LispStatus::success);
    EXPECT_EQ(shown(result), "2");
    EXPECT_EQ(run("(setq pair nil)"), "nil");
    EXPECT_EQ(lisp.invoke(pair, result), LispStatus::failure);
}

TEST_F(Host, externals_areFunctionsForBothSides) {
    std::string asked;
    lisp.defineExternal(u"Ext-Fun", 7);
    EXPECT_EQ(run("(ext-fun 1)"), "nil");
    lisp.setExternalHandler([&](int code, const HostResultBuffer& arguments) -> ExternalResult {
        asked = std::to_string(code) + ": " + shown(arguments);
        if (arguments.size() == 0)
            throw LispError(u"nothing given");
        if (arguments.at(0).type == ResultType::truth)
            return {HostResultBuffer().addListEnd(), false};
        return {HostResultBuffer().addString(u"only"), arguments.at(0).type == ResultType::listBegin};
    });
    EXPECT_EQ(run("(ext-fun 1 \"a\" 70000)"), "\"only\"");
    EXPECT_EQ(asked, "7: 1 'a' 70000L");
    EXPECT_EQ(run("(ext-fun '(1 2) nil)"), "(\"only\")");
    EXPECT_EQ(asked, "7: ( 1 2 ) nil");
    EXPECT_EQ(failure("(ext-fun)"), "line 1: nothing given in (EXT-FUN)");
    EXPECT_EQ(run("(ext-fun T)"), "error: an external function gave a malformed result");
    HostResultBuffer result;
    EXPECT_EQ(lisp.invoke(call(u"ext-fun").addInteger(3), result), LispStatus::success);
    EXPECT_EQ(shown(result), "'only'");
}

TEST_F(Host, symbols_areSetAndRead) {
    EXPECT_EQ(lisp.setSymbol(u"Sym", HostResultBuffer().addString(u"a")), LispStatus::success);
    EXPECT_EQ(run("sym"), "\"a\"");
    lisp.setSymbol(u"sym", HostResultBuffer().addListBegin().addInteger(1).addInteger(2).addListEnd());
    EXPECT_EQ(run("sym"), "(1 2)");
    EXPECT_EQ(shown(lisp.readSymbol(u"SYM")), "1 2");
    lisp.setSymbol(u"sym", {});
    EXPECT_EQ(shown(lisp.readSymbol(u"sym")), "nil");
    EXPECT_EQ(lisp.setSymbol(u"sym", HostResultBuffer().addListEnd()), LispStatus::failure);
    for (const char16_t* const name : {u"nil", u"t", u"If"})
        EXPECT_EQ(lisp.setSymbol(name, HostResultBuffer().addInteger(1)), LispStatus::failure);
    EXPECT_TRUE(lisp.setSymbolValue(u"other", Value::integer(3)));
    EXPECT_EQ(run("other"), "3");
}

TEST_F(Host, commands_areFunctionsWithThePrefix) {
    run("(defun c:zoom () 1) (defun C:Alpha () 1) (setq c:value 5) (defun c: () 1) (defun cc:x () 1)");
    EXPECT_EQ(lisp.commands(), (ryv::CStringArray{u"ALPHA", u"ZOOM"}));
    EXPECT_TRUE(lisp.isFunction(u"c:ZOOM"));
    EXPECT_FALSE(lisp.isFunction(u"c:value"));
}

TEST_F(Host, natives_callBackHoldValuesAndFail) {
    lisp.define(u"twice", 1, 2, [](Interpreter& inner, Arguments arguments) {
        Root first(inner, inner.makeString(u"held"));
        ListBuilder list(inner);
        for (int i = 0; i < 2; ++i)
            list.add(inner.call(arguments[0], arguments.subspan(1)));
        list.add(first);
        return list.take(Value::integer(9));
    });
    lisp.define(
        u"standard", 0, 0, [](Interpreter&, Arguments) -> Value { throw std::runtime_error("of C++"); });
    lisp.define(u"nested", 1, 1, [](Interpreter& inner, Arguments arguments) {
        const Result result = inner.evaluate(arguments[0].text());
        return inner.list({result.value, inner.boolean(result.ok()), inner.makeNumber(5'000'000'000)});
    });
    EXPECT_EQ(run("(twice (lambda (x) (list x (gc))) \"a\")"), "((\"a\" nil) (\"a\" nil) \"held\" . 9)");
    EXPECT_EQ(run("(twice 'car 5)"), "error: bad argument type: a list is wanted, not 5");
    EXPECT_EQ(run("(twice)"), "error: too few arguments for TWICE");
    EXPECT_EQ(failure("(standard)"), "line 1: of C++ in (STANDARD)");
    EXPECT_EQ(run("(list 1 (nested \"(car 5)\") (nested \"(list 1 2)\"))"),
        "(1 (nil nil 5.0e+09) ((1 2) T 5.0e+09))");
    EXPECT_EQ(run("(setq car 5) (nested \"(defun twice (x) x)\") (twice 3)"), "3");
}

TEST_F(Host, opaqueValues_areComparedByTypeAndNumber) {
    lisp.define(u"entity", 1, 2, [](Interpreter& inner, Arguments arguments) {
        const auto id = static_cast<std::uint64_t>(arguments[0].asInteger());
        return inner.makeOpaque(arguments.size() == 2 ? u"Set" : u"EName", id);
    });
    EXPECT_EQ(run("(entity 255)"), "<ENAME: ff>");
    EXPECT_EQ(
        run("(list (eq (entity 1) (entity 1)) (eq (entity 1) (entity 2)) (equal (entity 1) (entity 1 T)))"),
        "(T nil nil)");
    EXPECT_EQ(run("(type (entity 1))"), "ENAME");
    EXPECT_EQ(run("(cdr (assoc (entity 2) (list (cons (entity 1) 'a) (cons (entity 2) 'b))))"), "B");
    EXPECT_EQ(lisp.evaluate(u"(entity 77)").value.opaqueId(), 77u);
}

} // namespace
} // namespace drafta::lisp::test
