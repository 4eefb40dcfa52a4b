// The path rules where the recorded cases are silent: paths whose root is a single "\", names that no drawing
// should have, and hostile lengths.
#include "base/paths.h"

#include "base/fold.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::paths {
namespace {

using namespace std::string_literals;
using test::RandomText;
using test::shown;

struct Pair {
    CString path;
    CString expected;
};

struct Triple {
    CString first;
    CString second;
    std::optional<CString> expected;
};

TEST(Paths, combine_singleSeparatorRoot_staysRooted) {
    const std::vector<Triple> cases = {{u"\\home\\u", u"A.kqp", u"\\home\\u\\A.kqp"},
        {u"\\home\\u\\", u"sub\\x.dwg", u"\\home\\u\\sub\\x.dwg"},
        {u"\\home\\u", u"..\\x.dwg", u"\\home\\x.dwg"}, {u"\\home\\u", u"..\\..\\..\\x.dwg", u"\\x.dwg"},
        {u"\\home\\u", u"..", u"\\home"}, {u"\\home", u"..", u"\\"},
        {u"\\home\\u", u"\\etc\\x.dwg", u"\\etc\\x.dwg"}, {u"\\home\\u", u"", u"\\home\\u"},
        {u"\\", u"x.dwg", u"\\x.dwg"}, {u"\\", u".\\x.dwg", u"\\x.dwg"}, {u"\\", u"", u"\\"},
        {u"\\home\\u", u"..b\\.c\\d..", u"\\home\\u\\..b\\.c\\d.."}, {u"\\home\\u", u".", u"\\home\\u"},
        {u"\\home\\u", u"a/../b", u"\\home\\u\\a/../b"}};
    for (const auto& [folder, file, expected] : cases)
        EXPECT_EQ(combine(folder, file), expected) << shown(folder) << " | " << shown(file);
}

TEST(Paths, combine_edgesOfTheRoot_staysBehindIt) {
    const std::vector<Triple> cases = {{u"\\\\srv\\share", u"..\\..\\..\\x", u"\\\\srv\\x"},
        {u"\\\\srv", u"\\x", u"\\\\srv\\x"}, {u"C:a\\b", u"..\\x", u"C:a\\x"}, {u"C:", u"\\x", u"C:\\x"},
        {u"C:\\P", u"sub\\..\\", u"C:\\P\\"}, {u"", u".\\.\\x", u"x"}, {u"", u".", u"\\"},
        {u"", u"..\\x", u"\\x"}};
    for (const auto& [folder, file, expected] : cases)
        EXPECT_EQ(combine(folder, file), expected) << shown(folder) << " | " << shown(file);
}

/// What combine does behind a single "\", said the long way.
CString foldedSlowly(const CString& path) {
    CStringArray kept;
    for (const CString& component : split(path.substr(1), u'\\')) {
        if (component != u"." && component != u"..")
            kept.push_back(component);
        else if (component == u".." && !kept.empty())
            kept.pop_back();
    }
    CString result;
    for (const CString& component : kept)
        result.append(u"\\").append(component);
    return result.empty() ? u"\\" : result;
}

TEST(Paths, combine_randomComponents_agreesWithComponentList) {
    RandomText random(1, u"..\\\\ab\xD800\xDC80"s + u'\0');
    for (int i = 0; i < 20000; ++i) {
        const CString folder = u"\\x" + random.text(random.below(12));
        const CString file = u"y" + random.text(random.below(12));
        const CString joined = folder + (folder.back() == u'\\' ? u"" : u"\\") + file;
        ASSERT_EQ(combine(folder, file), foldedSlowly(joined)) << shown(joined);
    }
}

TEST(Paths, combine_lengths_failFrom260) {
    const CString folder = u"\\" + CString(200, u'd');
    EXPECT_EQ(combine(folder, CString(57, u'n')).value_or(u"").size(), maxLength);
    EXPECT_EQ(combine(folder, CString(58, u'n')), std::nullopt);
    EXPECT_EQ(combine(CString(300, u'd'), u"\\x"), u"\\x") << "a folder that is replaced does not count";
}

TEST(Paths, append_singleSeparatorRoot_joins) {
    EXPECT_EQ(append(u"\\home\\u", u"\\x.dwg"), u"\\home\\u\\x.dwg");
    EXPECT_EQ(append(u"\\", u"\\x.dwg"), u"\\x.dwg");
    EXPECT_EQ(append(u"\\home", u"\\\\srv\\share\\x"), u"\\\\srv\\share\\x");
}

TEST(Paths, relativePathTo_roots_shareOrFail) {
    const std::vector<Triple> cases = {{u"\\home\\u", u"\\home\\u\\x.dwg", u".\\x.dwg"},
        {u"\\home\\u\\", u"\\home\\u\\x.dwg", u".\\x.dwg"}, {u"\\home\\u\\", u"\\home\\x.dwg", u"..\\x.dwg"},
        {u"\\home\\u", u"\\x.dwg", u"..\\..\\x.dwg"}, {u"\\:\\a", u"\\b", u"..\\..\\b"},
        {u"\\", u"\\home\\x.dwg", u".\\home\\x.dwg"}, {u"\\home\\u", u"\\HOME\\v\\x.dwg", u"..\\v\\x.dwg"},
        {u"\\home\\u", u"\\home", u".."}, {u"\\home\\u", u"\\", u"..\\.."}, {u"\\home", u"\\home", u"."},
        {u"\\home", u"\\\\srv\\share\\x", std::nullopt}, {u"\\home", u"C:\\home\\x", std::nullopt},
        {u"C:\\home", u"\\home\\x", std::nullopt}, {u"C:P", u"C:\\P\\x", std::nullopt},
        {u"\\\\srv\\a", u"\\\\srv\\b\\x", std::nullopt}, {u"a\\b", u"a\\x", std::nullopt},
        {u"", u"", std::nullopt}};
    for (const auto& [folder, file, expected] : cases)
        EXPECT_EQ(relativePathTo(folder, file), expected) << shown(folder) << " | " << shown(file);
}

TEST(Paths, relativePathTo_lengths_failFrom260) {
    const CString deep = u"\\a\\b\\c";
    EXPECT_EQ(relativePathTo(deep, u"\\" + CString(250, u'n')).value_or(u"").size(), maxLength);
    EXPECT_EQ(relativePathTo(deep, u"\\" + CString(251, u'n')), std::nullopt);
    EXPECT_EQ(relativePathTo(u"\\a", u"\\a\\" + CString(257, u'n')).value_or(u"").size(), maxLength);
    EXPECT_EQ(relativePathTo(u"\\a", u"\\a\\" + CString(258, u'n')), std::nullopt);
}

TEST(Paths, relativePathTo_combinedAgain_leadsBack) {
    RandomText random(2, u"\\\\.aAbB\xD800\xDC80\x00E4\x00C4"s + u'\0');
    for (int i = 0; i < 20000; ++i) {
        const CString folder =
            fullPathName((random.below(2) ? u"\\b" : u"\\a") + random.text(random.below(12)) + u"x");
        const CString file =
            fullPathName((random.below(2) ? u"\\A" : u"\\a") + random.text(random.below(12)) + u"y");
        const auto relative = relativePathTo(folder, file);
        ASSERT_TRUE(relative.has_value()) << shown(folder) << " | " << shown(file);
        ASSERT_TRUE(isRelative(*relative)) << shown(*relative);
        const CString back = combine(folder, *relative).value_or(u"FAIL");
        ASSERT_TRUE(equalNoCase(back, file)) << shown(folder) << " | " << shown(file) << ": " << shown(back);
    }
}

TEST(Paths, fullPathName_singleSeparatorRoot_isKept) {
    const std::vector<Pair> cases = {{u"/home/u/A.kqp", u"\\home\\u\\A.kqp"},
        {u"\\home\\u\\..\\A.kqp", u"\\home\\A.kqp"}, {u"\\..\\..\\A.kqp", u"\\A.kqp"},
        {u"\\home\\\\u\\.\\A.kqp", u"\\home\\u\\A.kqp"}, {u"\\home\\..", u"\\"},
        {u"\\home\\u\\..\\", u"\\home\\"}, {u"\\", u"\\"}, {u"\\.", u"\\"},
        {u"\\home\\A.kqp. .", u"\\home\\A.kqp"}, {u"\\home\\a \\b\\..", u"\\home\\a"},
        {u"\\home\\...\\x", u"\\home\\...\\x"}, {u"\\home\\a:b", u"\\home\\a:b"}, {u"", u""}};
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(fullPathName(path), expected) << shown(path);
}

TEST(Paths, fullPathName_ofItsResult_changesNothing) {
    RandomText random(3, u"..\\\\/ ab:\xD800\xDC80"s + u'\0');
    for (const char16_t* root : {u"\\", u"C:\\", u"\\\\srv\\share\\"})
        for (int i = 0; i < 10000; ++i) {
            const CString path = root + random.text(random.below(16));
            const CString full = fullPathName(path);
            ASSERT_EQ(fullPathName(full), full) << shown(path);
            ASSERT_LE(full.size(), path.size()) << shown(path);
        }
}

TEST(Paths, folderAndTitle_absoluteFiles_areSeparated) {
    const std::tuple<CString, CString, CString> cases[] = {{u"\\home\\u\\A.kqp", u"\\home\\u", u"A"},
        {u"\\A.kqp", u"\\", u"A"}, {u"\\home\\a.b\\noext", u"\\home\\a.b", u"noext"},
        {u"\\home\\a:b.kqp", u"\\home", u"a:b"}, {u"\\home\\A.v1.kqp", u"\\home", u"A.v1"},
        {u"\\home\\.hidden", u"\\home", u""}, {u"\\:A.kqp", u"\\", u":A"}, {u"C:\\A.kqp", u"C:\\", u"A"},
        {u"C:\\P\\A.kqp", u"C:\\P", u"A"}, {u"\\\\srv\\share\\A.kqp", u"\\\\srv\\share", u"A"},
        {u"\\home\\\0\xD800.kqp"s, u"\\home", u"\0\xD800"s}};
    for (const auto& [path, folder, title] : cases) {
        EXPECT_EQ(folderOf(path), folder) << shown(path);
        EXPECT_EQ(titleOf(path), title) << shown(path);
    }
    EXPECT_EQ(folderOf(u"\\" + CString(1000, u'd') + u"\\x").size(), 1001u) << "no limit";
}

CString repeated(CStringView text, std::size_t times) {
    CString result;
    result.reserve(text.size() * times);
    while (times-- > 0)
        result += text;
    return result;
}

// Work that grows with the square of the length would not end within the test's time limit.
constexpr std::size_t million = 1000000;

TEST(Paths, fullPathName_millionsOfComponents_takesLinearTime) {
    EXPECT_EQ(fullPathName(u"C:\\" + repeated(u"a\\..\\", million)), u"C:\\");
    EXPECT_EQ(fullPathName(u"\\" + repeated(u"a\\", million) + repeated(u"..\\", million) + u"x"), u"\\x");
    EXPECT_EQ(fullPathName(u"\\" + repeated(u".\\\\", million) + u"x"), u"\\x");
    EXPECT_EQ(fullPathName(u"\\" + CString(million, u'.')), u"\\");
    const CString name(4 * million, u'n');
    EXPECT_EQ(fullPathName(u"\\" + name + u"\\.." + u"\\" + name), u"\\" + name);
}

TEST(Paths, everyOperation_millionsOfUnits_takesLinearTime) {
    for (const CStringView piece : {u"\\", u".", u"..\\", u"a\\", u":", u"/", u" ", u"\\.", u"a"}) {
        const CString path = repeated(piece, 2 * million);
        isRelative(path);
        EXPECT_EQ(combine(u"\\home", path), std::nullopt);
        EXPECT_EQ(append(path, u"x"), std::nullopt);
        EXPECT_EQ(renameExtension(path, CString(300, u'e')), std::nullopt);
        EXPECT_EQ(relativePathTo(u"\\x" + path + u"y", u"\\x" + path + u"y\\z"), u".\\z");
        EXPECT_LE(findFileName(path).size(), path.size());
        EXPECT_EQ(removeExtension(path).size() + findExtension(path).size(), path.size());
        EXPECT_LE(folderOf(path).size() + titleOf(path).size(), path.size());
    }
    EXPECT_EQ(relativePathTo(u"\\" + repeated(u"a\\", million), u"\\b"), std::nullopt);
}

TEST(Paths, isRelative_tooShortForADrive_isTrue) {
    for (const CStringView path : {CStringView(u"C:\\", 1), CStringView(u"\\", 0), CStringView(u"a", 1)})
        EXPECT_TRUE(isRelative(path)) << shown(path);
}

} // namespace
} // namespace ryv::paths
