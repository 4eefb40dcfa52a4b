#include "siblings/kqp_filer.h"

#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

/// Lets a test write whatever content it likes.
class Filer final : public RyvPmUtilsKQPFiler {
public:
    using RyvPmUtilsKQPFiler::commit;
    using RyvPmUtilsKQPFiler::RyvPmUtilsKQPFiler;
};

using Error = RyvPmUtilsKQPFiler::ErrorCode;

class KqpFiler : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(files.openHandles(), 0u); }

    const CString path = u"C:\\P\\a.kqp";
    const CString storePath = u"C:\\P\\a.rypx";
    MemoryFiles files;
    Filer filer{files};
};

TEST_F(KqpFiler, openForReading_needsAFile) {
    EXPECT_FALSE(filer.openProject(path, false));
    EXPECT_EQ(filer.getLastError(), Error::cannotOpen);
    EXPECT_EQ(filer.lastStatus().error, FileError::missing);
    EXPECT_EQ(filer.lastFile(), path);
    EXPECT_FALSE(filer.isOpen());
    EXPECT_EQ(filer.projectFolder(), u"C:\\P");

    files.put(path, "x\n");
    EXPECT_TRUE(filer.openProject(path, false));
    EXPECT_EQ(filer.getLastError(), 0);
    EXPECT_TRUE(filer.isOpen());
    EXPECT_FALSE(filer.isOpenForWriting());
    filer.closeProject();
    EXPECT_FALSE(filer.isOpen());
    EXPECT_EQ(filer.projectPath(), path) << "still known";
}

TEST_F(KqpFiler, openForWriting_refusesWhatCannotBeReplaced) {
    files.put(path, "x\n");
    files.protect(path);
    EXPECT_FALSE(filer.openProject(path, true));
    EXPECT_EQ(filer.getLastError(), Error::cannotOpen);
    EXPECT_EQ(filer.lastStatus().error, FileError::readOnly);
    EXPECT_TRUE(filer.openProject(path, false)) << "reading it is fine";
    EXPECT_FALSE(filer.openProject(u"C:\\P", true));
    EXPECT_EQ(filer.lastStatus().error, FileError::isFolder);
}

TEST_F(KqpFiler, openForWriting_sweepsWhatAKilledWriterLeft) {
    files.put(path, "old\n");
    files.put(u"C:\\P\\.a.kqp.saving", "half");
    EXPECT_TRUE(filer.openProject(path, true));
    EXPECT_EQ(files.paths(), CStringArray{path});
}

TEST_F(KqpFiler, readFailure_leavesNoSections) {
    files.put(path, "*[1]x\nd.dwg\n");
    FaultFiles faulty(files);
    Filer reader(faulty, path, false);
    EXPECT_TRUE(reader.readProject());
    EXPECT_EQ(reader.sections().drawingLineCount(), 1u);
    faulty.arm({FileError::io, 1, FileCall::read, true, false});
    EXPECT_FALSE(reader.readProject());
    EXPECT_EQ(reader.getLastError(), Error::cannotRead);
    EXPECT_EQ(reader.lastStatus().error, FileError::io);
    EXPECT_EQ(reader.sections().drawingLineCount(), 0u);
    EXPECT_TRUE(reader.sections().descriptionLines().empty());
    faulty.disarm();
    EXPECT_TRUE(reader.readProject());
    EXPECT_EQ(reader.getLastError(), 0);
}

// -- The guard against changes from outside.

TEST_F(KqpFiler, changedBetweenReadAndWrite_keepsTheOthersContent) {
    files.put(path, "mine\n");
    ASSERT_TRUE(filer.openProject(path, false));
    ASSERT_TRUE(filer.readProject());
    files.put(path, "theirs\n");
    ASSERT_TRUE(filer.openProject(path, true));
    EXPECT_FALSE(filer.commit("new\n"));
    EXPECT_EQ(filer.getLastError(), Error::changedOutside);
    EXPECT_EQ(filer.lastStatus().error, FileError::changedOutside);
    EXPECT_EQ(files.get(path), "theirs\n");
    EXPECT_TRUE(filer.readProject()) << "whoever has looked at it may go on";
    EXPECT_TRUE(filer.commit("new\n"));
    EXPECT_EQ(files.get(path), "new\n");
}

