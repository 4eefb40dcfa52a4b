#include "embedded/palettes/workspace.h"

#include "embedded/palettes/workspace_xml.h"
#include "tests/support/fault_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace drafta {
namespace {

using ryv::CString;
using ryv::CStringView;
using ryv::WorkspaceNode;
using ryv::test::shown;

using Layouts = std::vector<Workspace::Layout>;

TEST(WorkspaceXml, everyAttribute_comesBackAsItWas) {
    using Real = std::numeric_limits<double>;
    const std::vector<WorkspaceNode::Value> values = {CString(), CString(u" a  b\t\r\n "),
        CString(u"\0\x01\x7F\x85", 4), CString(u"C:\\P\\0041\\"), CString(u"<&\"'>]]>"),
        CString(u"\xD83D\xDE00 \xDE00\xD83D"), CString(u"\xD800"), CString(u"\xDC00z\xFFFE\xFFFF\xFEFF"),
        CString(u"Łódź"), std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(),
        0.1, -0.0, 1.0 / 3, Real::denorm_min(), Real::max(), Real::infinity()};
    const auto node = std::make_shared<WorkspaceNode>(CString(u"a\xDC00<"));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const CString name = u"\n\"" + ryv::toText(static_cast<long long>(i));
        if (const auto* const text = std::get_if<CString>(&values[i]))
            node->setString(name, *text);
        else if (const auto* const real = std::get_if<double>(&values[i]))
            node->setReal(name, *real);
        else
            node->setInteger(name, std::get<std::int32_t>(values[i]));
    }
    node->setReal(u"none", std::nan(""));
    Layouts read;
    CString problem;
    ASSERT_TRUE(parseWorkspace(printWorkspace({node, node}), read, problem)) << shown(problem);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(shown(read[1]->name()), shown(node->name()));
    ASSERT_EQ(read[1]->attributes().size(), values.size() + 1);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const WorkspaceNode::Attribute& attribute = read[1]->attributes()[i];
        EXPECT_EQ(attribute.name, node->attributes()[i].name);
        EXPECT_EQ(attribute.value, values[i]) << i;
        if (const auto* const real = std::get_if<double>(&attribute.value))
            EXPECT_EQ(std::signbit(*real), std::signbit(std::get<double>(values[i]))) << i;
    }
    EXPECT_TRUE(std::isnan(std::get<double>(read[1]->attributes().back().value)));
}

TEST(WorkspaceXml, deepTree_isWrittenAndReadWhole) {
    constexpr int depth = 100'000;
    const auto root = std::make_shared<WorkspaceNode>(CString(u"n"));
    WorkspaceNode* node = root.get();
    for (int i = 0; i < depth; ++i)
        node = &node->addChild(u"n");
    node->setInteger(u"end", 7);
    Layouts read;
    CString problem;
    ASSERT_TRUE(parseWorkspace(printWorkspace({root}), read, problem)) << shown(problem);
    const WorkspaceNode* found = read.at(0).get();
    for (int i = 0; i < depth; ++i) {
        found = found->findChild(u"n");
        ASSERT_TRUE(found) << i;
    }
    std::int32_t end = 0;
    EXPECT_TRUE(found->integer(u"end", end));
}

/// One element more than a node may hold.
std::string many(const std::string& element) {
    std::string text;
    for (int i = 0; i <= 1000; ++i)
        text += "<" + element + " name=\"" + std::to_string(i) + "\" value=\"1\"/>\n";
    return text;
}

