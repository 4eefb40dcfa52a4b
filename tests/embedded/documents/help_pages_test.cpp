#include "embedded/services/help_pages.h"

#include "base/encoding.h"
#include "embedded/os/posix_platform.h"
#include "resources/language.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <regex>

namespace ryv::test {
namespace {

class HelpPagesTest : public ::testing::Test {
protected:
    TempFolder folder;
    drafta::PosixPlatform system;
    CString printed;
    drafta::HelpPages help{
        *system.platform().os.files, folder.module(), [this](CStringView text) { printed += text; }};
};

TEST_F(HelpPagesTest, page_isPrintedOrGivenToTheViewer) {
    folder.write("new_project.md", "# New\n\nsee [there](there.md) [not\n](a) or [1]\n");
    help.showTopic(u"new_project");
    EXPECT_EQ(printed, u"\n# New\n\nsee there [not\n](a) or [1]\n");
    CString shown;
    help.setViewer([&](CStringView file) { shown = file; });
    help.showTopic(u"new_project");
    EXPECT_EQ(shown, folder.module(u"new_project.md"));
}

TEST_F(HelpPagesTest, otherTopics_areToldAndOpenNothing) {
    std::filesystem::create_directory(folder.native("sub"));
    folder.write("sub/a.md", "secret");
    std::filesystem::create_directory(folder.native("folder.md"));
    help.setViewer([&](CStringView) { FAIL(); });
    for (const CStringView topic : {u"", u"missing", u"sub\\a", u"sub/a", u"..", u"A", u"folder"}) {
        printed.clear();
        help.showTopic(topic);
        EXPECT_EQ(printed, u"\nThere is no help on " + CString(topic) + u".\n");
    }
}

TEST_F(HelpPagesTest, page_isOfTheLanguageThatIsSpoken) {
    std::filesystem::create_directory(folder.native("de"));
    folder.write("both.md", "English");
    folder.write("de/both.md", "Deutsch");
    folder.write("one.md", "English");
    help.showTopic(u"both");
    setLanguage(Language::german);
    help.showTopic(u"both");
    help.showTopic(u"one");
    setLanguage(Language::english);
    EXPECT_EQ(printed, u"\nEnglish\nDeutsch\nEnglish");
}

/// Whatever a page, a button or a dialog leads to is there.
TEST_F(HelpPagesTest, shippedPages_leadNowhereElse) {
    const std::filesystem::path pages = std::filesystem::path(RYV_TEST_DATA) / "../../../docs/help";
    const auto missing = [](const std::filesystem::path& file, const char* pattern,
                             const std::filesystem::path& from, const std::string& end) {
        const std::string text = readBytes(file.string());
        const std::regex link(pattern);
        for (std::sregex_iterator each(text.begin(), text.end(), link), last; each != last; ++each)
            if (!std::filesystem::exists(from / ((*each)[1].str() + end)))
                ADD_FAILURE() << file << " leads to " << (*each)[1];
    };
    std::size_t count = 0;
    for (const auto& page : std::filesystem::recursive_directory_iterator(pages))
        if (page.is_regular_file()) {
            ++count;
            missing(page.path(), R"(\]\(([^)]*)\))", page.path().parent_path(), "");
        }
    EXPECT_EQ(count, 16u);
    for (const char* const part : {"ui", "host"})
        for (const auto& source : std::filesystem::recursive_directory_iterator(pages / "../.." / part))
            if (source.path().extension() == ".cpp")
                missing(source.path(), R"re((?:setHelpTopic\(|helpTopic = )u"([^"]*)")re", pages, ".md");
}

} // namespace
} // namespace ryv::test