TEST_F(KqpFiler, changedBetweenOpenAndWrite_keepsTheOthersContent) {
    struct Case {
        const char* name;
        std::optional<std::string> before;
        std::optional<std::string> meanwhile;
        bool written;
    };
    const Case cases[] = {{"untouched", "a\n", "a\n", true}, {"changed", "a\n", "b\n", false},
        {"same size", "ab\n", "ba\n", false}, {"made", std::nullopt, "b\n", false},
        {"removed", "a\n", std::nullopt, false}, {"made empty", std::nullopt, "", false}};
    for (const Case& each : cases) {
        files.erase(path);
        if (each.before)
            files.put(path, *each.before);
        Filer writer(files, path, true);
        files.erase(path);
        if (each.meanwhile)
            files.put(path, *each.meanwhile);
        EXPECT_EQ(writer.commit("new\n"), each.written) << each.name;
        EXPECT_EQ(writer.getLastError(), each.written ? 0 : int{Error::changedOutside}) << each.name;
        EXPECT_EQ(files.get(path), each.written ? std::optional<std::string>("new\n") : each.meanwhile)
            << each.name;
    }
}

TEST_F(KqpFiler, severalWrites_knowTheirOwn) {
    Filer writer(files, path, true);
    EXPECT_TRUE(writer.commit("1\n"));
    EXPECT_TRUE(writer.commit("2\n"));
    EXPECT_TRUE(writer.openProject(path, true)) << "opened again";
    EXPECT_TRUE(writer.commit("3\n"));
    files.put(path, "theirs\n");
    EXPECT_FALSE(writer.commit("4\n"));
    EXPECT_EQ(files.get(path), "theirs\n");
}

// -- The encoding of what is written.

struct EncodingCase {
    const char* name;
    std::string before;
    CString text;
    std::string after;
};

TEST_F(KqpFiler, content_isWrittenInTheEncodingRead) {
    using namespace std::string_literals;
    const CString lone(1, char16_t{0xD800});
    const EncodingCase cases[] = {{"plain", "x\n", u"\u00E4\n", "\xC3\xA4\n"},
        {"no file", "", u"\u00E4\n", "\xC3\xA4\n"},
        {"with mark", "\xEF\xBB\xBFx\n", u"\u00E4\n", "\xEF\xBB\xBF\xC3\xA4\n"},
        {"with mark, empty", "\xEF\xBB\xBF", u"\n", "\xEF\xBB\xBF\n"},
        {"16, low byte first", "\xFF\xFEx\0"s, u"\u00E4\n", "\xFF\xFE\xE4\0\n\0"s},
        {"16, high byte first", "\xFE\xFF\0x"s, u"\U0001F600", "\xFE\xFF\xD8\x3D\xDE\0"s},
        {"16 with a lone surrogate", "\xFE\xFF"s, lone, "\xFE\xFF\xD8\0"s},
        {"one byte each", "\xE4\n", u"\u00E4.\u20AC\u0081\n", "\xE4.\x80\x81\n"},
        {"one byte each, without any above", "\xE4\n", u"x\n", "x\n"},
        {"one byte each, not enough", "\xE4\n", u"\u00E4\u03A9\n", "\xEF\xBB\xBF\xC3\xA4\xCE\xA9\n"},
        {"one byte each, would read as UTF-8", "\xE4\n", u"\u00C3\u00A4\n", "\xEF\xBB\xBF\xC3\x83\xC2\xA4\n"},
        {"one byte each, would read as marked", "\xE4\n", u"\u00EF\u00BB\u00BFx\u00E4\n",
            "\xEF\xBB\xBF\xC3\xAF\xC2\xBB\xC2\xBFx\xC3\xA4\n"},
        {"one byte each, would read as 16", "\xE4\n", u"\u00FF\u00FEx\n", "\xEF\xBB\xBF\xC3\xBF\xC3\xBEx\n"},
        {"one byte each, lone surrogate", "\xE4\n", lone, "\xEF\xBB\xBF\xED\xA0\x80"},
        {"lone surrogate", "x\n", u"\u00E4" + lone, "\xEF\xBB\xBF\xC3\xA4\xED\xA0\x80"},
        {"mark as text", "x\n", u"\uFEFFx\n", "\xEF\xBB\xBF\xEF\xBB\xBFx\n"},
        {"mark as text behind a mark", "\xEF\xBB\xBFx\n", u"\uFEFFx\n", "\xEF\xBB\xBF\xEF\xBB\xBFx\n"},
        {"mark as text in 16", "\xFF\xFE", u"\uFEFFx", "\xFF\xFE\xFF\xFEx\0"s},
        {"NUL", "x\n", CString(u"a\0b", 3), "a\0b"s}};
    for (const EncodingCase& each : cases) {
        files.put(path, each.before);
        Filer writer(files, path, true);
        EXPECT_TRUE(writer.commit(toUtf8(each.text))) << each.name;
        EXPECT_EQ(files.get(path), each.after) << each.name;
        const TextEncoding found = detectEncoding(each.after);
        EXPECT_EQ(decode(std::string_view(each.after).substr(markLength(found)), found), each.text)
            << each.name;
    }
}