TEST(WorkspaceXml, whatNobodyWrote_isRefusedWithItsLine) {
    const std::string head = "<workspace version=\"1\">\n<node name=\"a\">\n";
    const std::string tail = "</node></workspace>";
    const std::pair<std::string, const char*> cases[] = {{"", "line 1:"}, {"\n\n<workspace", "line 3:"},
        {"<workspace version=\"2\"/>", "version"}, {"<other version=\"1\"/>", "version"},
        {head + "<integer name=\"n\" value=\"1x\"/>" + tail, "line 3: a number"},
        {head + "<integer name=\"n\" value=\"2147483648\"/>" + tail, "line 3: a number"},
        {head + "<real name=\"n\"/>" + tail, "line 3: a number"},
        {head + "<string value=\"v\"/>" + tail, "line 3: a text"},
        {head + "<string name=\"n\" value=\"\\12\"/>" + tail, "line 3: a text"},
        {head + "<string name=\"n\" value=\"\xFF\"/>" + tail, "line 3: a text"},
        {head + "<node/>" + tail, "line 3: a text"},
        {head + "<text name=\"n\"/>" + tail, "line 3: an element"},
        {head + "<node name=\"b\">" + tail, "damaged"}, {head + many("integer") + tail, "too many"},
        {head + many("node") + tail, "too many"},
        {"<workspace version=\"1\">" + many("node") + "</workspace>", "too many"}};
    for (const auto& [bytes, reason] : cases) {
        Layouts read;
        CString problem;
        EXPECT_FALSE(parseWorkspace(bytes, read, problem)) << bytes;
        EXPECT_NE(ryv::toAscii(problem).find(reason), std::string::npos) << bytes << shown(problem);
        EXPECT_TRUE(read.empty());
    }
}

TEST(WorkspaceXml, filesThatSomethingHasHappenedTo_areRefusedOrWrittenAsTheyAreRead) {
    const auto node = std::make_shared<WorkspaceNode>(CString(u"n"));
    node->setString(u"text", u"C:\\a\n\xDC00");
    node->setReal(u"real", 0.25);
    node->addChild(u"child").setInteger(u"number", -7);
    const std::string whole = printWorkspace({node, node});
    ryv::test::Random random(7);
    std::size_t readable = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = whole;
        for (std::size_t changes = 1 + random.below(3); changes > 0; --changes)
            bytes.replace(random.below(bytes.size()), random.below(4), 1, random.pick(whole + "\xFF\\&"));
        Layouts read;
        Layouts again;
        CString problem;
        if (!parseWorkspace(bytes, read, problem))
            continue;
        ++readable;
        ASSERT_TRUE(parseWorkspace(printWorkspace(read), again, problem)) << bytes;
        ASSERT_EQ(printWorkspace(again), printWorkspace(read)) << bytes;
    }
    EXPECT_GT(readable, 100u);
    EXPECT_LT(readable, 2900u);
}

class WorkspaceTest : public ::testing::Test {
protected:
    const CString path = u"\\p\\workspace.xml";
    ryv::test::MemoryFiles files;
    std::string told;
    Workspace workspace{files, path, [this](CStringView line) { told += ryv::toAscii(line) + "\n"; }};

    static Workspace::Layout layout(CStringView id, CStringView value) {
        auto made = Workspace::newLayout(id);
        made->setString(u"value", value);
        return made;
    }
    static std::string valueIn(Workspace& from, CStringView id) {
        CString value = u"unknown";
        if (const Workspace::Layout found = from.find(id))
            found->string(u"value", value);
        return ryv::toAscii(value);
    }
};

TEST_F(WorkspaceTest, save_putsEachLayoutInItsPlaceAndKeepsTheOthers) {
    EXPECT_TRUE(workspace.save({}));
    EXPECT_TRUE(workspace.save({layout(u"", u"of nobody")}));
    EXPECT_TRUE(files.paths().empty()) << "nothing to save";
    ASSERT_TRUE(workspace.save({layout(u"{A}", u"a1"), layout(u"{B}", u"b1")}));
    Workspace other{files, path, [](CStringView) {}};
    EXPECT_EQ(valueIn(other, u"{B}"), "b1");
    ASSERT_TRUE(workspace.save({layout(u"{a}", u"a2"), layout(u"{C}", u"c1")}));
    ASSERT_TRUE(other.save({layout(u"{B}", u"b2")})) << "on top of what was saved meanwhile";
    for (const auto& [id, value] :
        {std::pair(u"{A}", "a2"), {u"{b}", "b2"}, {u"{C}", "c1"}, {u"{D}", "unknown"}})
        EXPECT_EQ(valueIn(workspace, id), value);
    files.protect(path);
    EXPECT_TRUE(workspace.save({layout(u"{B}", u"b2")})) << "nothing is written when nothing changes";
    EXPECT_EQ(told, "");
    EXPECT_FALSE(workspace.save({layout(u"{B}", u"b3")}));
    EXPECT_NE(told.find("workspace.xml: "), std::string::npos) << told;
}

