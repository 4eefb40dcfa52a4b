#include "tests/system/kqp_fixture.h"
#include "tests/system/python_json.h"

namespace ryv::test {
namespace {

class KqpJsonTest : public KqpTest {
protected:
    void SetUp() override {
        if (!hasProgram("python3"))
            GTEST_SKIP() << "needs python3";
    }

    std::string json(const std::string& name, const std::string& content) const {
        folder.write(name, content);
        const ProcessResult result = kqp({"show", "--json", name});
        expectDone(result);
        return result.out;
    }

    /// The folder as module text inside a Python string.
    std::string modulePath() const { return toUtf8(replaceAll(folder.module(), u"\\", u"\\\\")); }
};

// In the order of their indices.
constexpr const char* settingNames =
    "names = '''RUNGHORV REFNUMS TAGMODE TAG-START TAG-RSUF TAGFMT WIREMODE "
    "WIRE-START WIRE-RSUF WIREFMT WINC RUNGDIST\n"
    "DLADW SHEET XREFFMT RUNGINC DRWRUNG PH3SPACE DATUMX DATUMY DISTH DISTV "
    "CHAR_H CHAR_V HORIZ_FIRST XY_DELIM\n"
    "WIRELAYS WIRENO_LAY WIRECOPY_LAY WIREFIXED_LAY UNIT_SCL FEATURE_SCL "
    "TAG_LAY XREF_LAY DESC_LAY TERM_LAY CXREF_LAY\n"
    "CDESC_LAY LOC_LAY POS_LAY MISC_LAY WLEADERS PLC_STYLE ARROW_STYLE "
    "LINK_LAY COMP_LAY SHEETDWGNAME ALT_XREFFMT\n"
    "TAGFIXED_LAY GAP_STYLE MISC_FLAGS IEC_PROJ IEC_INST IEC_LOC "
    "WIREREF_LAY MISC_DATA FAN_INOUT_LAYS FAN_INOUT_STYLE\n"
    "LOCBOX_LAY SORTMODE XREF_STYLE XREF_FLAGS XREF_UNUSEDSTYLE "
    "XREF_FILLWITH XREF_SORT XREF_TXTBTWN XREF_GRAPHIC\n"
    "XREF_GRAPHICSTYLE XREF_CONTACTMAP XREF_TBLSTYLE XREF_TBLTITLE "
    "XREF_TBLINDEX XREF_TBLFLDNAMS XREF_TBLCOLJUST\nWNUM_OFFSET WNUM_FLAGS WNUM_GAP'''.split()\n";

TEST_F(KqpJsonTest, json_project_hasKeysInOrderAndAllValues) {
    expectJson(json("plant.kqp", plantProject),
        "p = '" + modulePath() +
            "'\n"
            "same(list(d), ['project', 'name', 'encoding', 'descriptions', 'misc', 'settings', 'items'])\n"
            "same(d['project'], p + '\\\\plant.kqp')\n"
            "same(d['name'], 'PLANT')\n"
            "same(d['encoding'], 'utf-8')\n"
            "same(d['descriptions'], ['Pumping station', '', 'Z\\u00FCrich'])\n"
            "same(d['misc'], {'1': '%SL_DIR%/libs', '5': '8'})\n");
}

TEST_F(KqpJsonTest, json_tree_keepsOrderAndNesting) {
    expectJson(json("plant.kqp", plantProject),
        "p = '" + modulePath() +
            "'\n"
            "def drawing(file, one='', two='', more=[], reference=False):\n"
            "    return dict(type='drawing', file=file, id=0, description1=one, description2=two,\n"
            "                descriptions=more, reference=reference)\n"
            "def subfolder(name, *items):\n"
            "    return dict(type='subfolder', name=name, items=list(items))\n"
            "same(d['items'], [\n"
            "    drawing(p + '\\\\cover.dwg', 'Cover sheet'),\n"
            "    subfolder('POWER',\n"
            "        subfolder('MOTORS',\n"
            "            drawing(p + '\\\\power\\\\m1.dwg', 'Motor control', 'Sheet 2', ['North', "
            "'South']),\n"
            "            drawing(p + '\\\\power\\\\motor-two.dwg')),\n"
            "        drawing('\\\\'.join(p.split('\\\\')[:-1]) + '\\\\other\\\\ref.dwg', reference=True)),\n"
            "    subfolder('SPARE'),\n"
            "    drawing(p + '\\\\last.dwg', 'Last')])\n");
}

TEST_F(KqpJsonTest, json_settings_areAllThereByName) {
    expectJson(json("plant.kqp", plantProject),
        std::string(settingNames) +
            "same(list(d['settings']), names)\n"
            "same(len(names), 77)\n"
            "s = d['settings']\n"
            "same((s['RUNGHORV'], s['XREF_TXTBTWN'], s['TAGFMT'], s['SHEET']), ('V', '  x', '%F%N', ''))\n"
            "same((s['XREF_STYLE'], s['XREF_GRAPHIC'], s['WNUM_GAP']), ('1', '0', '0.0,0.0,0.0'))\n");
}

TEST_F(KqpJsonTest, json_specialCharacters_comeBackAlike) {
    expectJson(json("odd.kqp",
                   "*[1]\"q\" \\ \x01\x1F\x7F\t\xC2\x9B\xE2\x80\xA8\n*[2]\xF0\x9F\x94\x8C \xE4\xB8\xAD\n"),
        "same(d['descriptions'], ['\"q\" \\\\ \\x01\\x1f\\x7f\\t\\x9b\\u2028', '\\U0001F50C \\u4e2d'])\n");
}

TEST_F(KqpJsonTest, json_loneSurrogates_areEscapes) {
    const std::string text = "*[1]a"; // in UTF-16, with surrogates that have no partner
    std::string bytes = "\xFF\xFE";
    for (const char c : text)
        bytes += std::string(1, c) + '\0';
    bytes += std::string("\x00\xD8 \x00\x00\xDC\n\x00", 8);
    const std::string output = json("half.kqp", bytes);
    EXPECT_NE(output.find("\"a\\uD800 \\uDC00\""), std::string::npos) << output;
    expectJson(output, "same(d['descriptions'], ['a\\ud800 \\udc00'])\nsame(d['encoding'], 'utf-16le')\n");
}

TEST_F(KqpJsonTest, json_identifiersOfCompanionStore_areShown) {
    folder.write("known.rypx", "RYPX 1\nnext=8\nid=7\tb.dwg\n");
    expectJson(json("known.kqp", "a.dwg\nb.dwg\n"), "same([i['id'] for i in d['items']], [0, 7])\n");
}

TEST_F(KqpJsonTest, json_controlCharacters_areEscapedInTheBytes) {
    const std::string text = json("odd.kqp", "*[1]\x01\x7F\xC2\x9B\n");
    EXPECT_NE(text.find("\"\\u0001\\u007F\\u009B\""), std::string::npos) << text;
}

} // namespace
} // namespace ryv::test