TEST_F(KqpFiler, failedWrite_keepsTheEncoding) {
    files.put(path, "\xE4\n");
    FaultFiles faulty(files);
    Filer writer(faulty, path, true);
    faulty.arm({FileError::io, 1, FileCall::rename, true, false});
    EXPECT_FALSE(writer.commit(toUtf8(u"\u03A9\n")));
    EXPECT_EQ(writer.getLastError(), Error::cannotWrite);
    EXPECT_EQ(writer.encoding(), TextEncoding::windows1252);
    EXPECT_EQ(files.get(path), "\xE4\n");
    faulty.disarm();
    EXPECT_TRUE(writer.commit(toUtf8(u"\u00E4!\n")));
    EXPECT_EQ(files.get(path), "\xE4!\n");
}

// -- The companion store behind the filer.

TEST_F(KqpFiler, storeChanges_areWrittenWithTheProject) {
    Filer writer(files, path, true);
    EXPECT_TRUE(writer.AddFile(u"C:\\P\\x.dwg"));
    EXPECT_TRUE(writer.AddFile(u"C:\\P\\y.dwg"));
    const std::int32_t id = writer.GetFileId(u"c:\\p\\X.DWG");
    EXPECT_NE(id, 0);
    EXPECT_TRUE(files.paths().empty()) << "nothing is written before the project is";
    EXPECT_TRUE(writer.commit("x.dwg\ny.dwg\n"));
    EXPECT_EQ(files.paths(), (CStringArray{path, storePath}));
    EXPECT_EQ(Filer(files, path, false).GetFileId(u"C:\\P\\x.dwg"), id);

    EXPECT_TRUE(writer.RenameFile(u"C:\\P\\x.dwg", u"C:\\P\\z.dwg"));
    EXPECT_TRUE(writer.RemoveFiles({u"C:\\P\\y.dwg", u"nowhere"}));
    EXPECT_TRUE(writer.commit("z.dwg\n"));
    EXPECT_EQ(Filer(files, path, false).GetFileId(u"C:\\P\\z.dwg"), id);
    EXPECT_EQ(Filer(files, path, false).GetFileId(u"C:\\P\\x.dwg"), 0);
    EXPECT_EQ(Filer(files, path, false).GetFileId(u"C:\\P\\y.dwg"), 0);
}

TEST_F(KqpFiler, failingStore_isToldThoughTheProjectIsWritten) {
    FaultFiles faulty(files);
    Filer writer(faulty, path, true);
    writer.AddFile(u"C:\\P\\x.dwg");
    faulty.arm({FileError::noSpace, 2, FileCall::rename, true, false});
    EXPECT_TRUE(writer.commit("x.dwg\n"));
    EXPECT_EQ(writer.getLastError(), Error::cannotWriteStore);
    EXPECT_EQ(writer.lastStatus().error, FileError::noSpace);
    EXPECT_EQ(writer.lastFile(), storePath);
    EXPECT_EQ(files.get(path), "x.dwg\n");
    faulty.disarm();
    EXPECT_TRUE(writer.commit("x.dwg\n"));
    EXPECT_EQ(writer.getLastError(), 0);
    EXPECT_TRUE(files.get(storePath).has_value()) << "made good with the next write";
}

TEST_F(KqpFiler, cleanup_forgetsWhatTheProjectDoesNotList) {
    files.put(path, "=odd\nx.dwg\n sub/Y.dwg \n\"=z.dwg\n");
    files.put(storePath, "RYPX 1\nnext=9\nid=1\tx.dwg\nid=2\tgone.dwg\nid=3\tsub\\y.dwg\nid=4\t=z.dwg\n");
    ASSERT_TRUE(filer.openProject(path, false));
    EXPECT_TRUE(filer.CleanupProjectData());
    EXPECT_EQ(files.get(storePath), "RYPX 1\nnext=9\nid=1\tx.dwg\nid=3\tsub\\y.dwg\nid=4\t=z.dwg\n");
    files.erase(storePath);
    Filer second(files, path, false);
    EXPECT_TRUE(second.CleanupProjectData());
    EXPECT_FALSE(files.get(storePath).has_value()) << "makes no store";
}

TEST_F(KqpFiler, failedProjectWrite_leavesTheStoreAlone) {
    files.put(path, "mine\n");
    Filer writer(files, path, true);
    writer.AddFile(u"C:\\P\\x.dwg");
    files.put(path, "theirs\n");
    EXPECT_FALSE(writer.commit("x.dwg\n"));
    EXPECT_FALSE(files.get(storePath).has_value());
}

} // namespace
} // namespace ryv::test
