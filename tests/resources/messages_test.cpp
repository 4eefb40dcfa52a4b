#include "resources/messages.h"

#include "base/format.h"
#include "base/text.h"
#include "resources/catalogue.h"
#include "resources/file_reasons.h"
#include "resources/setting_texts.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace ryv::test {
namespace {

struct Entry {
    int number;
    const char16_t* arguments;
    bool isMessage = false; ///< a sentence or several; else a title, a name or a label
};

// The numbers as callers, LISP and answer files know them, whatever the constants are called.
constexpr Entry entries[] = {{101, u""}, {102, u""}, {103, u""}, {104, u""}, {105, u""}, {106, u""},
    {107, u""}, {108, u""}, {121, u""}, {122, u""}, {127, u""}, {128, u""}, {129, u""}, {130, u""},
    {131, u""}, {132, u"ss", true}, {133, u""}, {134, u"s", true}, {135, u""}, {136, u"ss", true}, {137, u""},
    {138, u"s"}, {173, u"", true}, {174, u"s"}, {179, u""}, {180, u"s", true}, {181, u"ss", true},
    {182, u"", true}, {183, u"", true}, {184, u""}, {185, u"s", true}, {268, u"", true}, {269, u""},
    {291, u""}, {292, u""}, {300, u""}, {301, u"", true}, {302, u""}, {303, u""}, {601, u""}, {602, u""},
    {603, u"s"}, {604, u"s"}, {605, u""}, {606, u""}, {607, u""}, {608, u""}, {611, u""}, {612, u""},
    {613, u""}, {614, u""}, {615, u""}, {616, u"d"}, {617, u"dd"}, {618, u"dd"}, {621, u""}, {622, u""},
    {623, u""}, {624, u""}, {625, u""}, {626, u""}, {627, u""}, {628, u""}, {629, u""}, {640, u""},
    {641, u""}, {642, u""}, {643, u""}, {644, u""}, {645, u""}, {646, u""}, {647, u""}, {648, u""},
    {649, u"", true}, {650, u"", true}, {651, u"", true}, {3000, u""}, {3020, u"", true}, {3021, u"s", true},
    {3022, u"s", true}, {3023, u"s", true}, {3024, u"", true}, {3025, u"ss", true}, {3026, u"ss", true},
    {3027, u"ss", true}, {3028, u"s", true}, {3100, u""}, {3140, u"", true}, {3141, u"s", true},
    {3142, u"s", true}, {3143, u"s", true}, {3144, u"s", true}, {3150, u"s", true}, {3151, u"s", true},
    {3152, u"sss", true}, {3153, u"s", true}, {3154, u"s", true}, {3155, u"s", true}, {3156, u"s", true},
    {3157, u"s", true}, {3158, u"ss", true}, {3159, u"sss", true}};

bool endsSentence(CStringView text) {
    return text.ends_with(u'.') || text.ends_with(u'?');
}

TEST(Messages, eachNumber_hasATextWithItsArguments) {
    for (const Entry& entry : entries) {
        const CStringView text = messageText(entry.number);
        ASSERT_FALSE(text.empty()) << entry.number;
        EXPECT_EQ(toAscii(placeholders(text)), toAscii(entry.arguments)) << entry.number;
        EXPECT_EQ(sameText(trim(text), text), true) << entry.number;
        EXPECT_EQ(endsSentence(text), entry.isMessage) << entry.number << ": " << toAscii(text);
        EXPECT_TRUE(entry.isMessage || text.find(u'\n') == CStringView::npos) << entry.number;
    }
}

TEST(Messages, fieldsAndLockStates_canBeToldApart) {
    std::set<CStringView> texts;
    for (const int number : {101, 102, 103, 104, 105, 106, 107, 108, 291, 292, 121, 122, 127})
        EXPECT_TRUE(texts.insert(messageText(number)).second) << number;
}

struct Form {
    std::string placeholders;
    bool isMessage;
    bool hasLetter;
    auto operator<=>(const Form&) const = default;
};

std::map<int, Form> formsOf(std::span<const Message> part) {
    std::map<int, Form> forms;
    for (const auto& [number, text] : part) {
        EXPECT_FALSE(text.empty()) << number;
        const bool hasLetter = text.find(u'&') != CStringView::npos;
        EXPECT_EQ(std::count(text.begin(), text.end(), u'&'), hasLetter ? 1 : 0) << number;
        forms[number] = {toAscii(placeholders(text)), endsSentence(text), hasLetter};
    }
    return forms;
}

TEST(Messages, languages_haveTheSameNumbersAndPlaceholders) {
    const Catalogue english = catalogueOf(Language::english);
    const Catalogue german = catalogueOf(Language::german);
    for (std::size_t part = 0; part < english.size(); ++part) {
        const std::map<int, Form> ours = formsOf(english[part]);
        const std::map<int, Form> theirs = formsOf(german[part]);
        for (const auto& [number, form] : ours)
            EXPECT_TRUE(theirs.contains(number) && theirs.at(number) == form) << number << " in German";
        for (const auto& [number, form] : theirs)
            EXPECT_TRUE(ours.contains(number)) << number << " in English";
    }
    const auto haveSameKeys = [](const SettingText& a, const SettingText& b) { return a.key == b.key; };
    EXPECT_TRUE(std::ranges::equal(english::settingTexts(), german::settingTexts(), haveSameKeys));
}

class GivenEnvironment final : public Environment {
public:
    explicit GivenEnvironment(std::map<CString, CString> values) : values_(std::move(values)) {}
    CString variable(CStringView name) override { return values_[CString(name)]; }

private:
    std::map<CString, CString> values_;
};

TEST(Languages, locale_choosesOne) {
    struct Case {
        std::map<CString, CString> environment;
        bool isGerman;
    };
    const Case cases[] = {{{}, false}, {{{u"LANG", u"de_DE.UTF-8"}}, true}, {{{u"LANG", u"de"}}, true},
        {{{u"LANG", u"de@euro"}}, true}, {{{u"LANG", u"den_CA"}}, false}, {{{u"LANG", u"fr_FR"}}, false},
        {{{u"LANG", u"de_DE"}, {u"LC_MESSAGES", u"en_GB"}}, false},
        {{{u"LANG", u"en_GB"}, {u"LC_MESSAGES", u"de_AT"}}, true},
        {{{u"LC_MESSAGES", u"de_AT"}, {u"LC_ALL", u"C.UTF-8"}}, false},
        {{{u"LANGUAGE", u"de"}, {u"LC_ALL", u"C.UTF-8"}}, false}, {{{u"LANGUAGE", u"de"}}, false},
        {{{u"LANGUAGE", u"fr:de:en"}, {u"LANG", u"en_GB"}}, true},
        {{{u"LANGUAGE", u"en:de"}, {u"LANG", u"de_DE"}}, false},
        {{{u"LANGUAGE", u"fr:it"}, {u"LANG", u"de_DE"}}, false}};
    for (const Case& each : cases) {
        GivenEnvironment environment(each.environment);
        EXPECT_EQ(languageOf(environment) == Language::german, each.isGerman) << &each - cases;
    }
}

TEST(Languages, chosenOne_givesTheTexts) {
    setLanguage(Language::german);
    EXPECT_EQ(messageText(3000), u"Neues Projekt");
    EXPECT_EQ(settingText(u"CFG060"), u"Drahtlayer");
    EXPECT_EQ(fileReason(FileError::denied), u"Zugriff verweigert");
    setLanguage(Language::english);
    EXPECT_EQ(messageText(3000), u"New Project");
    EXPECT_EQ(messageText(3000, Language::german), u"Neues Projekt");
    EXPECT_EQ(settingText(u"CFG060"), u"Wire layers");
    EXPECT_EQ(fileReason(FileError::denied), u"permission denied");
}

TEST(Messages, otherNumbers_haveNone) {
    for (const int number : {-1, 0, 100, 109, 267, 270, 1 << 30})
        EXPECT_TRUE(messageText(number).empty()) << number;
}

} // namespace
} // namespace ryv::test
