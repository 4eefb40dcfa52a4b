// The module as a host has it: a file that is loaded by its name, driven with numbers, and taken out again.
#include "embedded/modules/module_library.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/text.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace drafta {
namespace {

using ryv::CString;
using ryv::ModuleContext;
using ryv::ModuleMessage;
using ryv::ModuleResult;
using namespace ryv::test;

bool isMapped(const std::string& name) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (line.find(name) != std::string::npos)
            return true;
    return false;
}

class ModuleTest : public ::testing::Test {
protected:
    ModuleTest() { context.platform = &host.ports; }

    /// The module's file; what the host has of the module's functions goes before it does.
    class Loaded {
    public:
        explicit Loaded(ScriptedPlatform& platform) : platform_(platform) {
            std::string problem;
            library_ = ModuleLibrary::load(RYV_MODULE, problem);
            EXPECT_TRUE(library_) << problem;
        }
        Loaded(const Loaded&) = delete;
        Loaded& operator=(const Loaded&) = delete;
        ~Loaded() {
            platform_.lisp = {};
            platform_.commands.commands.clear();
        }
        const ModuleLibrary& operator*() const { return *library_; }
        const ModuleLibrary* operator->() const { return library_.get(); }

    private:
        ScriptedPlatform& platform_;
        std::unique_ptr<ModuleLibrary> library_;
    };
    Loaded load() { return Loaded(host); }
    ModuleResult send(const ModuleLibrary& module, int message) {
        return module.send(static_cast<ModuleMessage>(message), context);
    }

    MemoryFiles files;
    ScriptedPlatform host{&files};
    ModuleContext context;
};

TEST_F(ModuleTest, StartsServesAndLeavesNothingBehindAgainAndAgain) {
    for (int round = 0; round < 3; ++round) {
        const auto module = load();
        EXPECT_TRUE(isMapped("RyvPageMan.so"));
        ASSERT_EQ(send(*module, 0), ModuleResult::success);
        EXPECT_EQ(host.commands.commands.size(), 13u);
        EXPECT_GT(host.documents.observerCount() + host.editor.observerCount(), 1u);
        host.documents.openDocument(u"\\a.dwg");
        ASSERT_EQ(send(*module, 2), ModuleResult::success);
        EXPECT_EQ(host.lisp.defined.size(), 24u);
        ASSERT_EQ(send(*module, 1), ModuleResult::success);

        EXPECT_EQ(host.commands.commands.size(), 0u);
        EXPECT_EQ(host.documents.observerCount(), 0u);
        EXPECT_EQ(host.editor.observerCount(), 0u);
        EXPECT_EQ(host.mainWindow.observerCount(), 0u);
        EXPECT_EQ(host.messages.windowCount(), 0u);
        EXPECT_EQ(host.messages.timerCount(), 0u);
        EXPECT_TRUE(host.monitor.watched.empty());
        EXPECT_EQ(host.palettes.set, nullptr);
        EXPECT_EQ(files.openHandles(), 0u);
    }
    EXPECT_FALSE(isMapped("RyvPageMan.so"));
}

TEST_F(ModuleTest, AnswersEveryMessageOfTheHostAndNoOtherNumber) {
    const auto module = load();
    for (const int message : {0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 1})
        EXPECT_EQ(send(*module, message), ModuleResult::success) << message;
    for (const int message : {-1, 16, 17, 1000000})
        EXPECT_EQ(send(*module, message), ModuleResult::nothing) << message;
}

TEST_F(ModuleTest, RefusesAForeignHostInWords) {
    const auto module = load();
    const auto refusal = [&](ModuleContext given) {
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(module->send(ModuleMessage::initialiseApplication, given), ModuleResult::failure);
        return ::testing::internal::GetCapturedStderr();
    };
    ModuleContext other = context;
    other.version = 7;
    EXPECT_EQ(refusal(other), "RyvPageMan: this host's interface version is 7, and the module needs 2\n");
    other = context;
    other.size = 4;
    EXPECT_EQ(refusal(other), "RyvPageMan: this host's context size is 4, and the module needs " +
                                  std::to_string(sizeof(ModuleContext)) + "\n");
    other = context;
    other.size += 8;
    EXPECT_NE(refusal(other).find("context size"), std::string::npos);
    other = context;
    other.platform = nullptr;
    EXPECT_NE(refusal(other).find("no interfaces"), std::string::npos);
    EXPECT_TRUE(host.commands.commands.empty());
}

