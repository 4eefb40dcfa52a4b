// docs/lisp.md does what it says.
#include "tests/embedded/lisp/lisp_fixture.h"
#include "tests/support/text.h"

#include <algorithm>
#include <set>

namespace drafta::lisp::test {
namespace {

const char* const manual = RYV_TEST_DATA "/../../../docs/lisp.md";

/// The texts between backquotes of one line.
std::vector<std::string> codeSpans(const std::string& line) {
    std::vector<std::string> spans;
    std::size_t start = 0;
    while ((start = line.find('`', start)) != std::string::npos) {
        const std::size_t end = line.find('`', start + 1);
        if (end == std::string::npos)
            break;
        spans.push_back(line.substr(start + 1, end - start - 1));
        start = end + 1;
    }
    return spans;
}

std::vector<std::string> lines() {
    std::vector<std::string> result;
    for (const ryv::CString& line : ryv::split(ryv::decodeUtf8(ryv::test::readBytes(manual)), u'\n'))
        result.push_back(utf8(line));
    return result;
}

class Manual : public LispTest {};

TEST_F(Manual, examples_giveWhatTheySay) {
    std::size_t count = 0;
    for (const std::string& line : lines()) {
        for (const std::string& span : codeSpans(line)) {
            const std::size_t arrow = span.find(" => ");
            if (arrow == std::string::npos || span == "(form) => result")
                continue;
            ++count;
            EXPECT_EQ(run(span.substr(0, arrow)), span.substr(arrow + 4)) << span;
        }
    }
    EXPECT_GT(count, 150u);
}

/// A line about functions is "- `name` ...: description".
TEST_F(Manual, everyFunctionIsListed_andNothingElse) {
    std::set<std::string> listed;
    for (const std::string& line : lines()) {
        if (!line.starts_with("- `"))
            continue;
        for (const std::string& name : codeSpans(line.substr(0, line.find("`: ") + 1)))
            listed.insert(utf8(ryv::toUpper(ryv::decodeUtf8(name))));
    }
    std::set<std::string> defined;
    for (const ryv::CString& name : lisp.functions())
        defined.insert(utf8(name));
    EXPECT_EQ(listed, defined);
}

} // namespace
} // namespace drafta::lisp::test
