#include "tests/system/kqp_fixture.h"

#include <filesystem>

namespace ryv::test {
namespace {

class KqpEqualTest : public KqpTest {
protected:
    /// The exit code for two files of these contents; nothing else may come out.
    int equal(const std::string& a, const std::string& b) const {
        folder.write("a.kqp", a);
        folder.write("b.kqp", b);
        const ProcessResult result = kqp({"equal", "a.kqp", "b.kqp"});
        EXPECT_EQ(result.out + result.error, "");
        return result.exitCode;
    }
};

TEST_F(KqpEqualTest, equal_sameContentWrittenDifferently_isZero) {
    EXPECT_EQ(equal(plantProject, plantProject), 0);
    EXPECT_EQ(equal("x/./a.dwg\n", "\n\r\nx\\a.dwg\r\n"), 0);
    EXPECT_EQ(equal("*[1]\xC3\xBC\n", "*[1]\xFC\n"), 0);
    EXPECT_EQ(equal("?[0]v\n", "?[0]V\n"), 0);
    EXPECT_EQ(equal("=====SUB=a\nx.dwg\n", "=====SUB=A\nx.dwg\n"), 0);
}

TEST_F(KqpEqualTest, equal_anyDifference_isOne) {
    EXPECT_EQ(equal("*[1]a\n", "*[1]A\n"), 1);
    EXPECT_EQ(equal("+[1]a\n", "+[1]b\n"), 1);
    EXPECT_EQ(equal("?[0]V\n", "?[0]H\n"), 1);
    EXPECT_EQ(equal("a.dwg\n", "A.dwg\n"), 1);
    EXPECT_EQ(equal("a.dwg\nb.dwg\n", "b.dwg\na.dwg\n"), 1);
    EXPECT_EQ(equal("a.dwg\n", "====REF\na.dwg\n"), 1);
    EXPECT_EQ(equal("=====SUB=A\na.dwg\n", "=====SUB=B\na.dwg\n"), 1);
    EXPECT_EQ(equal("=====SUB=A[Empty]\n", ""), 1);
}

TEST_F(KqpEqualTest, equal_oneMissing_isTwoAndNamesIt) {
    folder.write("a.kqp", "a.dwg\n");
    expectFailure(kqp({"equal", "a.kqp", "b.kqp"}), "kqp: b.kqp: no such file or folder");
    expectFailure(kqp({"equal", "b.kqp", "a.kqp"}), "kqp: b.kqp: no such file or folder");
}

} // namespace
} // namespace ryv::test
