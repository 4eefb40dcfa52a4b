#include "model/settings_block.h"

#include "bridge/platform.h"
#include "tests/support/memory_drawing.h"
#include "tests/support/memory_files.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace ryv::test {
namespace {

constexpr int wireFormat = 9;
constexpr int sheet = 13;
constexpr int wireLayers = 26;
constexpr int last = RyvCfgDrawingSettings::getMaxBracketIndex();
const CString blockFile = u"\\lib\\KQ_M.dwg";

/// A document is current; LISP knows the block's file and the user folder as long as they are not empty.
class Host : public NullHostLisp, public NullHostDocuments, public NullUserInterface {
public:
    CString blockPath = u"/lib/KQ_M.dwg";
    CString userFolder = u"/usr/me/";
    CStringArray told; ///< LISP messages and message boxes
    bool hasCurrentDocument() override { return true; }
    LispStatus invoke(const HostResultBuffer& call, HostResultBuffer& result) override {
        const CString function = *call.stringAt(0);
        if (function == u"kq_fio_block_path_failed_msg")
            told.push_back(function + u" " + *call.stringAt(1));
        const bool isPath = function == u"kq_fio_does_block_exist_disk" && *call.stringAt(1) == u"KQ_M";
        const bool isFolder = function == u"ryv_get_var" && *call.stringAt(1) == u"GBL_kq_usr";
        const CString text = isPath ? blockPath : isFolder ? userFolder : CString();
        result = text.empty() ? HostResultBuffer().addNil() : HostResultBuffer().addString(text);
        return LispStatus::success;
    }
    Answer messageBox(const MessageBoxRequest& request) override {
        const bool complete = !request.text.empty() && !request.caption.empty() &&
                              request.icon == MessageIcon::warning && request.buttons == MessageButtons::ok;
        told.push_back(toText(request.message) + (complete ? u" warning" : u" incomplete"));
        return Answer::ok;
    }
};

CString tagOf(int index) {
    CString tag;
    RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag);
    return tag;
}

class SettingsBlock : public ::testing::Test {
protected:
    SettingsBlock() {
        ports.host.lisp = &host;
        ports.host.documents = &host;
        ports.ui = &host;
        ports.os.files = &files;
        setPlatform(&ports);
        settings.fillWithDefaults(nullptr, false);
    }
    ~SettingsBlock() override { setPlatform(nullptr); }

    /// The attributes of a whole block, defaults as values; `without` is left out.
    static std::vector<DrawingAttribute> whole(const std::set<CString>& without = {}) {
        RyvCfgDrawingSettings defaults;
        defaults.fillWithDefaults(nullptr, false);
        std::vector<DrawingAttribute> attributes;
        for (int index = 0; index <= last; ++index)
            if (!without.contains(tagOf(index)))
                attributes.push_back({tagOf(index), *defaults.find(index), {0, -1.5 * index, 0}});
        return attributes;
    }
    void set(int index, const CString& value) { settings.setValue(index, &value); }

    Host host;
    MemoryFiles files;
    Platform ports;
    MemoryDrawing drawing;
    RyvDbxBlockRef accessor{drawing};
    RyvCfgDrawingSettings settings;
};

TEST_F(SettingsBlock, finding_searchesTheSpacesInOrderUpToTheNumberOfLayouts) {
    drawing.spaces = {{u"*Paper_Space2", {}}, {u"*Paper_Space1", {}}, {u"*PAPER_SPACE", {}},
        {u"*Model_Space", {}}, {u"*Paper_Space0", {}}, {u"*Paper_Space3", {}}};
    drawing.layouts = 4;
    for (std::size_t i = 0; i < drawing.spaces.size(); ++i)
        drawing.add(i, u"kq_m", {{u"SHEET", drawing.spaces[i].first, {}}});
    CStringArray found;
    while (findSettingsBlock(accessor, u"KQ_M")) {
        CString place;
        ASSERT_TRUE(accessor.getAttribute(u"SHEET", place));
        found.push_back(place);
        for (auto& [name, references] : drawing.spaces)
            if (name == place)
                references.clear();
    }
    EXPECT_EQ(found, (CStringArray{u"*Model_Space", u"*PAPER_SPACE", u"*Paper_Space0", u"*Paper_Space1",
                         u"*Paper_Space2"}));
    EXPECT_FALSE(accessor.isOpen());
}