TEST_F(WorkspaceTest, damagedFile_isToldAndKeptAsideBeforeItIsReplaced) {
    const std::string damaged = "<workspace version=\"1\">\n<node";
    files.put(path, damaged);
    EXPECT_EQ(valueIn(workspace, u"{A}"), "unknown");
    EXPECT_EQ(valueIn(workspace, u"{B}"), "unknown");
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
    EXPECT_NE(told.find("workspace.xml: line 2: "), std::string::npos) << told;
    EXPECT_TRUE(workspace.save({}));
    EXPECT_EQ(files.get(path), damaged);
    ASSERT_TRUE(workspace.save({layout(u"{A}", u"a")}));
    EXPECT_EQ(files.get(path + u".bad"), damaged);
    EXPECT_EQ(valueIn(workspace, u"{A}"), "a");
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 2) << told;
    for (const auto& [bytes, copy] :
        {std::pair("<second", u".bad2"), {"<third", u".bad3"}, {"<second", u".bad2"}}) {
        files.put(path, bytes);
        ASSERT_TRUE(workspace.save({layout(u"{A}", u"a")}));
        EXPECT_EQ(files.get(path + copy), bytes);
    }
    EXPECT_EQ(files.get(path + u".bad"), damaged);
    EXPECT_FALSE(files.get(path + u".bad4"));
}

TEST_F(WorkspaceTest, fileThatCannotBeRead_isLeftAlone) {
    ASSERT_TRUE(workspace.save({layout(u"{A}", u"a")}));
    ryv::test::FaultFiles faults(files);
    Workspace hindered{faults, path, [this](CStringView line) { told += ryv::toAscii(line) + "\n"; }};
    const std::string before = files.get(path).value();
    for (const auto kind : {ryv::test::FileCall::open, ryv::test::FileCall::read}) {
        told.clear();
        faults.arm({ryv::FileError::denied, 1, kind});
        EXPECT_FALSE(hindered.save({layout(u"{B}", u"b")}));
        EXPECT_NE(told.find("nothing is saved"), std::string::npos) << told;
        EXPECT_EQ(files.get(path), before);
        EXPECT_EQ(files.paths().size(), 1u);
    }
    ASSERT_TRUE(hindered.save({layout(u"{B}", u"b")}));
    EXPECT_EQ(valueIn(hindered, u"{A}"), "a");
}

/// Another process puts a good file in the place of a damaged one while that is kept aside.
TEST_F(WorkspaceTest, goodFileThatCameMeanwhile_isKept) {
    class Meanwhile final : public ryv::test::MemoryFiles {
    public:
        std::function<void()> work;
        ryv::FileStatus rename(CStringView from, CStringView to) override {
            const auto once = std::exchange(work, nullptr);
            const ryv::FileStatus status = MemoryFiles::rename(from, to);
            if (once)
                once();
            return status;
        }
    } both;
    both.put(path, "<damaged");
    both.work = [&] { both.put(path, printWorkspace({layout(u"{B}", u"theirs")})); };
    Workspace ours{both, path, [](CStringView) {}};
    ASSERT_TRUE(ours.save({layout(u"{A}", u"ours")}));
    EXPECT_EQ(valueIn(ours, u"{A}"), "ours");
    EXPECT_EQ(valueIn(ours, u"{B}"), "theirs");
    EXPECT_EQ(both.get(path + u".bad"), "<damaged");
}

TEST_F(WorkspaceTest, moreThanIsReadBack_isNotWritten) {
    auto large = Workspace::newLayout(u"{A}");
    for (int i = 0; i < 1000; ++i)
        large->setInteger(ryv::toText(static_cast<long long>(i)), i);
    EXPECT_FALSE(workspace.save({large}));
    EXPECT_TRUE(files.paths().empty());
}

} // namespace
} // namespace drafta
