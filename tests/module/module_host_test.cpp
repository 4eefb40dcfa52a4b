// Modules that behave badly, in the host: what they leave behind must not outlive them.
#include "base/encoding.h"
#include "embedded/documents/host.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>

namespace drafta {
namespace {

using ryv::CString;
using ryv::test::TempFolder;

const std::string product = RYV_TEST_DATA "/../../embedded/product";
const std::string hostile = RYV_HOSTILE_MODULE;

class ModuleHostTest : public ::testing::Test {
protected:
    TempFolder folder;
    std::string printed;
    std::unique_ptr<Host> host = std::make_unique<Host>(HostOptions{folder.native("profile"), product,
        [this](std::string_view text) { printed += text; }, [](std::string_view) {}, nullptr});

    void SetUp() override { ASSERT_TRUE(host->newDocument()) << printed; }

    /// What a line typed on the command line prints.
    std::string line(const std::string& text) {
        printed.clear();
        host->runLine(ryv::decodeUtf8(text));
        return printed;
    }
    void plan(const std::string& text) {
        host->platform().host.editor->setSystemVariable(u"USERS1", ryv::decodeUtf8(text));
    }
    std::string load(const std::string& file = hostile) {
        std::string problem;
        return host->loadModule(file, problem) ? "" : problem;
    }
    bool run(const ryv::CStringArray& words) { return host->platform().host.commands->runCommand(words); }
    /// A second module of the same code.
    std::string copy(const std::string& name) {
        std::filesystem::copy_file(hostile, folder.native(name));
        return folder.native(name);
    }
    std::size_t count(const std::string& text) const {
        std::size_t times = 0;
        for (std::size_t at = printed.find(text); at != std::string::npos; at = printed.find(text, at + 1))
            ++times;
        return times;
    }
    bool isHeard(const std::string& text) const { return printed.find(text) != std::string::npos; }
    static bool isMapped() {
        return ryv::test::readBytes("/proc/self/maps").find("hostile_module") != std::string::npos;
    }
    /// Lets everything happen that a module can hear of, and the queues run dry.
    void stir() {
        line("(setvar \"COLORTHEME\" 0)\n(setvar \"COLORTHEME\" 1)\nLINKUPDATE");
        host->newDocument();
        pollfd pending{host->pendingDescriptor(), POLLIN, 0};
        ::poll(&pending, 1, 20); // for a timer of 1 ms
        host->runPending();
    }
};

TEST_F(ModuleHostTest, unloadedModule_hearsNothingOfWhatItHasLeftBehind) {
    const char* const kinds[] = {
        "variable", "document", "input", "theme", "update", "message", "timer", "work x", "call x"};
    ASSERT_EQ(load(), "");
    std::string heard = line("HOSTILELEAVE");
    stir();
    heard += printed;
    for (const char* const kind : kinds)
        EXPECT_NE(heard.find("heard: " + std::string(kind)), std::string::npos) << kind;
    EXPECT_TRUE(host->platform().os.monitor->isRunning());
    host->documents().activate(host->documents().documents().front());
    line("(defun hostileother () 7)");

    line("UNLOADMODULE hostile_module.so");
    EXPECT_FALSE(isMapped());
    stir();
    EXPECT_FALSE(isHeard("heard: ")) << printed;
    EXPECT_FALSE(host->platform().os.monitor->isRunning());
    EXPECT_FALSE(host->platform().os.monitor->unwatch(u"\\tmp\\watched"));
    EXPECT_EQ(line("HOSTILELEAVE").find("\nUnknown command"), 0u);
    host->documents().activate(host->documents().documents().front());
    EXPECT_EQ(line("(list (boundp 'hostilefunction) (hostileother))"), "\n(nil 7)");
}

TEST_F(ModuleHostTest, queuedWork_isNotRunBehindTheModuleAndKeepsOthersWork) {
    ASSERT_EQ(load(), "");
    bool isRun = false;
    host->platform().host.documents->executeInApplicationContext([&] {
        run({u"HOSTILEUNLOAD"});
        host->platform().host.documents->executeInApplicationContext([&] { isRun = true; });
    });
    line("");
    EXPECT_TRUE(isRun);
    EXPECT_FALSE(isMapped());
    EXPECT_FALSE(isHeard("heard: ")) << printed;
}

TEST_F(ModuleHostTest, queuedWork_endsWithTheModuleWhenTheHostIsLeft) {
    plan("end leave");
    ASSERT_EQ(load(), "");
    line("HOSTILEQUIT");
    EXPECT_TRUE(host->hasQuit());
    host.reset();
    EXPECT_FALSE(isMapped());
    EXPECT_FALSE(isHeard("heard: ")) << printed;
}

TEST_F(ModuleHostTest, moduleThatDoesNotStart_leavesNothing) {
    const std::pair<std::string, std::string> cases[] = {
        {"start fail", ": the module does not start in this host"},
        {"start leave throw", ": the module does not start in this host: a fault of its own"},
    };
    for (const auto& [what, problem] : cases) {
        plan(what);
        EXPECT_EQ(load(), hostile + problem);
        EXPECT_FALSE(isMapped());
        plan("");
        stir();
        EXPECT_FALSE(isHeard("heard: ")) << printed;
        EXPECT_TRUE(line("HOSTILELEAVE").starts_with("\nUnknown command"));
    }
}

TEST_F(ModuleHostTest, faultOfAModule_isToldAndEndsThere) {
    plan("document throw");
    ASSERT_EQ(load(), "");
    const std::string fault = "\nhostile_module.so: failed: a fault of its own\n";
    EXPECT_TRUE(isHeard(fault)) << printed;
    plan("end throw");
    EXPECT_NE(line("UNLOADMODULE hostile_module.so").find(fault), std::string::npos) << printed;
    EXPECT_FALSE(isMapped());
}

TEST_F(ModuleHostTest, oneLibrary_isStartedOnce) {
    plan("start " + hostile);
    ASSERT_EQ(load(), "");
    EXPECT_TRUE(isHeard("hostile_module.so: it is loaded already")) << printed;
    std::filesystem::create_symlink(hostile, folder.native("other.so"));
    EXPECT_EQ(load(folder.native("other.so")), "other.so: it is loaded already as hostile_module.so");
    EXPECT_EQ(count("told: start"), 1u);

    run({u"_.UNLOADMODULE", u"hostile_module.so"});
    EXPECT_EQ(load(), "hostile_module.so: it is loaded already, and will be unloaded when the host is idle");
    line("");
    EXPECT_EQ(load(), "");
}

TEST_F(ModuleHostTest, modulesThatLoadEachOther_areToldOfEachDocumentOnceAndEnd) {
    const std::string paths = copy("a.so") + " " + copy("b.so") + " " + copy("c.so");
    ASSERT_EQ(load(), "");
    plan("document " + paths);
    printed.clear();
    ASSERT_TRUE(host->newDocument());
    EXPECT_EQ(count("told: start"), 3u);
    EXPECT_EQ(
        count("told: document"), 3u * 2u + 1u); // of both documents, and the first module of the new one
    plan("end " + paths);
    printed.clear();
    host.reset();
    EXPECT_EQ(count("told: end"), 4u);
    EXPECT_TRUE(isHeard("c.so: the host is ending"));
}

TEST_F(ModuleHostTest, groupOfTheHost_losesTheModulesCommandsOnly) {
    ASSERT_EQ(load(), "");
    line("HOSTILEGROUP");
    EXPECT_TRUE(line("HOSTILELEAVE").starts_with("\nUnknown command"));
    line("UNLOADMODULE hostile_module.so");
    EXPECT_EQ(line("MODULES"), "\nNo module is loaded.\n");
}

} // namespace
} // namespace drafta
