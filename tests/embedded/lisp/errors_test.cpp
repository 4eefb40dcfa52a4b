#include "tests/embedded/lisp/lisp_fixture.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace drafta::lisp::test {
namespace {

class Errors : public LispTest {};

TEST_F(Errors, description_namesFileLineAndForm) {
    const Case cases[] = {
        {"\n\n(car\n 5)", "f.lsp:3: bad argument type: a list is wanted, not 5 in (CAR 5)"},
        {"(defun f (x)\n  (+ x\n     (* x \"a\")))\n(f 2)",
            "f.lsp:3: bad argument type: a number is wanted, not \"a\" in (* X \"a\")"},
        {"(defun g () 1)\n\n(g 5)", "f.lsp:3: too many arguments for G in (G 5)"},
        {"(mapcar '(lambda (x) (/ 1 x)) '(1 0))", "f.lsp:1: divide by zero in (/ 1 X)"},
        {"(defun h (x) x)\n(list (h 1)\n (nth 'a nil))",
            "f.lsp:3: bad argument type: an integer is wanted, not A in (NTH (QUOTE A) nil)"},
        {"\n(apply 'car (list 1 2))",
            "f.lsp:2: too many arguments for CAR in (APPLY (QUOTE CAR) (LIST 1 2))"},
    };
    for (const Case& example : cases)
        EXPECT_EQ(failure(example.code, "f.lsp"), example.result) << example.code;
    EXPECT_EQ(failure("(car 1)"), "line 1: bad argument type: a list is wanted, not 1 in (CAR 1)");
    EXPECT_LT(failure("(foo " + std::string(5000, '7') + ")").size(), 600u);
}

TEST_F(Errors, handler_seesTheVariablesAndAllIsPutBack) {
    EXPECT_EQ(run("(defun risky (a / *error* b)"
                  "  (defun *error* (m) (setq seen (list m a b)))"
                  "  (setq b 'set) (inner))"
                  "(defun inner (/ a) (setq a 'inner) (car 5))"
                  "(setq a 1 b 2) (risky 'given)"),
        "error: bad argument type: a list is wanted, not 5");
    EXPECT_EQ(run("(list (cadr seen) (caddr seen) a b *error*)"), "(INNER SET 1 2 nil)");
    EXPECT_EQ(run("(setq seen nil) (defun *error* (m) (setq seen m)) (exit)"), "error: quit / exit abort");
    EXPECT_EQ(run("seen"), "\"quit / exit abort\"");
    EXPECT_EQ(run("(setq seen nil) (vl-catch-all-apply 'car '(5)) seen"), "nil"); // caught: not called
    EXPECT_EQ(
        run("(defun *error* (m) (car 7)) (car 5)"), "error: bad argument type: a list is wanted, not 5");
    EXPECT_EQ(printed(), "error in *error*: line 1: bad argument type: a list is wanted, not 7 in (CAR 7)\n");
}

TEST_F(Errors, caughtErrors_areValues) {
    const Case cases[] = {
        {"(vl-catch-all-error-p (setq e (vl-catch-all-apply 'car '(5))))", "T"},
        {"(vl-catch-all-error-message e)", "\"bad argument type: a list is wanted, not 5\""},
        {"(type e)", "VL-CATCH-ALL-APPLY-ERROR"},
        {"(vl-catch-all-error-message 5)", "error: vl-catch-all-error-message takes an error"},
        {"(+ 1 (length (list 1 (vl-catch-all-apply 'car '(5)) 3)))", "4"}, // the stack is as it was
        {"(vl-catch-all-apply '(lambda (x) (vl-catch-all-apply 'car (list x)) (list x)) '(5))", "(5)"},
    };
    for (const Case& example : cases)
        EXPECT_EQ(run(example.code), example.result) << example.code;
}

class LimitedLisp : public LispTest {
protected:
    LimitedLisp() : LispTest({.bytes = std::size_t{8} << 20, .callDepth = 5000}) {}
};

TEST_F(LimitedLisp, depth_isAnErrorAndNoCrash) {
    const std::string deep(200'000, '(');
    const std::string tooDeep = "error: calls or lists are nested too deeply";
    EXPECT_EQ(run("(defun f (n) (+ 1 (f n))) (f 1)"), tooDeep);
    EXPECT_EQ(run("(defun f (n) (mapcar 'f (list n))) (f 1)"), tooDeep);
    EXPECT_EQ(run("(defun f (n) (eval '(f n))) (f 1)"), tooDeep);
    EXPECT_EQ(run("(defun f (n) (vl-sort '(1 2) 'f2)) (defun f2 (a b) (f a)) (f 1)"), tooDeep);
    EXPECT_EQ(run("(setq s \"(veval-str+ s)\") (veval-str+ s)"), tooDeep);
    EXPECT_EQ(run("(defun f (n) (if (> n 0) (1+ (f (1- n))) 0)) (f 1000)"), "1000"); // usable again
    EXPECT_EQ(run("'" + deep + std::string(200'000, ')') + " 1"), "1");
    EXPECT_EQ(run(deep), "error: a list has no end");
    std::string nested = "1";
    for (int i = 0; i < 2000; ++i)
        nested = "(+ 1 " + nested + ")";
    EXPECT_EQ(run(nested), "error: forms are nested too deeply");
    const std::string list = "(setq x nil) (repeat 100000 (setq x (list x))) (setq y nil)"
                             "(repeat 100000 (setq y (list y))) ";
    EXPECT_EQ(run(list + "(equal x y)"), tooDeep);
    EXPECT_EQ(run(list + "(vl-prin1-to-string x)"), tooDeep);
    EXPECT_EQ(run(list + "(gc) (length x)"), "1");
    EXPECT_EQ(run("(eval x)").substr(0, 6), "error:");
    lisp.resultChain(lisp.symbolValue(u"x")); // cut off where it is too deep
}

class SmallLisp : public LispTest {
protected:
    SmallLisp() : LispTest({.bytes = std::size_t{4} << 20}) {}
};

TEST_F(SmallLisp, memory_isAnErrorAndIsFreedAgain) {
    const char* const hungry[] = {
        "(setq l nil) (while T (setq l (cons l l)))",
        "(setq s \"abcd\") (while T (setq s (strcat s s)))",
        "(setq l nil) (while T (setq l (cons (strcat \"a\" \"b\") l)))",
        "(setq n 0) (while T (set (read (strcat \"s\" (itoa (setq n (1+ n))))) n))",
        "(setq l '(1)) (while T (setq l (append l l)))",
        "(setq l '(1)) (repeat 22 (setq l (list l l))) (vl-prin1-to-string l)",
        "(setq s \"((lambda () 1))\") (while T (setq l (cons (eval (read s)) (cons (lambda () 1) l))))",
    };
    const std::string release = "(setq l nil s nil i 0)"
                                "(repeat (if n n 0) (set (read (strcat \"s\" (itoa (setq i (1+ i))))) nil))"
                                "(setq n nil) (length (list 1 2 3))";
    for (const char* const code : hungry) {
        EXPECT_EQ(run(code), "error: memory is used up") << code;
        EXPECT_EQ(run(release), "3");
        lisp.collect();
        EXPECT_LT(lisp.memoryInUse(), std::size_t{1} << 20) << code;
    }
    EXPECT_EQ(run("(vl-catch-all-error-message (vl-catch-all-apply '(lambda (/ l) (while T (setq l (cons l "
                  "l))))))"),
        "\"memory is used up\"");
    EXPECT_EQ(run("(setq n 0) (repeat 100000 (setq n (length (list n n n n))))"), "4");
}

TEST_F(SmallLisp, memoryOfALongSession_doesNotGrow) {
    const std::string round = "(defun work (n / l) (repeat n (setq l (cons (strcat \"a\" (itoa n)) l)))"
                              "  (mapcar '(lambda (x) (strlen x)) (vl-sort l '<)))"
                              "(length (work 300)) (setq unused (read \"sym-"; // a new symbol every time
    std::size_t early = 0;
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(run(round + std::to_string(i) + "\"))"), "SYM-" + std::to_string(i));
        if (i == 20) {
            lisp.collect();
            early = lisp.memoryInUse();
        }
    }
    lisp.collect();
    EXPECT_LE(lisp.memoryInUse(), early + 1024);
}

TEST(Steps, limit_endsWhatCannotBeCaught) {
    RecordingServices services;
    Interpreter lisp(services, {.steps = 10'000});
    const char* const endless[] = {
        "(while T)",
        "(while T (vl-catch-all-apply 'car '(5)))",
        "(defun *error* (m) (while T)) (while T (vl-catch-all-apply '(lambda () (while T))))",
        "(setq l '(1) m '(1)) (repeat 60 (setq l (list l l) m (list m m))) (equal l m)",
        "(prin1 l)",
        "l",
    };
    for (const char* const code : endless) {
        const Result result = lisp.evaluate(ryv::decodeUtf8(code));
        if (result.ok()) {
            EXPECT_THROW(static_cast<void>(lisp.resultChain(result.value)), LispError) << code;
            EXPECT_THROW(static_cast<void>(lisp.printed(result.value)), LispError) << code;
        } else {
            EXPECT_EQ(result.error->kind, ErrorKind::steps) << code;
        }
    }
    EXPECT_TRUE(lisp.evaluate(u"(repeat 9000 1)").ok()); // each evaluation has all steps
}

TEST(Interruption, endsAnEndlessLoopFromAnotherThread) {
    RecordingServices services;
    Interpreter lisp(services);
    std::atomic<bool> running = false;
    lisp.define(u"mark", 0, 0, [&](Interpreter&, Arguments) {
        running = true;
        return Value();
    });
    std::thread other([&] {
        while (!running)
            std::this_thread::yield();
        lisp.interrupt();
    });
    const Result result = lisp.evaluate(
        u"(defun *error* (m) (setq seen m)) (while T (vl-catch-all-apply '(lambda () (mark))))");
    other.join();
    ASSERT_FALSE(result.ok());
    EXPECT_EQ(result.error->kind, ErrorKind::interrupted);
    EXPECT_EQ(utf8(lisp.printed(lisp.symbolValue(u"seen"))), "\"interrupted\"");
    lisp.interrupt();
    lisp.clearInterrupt();
    EXPECT_TRUE(lisp.evaluate(u"(repeat 10 (mapcar '1+ '(1 2)))").ok());
}

} // namespace
} // namespace drafta::lisp::test