TEST_F(SettingsBlock, ensuring_insertsAtTheOriginOfModelSpaceOnlyWhenMissing) {
    drawing.spaces.push_back({u"*Paper_Space", {}});
    drawing.blockFiles[blockFile] = whole();
    EXPECT_TRUE(ensureSettingsBlock(accessor, true));
    EXPECT_TRUE(accessor.isOpen());
    EXPECT_TRUE(ensureSettingsBlock(accessor, true));
    ASSERT_EQ(drawing.insertions.size(), 1u);
    const BlockInsertion& insertion = drawing.insertions[0];
    EXPECT_EQ(insertion.block, u"KQ_M");
    EXPECT_EQ(insertion.file, blockFile);
    EXPECT_EQ(insertion.position.x + insertion.position.y + insertion.position.z, 0);
    EXPECT_EQ(insertion.scale.x * insertion.scale.y * insertion.scale.z, 1);
    EXPECT_EQ(insertion.rotation, 0);
    EXPECT_EQ(drawing.spaces[0].second.size(), 1u);
    EXPECT_TRUE(host.told.empty());
}

TEST_F(SettingsBlock, blockThatCannotBeHad_isToldOnceAndOnlyWhenAskedTo) {
    for (const bool showMessages : {false, true}) {
        EXPECT_FALSE(ensureSettingsBlock(accessor, showMessages)); // the file is not there
        EXPECT_FALSE(applySettingsToDrawing(accessor, settings, showMessages));
    }
    EXPECT_EQ(drawing.insertions.size(), 4u);
    host.blockPath.clear(); // LISP knows no path
    EXPECT_FALSE(ensureSettingsBlock(accessor, false));
    EXPECT_FALSE(ensureSettingsBlock(accessor, true));
    EXPECT_EQ(drawing.insertions.size(), 4u);
    EXPECT_EQ(
        host.told, (CStringArray{u"268 warning", u"268 warning", u"kq_fio_block_path_failed_msg KQ_M"}));
    EXPECT_FALSE(writeDrawingSettings(accessor, settings));
    EXPECT_FALSE(addMissingSettingsAttributes(accessor));
}

TEST_F(SettingsBlock, reading_keepsWhatTheOpenReferenceOrTheBlockLacks) {
    RyvCfgDrawingSettings read;
    EXPECT_FALSE(readDrawingSettings(accessor, read, true));
    EXPECT_TRUE(read == settings);
    read.reInitializeData();
    auto& block =
        drawing.add(0, u"KQ_M", {{u"SHEET_", u"17", {}}, {u"wirefmt", u"", {}}, {u"OTHER", u"x", {}}});
    EXPECT_TRUE(readDrawingSettings(accessor, read, false));
    EXPECT_EQ(*read.find(sheet), u"17");
    EXPECT_EQ(*read.find(wireFormat), u"");
    EXPECT_EQ(read.find(wireLayers), nullptr);
    EXPECT_TRUE(readDrawingSettings(accessor, read, true));
    EXPECT_EQ(*read.find(wireLayers), u"WIRES");
    EXPECT_EQ(*read.find(wireFormat), u"");
    block.attributes.push_back({u"SHEET", u"18", {}});
    EXPECT_TRUE(readDrawingSettings(accessor, read, false));
    EXPECT_EQ(*read.find(sheet), u"18");
    drawing.add(0, u"OTHER", {{u"SHEET", u"of the other", {}}});
    ASSERT_TRUE(accessor.findFirst(u"OTHER"));
    EXPECT_TRUE(readDrawingSettings(accessor, read, false));
    EXPECT_EQ(*read.find(sheet), u"of the other");
}

TEST_F(SettingsBlock, writing_putsEveryValueUnderItsTag) {
    for (int index = 0; index <= last; ++index)
        set(index, u"value " + toText(index));
    settings.setValue(wireFormat, nullptr);
    auto attributes = whole({u"SHEET"});
    attributes.push_back({u"SHEET_", u"", {}});
    drawing.add(0, u"KQ_M", attributes);
    EXPECT_TRUE(writeDrawingSettings(accessor, settings));
    EXPECT_EQ(drawing.spaces[0].second[0].attributes.size(), 77u);
    for (int index = 0; index <= last; ++index) {
        const CString tag = index == sheet ? CString(u"SHEET_") : tagOf(index);
        EXPECT_EQ(drawing.value(0, 0, tag), index == wireFormat ? CString() : u"value " + toText(index));
    }
}

struct Missing {
    std::set<CString> tags;
    CString lowest; ///< an attribute that is moved below all others; empty: none
    CString before; ///< the attribute that the added ones follow
    double y;       ///< of the first that is added
};

