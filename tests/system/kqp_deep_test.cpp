#include "tests/system/kqp_fixture.h"
#include "tests/system/python_json.h"

#include <chrono>

namespace ryv::test {
namespace {

constexpr std::size_t depth = 100000;

/// One drawing in a subfolder of this depth, and another beside it.
std::string deepProject() {
    std::string trace = "A";
    for (std::size_t i = 1; i < depth; ++i)
        trace += "/A";
    return "=====SUB=" + trace + "\nx.dwg\n=Second\n=====SUB=" + trace + "\ny.dwg\n";
}

class KqpDeepTest : public KqpTest {
protected:
    void SetUp() override { folder.write("deep.kqp", deepProject()); }

    /// Far more than a linear walk takes with sanitizers, far less than a quadratic one.
    static constexpr unsigned patience = 20;

    ProcessResult soon(const std::vector<std::string>& words) const {
        ProcessSetUp setUp;
        setUp.seconds = patience;
        ProcessResult result = kqp(words, setUp);
        EXPECT_EQ(result.signal, 0);
        return result;
    }
};

TEST_F(KqpDeepTest, show_deepTree_hasOutputThatGrowsLinearly) {
    const ProcessResult result = soon({"show", "deep.kqp"});
    expectDone(result);
    EXPECT_LT(result.out.size(), 20 * depth);
    const std::string end =
        "[100000] A\n[100001] x.dwg\n[100001] y.dwg  Second\n2 drawings in 100000 subfolders\n";
    EXPECT_TRUE(result.out.ends_with(end)) << result.out.substr(result.out.size() - 200);
    EXPECT_NE(result.out.find(std::string(std::size_t{63} * 4, ' ') + "└── A\n[65] A\n[66] A\n"),
        std::string::npos);
}

TEST_F(KqpDeepTest, json_deepTree_isValid) {
    if (!hasProgram("python3"))
        GTEST_SKIP() << "needs python3";
    const ProcessResult result = soon({"show", "--json", "deep.kqp"});
    expectDone(result);
    EXPECT_LT(result.out.size(), 250 * depth);
    // The parser of the standard library recurses, so this one counts brackets itself.
    ProcessSetUp setUp;
    setUp.input = result.out;
    const ProcessResult checked = runProcess({"python3", "-c", R"(
import re, sys
text = sys.stdin.buffer.read().decode('utf-8', 'strict')
token = re.compile(r'"(?:[^"\\\x00-\x1f]|\\(?:["\\/bfnrt]|u[0-9A-F]{4}))*"|[][{}:,]|true|false|null|-?[0-9]+|[ \n]+|.', re.S)
open_, deepest, drawings, before = [], 0, 0, ''
for t in token.findall(text):
    if t.isspace():
        continue
    if t in '[{':
        assert before in ('', '[', ',', ':'), (before, t)
        open_.append(t)
        deepest = max(deepest, len(open_))
    elif t in ']}':
        assert before != ',' and open_.pop() == {']': '[', '}': '{'}[t]
    elif t == ',':
        assert before not in ('[', '{', ',', ':')
    else:
        assert t == ':' or t in ('true', 'false', 'null') or t[0] == '"' or t.isdigit(), t
        assert before in ('[', '{', ',', ':') if t != ':' else before[0] == '"', (before, t)
        drawings += t == '"drawing"'
    before = t
assert not open_ and deepest == 2 * 100000 + 4, deepest
assert drawings == 2, drawings
)"},
        setUp);
    EXPECT_EQ(checked.exitCode, 0) << checked.error;
}

TEST_F(KqpDeepTest, otherCommands_deepTree_takeIt) {
    expectDone(soon({"check", "deep.kqp"}));
    folder.write("other.kqp", deepProject() + "z.dwg\n");
    EXPECT_EQ(soon({"equal", "deep.kqp", "other.kqp"}).exitCode, 1);
    expectDone(soon({"rewrite", "deep.kqp", "-o", "new.kqp"}));
    EXPECT_TRUE(folder.read("new.kqp").ends_with(deepProject()));
    EXPECT_EQ(soon({"equal", "deep.kqp", "new.kqp"}).exitCode, 0);
}

} // namespace
} // namespace ryv::test
