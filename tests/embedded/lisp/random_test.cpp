// Random values and programs, held against simple models.
#include "tests/embedded/lisp/lisp_fixture.h"
#include "tests/support/random.h"

#include <algorithm>
#include <functional>

namespace drafta::lisp::test {
namespace {

class RandomLisp : public LispTest {
protected:
    /// A value as text, of what prints as it is read.
    std::string value(int depth) {
        const std::size_t kinds = depth > 0 ? 8 : 5;
        switch (random.below(kinds)) {
        case 0:
            return std::to_string(static_cast<int>(random.below(100'000)) - 50'000);
        case 1:
            return "nil";
        case 2:
            return "T";
        case 3:
            return "\"" + std::string(random.below(3), 'x') + "\\n\\\"\xC3\xA4\"";
        case 4:
            return random.oneIn(2) ? "0.5" : "-12.25";
        default:
            return list(depth);
        }
    }
    std::string list(int depth) {
        std::string text = "(";
        const std::size_t count = 1 + random.below(4);
        for (std::size_t i = 0; i < count; ++i)
            text += (i > 0 ? " " : "") + value(depth - 1);
        return text + (random.oneIn(5) ? " . " + std::to_string(random.below(9)) + ")" : ")");
    }
    std::vector<int> numbers() {
        std::vector<int> result(random.below(40));
        for (int& number : result)
            number = static_cast<int>(random.below(20));
        return result;
    }
    static std::string printedList(const std::vector<int>& items) {
        std::string text;
        for (const int item : items)
            text += (text.empty() ? "(" : " ") + std::to_string(item);
        return text.empty() ? "nil" : text + ")";
    }

    ryv::test::Random random{20};
};

TEST_F(RandomLisp, values_surviveTextAndChains) {
    for (int round = 0; round < 400; ++round) {
        const std::string text = list(4);
        const Result read = lisp.evaluate(ryv::decodeUtf8("(setq v '" + text + ")"));
        ASSERT_TRUE(read.ok()) << text;
        ASSERT_EQ(utf8(lisp.printed(read.value)), text);
        const std::optional<Value> back = lisp.listFromChain(lisp.resultChain(read.value));
        ASSERT_TRUE(back.has_value()) << text;
        ASSERT_EQ(utf8(lisp.printed(*back)), text);
        ASSERT_TRUE(lisp.setSymbolValue(u"w", *back));
        ASSERT_EQ(run("(list (equal v w) (eq v w) (equal v (cons 'more w)))"), "(T nil nil)") << text;
    }
}

TEST_F(RandomLisp, listFunctions_doAsVectorsDo) {
    for (int round = 0; round < 150; ++round) {
        std::vector<int> items = numbers();
        const std::string list = "'" + printedList(items);
        const int some = static_cast<int>(random.below(20));
        const std::string one = std::to_string(some);
        std::vector<int> sorted = items;
        std::stable_sort(sorted.begin(), sorted.end());
        EXPECT_EQ(run("(vl-sort " + list + " '<)"), printedList(sorted));
        EXPECT_EQ(run("(mapcar '(lambda (i) (nth i " + list + ")) (vl-sort-i " + list + " '<))"),
            printedList(sorted));
        std::vector<int> without = items;
        std::erase(without, some);
        EXPECT_EQ(run("(vl-remove " + one + " " + list + ")"), printedList(without));
        EXPECT_EQ(run("(vl-remove-if '(lambda (x) (= x " + one + ")) " + list + ")"), printedList(without));
        const auto found = std::find(items.begin(), items.end(), some);
        EXPECT_EQ(run("(member " + one + " " + list + ")"), printedList({found, items.end()}));
        EXPECT_EQ(
            run("(length (append " + list + " (reverse " + list + ")))"), std::to_string(2 * items.size()));
        std::reverse(items.begin(), items.end());
        EXPECT_EQ(run("(reverse " + list + ")"), printedList(items));
    }
}

TEST_F(RandomLisp, arithmetic_agreesInPlaceAndByCall) {
    const std::vector<std::string> numbers{
        "0", "1", "-1", "7", "-8", "2147483647", "-2147483648", "65536", "0.5", "-3.0"};
    const std::vector<std::string> functions{
        "+", "-", "*", "/", "rem", "<", ">", "<=", ">=", "=", "/=", "min", "max"};
    for (const std::string& function : functions)
        for (const std::string& a : numbers)
            for (const std::string& b : numbers)
                EXPECT_EQ(run("(" + function + " " + a + " " + b + ")"),
                    run("(apply '" + function + " (list " + a + " " + b + "))"))
                    << function << " " << a << " " << b;
}

/// The definition of a pattern of letters, "?" and "*", with all its ways tried.
bool matches(std::string_view text, std::string_view pattern) {
    if (pattern.empty())
        return text.empty();
    if (pattern[0] == '*')
        return matches(text, pattern.substr(1)) || (!text.empty() && matches(text.substr(1), pattern));
    return !text.empty() && (pattern[0] == '?' || pattern[0] == text[0]) &&
           matches(text.substr(1), pattern.substr(1));
}

TEST_F(RandomLisp, wcmatch_agreesWithItsDefinition) {
    const auto text = [&](std::string_view alphabet, std::size_t longest) {
        std::string result(random.below(longest), ' ');
        std::generate(result.begin(), result.end(), [&] { return random.pick(alphabet); });
        return result;
    };
    for (int round = 0; round < 2000; ++round) {
        const std::string subject = text("ab", 8);
        const std::string first = text("ab?*", 6);
        const std::string second = text("ab?*", 4);
        EXPECT_EQ(run("(wcmatch \"" + subject + "\" \"" + first + "," + second + "\")"),
            matches(subject, first) || matches(subject, second) ? "T" : "nil")
            << subject << " " << first << "," << second;
    }
}

} // namespace
} // namespace drafta::lisp::test
