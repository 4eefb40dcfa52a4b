#include "embedded/registry/file_registry.h"

#include "base/text.h"
#include "embedded/os/posix_files.h"
#include "tests/support/fault_files.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace drafta {
namespace {

using ryv::CString;
using ryv::RegistryStatus;
using ryv::test::FaultFiles;
using ryv::test::FileCall;

class FileRegistryTest : public ::testing::Test {
protected:
    ryv::test::TempFolder folder;
    PathMapper mapper;
    PosixFiles files{mapper};
    CString path = folder.module(u"registry.txt");
    std::vector<CString> told;
    FileRegistry registry{files, path, [this](ryv::CStringView line) { told.emplace_back(line); }};

    std::string content() const { return folder.read("registry.txt"); }
    /// What another process sees.
    CString string(ryv::CStringView key, ryv::CStringView name) {
        CString value = u"(none)";
        EXPECT_TRUE(FileRegistry(files, path).readString(key, name, value) == RegistryStatus::ok ||
                    value == u"(none)");
        return value;
    }
};

TEST_F(FileRegistryTest, keysAndValues_areTypedFoundInAnyCaseAndKeepTheirFirstSpelling) {
    CString text = u"before";
    std::uint32_t number = 7;
    EXPECT_EQ(registry.findKey(u""), RegistryStatus::ok);
    EXPECT_EQ(registry.findKey(u"A"), RegistryStatus::missing);
    EXPECT_EQ(registry.writeString(u"A\\B", u"x", u"1"), RegistryStatus::missing);
    EXPECT_TRUE(folder.names().empty());
    EXPECT_EQ(registry.createKey(u"Ab_1"), RegistryStatus::ok);
    EXPECT_EQ(registry.findKey(u"Ab"), RegistryStatus::missing);
    EXPECT_EQ(registry.createKey(u"Ab\\Cd"), RegistryStatus::ok);
    EXPECT_EQ(registry.createKey(u"aB\\cD\\Éf\\"), RegistryStatus::ok);
    EXPECT_EQ(registry.createKey(u"AB\\CD"), RegistryStatus::ok);
    EXPECT_EQ(registry.findKey(u"ab\\cd\\éF"), RegistryStatus::ok);
    EXPECT_EQ(registry.findKey(u"ab\\c"), RegistryStatus::missing);
    EXPECT_EQ(registry.writeInteger(u"ab", u"Num", 4294967295u), RegistryStatus::ok);
    EXPECT_EQ(registry.writeString(u"AB", u"NUM2", u"old"), RegistryStatus::ok);
    EXPECT_EQ(registry.writeString(u"AB", u"num2", u"new"), RegistryStatus::ok);
    EXPECT_EQ(registry.readString(u"ab", u"num", text), RegistryStatus::wrongType);
    EXPECT_EQ(registry.readInteger(u"ab", u"num2", number), RegistryStatus::wrongType);
    EXPECT_EQ(registry.readString(u"ab", u"none", text), RegistryStatus::missing);
    EXPECT_TRUE(text == u"before" && number == 7);
    EXPECT_EQ(registry.readInteger(u"ab", u"num", number), RegistryStatus::ok);
    EXPECT_EQ(number, 4294967295u);
    EXPECT_EQ(registry.writeString(u"ab", u"num", u"a text now"), RegistryStatus::ok);
    EXPECT_EQ(content(), "drafta registry 1\n\n[Ab]\n\"Num\"=\"a text now\"\n\"NUM2\"=\"new\"\n"
                         "\n[Ab\\Cd]\n\n[Ab\\Cd\\Éf]\n\n[Ab_1]\n");
}

TEST_F(FileRegistryTest, changesOutside_areSeenAndKept) {
    FileRegistry other(files, path);
    CString text;
    ASSERT_EQ(registry.createKey(u"K"), RegistryStatus::ok);
    ASSERT_EQ(other.writeString(u"K", u"a", u"theirs"), RegistryStatus::ok);
    EXPECT_EQ(registry.readString(u"K", u"a", text), RegistryStatus::ok);
    EXPECT_EQ(text, u"theirs");
    ::unlink(folder.native("registry.txt").c_str());
    EXPECT_EQ(registry.findKey(u"K"), RegistryStatus::missing);
}

TEST_F(FileRegistryTest, changeBetweenReadingAndSaving_isKept) {
    FaultFiles watched(files);
    FileRegistry late(watched, path);
    ASSERT_EQ(late.createKey(u"K"), RegistryStatus::ok);
    int meanwhile = 3;
    watched.watch = [&](FileCall call) {
        if (call == FileCall::lock && meanwhile > 0) // of the save's temporary file
            folder.write(
                "registry.txt", "drafta registry 1\n[k]\n\"n\"=" + std::to_string(meanwhile--) + "\n");
    };
    EXPECT_EQ(late.writeString(u"K", u"mine", u"1"), RegistryStatus::ok);
    EXPECT_EQ(content(), "drafta registry 1\n\n[k]\n\"mine\"=\"1\"\n\"n\"=1\n");
}

TEST_F(FileRegistryTest, hiveThatCannotBeUnderstood_isLeftAlone) {
    folder.write("registry.txt", "drafta registry 1\n[K]\nnonsense\n");
    const std::string before = content();
    CString text = u"before";
    EXPECT_EQ(registry.findKey(u"K"), RegistryStatus::failed);
    EXPECT_EQ(registry.readString(u"K", u"x", text), RegistryStatus::failed);
    EXPECT_EQ(registry.createKey(u"New"), RegistryStatus::failed);
    EXPECT_EQ(registry.writeInteger(u"K", u"x", 1), RegistryStatus::failed);
    EXPECT_EQ(content(), before);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].find(path + u": it is damaged"), 0u);
    folder.write("registry.txt", "drafta registry 1\n[K]\n\"x\"=\"mended\"\n");
    EXPECT_EQ(registry.readString(u"K", u"x", text), RegistryStatus::ok);
    EXPECT_EQ(text, u"mended");
}

