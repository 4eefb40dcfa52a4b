// What drawings look like: entities, references and styles as shapes, and drawings that are made to do harm.
#include "embedded/drawings/display_list.h"
#include "embedded/drawings/drawing_content.h"
#include "embedded/drawings/plain_text.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <numbers>

namespace drafta::test {

namespace {

using ryv::test::shown;

/// Pairs as "0 LINE|8 WIRES|10 1.5".
std::string pairs(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::string_view pair = text.substr(0, text.find('|'));
        text.remove_prefix(std::min(text.size(), pair.size() + 1));
        const std::size_t blank = pair.find(' ');
        out.append(pair.substr(0, blank)).append("\n").append(pair.substr(blank + 1)).append("\n");
    }
    return out;
}

std::string section(const std::string& name, const std::string& content) {
    return "0\nSECTION\n2\n" + name + "\n" + content + "0\nENDSEC\n";
}

DisplayList listOf(const std::string& entities, const std::string& blocks = {},
    const std::string& tables = {}, const DisplayLimits& limits = {}) {
    const std::string text =
        section("TABLES", tables) + section("BLOCKS", blocks) + section("ENTITIES", entities) + "0\nEOF\n";
    ryv::ByteBuffer bytes;
    if (!bytes.allocate(text.size()))
        throw std::bad_alloc();
    std::copy(text.begin(), text.end(), bytes.data());
    DxfFault fault;
    const std::optional<DrawingContent> content = DrawingContent::read(bytes, fault);
    if (!content)
        throw std::runtime_error("no drawing: " + text);
    return makeDisplayList(*content, limits);
}

std::string block(const std::string& name, const std::string& content, const std::string& base = {}) {
    return pairs("0 BLOCK|2 " + name + (base.empty() ? "" : "|" + base)) + content + pairs("0 ENDBLK");
}

std::string at(PlanePoint point) {
    // Sums of sines leave zeros with a sign and a tail.
    const auto rounded = [](double x) { return std::round(x * 1000) / 1000 + 0.0; };
    char text[64];
    std::snprintf(text, sizeof text, "%g,%g", rounded(point.x), rounded(point.y));
    return text;
}

/// The shapes, one after the other: lines and arcs by begin, middle and end, texts by place and directions.
std::string described(const DisplayList& list) {
    std::string out;
    for (const DisplayArea& area : list.areas)
        out += "area " + at(area.corners[0]) + " " + at(area.corners[1]) + " " + at(area.corners[2]) + " " +
               at(area.corners[3]) + "; ";
    for (const DisplayLine& line : list.lines)
        out += "line " + at(line.from) + " " + at(line.to) + "; ";
    for (const DisplayArc& arc : list.arcs)
        out += "arc " + at(arc.at(arc.start)) + " " + at(arc.at(arc.start + arc.sweep / 2)) + " " +
               at(arc.at(arc.start + arc.sweep)) + "; ";
    for (const DisplayPoint& point : list.points)
        out += "point " + at(point.place) + "; ";
    for (const DisplayText& text : list.writings) {
        out += "text " + shown(list.texts[text.text]) + " " + at(text.place) + " " + at(text.along) + " " +
               at(text.up) + " " + "lcr"[static_cast<int>(text.horizontal)] +
               "0bmt"[static_cast<int>(text.vertical)];
        out += text.fit == TextFit::none ? "; " : " " + at({text.width, double(text.fit)}) + "; ";
    }
    return out;
}

struct Case {
    std::string entities, shapes;
};

double sizeOf(const DisplayList& list) {
    double twice = 0;
    for (const DisplayArea& area : list.areas)
        for (int i = 0; i < 4; ++i) {
            const PlanePoint from = area.corners[i], to = area.corners[(i + 1) % 4];
            twice += from.x * to.y - to.x * from.y;
        }
    return twice / 2;
}

/// A square of a HATCH's outline, as a polyline.
std::string square(const std::string& low, const std::string& high) {
    return "|92 2|72 0|73 1|93 4|10 " + low + "|20 " + low + "|10 " + high + "|20 " + low + "|10 " + high +
           "|20 " + high + "|10 " + low + "|20 " + high + "|97 0";
}

} // namespace