TEST_F(SettingsBlock, missingAttributes_areStackedBelowTheLowestInTheirOrder) {
    const Missing cases[] = {{{u"WNUM_GAP"}, u"", u"WNUM_FLAGS", -1.5 * 76},
        {{u"WNUM_GAP"}, u"TAGFMT", u"TAGFMT", -201.5},
        {{u"SHEET", u"IEC_LOC", u"RUNGHORV"}, u"XREFFMT", u"XREFFMT", -201.5}};
    for (const Missing& each : cases)
        for (const bool withValues : {false, true}) {
            drawing.spaces[0].second.clear();
            auto& attributes = drawing.add(0, u"KQ_M", whole(each.tags)).attributes;
            for (DrawingAttribute& attribute : attributes)
                if (attribute.tag == each.lowest)
                    attribute.position.y = -200;
            accessor.setSpace(u"*Model_Space");
            set(76, u"9,9,9");
            ASSERT_TRUE(withValues ? writeDrawingSettings(accessor, settings)
                                   : addMissingSettingsAttributes(accessor));
            ASSERT_EQ(attributes.size(), 77u);
            const auto before = std::find_if(attributes.begin(), attributes.end(),
                [&each](const DrawingAttribute& attribute) { return attribute.tag == each.before; });
            const auto place = static_cast<std::size_t>(before - attributes.begin()) + 1;
            std::size_t added = 0;
            for (int index = 0; index <= last; ++index)
                if (each.tags.contains(tagOf(index))) {
                    const DrawingAttribute& attribute = attributes[place + added];
                    EXPECT_EQ(attribute.tag, tagOf(index));
                    EXPECT_EQ(attribute.value, withValues ? *settings.find(index) : CString());
                    EXPECT_EQ(attribute.position.y, each.y - 1.5 * static_cast<double>(added++));
                }
        }
}

TEST_F(SettingsBlock, blockWithoutAttributes_getsTheFirstAtItsInsertionPoint) {
    drawing.add(0, u"KQ_M", {}).position = {10, 20, 0};
    EXPECT_TRUE(addMissingSettingsAttributes(accessor));
    const auto& attributes = drawing.spaces[0].second[0].attributes;
    ASSERT_EQ(attributes.size(), 77u);
    for (int index = 0; index <= last; ++index) {
        const DrawingAttribute& attribute = attributes[static_cast<std::size_t>(index)];
        EXPECT_EQ(attribute.tag, tagOf(index));
        EXPECT_EQ(attribute.position.x, 10);
        EXPECT_EQ(attribute.position.y, 20 - 1.5 * index);
    }
}

TEST_F(SettingsBlock, failedAddition_stopsTheWriteBeforeAnyValue) {
    drawing.add(0, u"KQ_M", whole({u"WNUM_GAP"}));
    drawing.refusedTags = {u"WNUM_GAP"};
    set(sheet, u"new");
    set(wireFormat, u"%S%N");
    drawing.add(0, u"KQ_MLRH", {{u"WIREFMT", u"%N", {}}});
    EXPECT_FALSE(writeDrawingSettings(accessor, settings));
    EXPECT_FALSE(applySettingsToDrawing(accessor, settings, true));
    EXPECT_EQ(drawing.value(0, 0, u"SHEET"), u"");
    EXPECT_EQ(drawing.value(0, 1, u"WIREFMT"), u"%N");
}

TEST_F(SettingsBlock, valueThatTheDrawingRefuses_doesNotKeepTheOthersOut) {
    drawing.add(0, u"KQ_M", whole());
    drawing.refusedTags = {u"RUNGHORV"};
    set(sheet, u"new");
    EXPECT_TRUE(writeDrawingSettings(accessor, settings));
    EXPECT_EQ(drawing.value(0, 0, u"SHEET"), u"new");
}

TEST_F(SettingsBlock, lowestAttribute_isTheFirstOfEquals) {
    constexpr double none = std::numeric_limits<double>::max();
    CString tag = u"before";
    EXPECT_FALSE(findLowestAttributeTag(accessor, tag));
    drawing.add(0, u"KQ_M", {{u"A", u"", {0, none, 0}}});
    ASSERT_TRUE(accessor.findFirst(u"KQ_M"));
    EXPECT_FALSE(findLowestAttributeTag(accessor, tag));
    EXPECT_EQ(tag, u"before");
    drawing.spaces[0].second[0].attributes = {
        {u"A", u"", {0, 5, 0}}, {u"B", u"", {9, -2, 0}}, {u"C", u"", {-9, -2, 0}}, {u"D", u"", {0, 0, 0}}};
    EXPECT_TRUE(findLowestAttributeTag(accessor, tag));
    EXPECT_EQ(tag, u"B");
}