TEST_F(FileRegistryTest, folders_areMadeAtTheFirstChangeOnly) {
    FileRegistry deep(files, folder.module(u"p\\q\\registry.txt"));
    EXPECT_EQ(deep.findKey(u"K"), RegistryStatus::missing);
    EXPECT_TRUE(folder.names().empty());
    EXPECT_EQ(deep.createKey(u"K"), RegistryStatus::ok);
    EXPECT_EQ(folder.read("p/q/registry.txt"), "drafta registry 1\n\n[K]\n");
    folder.write("file", "");
    EXPECT_EQ(FileRegistry(files, folder.module(u"file\\r.txt")).createKey(u"K"), RegistryStatus::failed);
}

TEST_F(FileRegistryTest, protectedHive_isDeniedToWritersOnly) {
    ASSERT_EQ(registry.createKey(u"K"), RegistryStatus::ok);
    ASSERT_TRUE(files.setReadOnly(path, true).ok());
    EXPECT_EQ(registry.writeInteger(u"K", u"x", 1), RegistryStatus::denied);
    EXPECT_EQ(registry.findKey(u"K"), RegistryStatus::ok);
    std::uint32_t number = 0;
    EXPECT_EQ(registry.readInteger(u"K", u"x", number), RegistryStatus::missing)
        << "what failed is not there";
    EXPECT_EQ(told.size(), 1u);
    ASSERT_TRUE(files.setReadOnly(path, false).ok());
    EXPECT_EQ(registry.writeInteger(u"K", u"x", 1), RegistryStatus::ok);
    ASSERT_TRUE(files.setReadOnly(path, true).ok());
    EXPECT_EQ(registry.writeInteger(u"K", u"x", 2), RegistryStatus::denied);
    EXPECT_EQ(told.size(), 2u) << "it could be used in between";
}

TEST_F(FileRegistryTest, everyFailingStep_isToldAndLosesNothing) {
    ASSERT_EQ(registry.createKey(u"K"), RegistryStatus::ok);
    ASSERT_EQ(registry.writeString(u"K", u"x", u"old"), RegistryStatus::ok);
    FaultFiles faulty(files);
    std::size_t failures = 0;
    for (std::size_t step = 1;; ++step) {
        FileRegistry hive(faulty, path);
        faulty.arm({ryv::FileError::io, step});
        const CString text = u"new " + ryv::toText(static_cast<long long>(step));
        const CString before = string(u"K", u"x");
        const RegistryStatus status = hive.writeString(u"K", u"x", text);
        const bool fired = faulty.fired();
        faulty.disarm();
        EXPECT_EQ(string(u"K", u"x"), status == RegistryStatus::ok ? text : before) << step;
        failures += status != RegistryStatus::ok;
        if (!fired)
            break;
        EXPECT_EQ(hive.writeString(u"K", u"x", u"again"), RegistryStatus::ok) << step;
    }
    EXPECT_GT(failures, 5u);
}

TEST_F(FileRegistryTest, twoProcesses_loseNothing) {
    constexpr int each = 60;
    const auto work = [&](ryv::CStringView own) {
        FileRegistry hive(files, path);
        bool good = hive.createKey(u"Shared") == RegistryStatus::ok;
        for (int i = 0; i < each && good; ++i)
            good = hive.writeInteger(u"Shared", CString(own) + ryv::toText(i), 1) == RegistryStatus::ok;
        return good;
    };
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work(u"child") ? 0 : 1);
    ASSERT_GT(child, 0);
    EXPECT_TRUE(work(u"parent"));
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    std::uint32_t number = 0;
    for (const char16_t* const own : {u"child", u"parent"})
        for (int i = 0; i < each; ++i)
            EXPECT_EQ(registry.readInteger(u"Shared", own + ryv::toText(i), number), RegistryStatus::ok) << i;
}

} // namespace
} // namespace drafta
