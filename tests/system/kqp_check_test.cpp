#include "tests/system/kqp_fixture.h"

namespace ryv::test {
namespace {

class KqpCheckTest : public KqpTest {};

TEST_F(KqpCheckTest, check_hostileFile_namesEveryLineInOrder) {
    folder.write("bad.kqp",
        "*[1]A\n*[1]B\n*[x]C\n\n+[300]D\n?[0]  H\n=one\n=two\n====odd\n=====SUB=\n=====SUB=A\n"
        "=====SUB=B\na.dwg\n=====SUB=C[Empty]tail\nA.DWG\n+[2]late\n=nobody\n");
    const ProcessResult result = kqp({"check", "bad.kqp"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.out,
        "bad.kqp:2: number stood before, this line replaces the earlier one: *[1]B\n"
        "bad.kqp:3: no number and closing bracket behind the opening one, line dropped: *[x]C\n"
        "bad.kqp:5: number outside the range of its section, line dropped: +[300]D\n"
        "bad.kqp:6: blanks in front of the value dropped:   H\n"
        "bad.kqp:8: description replaces an earlier one of the same drawing: =two\n"
        "bad.kqp:9: no known attribute, read as the one that it begins like: ====odd\n"
        "bad.kqp:10: subfolder without a name, line dropped: =====SUB=\n"
        "bad.kqp:12: another subfolder for the same drawing, which moves there: =====SUB=B\n"
        "bad.kqp:14: text behind \"[Empty]\", of which the last seven characters are dropped instead: "
        "=====SUB=C[Empty]tail\n"
        "bad.kqp:15: drawing listed before, both are kept: A.DWG\n"
        "bad.kqp:16: line belongs further up, it is read and moves there when the file is written: +[2]late\n"
        "bad.kqp:17: attributes without a drawing behind them dropped: =nobody\n");
}

TEST_F(KqpCheckTest, check_longTextWithControls_isShortenedAndEscaped) {
    folder.write("bad.kqp", "*[x]\x1B[2J" + std::string(1000, 'n') + "\n");
    const ProcessResult result = kqp({"check", "bad.kqp"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out,
        "bad.kqp:1: no number and closing bracket behind the opening one, line dropped: *[x]\\x1B[2J" +
            std::string(52, 'n') + "...\n");
}

TEST_F(KqpCheckTest, check_rewrittenFile_isClean) {
    folder.write("bad.kqp", "a.dwg\n*[1]late\n+[999]x\n=left over\n");
    EXPECT_EQ(kqp({"check", "bad.kqp"}).exitCode, 1);
    expectDone(kqp({"rewrite", "bad.kqp"}));
    const ProcessResult result = kqp({"check", "bad.kqp"});
    expectDone(result);
    EXPECT_EQ(result.out, "");
}

} // namespace
} // namespace ryv::test
