// A project's settings on their way into drawings: the sample project's file, the embedded host with its
// package and product files, and an independent reader that says what the drawings hold afterwards.
#include "bridge/lisp.h"
#include "bridge/platform.h"
#include "embedded/documents/host.h"
#include "model/kqp_filer.h"
#include "model/settings_block.h"
#include "tests/embedded/drawings/independent_reader.h"
#include "tests/support/text.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace ryv::test {
namespace {

using drafta::test::linesOf;
using drafta::test::ReportLine;

const std::string project = RYV_SAMPLES "/pump-station/Pump Station.kqp";
const std::string drawings = RYV_TEST_DATA "/../embedded/drawings/data/";

class SettingsInDrawingsTest : public ::testing::Test {
protected:
    TempFolder folder;
    std::string printed;
    drafta::Host host{
        {folder.native("profile"), RYV_PRODUCT, [this](std::string_view text) { printed += text; },
            [this](std::string_view text) { printed += text; }, nullptr}};
    RyvCfgDrawingSettings settings;

    void SetUp() override {
        setPlatform(&host.platform());
        ASSERT_TRUE(host.newDocument());
        for (const char16_t* const name : {u"kq_xref_tbl_indexlst", u"kq_xref_tbl_fldnams",
                 u"kq_xref_tbl_jstlst", u"kq_kqp_get_dwg_WNUM_GAP_settings"})
            ASSERT_EQ(exposeLispFunction(name), LispStatus::success);
        RyvPrmKQPFiler filer(host.platform().os.paths->fromNative(project), false, true);
        RyvPrmProjectData data;
        ASSERT_TRUE(filer.readProject(data) && filer.getLastError() == 0);
        settings = data.getProjDefKQMVals();
    }
    void TearDown() override { setPlatform(nullptr); }

    /// Applies the project's settings to a copy of a drawing and saves it; its path.
    std::string apply(const std::string& name) {
        std::filesystem::copy_file(drawings + name, folder.native(name));
        const CString path = folder.module(nameFromBytes(name));
        DrawingResult result;
        const auto drawing = platform().host.drawings->open(path, result);
        EXPECT_TRUE(drawing) << toUtf8(result.problem);
        RyvDbxBlockRef accessor(*drawing);
        EXPECT_TRUE(applySettingsToDrawing(accessor, settings, true)) << printed;
        EXPECT_TRUE(drawing->save().ok());
        return folder.native(name);
    }

    /// The attributes of the first reference of a block that the independent reader finds.
    static std::map<std::string, std::string> attributesOf(
        const std::vector<ReportLine>& report, const std::string& block) {
        std::map<std::string, std::string> values;
        bool inside = false;
        for (const ReportLine& line : report) {
            if (line[0] == "insert" && !values.empty())
                break;
            inside = line[0] == "insert" ? line[2] == block : inside;
            if (inside && line[0] == "attrib")
                values[line[1]] = line[2];
        }
        return values;
    }

    void expectSettings(const std::vector<ReportLine>& report) {
        const std::map<std::string, std::string> values = attributesOf(report, "KQ_M");
        for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
            CString tag, value;
            RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag);
            settings.getValue(index, value);
            const std::string name = toUtf8(tag);
            ASSERT_TRUE(values.contains(name)) << name;
            if (!RyvCfgDrawingSettings::isDrawingSpecific(index)) {
                EXPECT_EQ(values.at(name), toUtf8(value)) << name;
            }
        }
    }
};

TEST_F(SettingsInDrawingsTest, drawingWithoutTheBlock_getsItWithTheProjectsSettings) {
    for (const char* const name : {"plain.dwg", "nested.dwg"}) { // one has a definition of the block in it
        const std::vector<ReportLine> report = drafta::test::reportOn(apply(name));
        EXPECT_TRUE(linesOf(report, "fault").empty()) << name;
        expectSettings(report);
    }
}

