#include "embedded/documents/command_input.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

std::vector<std::u16string> commandsOf(std::u16string_view text) {
    CommandInput input;
    input.append(text, Show::nothing);
    std::vector<std::u16string> pieces;
    while (const auto piece = input.takeCommand())
        pieces.push_back((piece->isExpression ? u"E" : u"W") + piece->text);
    return pieces;
}

TEST(CommandInputTest, takeCommand_endsWordsAtBlanksAndExpressionsAtTheirParenthesis) {
    using Pieces = std::vector<std::u16string>;
    const struct {
        const char* name;
        std::u16string_view text;
        Pieces pieces;
    } cases[] = {
        {"line ends of three kinds", u"a\rb\nc\r\nd\r", {u"Wa", u"Wb", u"Wc", u"Wd"}},
        {"empty lines and comments", u"\n\n; open x\n  qsave\n", {u"Wqsave"}},
        {"an unfinished word waits", u"qsave", {}},
        {"an expression over lines", u"(a\n (b))close ", {u"E(a\n (b))", u"Wclose"}},
        {"parentheses in strings and comments", u"(a \")\" ;)\n ;|)|; \"\\\")\")\n",
            {u"E(a \")\" ;)\n ;|)|; \"\\\")\")"}},
        {"an expression needs no line end", u"(a)(b)", {u"E(a)", u"E(b)"}},
        {"an open expression waits", u"(a (b)\n", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(commandsOf(c.text), c.pieces) << c.name;
}

TEST(CommandInputTest, takeLine_isWhatFollowsTheCommandWithoutItsQuotes) {
    const std::u16string_view inputs[] = {u"_.open \"C:\\a b.dwg\"\rqsave\r",
        u"_.open\n\"C:\\a b.dwg\"\nqsave\n", u"_.open C:\\a b.dwg  \r\nqsave\r\n"};
    for (const std::u16string_view text : inputs) {
        CommandInput input;
        input.append(text, Show::nothing);
        EXPECT_EQ(input.takeCommand()->text, u"_.open");
        EXPECT_EQ(input.takeLine()->text, u"C:\\a b.dwg");
        EXPECT_EQ(input.takeCommand()->text, u"qsave");
        EXPECT_TRUE(input.empty());
    }
}

TEST(CommandInputTest, pieces_knowTheirLineAndHowTheyAreShown) {
    CommandInput input;
    input.append(u"a\n\n(b\n)\n", Show::everything);
    input.append(u"c d\n", Show::nothing);
    EXPECT_EQ(input.takeCommand()->line, 1);
    const auto expression = input.takeCommand();
    EXPECT_EQ(expression->line, 3);
    EXPECT_EQ(expression->show, Show::everything);
    const auto last = input.takeCommand();
    EXPECT_EQ(last->line, 5);
    EXPECT_EQ(last->show, Show::nothing);
    EXPECT_FALSE(input.takeLine()->text.empty());
}

TEST(CommandInputTest, halfAWord_isCompletedByWhatIsSentNext) {
    CommandInput input;
    input.append(u"qs", Show::nothing);
    EXPECT_FALSE(input.hasCommand());
    input.append(u"ave\r", Show::nothing);
    EXPECT_EQ(input.takeCommand()->text, u"qsave");
}

} // namespace
} // namespace drafta