TEST_F(ModuleTest, RegistersItsCommandsInTheirOrder) {
    const auto module = load();
    send(*module, 0);
    std::string table;
    for (const ryv::HostCommand& each : host.commands.commands)
        table += ryv::toUtf8(each.group) + " " + ryv::toUtf8(each.globalName) + " " +
                 ryv::toUtf8(each.localName) + " " + std::to_string(each.flags) + "\n";
    EXPECT_EQ(table, "RYVPageMan _TestPM TestPM 2097153\n"
                     "RYVPageMan _TestPM2 TestPM2 2097153\n"
                     "RYVPageMan Ryvnav Ryvnav 1\n"
                     "RYVPageMan Ryvhidenav Ryvhidenav 1\n"
                     "RYVPageMan _RyvProjectProps RyvProjectProps 0\n"
                     "RYVPageMan _RyvNewProject RyvNewProject 0\n"
                     "RYVPageMan _RyvDrawingProps RyvDrawingProps 0\n"
                     "RYVPageMan _RyvNewDrawing RyvNewDrawing 0\n"
                     "RYVPageMan _RyvContinueNewDrawing RyvContinueNewDrawing 0\n"
                     "RYVPageMan _RyvCompareDtoP RyvCompareDtoP 0\n"
                     "RYVPageMan _TestModal TestModal 0\n"
                     "RYVPageMan RYPROJECT RYPROJECT 2097153\n"
                     "PROJMAN_COMMANDS RYNAVCOPYTO RYNAVCOPYTO 0\n");
    send(*module, 1);
}

TEST_F(ModuleTest, DeletesItsTemporaryDrawing) {
    const auto module = load();
    const CString temporary = u"\\{00000000-0000-0000-0000-000000000001}.dwg";
    send(*module, 0);
    files.put(temporary, "left behind");
    files.put(u"\\other.dwg", "");
    send(*module, 1);
    EXPECT_FALSE(files.get(temporary));
    EXPECT_TRUE(files.get(u"\\other.dwg"));
}

TEST(ModuleFileTest, SaysWhyAFileIsNoModule) {
    const std::string folder = ::testing::TempDir() + "module_file_test";
    std::ofstream(folder + ".txt") << "text, and no library";
    std::ofstream(folder + ".cut") << "\x7f"
                                      "ELF and no more";
    for (const char* const end : {".half", ".almost"})
        std::filesystem::copy_file(
            RYV_MODULE, folder + end, std::filesystem::copy_options::overwrite_existing);
    const auto size = std::filesystem::file_size(RYV_MODULE);
    std::filesystem::resize_file(folder + ".half", size / 2);
    std::filesystem::resize_file(folder + ".almost", size - 1);
    const std::pair<std::string, std::string> cases[] = {
        {"/nowhere/at/all.so", "No such file"},
        {"/", "not a file"},
        {folder + ".txt", "not a module"},
        {folder + ".cut", "cut off"},
        {folder + ".half", "cut off"},
        {folder + ".almost", "cut off"},
        {RYV_FOREIGN_LIBRARY, "which would have ryvModuleEntry"},
    };
    for (const auto& [file, reason] : cases) {
        std::string problem;
        EXPECT_FALSE(ModuleLibrary::load(file, problem)) << file;
        EXPECT_EQ(problem.find(file + ": "), 0u) << problem;
        EXPECT_NE(problem.find(reason), std::string::npos) << problem;
    }
    EXPECT_FALSE(isMapped("foreign_library"));
}

} // namespace
} // namespace drafta
