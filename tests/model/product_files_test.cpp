#include "model/drawing_settings.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <map>

namespace ryv::test {
namespace {

/// The attribute definitions in a block file's model space, each by its group codes.
std::vector<std::map<CString, CString>> definitionsIn(const std::string& file) {
    const CStringArray lines =
        split(decodeUtf8(readBytes(RYV_TEST_DATA "/../../embedded/product/support/" + file)), u'\n');
    std::vector<std::map<CString, CString>> definitions;
    bool inEntities = false;
    bool open = false;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
        const CString code(trim(lines[i]));
        const CString value = lines[i + 1].substr(0, lines[i + 1].size() - 1); // without the CR
        inEntities = inEntities || (code == u"2" && value == u"ENTITIES");
        if (code == u"0") {
            open = inEntities && value == u"ATTDEF";
            if (open)
                definitions.emplace_back();
        } else if (open) {
            definitions.back()[code] = value;
        }
    }
    return definitions;
}

/// A drawing without a project gets its settings from this file, so it holds the program's own defaults.
TEST(ProductFiles, settingsBlock_holdsEverySettingWithItsDefault) {
    RyvCfgDrawingSettings defaults;
    defaults.fillWithDefaults(nullptr, false);
    auto definitions = definitionsIn("KQ_M.dwg");
    ASSERT_EQ(definitions.size(), RyvCfgDrawingSettings::count);
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        const int index = static_cast<int>(i);
        CString tag;
        RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag);
        EXPECT_EQ(definitions[i][u"2"], tag);
        EXPECT_EQ(definitions[i][u"3"], tag);
        EXPECT_EQ(definitions[i][u"1"], *defaults.find(index)) << shown(tag);
        EXPECT_EQ(definitions[i][u"70"], u"1") << shown(tag);
        EXPECT_EQ(std::stod(toAscii(definitions[i][u"10"])), 0) << shown(tag);
        EXPECT_EQ(std::stod(toAscii(definitions[i][u"20"])), -1.5 * index) << shown(tag);
    }
}

} // namespace
} // namespace ryv::test
