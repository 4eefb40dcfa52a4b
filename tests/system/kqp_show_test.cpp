#include "tests/system/kqp_fixture.h"

#include <fcntl.h>
#include <unistd.h>

namespace ryv::test {
namespace {

class KqpShowTest : public KqpTest {
protected:
    /// Runs kqp with a terminal as its standard output and gives what arrives there.
    std::string onTerminal(
        std::vector<std::string> words, const std::string& kind, const std::string& noColor) const {
        const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0)
            throw std::runtime_error("no pseudo-terminal");
        const std::string name = ::ptsname(terminal);
        const int shownEnd = ::open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        ProcessSetUp setUp;
        setUp.environment = {{"TERM", kind}, {"NO_COLOR", noColor}};
        setUp.inChild = [shownEnd] { return ::dup2(shownEnd, STDOUT_FILENO) == STDOUT_FILENO; };
        expectDone(kqp(std::move(words), setUp));
        std::string text(65536, '\0');
        const ssize_t count = ::read(terminal, text.data(), text.size());
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        ::close(shownEnd);
        ::close(terminal);
        return text;
    }
};

TEST_F(KqpShowTest, show_project_printsAllForPeople) {
    folder.write("plant.kqp", plantProject);
    const ProcessResult result = kqp({"show", "plant.kqp"});
    expectDone(result);
    EXPECT_EQ(result.out, "PLANT  " + folder.native("plant.kqp") +
                              "\n"
                              "  Pumping station\n"
                              "  Zürich\n"
                              "\n"
                              "Miscellaneous settings:\n"
                              "  [1]  %SL_DIR%/libs\n"
                              "  [5]  8\n"
                              "\n"
                              "Default drawing settings:\n"
                              "  RUNGHORV      V      Ladder default\n"
                              "  XREF_TXTBTWN  \"  x\"\n"
                              "\n"
                              "├── cover.dwg  Cover sheet\n"
                              "├── POWER\n"
                              "│   ├── MOTORS\n"
                              "│   │   ├── power/m1.dwg         Motor control · Sheet 2 · North · South\n"
                              "│   │   └── power/motor-two.dwg\n"
                              "│   └── ../other/ref.dwg (reference only)\n"
                              "├── SPARE (empty)\n"
                              "└── last.dwg   Last\n"
                              "5 drawings in 3 subfolders\n");
}

TEST_F(KqpShowTest, show_fileInOtherEncoding_namesItAndShowsText) {
    folder.write("Gr\xC3\xB6\xC3\x9F"
                 "e.kqp",
        "*[1]M\xFChle\n");
    const ProcessResult result = kqp({"show", "Gr\xC3\xB6\xC3\x9F"
                                              "e.kqp"});
    expectDone(result);
    const std::string start = "GRÖßE  " +
                              folder.native("Gr\xC3\xB6\xC3\x9F"
                                            "e.kqp") +
                              "  windows-1252\n  Mühle\n";
    EXPECT_EQ(result.out.substr(0, start.size()), start);
}

TEST_F(KqpShowTest, show_textWithControls_arrivesEscaped) {
    folder.write("tricks.kqp", "*[1]\x1B]0;owned\x07\tend\x7F\n*[2]\xE2\x80\xAEgwd\xC2\x9B\n=\x1B[2J\n====="
                               "SUB=A\x1B[31m\nx\x1B.dwg\n");
    const ProcessResult result = kqp({"show", "tricks.kqp", "--color=never"});
    expectDone(result);
    EXPECT_NE(result.out.find("  \\x1B]0;owned\\x07\\tend\\x7F\n  \\u202Egwd\\x9B\n"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("└── A\\x1B[31M\n    └── x\\x1B.dwg  \\x1B[2J\n"), std::string::npos)
        << result.out;
    EXPECT_EQ(result.out.find('\x1B'), std::string::npos);
}

TEST_F(KqpShowTest, show_fileNameWithBytesThatAreNoText_opensAndIsEscaped) {
    folder.write("a\xFF\n.kqp", "x\n");
    const ProcessResult result = kqp({"show", "a\xFF\n.kqp"});
    expectDone(result);
    EXPECT_EQ(result.out.substr(0, result.out.find('\n')), "A\\xFF\\n  " + folder.native("a\\xFF\\n.kqp"));
}

TEST_F(KqpShowTest, show_color_followsChoiceAndTerminal) {
    folder.write("plant.kqp", plantProject);
    const auto colored = [](const std::string& text) { return text.find('\x1B') != std::string::npos; };
    EXPECT_FALSE(colored(kqp({"show", "plant.kqp"}).out));
    EXPECT_TRUE(colored(kqp({"show", "--color=always", "plant.kqp"}).out));
    EXPECT_TRUE(colored(onTerminal({"show", "plant.kqp"}, "xterm", "")));
    EXPECT_FALSE(colored(onTerminal({"show", "plant.kqp"}, "xterm", "1")));
    EXPECT_FALSE(colored(onTerminal({"show", "plant.kqp"}, "dumb", "")));
    EXPECT_TRUE(colored(onTerminal({"show", "--color", "always", "plant.kqp"}, "dumb", "1")));
    EXPECT_FALSE(colored(onTerminal({"show", "--color", "never", "plant.kqp"}, "xterm", "")));
}

TEST_F(KqpShowTest, show_coloredText_isThePlainTextWithCodes) {
    folder.write("plant.kqp", plantProject);
    std::string text = kqp({"show", "--color=always", "plant.kqp"}).out;
    for (std::size_t at = 0; (at = text.find('\x1B', at)) != std::string::npos;)
        text.erase(at, text.find('m', at) - at + 1);
    EXPECT_EQ(text, kqp({"show", "--color=never", "plant.kqp"}).out);
}

} // namespace
} // namespace ryv::test