TEST(DisplayList, entity_ofEachKind_isTheShapeThatItStandsFor) {
    const std::vector<Case> cases{
        {"0 LINE|10 1|20 2|30 9|11 3|21 4.5", "line 1,2 3,4.5; "},
        {"0 POINT|10 1|20 2", "point 1,2; "},
        {"0 CIRCLE|10 5|20 5|40 2", "arc 7,5 3,5 7,5; "},
        {"0 ARC|10 0|20 0|40 2|50 0|51 90", "arc 2,0 1.414,1.414 0,2; "},
        {"0 ARC|10 0|20 0|40 2|50 270|51 90", "arc 0,-2 2,0 0,2; "},
        {"0 ARC|10 1|20 0|40 2|50 0|51 90|210 0|220 0|230 -1", "arc -3,0 -2.414,1.414 -1,2; "},
        {"0 ELLIPSE|10 0|20 0|11 4|21 0|40 0.5|41 0|42 3.14159265359", "arc 4,0 0,2 -4,0; "},
        {"0 SOLID|10 0|20 0|11 1|21 0|12 0|22 1|13 1|23 1", "area 0,0 1,0 1,1 0,1; "},
        {"0 SOLID|10 0|20 0|11 1|21 0|12 0|22 1", "area 0,0 1,0 0,1 0,1; "},
        {"0 3DFACE|10 0|20 0|11 1|21 0|12 1|22 1|13 0|23 1|70 8",
            "line 0,0 1,0; line 1,0 1,1; line 1,1 0,1; "},
        {"0 LWPOLYLINE|70 1|10 0|20 0|10 1|20 0|10 1|20 1", "line 0,0 1,0; line 1,0 1,1; line 1,1 0,0; "},
        {"0 LWPOLYLINE|10 0|20 0|42 1|10 2|20 0", "arc 0,0 1,-1 2,0; "},
        {"0 LWPOLYLINE|10 0|20 0|42 -0.41421356237|10 2|20 0", "arc 0,0 1,0.414 2,0; "},
        {"0 LWPOLYLINE|43 2|10 0|20 0|10 4|20 0", "area 0,1 4,1 4,-1 0,-1; "},
        {"0 POLYLINE|70 1|0 VERTEX|10 0|20 0|0 VERTEX|10 3|20 0|0 VERTEX|10 9|20 9|70 16|0 SEQEND",
            "line 0,0 3,0; line 3,0 0,0; "},
        {"0 POLYLINE|70 64|0 VERTEX|10 0|20 0|0 VERTEX|10 3|20 0|0 SEQEND", ""},
        {"0 TEXT|10 1|20 2|40 3|1 a%%c%%065%%u%%%", "text \"a\u2300A%\" 1,2 3,0 0,3 l0; "},
        {"0 TEXT|10 9|20 9|11 1|21 2|40 2|41 0.5|50 90|72 1|73 2|1 x", "text \"x\" 1,2 0,1 -2,0 cm; "},
        {"0 TEXT|10 9|20 9|11 1|21 2|40 2|72 4|1 x", "text \"x\" 1,2 2,0 0,2 cm; "},
        {"0 TEXT|10 1|20 2|40 2|72 2|1 x", "text \"x\" 1,2 2,0 0,2 r0; "},
        {"0 TEXT|10 0|20 0|11 0|21 8|40 2|72 5|1 x", "text \"x\" 0,0 0,2 -2,0 l0 4,1; "},
        {"0 TEXT|10 1|20 2|40 2|71 2|1 x", "text \"x\" 1,2 -2,0 0,2 l0; "},
        {"0 TEXT|10 1|20 2|40 0|1 x|0 TEXT|40 2", ""},
        {"0 MTEXT|10 1|20 2|40 2|41 20|71 6|11 0|21 1|3 {\\fArial;a\\P|1 \\S1/2;\\\\}",
            "text \"a<000A>1/2\\\" 1,2 0,2 -2,0 rm 10,3; "},
        {"0 ATTDEF|10 1|20 2|40 1|1 value|3 ask|2 TAG|70 1", "text \"TAG\" 1,2 1,0 0,1 l0; "},
        {"0 LINE|67 1|11 5|0 LINE|60 1|11 5|0 INSERT|67 1|66 1|2 B|0 ATTRIB|40 1|1 x|0 SEQEND", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(described(listOf(pairs(c.entities))), c.shapes) << c.entities;
    const DisplayList strange = listOf(pairs("0 HELIX|10 1|0 LINE|11 1|0 WIPEOUT"));
    EXPECT_EQ(strange.unknown, 2U);
    EXPECT_EQ(strange.lines.size(), 1U);
}

TEST(DisplayList, spline_goesThroughWhatDefinesIt) {
    const std::vector<Case> cases{
        {"0 SPLINE|71 1|40 0|40 0|40 1|40 2|40 2|10 0|20 0|10 1|20 0|10 1|20 2",
            "line 0,0 1,0; line 1,0 1,2; "},
        {"0 SPLINE|71 3|40 0|40 1|10 0|20 0|10 1|20 1", "line 0,0 1,1; "}, // too few knots
        {"0 SPLINE|11 0|21 0|11 4|21 2", "line 0,0 4,2; "},
        {"0 SPLINE|71 99|10 1|20 1|0 SPLINE", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(described(listOf(pairs(c.entities))), c.shapes) << c.entities;

    const DisplayList quarter =
        listOf(pairs("0 SPLINE|71 2|40 0|40 0|40 0|40 1|40 1|40 1|41 1|41 0.70710678118654752|"
                     "41 1|10 5|20 0|10 5|20 5|10 0|20 5"));
    ASSERT_GT(quarter.lines.size(), 16U);
    for (const DisplayLine& line : quarter.lines)
        EXPECT_NEAR(std::hypot(line.to.x, line.to.y), 5, 1e-9);
    EXPECT_EQ(at(quarter.lines.back().to), "0,5");

    const DisplayList fitted = listOf(pairs("0 SPLINE|71 3|11 0|21 0|11 1|21 1|11 2|21 0"));
    const auto ends = [&fitted](const char* place) {
        return std::any_of(fitted.lines.begin(), fitted.lines.end(),
            [place](const DisplayLine& line) { return at(line.to) == place; });
    };
    EXPECT_TRUE(ends("1,1") && ends("2,0"));
}

TEST(DisplayList, solidHatch_coversItsInside) {
    const std::string twoLines = "|92 1|93 4|72 1|10 0|20 0|11 4|21 0|72 1|10 4|20 0|11 4|21 2";
    const std::vector<std::pair<std::string, double>> cases{
        {square("0", "4"), 16},
        {square("0", "4") + square("1", "2"), 15},
        {square("0", "4") + square("1", "3") + square("1.5", "2"), 12.25},
        {twoLines + "|72 2|10 2|20 2|40 2|50 0|51 180|73 1|72 1|10 0|20 2|11 0|21 0",
            8 + 2 * std::numbers::pi},
        {twoLines + "|72 2|10 2|20 2|40 2|50 0|51 180|73 0|72 1|10 0|20 2|11 0|21 0",
            8 - 2 * std::numbers::pi},
        {"|92 2|72 1|73 1|93 2|10 0|20 0|42 1|10 2|20 0|42 1", std::numbers::pi},
        {"|92 1|93 1|72 3|10 9|20 9|11 0|21 4|40 0.5|50 0|51 360|73 1", 8 * std::numbers::pi},
        {"|92 1|93 2|72 1|10 4|20 0|11 0|21 0|72 4|94 1|73 0|74 0|95 5|96 3|40 0|40 0|40 1|40 2|40 2|10 0|20 "
         "0|10 2|20 3|10 4|20 0",
            6},
        {"|92 1|93 3|72 1|10 0|20 0", 0},
    };
    for (const auto& [outline, size] : cases) {
        const DisplayList list =
            listOf(pairs("0 HATCH|10 0|20 0|30 0|2 SOLID|70 1|91 1" + outline + "|75 1"));
        EXPECT_NEAR(std::abs(sizeOf(list)), size, 0.02 + size * 0.002) << outline;
        EXPECT_TRUE(list.lines.empty()) << outline;
    }
    const DisplayList ring = listOf(pairs("0 HATCH|70 1" + square("0", "4") + square("1", "2") + "|75 1"));
    EXPECT_EQ(ring.areas.size(), 4U); // strips go on past the corners of others
}

TEST(DisplayList, patternHatch_isLinesInsideIt) {
    const auto hatch = [](const std::string& lines) {
        return "0 HATCH|70 0" + square("0", "4") + square("1", "3") + "|75 0|76 1|52 0|41 1|77 0|78 1" +
               lines;
    };
    const std::string outline = "line 0,0 4,0; line 4,0 4,4; line 4,4 0,4; line 0,4 0,0; line 1,1 3,1; line "
                                "3,1 3,3; line 3,3 1,3; line 1,3 1,1; ";
    const std::vector<Case> cases{
        {hatch("|53 0|43 0|44 0.5|45 0|46 1.5|79 0"),
            "line 0,0.5 4,0.5; line 0,2 1,2; line 3,2 4,2; line 0,3.5 4,3.5; "},
        {hatch("|53 90|43 2|44 0|45 -9|46 0|79 0"), "line 2,0 2,1; line 2,3 2,4; "},
        {hatch("|53 0|43 0|44 0.5|45 1|46 9|79 2|49 1|49 -2"), "line 0,0.5 1,0.5; line 3,0.5 4,0.5; "},
        {hatch("|53 0|43 0|44 0|45 0|46 1e-9|79 0"), outline},
        {hatch("|53 0|43 1e300|44 0|45 1e300|46 1e300|79 1|49 0"), outline},
        {hatch("|53 0|43 0|44 0|45 0|46 0|79 0"), outline},
    };
    for (const Case& c : cases)
        EXPECT_EQ(described(listOf(pairs(c.entities))), c.shapes) << c.entities;
}

TEST(DisplayList, reference_ofABlock_placesItsShapes) {
    const std::string blocks =
        block("A", pairs("0 LINE|10 1|20 1|11 2|21 1"), "10 1|20 1") +
        block("CIRCLE", pairs("0 CIRCLE|40 1")) +
        block("OUTER", pairs("0 INSERT|2 a|10 10|20 0|50 90|0 INSERT|2 A")) +
        block("TEXT", pairs("0 TEXT|40 1|1 t|0 ATTDEF|40 1|2 T|1 c|70 2|0 ATTDEF|40 1|2 V|1 v"));
    const std::vector<Case> cases{
        {"0 INSERT|2 A|10 5|20 5", "line 5,5 6,5; "},
        {"0 INSERT|2 A|10 5|20 5|41 2|42 3|50 90", "line 5,5 5,7; "},
        {"0 INSERT|2 A|10 5|20 5|210 0|220 0|230 -1", "line -5,5 -6,5; "},
        {"0 INSERT|2 A|70 2|71 2|44 10|45 20",
            "line 0,0 1,0; line 10,0 11,0; line 0,20 1,20; line 10,20 11,20; "},
        {"0 INSERT|2 CIRCLE|41 4|42 2", "arc 4,0 -4,0 4,0; "},
        {"0 INSERT|2 CIRCLE|41 -1|50 45", "arc -0.707,-0.707 0.707,0.707 -0.707,-0.707; "},
        {"0 INSERT|2 OUTER|10 100|20 0|41 2|42 2", "line 120,0 120,2; line 100,0 102,0; "},
        {"0 INSERT|2 TEXT|10 3|20 4|50 90|41 2|42 2",
            "text \"t\" 3,4 0,2 -2,0 l0; text \"c\" 3,4 0,2 -2,0 l0; "},
        {"0 INSERT|2 A|66 1|10 0|20 0|0 ATTRIB|10 7|20 8|40 1|2 T|1 seen|72 2|74 3|11 1|21 2|0 ATTRIB|10 "
         "7|20 8|40 1|2 "
         "T|1 hid|70 1|0 MTEXT|40 1|1 again|0 SEQEND|0 MTEXT|40 1|1 own",
            "line 0,0 1,0; text \"seen\" 1,2 1,0 0,1 rt; text \"own\" 0,0 1,0 0,1 lt; "},
        {"0 DIMENSION|2 CIRCLE|10 99|20 99", "arc 1,0 -1,0 1,0; "},
        {"0 INSERT|2 GONE|10 5|20 5", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(described(listOf(pairs(c.entities), blocks)), c.shapes) << c.entities;
}

TEST(DisplayList, style_isThatOfEntityLayerOrReference) {
    const std::string tables = pairs(
        "0 TABLE|2 LTYPE|0 LTYPE|2 DASHED|49 2|49 -0.5|49 -0.5|49 0|0 ENDTAB|0 TABLE|2 LAYER|"
        "0 LAYER|2 RED|62 1|6 dashed|0 LAYER|2 OFF|62 -3|0 LAYER|2 COLD|70 1|62 4|0 LAYER|2 0|62 5|0 ENDTAB");
    const std::string blocks = block("B",
        pairs("0 LINE|8 0|11 1|0 LINE|8 red|11 2|0 LINE|8 red|62 0|11 3|0 LINE|8 RED|62 6|6 BYBLOCK|11 4"));
    struct StyleCase {
        std::string entities;
        std::vector<std::pair<int, int>> styles; // colour, pattern
    };
    const std::vector<StyleCase> cases{
        {"0 LINE|8 RED|11 1|0 LINE|8 red|62 3|6 CONTINUOUS|11 1|0 LINE|8 new|11 1", {{1, 1}, {3, 0}, {7, 0}}},
        {"0 LINE|8 RED|62 0|11 1|0 LINE|8 0|62 256|11 1", {{5, 0}, {7, 1}}},
        {"0 LINE|8 OFF|11 1|0 LINE|8 COLD|11 1|0 POINT|8 0", {}},
        {"0 INSERT|2 B|8 RED", {{1, 1}, {1, 1}, {1, 1}, {6, 1}}},
        {"0 INSERT|2 B|8 0|62 30|6 CONTINUOUS", {{1, 1}, {5, 0}, {6, 0}, {30, 1}}},
        {"0 INSERT|2 B|8 OFF", {{1, 1}, {3, 1}, {6, 0}}},
        {"0 INSERT|2 B|8 COLD|66 1|0 ATTRIB|8 0|40 1|1 x|0 SEQEND", {}},
    };
    for (const StyleCase& c : cases) {
        const DisplayList list = listOf(pairs(c.entities), blocks, tables);
        std::vector<std::pair<int, int>> styles;
        for (const DisplayLine& line : list.lines)
            styles.emplace_back(line.style.colour, line.style.pattern);
        EXPECT_EQ(styles, c.styles) << c.entities;
        EXPECT_EQ(list.patterns.at(1), (std::vector<double>{2, 1, 0, 0}));
        EXPECT_TRUE(list.writings.empty());
    }
}

TEST(DisplayList, extents_holdAllShapes) {
    const DisplayExtents extents =
        listOf(pairs("0 LINE|10 -1|20 2|11 3|21 4|0 ARC|10 10|20 0|40 2|50 0|51 180")).extents;
    EXPECT_EQ(at(extents.least) + " " + at(extents.most), "-1,0 12,4");
    EXPECT_TRUE(listOf("").extents.isEmpty());
}

TEST(DisplayList, hostileDrawing_staysWithinTheLimits) {
    const std::string line = pairs("0 LINE|11 1|21 1");
    std::string doubling = block("N0", line), chain = doubling, lines;
    for (int i = 1; i < 60; ++i) {
        const std::string inner = pairs("0 INSERT|2 N" + std::to_string(i - 1));
        doubling += block("N" + std::to_string(i), inner + inner);
        chain += block("N" + std::to_string(i), inner);
    }
    for (int i = 0; i < 2000; ++i)
        lines += line;
    const std::string circle =
        block("A", line + pairs("0 INSERT|2 B")) + block("B", line + pairs("0 INSERT|2 A"));
    std::string comb = "0 HATCH|70 1|92 2|72 0|73 1|93 999"; // edges that all cross at most heights
    for (int i = 0; i < 400; ++i)
        comb += "|10 " + std::to_string(i) + "|20 " + std::to_string(i % 2 == 0 ? i : 1000 - i);
    const DisplayLimits limits{1000, 50000, 100, 24, 1e12};
    struct Attack {
        std::string entities, blocks;
        std::size_t shapes, outOfRange;
        bool isCut;
    };
    const std::vector<Attack> attacks{
        {"0 INSERT|2 A", circle, 2, 0, false},
        {"0 INSERT|2 N59", doubling, 0, 0, true},
        {"0 INSERT|2 N59", chain, 0, 0, true},
        {"0 INSERT|2 N20", doubling, 1000, 0, true},
        {"0 INSERT|2 N0|70 32767|71 32767", chain, 1000, 0, true},
        {"0 INSERT|2 EMPTY|70 2147483647|71 2147483647", block("EMPTY", ""), 0, 0, true},
        {"0 INSERT|2 L|10 1", block("L", lines), 999, 0, true},
        {"0 LINE|10 1e300|11 -1e308|0 LINE|10 nan|20 inf|0 LINE|10 1e999", "", 2, 1, false},
        {"0 INSERT|2 N0|41 1e300|10 1e300|50 1e300", chain, 0, 1, false},
        {"0 ARC|40 1e308|51 1e308|0 CIRCLE|40 -1|0 ELLIPSE|11 1e200|210 1e200|230 1e-300|40 1e300", "", 0, 2,
            false},
        {"0 LWPOLYLINE|10 0|42 1e-300|10 1|42 1e300|10 2|42 1|10 2|20 0|10 1e300", "", 2, 2, false},
        {comb, "", 400, 0, false}, // the outline
        {"0 HATCH|70 1" + square("-1e300", "1e300") + "|75 0|0 HATCH|75 0|78 1|53 1", "", 0, 0, false},
        {"0 TEXT|40 1e300|1 x|0 TEXT|40 1|41 1e300|1 y|0 TEXT|40 1|51 90|1 z", "", 0, 3, false},
        {"0 VERTEX|0 SEQEND|0 ATTRIB|0 POLYLINE|0 INSERT|2 |0 SOLID|0 MTEXT|0 ELLIPSE|0 VERTEX|10 1",
            block("", line), 3, 0, false},
    };
    for (const Attack& attack : attacks) {
        const DisplayList list = listOf(pairs(attack.entities), attack.blocks, "", limits);
        EXPECT_EQ(list.size(), attack.shapes) << attack.entities;
        EXPECT_EQ(list.outOfRange, attack.outOfRange) << attack.entities;
        EXPECT_EQ(list.isCut, attack.isCut) << attack.entities;
    }
    EXPECT_EQ(listOf(lines, "", "", limits).lines.size(), 1000U);
    EXPECT_TRUE(
        listOf(pairs("0 TEXT|40 1|1 " + std::string(101, 'x')) + lines, "", "", limits).lines.empty());
}

TEST(PlainText, codes_areTakenOutAsTheFormatSays) {
    const std::vector<std::pair<ryv::CString, ryv::CString>> paragraphs{
        {u"a\\Pb\\~c", u"a\nb\u00A0c"},
        {u"{\\fArial|b1;bold} \\H2.5x;\\C1;\\W0.8;\\Q5;\\T2;\\A1;end", u"bold end"},
        {u"\\pi1,l2;x\\Ly\\l\\Oz\\o", u"xyz"},
        {u"\\S1/2; \\S+0.1^-0.2; \\Sa\\#b;", u"1/2 +0.1/-0.2 a/b"},
        {u"\\\\ \\{ \\} ^J^I^ x^y", u"\\ { } \n ^x^y"},
        {u"\\H2.5 never ends", u"2.5 never ends"},
        {u"\\", u"\\"},
        {u"%%d%%P%%C %%12 %%", u"\u00B0\u00B1\u2300 %%12 %%"},
    };
    for (const auto& [text, plain] : paragraphs)
        EXPECT_EQ(shown(plainParagraphs(text)), shown(plain)) << shown(text);
    EXPECT_EQ(shown(plainLine(u"\\P{%%010%%255}")), shown(u"\\P{ \u00FF}"));
}

} // namespace drafta::test
