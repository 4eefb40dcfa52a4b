#include "siblings/rename_file.h"

#include "tests/siblings/save_fixture.h"

namespace ryv::test {
namespace {

class RenameFile : public SaveFixture {
protected:
    RenameFile() { folder.write("A.kqp", "mine"); }
    FileError rename(const CString& from, const CString& to) {
        return renameWithoutReplacing(files, folder.module(from), folder.module(to)).error;
    }
};

TEST_F(RenameFile, newName_freeOrTaken) {
    folder.write("other.dwg", "other");
    std::filesystem::create_directory(folder.native("folder"));
    const struct {
        const char16_t* to;
        FileError error;
    } cases[] = {
        {u"other.dwg", FileError::exists},
        {u"OTHER.DWG", FileError::exists},
        {u"folder", FileError::exists},
        {u"no\\folder.dwg", FileError::missing},
        {u"a.KQP", FileError::none},
        {u"b.kqp", FileError::none},
    };
    CString name = u"A.kqp";
    for (const auto& each : cases) {
        SCOPED_TRACE(toAscii(each.to));
        EXPECT_EQ(rename(name, each.to), each.error);
        if (each.error == FileError::none)
            name = each.to;
        EXPECT_EQ(folder.names(), (std::vector<std::string>{toAscii(name), "folder", "other.dwg"}));
        EXPECT_EQ(folder.read(toAscii(name)) + folder.read("other.dwg"), "mineother");
    }
    EXPECT_EQ(rename(u"gone", u"new"), FileError::missing);
    EXPECT_EQ(rename(u"gone", u"GONE"), FileError::missing);
    EXPECT_EQ(folder.names().size(), 3u);
}

TEST_F(RenameFile, caseOnly_besideAFileOfThatName_replacesNothing) {
    folder.write("a.kqp", "other");
    EXPECT_EQ(rename(u"A.kqp", u"a.kqp"), FileError::exists);
    EXPECT_EQ(folder.read("A.kqp") + folder.read("a.kqp"), "mineother");
}

/// Somebody makes the file just before the name is taken, or writes to the one that keeps the name.
TEST_F(RenameFile, takenMeanwhile_replacesNothing) {
    for (const FileCall moment : {FileCall::open, FileCall::close}) {
        files.watch = [this, moment](FileCall call) {
            if (call == moment)
                folder.write("b.kqp", "other");
        };
        EXPECT_EQ(rename(u"A.kqp", u"b.kqp"), FileError::exists);
        EXPECT_EQ(folder.read("A.kqp") + folder.read("b.kqp"), "mineother");
        std::filesystem::remove(folder.native("b.kqp"));
    }
}

TEST_F(RenameFile, failures_leaveNothingBehind) {
    for (const FileCall call : {FileCall::open, FileCall::information, FileCall::close, FileCall::rename}) {
        files.arm({FileError::noSpace, 1, call});
        EXPECT_EQ(rename(u"A.kqp", u"c.kqp"), FileError::noSpace);
        EXPECT_EQ(folder.names(), std::vector<std::string>{"A.kqp"});
    }
}

} // namespace
} // namespace ryv::test