TEST_F(SettingsInDrawingsTest, blocksOfTheProduct_canBeInsertedIntoItsTemplate) {
    const auto drawing = platform().host.drawings->ofDocument(platform().host.documents->currentDocument());
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(RYV_PRODUCT "/support")) {
        BlockInsertion insertion;
        insertion.block = nameFromBytes(entry.path().stem().string());
        insertion.file = host.platform().os.paths->fromNative(entry.path().string());
        insertion.position = {static_cast<double>(++count) * 100, 0, 0};
        const DrawingResult result = drawing->insertBlock(insertion);
        EXPECT_TRUE(result.ok()) << toUtf8(result.problem);
        EXPECT_TRUE(insertion.block == settingsBlockName || drawing->hasAttribute(u"WIREFMT"));
    }
    host.runLine(u"saveas " + nameFromBytes(folder.native("all.dwg")));
    const std::vector<ReportLine> report = drafta::test::reportOn(folder.native("all.dwg"));
    EXPECT_TRUE(linesOf(report, "fault").empty());
    EXPECT_EQ(linesOf(report, "insert").size(), 17u);
}

TEST_F(SettingsInDrawingsTest, laddersFollowTheWireFormat_andNothingElseDoes) {
    const CString format = u"%S%N";
    settings.setValue(RyvCfgDrawingSettings::getIndexForKQ_MTag(u"WIREFMT"), &format);
    const std::vector<ReportLine> report = drafta::test::reportOn(apply("ladder.dwg"));
    EXPECT_TRUE(linesOf(report, "fault").empty());
    expectSettings(report);
    std::vector<std::string> formats;
    std::string block;
    for (const ReportLine& line : report) {
        if (line[0] == "insert")
            block = line[1] + " " + line[2];
        else if (line[0] == "attrib" && line[1] == "WIREFMT" && !block.ends_with("KQ_M"))
            formats.push_back(block + " " + line[2]);
    }
    EXPECT_EQ(formats, (std::vector<std::string>{"Model KQ_MLRH %S%N", "Model KQ_MLRV1 %S%N",
                           "Model KQ_MLRH %S%N", "Model KQ_MLRH %X", "Model KQ_MLRV1 %S%N",
                           "Model KQ_MLRV1 %N ", "Model KQ_MLRH3 %N", "Layout1 KQ_MLRH %S%N"}));
}

TEST_F(SettingsInDrawingsTest, missingAttributes_areAddedBelowTheLowest) {
    const std::vector<ReportLine> report = drafta::test::reportOn(apply("short.dwg"));
    EXPECT_TRUE(linesOf(report, "fault").empty());
    const std::map<std::string, std::string> values = attributesOf(report, "KQ_M");
    EXPECT_EQ(values.at("SHEET_"), "17") << "the drawing's own, under its other name";
    EXPECT_FALSE(values.contains("SHEET"));
    EXPECT_TRUE(values.at("WIRELAYS").starts_with("WIRES,PWR")) << "layers are merged";
    for (const ReportLine& line : linesOf(report, "attrib"))
        if (line[1] == "WNUM_GAP") {
            EXPECT_EQ(line[4], "-201.5");
        }
}

TEST_F(SettingsInDrawingsTest, drawingOpenInADocument_keepsBothChanges) {
    std::filesystem::copy_file(drawings + "panel.dwg", folder.native("open.dwg"));
    ASSERT_TRUE(host.openDocument(folder.module(u"open.dwg")));
    host.runLine(u"(setq h (dwg-current)) (dwg-first h \"TITLE_A\") (dwg-set h \"SHEET\" \"by hand\")");
    DrawingResult result;
    const auto drawing = platform().host.drawings->open(folder.module(u"open.dwg"), result);
    RyvDbxBlockRef accessor(*drawing);
    ASSERT_TRUE(applySettingsToDrawing(accessor, settings, false) && drawing->save().ok());
    host.runLine(u"qsave");
    const std::vector<ReportLine> report = drafta::test::reportOn(folder.native("open.dwg"));
    expectSettings(report);
    EXPECT_EQ(attributesOf(report, "TITLE_A").at("SHEET"), "by hand");
}

TEST_F(SettingsInDrawingsTest, temporaryScript_liesInThePackagesUserFolder) {
    CString path;
    ASSERT_TRUE(writeTempScript(u"_.open\n\"Ä\"\n", path)) << printed;
    EXPECT_EQ(readBytes(host.platform().os.paths->toNative(path)), "_.open\n\"Ä\"\n");
    EXPECT_EQ(host.platform().os.paths->toNative(path), folder.native("profile/_SCRTMP1.SCR"));
}

} // namespace
} // namespace ryv::test
