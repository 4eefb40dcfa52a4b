#include "tests/ui/tree/tree_fixture.h"

namespace ryv::test {
namespace {

/// "C:\P\NAME.dwg" with section, sub-section and two description lines.
constexpr const char* described = "=SEC\n==SUB\n===Main\n===Second\nPANEL01.dwg\n";
constexpr const char* bare = "===\n===Second\nPANEL01.dwg\n";

class Labels : public TreeFixture {
protected:
    void hasDatabase(CStringView drawing, std::map<CString, CString> values) {
        surroundings.projectDatabase.paths[u"C:\\P\\DEMO.KQP"] = u"C:\\DB\\demo.mdb";
        for (const auto& [column, value] : values)
            surroundings.projectDatabase.rows[u"FILETIME|" + column + u"|DWGNAME|" + CString(drawing)] = {
                value};
    }
    std::string label(const char* lines) {
        const CString id = open("DEMO", lines);
        const std::string text = toUtf8(tree->child(tree->GetProjectItem(id), 0)->label());
        manager->closeProject(id, true);
        return text;
    }
};

TEST_F(Labels, fields_areJoinedInTheOrderOfTheSetting) {
    const struct {
        CArray<int> order;
        CString separator;
        const char* lines;
        const char* label;
    } cases[] = {{{103}, u"-", described, "PANEL01.dwg"}, {{103, 108}, u"-", described, "PANEL01.dwg - Main"},
        {{103, 108}, u":", described, "PANEL01.dwg : Main"},
        {{108, 103}, u"", described, "Main  PANEL01.dwg"}, {{104, 103}, u"-", bare, "PANEL01.dwg"},
        {{108, 291, 103}, u"-", bare, "Second - PANEL01.dwg"},
        {{104, 105, 291, 292}, u"/", described, "SEC / SUB / Second"}, {{0, 109, -1}, u"-", described, ""},
        {{101, 102, 106, 107, 103}, u"-", described, "PANEL01.dwg"}, {{}, u"-", described, ""}};
    for (const auto& each : cases) {
        display(each.order, each.separator);
        EXPECT_EQ(label(each.lines), each.label) << ::testing::PrintToString(each.order);
    }
    // The place of the file name is kept, even for a drawing that has none.
    RyvPrmFileDetails nameless;
    nameless.setDescription1(u"SEC");
    for (const auto& [order, expected] :
        {std::pair<CArray<int>, CStringView>{{104, 103}, u"SEC - "}, {{103, 104}, u" - SEC"}, {{103}, u""}}) {
        CString text;
        tree->GetDwgNodeName(text, nameless, {order, u"-"});
        EXPECT_EQ(text, expected);
    }
}

TEST_F(Labels, databaseFields_areAskedByThePathInCapitalsWithSlashes) {
    hasDatabase(
        u"C:/P/PANEL01.DWG", {{u"IEC_I", u"=I"}, {u"IEC_L", u"+L"}, {u"SH", u"7"}, {u"SHDWGNAM", u"N"}});
    display({107, 106, 103, 102, 101});
    EXPECT_EQ(label(described), "N - 7 - PANEL01.dwg - +L - =I");
    EXPECT_EQ(surroundings.projectDatabase.opened, 1);
    // A row of two fields is not an answer.
    surroundings.projectDatabase.rows[u"FILETIME|SH|DWGNAME|C:/P/PANEL01.DWG"] = {u"7", u"8"};
    EXPECT_EQ(label(described), "N - PANEL01.dwg - +L - =I");
    EXPECT_EQ(surroundings.console.printed, u"");
}

/// Counts how often it is asked for what.
class CountingDatabase final : public NullProjectDatabase {
public:
    std::map<CString, int> asked; // by column
    bool PmGetProjectDb(CStringView, CString& path) override {
        path = u"counting";
        return true;
    }
    std::unique_ptr<DatabaseRecordset> open(CStringView, CString&) override {
        struct Recordset final : DatabaseRecordset {
            explicit Recordset(CountingDatabase& of) : owner(of) {}
            bool query(const DatabaseQuery& query, CStringArray& row, CString&) override {
                ++owner.asked[query.column];
                row = {query.column};
                return true;
            }
            CountingDatabase& owner;
        };
        return std::make_unique<Recordset>(*this);
    }
};

TEST_F(Labels, databaseValues_areAskedForOnce) {
    CountingDatabase database;
    surroundings.ports.services.projectDatabase = &database;
    display({106, 103, 101});
    EXPECT_EQ(label("a.dwg\n"), "SH - a.dwg - IEC_I");
    EXPECT_EQ(
        database.asked, (std::map<CString, int>{{u"SH", 1}, {u"SHDWGNAM", 1}, {u"IEC_I", 1}, {u"IEC_L", 1}}));
    surroundings.ports.services.projectDatabase = &surroundings.projectDatabase;
}

TEST_F(Labels, databaseValues_areKeptInTheRecordAndFound) {
    hasDatabase(u"C:/P/PANEL01.DWG",
        {{u"SH", u"sheet9"}, {u"SHDWGNAM", u"E100"}, {u"IEC_I", u"=hall"}, {u"IEC_L", u"+roof"}});
    open("DEMO", described);
    const auto& record = dynamic_cast<const _dwgdatastruct&>(*row(u"PANEL01.dwg").data());
    EXPECT_EQ(record.sheet, u"sheet9");
    for (const CString& text :
        {u"panel", u"sec", u"sub", u"sheet9", u"main", u"second", u"e100", u"=hall", u"+roof"}) {
        tree->setFilter(text);
        EXPECT_TRUE(row(u"PANEL01.dwg").shown()) << toUtf8(text);
    }
    tree->setFilter(u"nothing");
    EXPECT_FALSE(row(u"PANEL01.dwg").shown());
}

TEST_F(Labels, missingDatabase_isTheUsersFolderOrNone) {
    const CString field = u"FILETIME|SH|DWGNAME|C:/P/PANEL01.DWG";
    surroundings.projectDatabase.rows[field] = {u"7"};
    display({106, 103});
    EXPECT_EQ(label(described), "PANEL01.dwg");
    EXPECT_EQ(surroundings.projectDatabase.opened, 0);
    surroundings.userFolders.userDirectory = u"C:\\Users\\ann\\";
    EXPECT_EQ(label(described), "7 - PANEL01.dwg");
    surroundings.projectDatabase.problems[u"C:\\USERS\\ANN\\DEMO.MDB"] = u"cannot open";
    EXPECT_EQ(label(described), "PANEL01.dwg");
    EXPECT_EQ(surroundings.console.printed, u"\ncannot open\n");
}

TEST_F(Labels, failingQueries_areToldOnceABuild) {
    hasDatabase(u"C:/P/PANEL01.DWG", {});
    surroundings.projectDatabase.queryProblem = u"no such table";
    display({101, 102, 106, 107, 103});
    open("DEMO", "a.dwg\nb.dwg\n=====SUB=S\nc.dwg\n");
    EXPECT_EQ(rows(), "DEMO(a.dwg b.dwg S(c.dwg))");
    EXPECT_EQ(surroundings.console.printed, u"\nno such table\n");
    reRead("DEMO", "a.dwg\n");
    EXPECT_EQ(surroundings.console.printed, u"\nno such table\n\nno such table\n");
}

TEST_F(Labels, unreadableSetting_leavesTheRows) {
    const CString id = open("DEMO", "a.dwg\n");
    const CString key = surroundings.profile.key + u"\\Settings\\CurrDisplayOrder";
    surroundings.registry.put(key, u"SEPARATOR", CString(u"-"));
    EXPECT_FALSE(tree->AddDWGNodes(*tree->GetProjectItem(id), id));
    reRead("DEMO", "a.dwg\nb.dwg\n");
    EXPECT_EQ(rows(), "DEMO(a.dwg)");
    EXPECT_FALSE(tree->AddDWGNodes(*tree->GetProjectItem(id), u"C:\\P\\other.kqp"));
}

TEST_F(Labels, showSelection_isTakenOverAndTold) {
    const CString id = open("DEMO", "a.dwg\n");
    EXPECT_TRUE(tree->showsSelectionAlways());
    int told = 0;
    const Subscription watch = tree->changed.subscribe([&](const Control&) { ++told; });
    display({103}, u"-", false);
    tree->Refresh();
    tree->Refresh();
    EXPECT_FALSE(tree->showsSelectionAlways());
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace ryv::test
