#include "tests/embedded/lisp/lisp_fixture.h"

namespace drafta::lisp::test {
namespace {

class Language : public LispTest {
protected:
    void check(std::span<const Case> cases) {
        for (const Case& example : cases)
            EXPECT_EQ(run(example.code), example.result) << example.code;
    }
};

TEST_F(Language, bindings_areDynamicAndRestored) {
    const Case cases[] = {
        {"(defun inner () (setq seen x) (setq x 'changed))", "INNER"},
        {"(defun outer (x / y) (inner) (setq y 1) (list x seen))", "OUTER"},
        {"(setq x 'global)", "GLOBAL"},
        {"(outer 'bound)", "(CHANGED BOUND)"},
        {"(list x y)", "(GLOBAL nil)"},
        {"(defun twice (a / a) (list a))", "TWICE"}, // the local hides the parameter
        {"(setq a 1) (list (twice 2) a)", "((nil) 1)"},
        {"(defun count (n) (if (> n 0) (cons n (count (1- n)))))", "COUNT"},
        {"(list (count 3) n)", "((3 2 1) nil)"},
        {"(setq e 'kept) (foreach e '(1 2) (setq e (* e 10)))", "20"},
        {"e", "KEPT"},
        {"(foreach e '() 1)", "nil"},
        {"(vl-catch-all-apply 'outer '(1 2)) x", "GLOBAL"},
        {"(defun fails (x) (/ x 0)) (vl-catch-all-apply 'fails '(7)) x", "GLOBAL"},
        {"(foreach x '(1) (vl-catch-all-apply 'fails '(8))) x", "GLOBAL"},
    };
    check(cases);
}

TEST_F(Language, builtinsThatAreRedefinedOrHidden_giveWay) {
    const Case cases[] = {
        {"(defun sum (a b) (+ a b)) (sum 1 2)", "3"},
        {"(defun + (a b) (list 'mine a b)) (sum 1 2)", "(MINE 1 2)"},
        {"(defun first (l) (car l)) (defun car (l) 'other) (first '(1))", "OTHER"},
        {"(defun hides (list) (list 1))", "HIDES"},
        {"(hides 'vl-list->string)", "error: bad argument type: a list is wanted, not 1"},
        {"(hides 5)", "error: bad function: 5"}, {"(list 1)", "(1)"},
        {"(defun again () (defun again () 2) 1) (list (again) (again))", "(1 2)"},
        {"(setq T 5)", "error: cannot set T"}, {"(set 'if 5)", "error: cannot set IF"},
        {"(defun f (a / quote) a)", "error: cannot bind QUOTE"},
        {"(if nil (setq T 5) 'fine)", "FINE"}, // a faulty branch harms only those who take it
    };
    check(cases);
}

TEST_F(Language, functions_comeAsNamesObjectsAndLists) {
    const Case cases[] = {
        {"(mapcar '(lambda (x / y) (setq y (* 2 x))) '(1 2))", "(2 4)"},
        {"(mapcar '1+ '(1 2))", "(2 3)"},
        {"(mapcar 1+ '(1 2))", "(2 3)"},
        {"(mapcar 'list '(1 2 3) '(a b))", "((1 A) (2 B))"},
        {"(setq f '(lambda (n) (if (> n 0) (+ n (apply f (list (1- n)))) 0))) (apply f '(10))", "55"},
        {"(f 4)", "10"},
        {"(apply (lambda () 'none) nil)", "NONE"},
        {"(eval '(setq z (list 1 2)))", "(1 2)"},
        {"(vl-sort '(5 3 9 1) '(lambda (a b) (> a b)))", "(9 5 3 1)"},
        {"(vl-sort '(3 1 2) '(lambda (a b) T))", "(2 1 3)"}, // contradicts itself, and ends
        {"(mapcar 'if '(1))", "error: bad function: IF"},
        {"(apply 'none nil)", "error: no function definition: NONE"},
        {"(none 1)", "error: no function definition: NONE"},
        {"((lambda (x) x))", "error: too few arguments for the lambda expression"},
        {"(apply '(1 2) nil)", "error: bad function: (1 2)"},
        {"(apply '(lambda) nil)", "error: bad function: parameters are missing"},
        {"(car '(1) 2)", "error: too many arguments for CAR"},
    };
    check(cases);
}

TEST_F(Language, formsWithoutSense_raiseErrors) {
    const Case cases[] = {
        {"(if)", "error: if takes a test and one or two forms"},
        {"(quote a b)", "error: quote takes one argument"},
        {"(setq a)", "error: setq takes symbols and values in pairs"},
        {"(setq 5 6)", "error: only symbols can be set"},
        {"(cond 5)", "error: a clause of cond has to be a list"},
        {"(defun 5 ())", "error: defun takes a name"},
        {"(defun f 5)", "error: the parameters have to be a list"},
        {"(lambda (1) 2)", "error: a parameter has to be a symbol"},
        {"(while)", "error: while takes a test"},
        {"(repeat 'x 1)", "error: repeat takes an integer"},
        {"(foreach 5 '(1) 1)", "error: foreach takes a symbol and a list"},
        {"(foreach x 5 1)", "error: foreach takes a list"},
        {"(+ 1 . 2)", "error: a form has to be a list that ends in nil"},
        {"(5 6)", "error: bad function: 5"},
    };
    check(cases);
}

TEST_F(Language, arithmetic_keepsItsTypes) {
    const Case cases[] = {
        {"(- 2147483647 -1)", "2.14748e+09"},
        {"(* 65536 65536)", "4.29497e+09"},
        {"(1- -2147483648)", "-2.14748e+09"},
        {"(abs -2147483648)", "2.14748e+09"},
        {"(/ -2147483648 -1)", "2.14748e+09"},
        {"(rem -2147483648 -1)", "0"},
        {"(list 2147483648 -2147483648 1e400 -1e400 1e-400)", "(2.14748e+09 -2147483648 inf -inf 0.0)"},
        {"(/ 20 3 2)", "3"},
        {"(/ 20 3.0 2)", "3.33333"},
        {"(/ 1 0)", "error: divide by zero"},
        {"(rem 1 0.0)", "error: divide by zero"},
        {"(fix -1e20)", "-1.0e+20"},
        {"(expt 2 31)", "2.14748e+09"},
        {"(expt 2 -1)", "0.5"},
        {"(lsh 1 31)", "-2147483648"},
        {"(list (lsh 1 32) (lsh -1 -32) (lsh 1 -2147483648))", "(0 0 0)"},
        {"(sqrt -1)", "error: the root of a negative number"},
        {"(list (< 1 2 2) (<= 1 2 2) (= 1 1.0 1) (/= 1 2 1))", "(nil T T T)"},
        {"(+ 1 \"a\")", "error: bad argument type: a number is wanted, not \"a\""},
        {"(+ '(1) 1)", "error: bad argument type: a number is wanted, not (1)"},
        {"(< 'a 1)", "error: bad argument type: a number is wanted, not A"},
        {"(list (= 'a 'a) (= nil nil) (= \"a\" 5))", "(T T nil)"},
        {"(equal '(1 (2.0 \"x\")) '(1.0 (2 \"x\")))", "T"},
        {"(min)", "error: too few arguments for MIN"},
    };
    check(cases);
}

TEST_F(Language, textFunctions_stayWithinTheirText) {
    const Case cases[] = {
        {"(substr \"abc\" 9 2)", "\"\""},
        {"(substr \"abc\" 0)", "error: substr takes a position from 1 on and a length from 0 on"},
        {"(vl-string-search \"\" \"abc\" 9)", "nil"},
        {"(vl-string-elt \"abc\" 3)", "error: vl-string-elt: no such position"},
        {"(vl-string-subst \"x\" \"z\" \"abc\" 99)", "\"abc\""},
        {"(vl-string-translate \"abc\" \"x\" \"aabbcc\")", "\"xxbbcc\""},
        {"(vl-string-trim \"a\" \"aaa\")", "\"\""},
        {"(chr 0)", "error: a character code lies between 1 and 65535"},
        {"(strlen \"\xC3\xA4\xF0\x9F\x98\x80\")", "3"},
        {"(strcase \"stra\xC3\x9F\x65 \xC3\xA4\")", "\"STRA\xC3\x9F\x45 \xC3\x84\""},
        {"(rtos 1e308 2 100)", nullptr},
        {"(list (rtos -0.05 2 1) (rtos 12 2 0) (rtos 1.5))", "(\"-0.1\" \"12\" \"1.5000\")"},
        {"(rtos 1 4)", "error: rtos knows the modes 1 and 2"},
        {"(list (atof \"-.5e1x\") (atof \"e\") (atof \"1e\") (atoi \"-99999999999\"))",
            "(-5.0 0.0 1.0 -2147483648)"},
    };
    for (const Case& example : cases)
        if (example.result)
            EXPECT_EQ(run(example.code), example.result) << example.code;
        else
            EXPECT_EQ(run(example.code).size(), 309u + 1 + 100 + 2) << example.code;
}

struct Wildcard {
    const char* text;
    const char* pattern;
    bool matches;
};

TEST_F(Language, wcmatch_followsItsPatterns) {
    const Wildcard cases[] = {
        {"abc", "a*", true},
        {"abc", "*b*c", true},
        {"abc", "b*", false},
        {"", "*", true},
        {"", "?", false},
        {"a", "a,b", true},
        {"b", "a,b", true},
        {"c", "a,b", false},
        {"a,b", "a`,b", true},
        {"x", "~a*", true},
        {"abc", "~a*", false},
        {"b", "[a-c]", true},
        {"-", "[-a]", true},
        {"d", "[~a-c]", true},
        {"b", "[~a-c]", false},
        {"a[", "a[", true},
        {"*", "`*", true},
        {"a", "`*", false},
        {"7a!", "#@.", true},
        {"aa!", "#@.", false},
        {"\xC3\xA4", "@", true},
        {"aXbXc", "a*X*c", true},
        {"ab", "a*b*c", false},
        {"a,", "[,]*,a`,", true},
        {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b", false},
    };
    for (const Wildcard& example : cases) {
        const std::string code =
            std::string("(wcmatch \"") + example.text + "\" \"" + example.pattern + "\")";
        EXPECT_EQ(run(code), example.matches ? "T" : "nil") << code;
    }
}

} // namespace
} // namespace drafta::lisp::test
