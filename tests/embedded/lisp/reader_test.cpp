#include "tests/embedded/lisp/lisp_fixture.h"

namespace drafta::lisp::test {
namespace {

class Reading : public LispTest {};

TEST_F(Reading, forms_printAsTheyWereRead) {
    const Case cases[] = {
        {"'(a . b)", "(A . B)"},
        {"'(a . (b . (c)))", "(A B C)"},
        {"'(a .5 -.5 5. +7 1.5e-3)", "(A 0.5 -0.5 5.0 7 0.0015)"},
        {"'(1+ - +a 1-2 .. a.b)", "(1+ - +A 1-2 .. A.B)"},
        {"''a", "(QUOTE A)"},
        {"'(a'b)", "(A (QUOTE B))"},
        {"'( ; comment (\n a ;| block ) \n |; b)", "(A B)"},
        {"\"\\\"\\\\\\n\\t\\r\\e\\101\\q\"", "\"\\\"\\\\\\n\\t\\r\\eAq\""},
        {"(princ \"a\\\\b\") 1", "1"},
        {"\"\\U+00e4 \\U \\777\"", "\"\xC3\xA4 U \xC7\xBF\""},
        {"'(nil NIL () t)", "(nil nil nil T)"},
        {"", "nil"},
        {"; only a comment", "nil"},
        {"'|x|", "|X|"},
        {"\xEF\xBB\xBF'a", "A"},
    };
    for (const Case& example : cases)
        EXPECT_EQ(run(example.code), example.result) << example.code;
    EXPECT_EQ(printed(), "a\\b");
}

TEST_F(Reading, faultyText_isReportedWithItsLine) {
    const Case cases[] = {
        {"(a\n(b", "f.lsp:2: a list has no end"},
        {"1\n2)", "f.lsp:2: a right parenthesis too many"},
        {"\n\"a\n\n", "f.lsp:2: a string has no end"},
        {"\n;| a\n", "f.lsp:2: a comment has no end"},
        {"'(a . )", "f.lsp:1: nothing behind a dot"},
        {"'( . a)", "f.lsp:1: a dot in a wrong place"},
        {"'(a . b c)", "f.lsp:1: more than one value behind a dot"},
        {"'(a . b . c)", "f.lsp:1: a dot in a wrong place"},
        {" . ", "f.lsp:1: a dot in a wrong place"},
        {"(a ')", "f.lsp:1: nothing is quoted"},
        {"\n'", "f.lsp:2: nothing is quoted"},
    };
    for (const Case& example : cases)
        EXPECT_EQ(failure(example.code, "f.lsp"), example.result) << example.code;
}

TEST_F(Reading, printing_goesWhereItIsSent) {
    run("(princ \"a\\n\") (prin1 \"b\") (print '(\"c\")) (terpri) (prompt \"d\") (write-line \"e\") "
        "(write-char 102)");
    EXPECT_EQ(printed(), "a\n\"b\"\n(\"c\") \nde\nf");
    EXPECT_EQ(run("(princ)"), "");
    EXPECT_EQ(printed(), "");
}

TEST_F(Reading, files_areWrittenReadAndClosed) {
    const Case cases[] = {
        {"(setq f (open \"/d/t.txt\" \"w\")) (princ '(\"x\" 1) f) (write-line \"\" f) (prin1 \"\xC3\xA4\" f) "
         "(close f)",
            "nil"},
        {"(setq f (open \"/d/t.txt\" \"a\")) (write-char 55357 f) (write-char 56832 f) (close f)", "nil"},
        {"(setq f (open \"/D/T.TXT\" \"r\")) (list (read-char f) (read-line f) (read-line f) (read-line f) "
         "(read-char f))",
            "(40 \"x 1)\" \"\\\"\xC3\xA4\\\"\xF0\x9F\x98\x80\" nil nil)"},
        {"(write-line \"x\" f)", "error: cannot write to #<file \\D\\T.TXT>"},
        {"(close f) (read-line f)", "error: the file is closed"},
        {"(open \"/d/none.txt\" \"r\")", "nil"},
        {"(open \"/d/t.txt\" \"x\")", "error: open knows the modes \"r\", \"w\" and \"a\""},
        {"(open \"/d\" \"w\")", "nil"},
        {"(progn (setq f (open \"/d/lost.txt\" \"w\")) (princ \"kept\" f) (setq f nil) (gc))", "nil"},
    };
    services.memory.put(u"\\old.txt", "gr\xFC\xDF");
    for (const Case& example : cases)
        EXPECT_EQ(run(example.code), example.result) << example.code;
    EXPECT_EQ(services.memory.get(u"\\d\\t.txt"), "(x 1)\n\"\xC3\xA4\"\xF0\x9F\x98\x80");
    EXPECT_EQ(services.memory.get(u"\\d\\lost.txt"), "kept"); // by the collection
    EXPECT_EQ(services.memory.openHandles(), 0u);
    // What is added to a file takes on its encoding.
    EXPECT_EQ(run("(setq f (open \"\\\\old.txt\" \"a\")) (princ \"\xC3\xA4\" f) (close f)"), "nil");
    EXPECT_EQ(services.memory.get(u"\\old.txt"), "gr\xFC\xDF\xE4");
}

TEST_F(Reading, load_findsDecodesAndNamesTheFile) {
    services.memory.put(u"\\lisp\\a.lsp", "(setq word \"gr\xFC\xDF\")\n(defun bad (x)\n  (car x))\n'done");
    services.memory.put(u"\\lisp\\b.lsp", "(setq b 1)\n(setq b 2) (oops)");
    EXPECT_EQ(run("(load \"a\")"), "DONE");
    EXPECT_EQ(run("(load \"A.LSP\") word"), "\"gr\xC3\xBC\xC3\x9F\"");
    EXPECT_EQ(failure("(bad 5)"), "\\lisp\\A.LSP:3: bad argument type: a list is wanted, not 5 in (CAR X)");
    EXPECT_EQ(run("(load \"b\" 'instead)"), "INSTEAD");
    EXPECT_EQ(run("b"), "2");
    EXPECT_EQ(run("(load \"none\")"), "error: no such file: none");
    const Result direct = lisp.load(u"b");
    ASSERT_FALSE(direct.ok());
    EXPECT_EQ(utf8(describe(*direct.error)), "\\lisp\\b.lsp:2: no function definition: OOPS in (OOPS)");
}

} // namespace
} // namespace drafta::lisp::test