/// References of ladder blocks and others, their format before, and whether it follows from "%N" to "%S%N".
TEST_F(SettingsBlock, applying_updatesLaddersOfTheOldFormatInAllSpaces) {
    struct Ladder {
        const char16_t* block;
        const char16_t* format;
        bool follows;
    };
    std::vector<Ladder> ladders{{u"KQ_MLRH", u"%N", true}, {u"KQ_MLRH", u"%X", false},
        {u"KQ_MLRH", u"%n", true}, {u"KQ_MLRV1", u"%N ", false}, {u"KQ_MLRH3", u"%N", false},
        {u"KQ_MLR", u"%N", false}, {u"kq_mlrv9", u"%N", true}};
    for (const char16_t* const name :
        {u"KQ_MLRHX", u"KQ_MLRH1", u"KQ_MLRH2", u"KQ_MLRH6", u"KQ_MLRH7", u"KQ_MLRH8", u"KQ_MLRH9",
            u"KQ_MLRV", u"KQ_MLRVX", u"KQ_MLRV1", u"KQ_MLRV2", u"KQ_MLRV6", u"KQ_MLRV7", u"KQ_MLRV8"})
        ladders.push_back({name, u"%N", true});
    drawing.layouts = 3;
    drawing.spaces = {{u"*Model_Space", {}}, {u"*Paper_Space", {}}, {u"*Paper_Space0", {}}};
    for (std::size_t space = 0; space < 3; ++space)
        for (const Ladder& ladder : ladders)
            drawing.add(space, ladder.block, {{u"FIRST", u"%N", {}}, {u"WIREFMT", ladder.format, {}}});
    drawing.add(1, u"KQ_MLRV2", {{u"FIRST", u"%N", {}}});
    drawing.add(1, u"KQ_M", whole());
    set(wireFormat, u"%S%N");
    EXPECT_TRUE(applySettingsToDrawing(accessor, settings, true));
    for (std::size_t space = 0; space < 3; ++space)
        for (std::size_t i = 0; i < ladders.size(); ++i) {
            EXPECT_EQ(drawing.value(space, i, u"WIREFMT"), ladders[i].follows ? u"%S%N" : ladders[i].format)
                << space << " " << shown(ladders[i].block);
            EXPECT_EQ(drawing.value(space, i, u"FIRST"), u"%N");
        }
    replaceLadderWireFormat(accessor, u"%s%n", u"%s%n"); // the same: nothing is done
    EXPECT_EQ(drawing.value(0, 0, u"WIREFMT"), u"%S%N");
    replaceLadderWireFormat(accessor, u"%S%N", u"%s%n"); // another case is another format
    EXPECT_EQ(drawing.value(0, 0, u"WIREFMT"), u"%s%n");
}

TEST_F(SettingsBlock, applying_keepsWhatDescribesTheDrawingAndTakesTheRest) {
    auto attributes = whole();
    for (DrawingAttribute& each : attributes)
        each.value = u"own " + each.tag;
    drawing.add(0, u"KQ_M", attributes);
    set(wireLayers, u"PWR,own wirelays");
    settings.setValue(wireFormat, nullptr);
    drawing.add(0, u"KQ_MLRH", {{u"WIREFMT", u"OWN WIREFMT", {}}});
    for (int index = 0; index <= last; ++index)
        if (RyvCfgDrawingSettings::isDrawingSpecific(index))
            set(index, u"of the project");
    EXPECT_TRUE(applySettingsToDrawing(accessor, settings, false));
    for (int index = 0; index <= last; ++index) {
        const CString own = u"own " + tagOf(index);
        const CString* const given = settings.find(index);
        const CString expected = RyvCfgDrawingSettings::isDrawingSpecific(index) ? own
                                 : index == wireLayers                           ? own + u",PWR"
                                 : given                                         ? *given
                                                                                 : CString();
        EXPECT_EQ(drawing.value(0, 0, tagOf(index)), expected) << shown(tagOf(index));
    }
    EXPECT_EQ(drawing.value(0, 1, u"WIREFMT"), u"");
}

TEST_F(SettingsBlock, script_isWrittenAsPlainTextIntoTheUserFolder) {
    CString path = u"before";
    files.put(u"/usr/me/_SCRTMP1.SCR", std::string(100, 'x'));
    EXPECT_TRUE(writeTempScript(u"_.SAVEAS\n\u96FB\n", path));
    EXPECT_EQ(path, u"\\usr\\me\\_SCRTMP1.SCR");
    EXPECT_EQ(files.get(u"/usr/me/_SCRTMP1.SCR"), "_.SAVEAS\n\xE9\x9B\xBB\n");
    EXPECT_EQ(files.openHandles(), 0u);
    host.userFolder = u"\\usr\\me\\my";
    EXPECT_TRUE(writeTempScript(u"", path));
    EXPECT_EQ(path, u"\\usr\\me\\my_SCRTMP1.SCR");
    files.protect(path);
    const CString kept = path;
    EXPECT_FALSE(writeTempScript(u"x", path));
    host.userFolder.clear();
    EXPECT_FALSE(writeTempScript(u"x", path));
    EXPECT_EQ(path, kept);
    EXPECT_EQ(files.get(kept), "");
}

} // namespace
} // namespace ryv::test
