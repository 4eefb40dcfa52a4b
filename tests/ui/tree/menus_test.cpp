// The commands' table, the menus made of it, and the ways to give a command.
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "tests/ui/tree/commands_fixture.h"

#include <map>
#include <set>

namespace ryv::test {
namespace {

class Menus : public CommandsFixture {
protected:
    /// "201 !209 | Publish(238)": "!" in front of what cannot be chosen.
    static std::string text(const Menu& menu) {
        std::string all;
        for (const MenuItem& item : menu.items()) {
            all += all.empty() ? "" : " ";
            if (item.separator)
                all += "|";
            else if (item.submenu)
                all += "(" + text(*item.submenu) + ")";
            else
                all += (item.enabled ? "" : "!") + std::to_string(item.id);
        }
        return all;
    }
    std::string menu() { return text(*tree->CreateContextMenu()); }
};

TEST_F(Menus, table_hasEveryNumberOnceWithATextAndAHandler) {
    std::set<int> ids;
    for (const TreeCommand& command : treeCommands()) {
        ids.insert(command.id);
        EXPECT_FALSE(messageText(command.text).empty()) << command.id;
        EXPECT_TRUE(command.isEnabled && command.handler) << command.id;
    }
    EXPECT_EQ(ids.size(), treeCommands().size());
    EXPECT_EQ(ids, (std::set<int>{201, 202, 203, 205, 207, 209, 210, 211, 212, 214, 215, 217, 219, 225, 226,
                       227, 238, 240, 241, 244, 245, 247, 248, 249, 250, 251, 252, 255, 259, 1131, 1132, 1135,
                       1136, 1137, 1138, 1139, 1140, 1141, 1142, 1143, 1144, 1145, 1146, 1147, 1149, 1156}));
}

TEST_F(Menus, letters_areDifferentInEachMenu) {
    for (const Language language : {Language::english, Language::german})
        for (const std::span<const int> menu :
            {commandsOf(TreeMenu::emptyArea), commandsOf(TreeMenu::project), commandsOf(TreeMenu::subfolder),
                commandsOf(TreeMenu::drawing), publishCommands()}) {
            std::map<char16_t, int> letters;
            for (const int command : menu) {
                if (!findTreeCommand(command) && command != publishSubmenu)
                    continue;
                const int text =
                    command == publishSubmenu ? message::commandPublish : findTreeCommand(command)->text;
                const CStringView label = messageText(text, language);
                const std::size_t mark = label.find(u'&');
                ASSERT_LT(mark + 1, label.size()) << command;
                EXPECT_EQ(letters.emplace(toUpper(label[mark + 1]), command).first->second, command);
            }
        }
}

TEST_F(Menus, followTheSelection) {
    const char* const project =
        "!201 !209 | 203 210 211 | 255 212 !244 214 1144 | 1147 1143 1145 1146 | !215 "
        "(238 240 241) | 1131 1132 | 219 250 217";
    struct Case {
        std::vector<const char16_t*> selected;
        const char* menu;
    };
    const Case cases[] = {{{}, "251 259 | 252"}, {{u"A"}, project},
        {{u"S"}, "1135 1136 1137 | 1147 | 1138 1139 | 1140 | 1141 1142"},
        {{u"T", u"S"}, "1135 1136 1137 | 1147 | !1138 1139 | 1140 | 1141 1142"},
        {{u"a.dwg"}, "202 !205 207 | 227 226 225 | 245 1156 247 !248 249"},
        {{u"a.dwg", u"b.dwg"}, "202 !205 !207 | !227 !226 225 | !245 1156 !247 !248 !249"},
        {{u"S", u"a.dwg"}, "202 !205 !207 | !227 !226 1149 | !245 1156 !247 !248 !249"}};
    for (const Case& each : cases) {
        std::vector<TreeItem*> items;
        for (const char16_t* const label : each.selected) {
            tree->ensureVisible(row(label));
            items.push_back(&row(label));
        }
        tree->setSelection(items);
        EXPECT_EQ(menu(), each.menu) << selected();
    }
    EXPECT_EQ(tree->CreateContextMenu()->defaultItem(), 202);
    state.copiedSettings.emplace();
    EXPECT_TRUE(tree->CreateContextMenu()->find(248)->enabled);
}

TEST_F(Menus, whatCannotApply_isDisabled) {
    const CString other = open("B", "");
    select({u"B"});
    EXPECT_EQ(menu(), "201 209 | 203 !210 !211 | !255 212 !244 !214 1144 | !1147 !1143 !1145 !1146 | !215 "
                      "(!238 !240 !241) | 1131 1132 | 219 !250 !217");
    EXPECT_FALSE(tree->runCommand(1143));
    EXPECT_FALSE(tree->runCommand(4711));
    surroundings.documents.openDocument(path("new.dwg"));
    files.put(path("A_update.mdb"), "tasks");
    select({u"A"});
    EXPECT_TRUE(tree->CreateContextMenu()->find(244)->enabled);
    EXPECT_TRUE(tree->CreateContextMenu()->find(215)->enabled);
    EXPECT_TRUE(tree->CreateContextMenu()->find(209)->enabled);
    surroundings.documents.openDocument(path("A.DWG"));
    select({u"a.dwg"});
    EXPECT_TRUE(tree->CreateContextMenu()->find(205)->enabled);
    files.erase(path("a.dwg"));
    EXPECT_EQ(menu(), "!202 205 !207 | !227 226 225 | !245 !1156 !247 !248 !249") << "the file is gone";
    manager->closeProject(id, true);
    EXPECT_EQ(menu(), "251 259 | !252");
}

TEST_F(Menus, commandThatTheEndOfAnEditTakesAway_doesNotRun) {
    select({u"a.dwg"});
    ASSERT_TRUE(tree->editLabel(row(u"a.dwg")));
    reRead("A", "b.dwg\n");
    EXPECT_FALSE(tree->runCommand(226));
    EXPECT_TRUE(surroundings.ui.asked.empty());
}

TEST_F(Menus, choice_runsOnTheRowsThatTheMenuWasFor) {
    select({u"a.dwg"});
    surroundings.ui.answerMenu(202);
    tree->contextMenu(&row(u"b.dwg"), {3, 4});
    EXPECT_EQ(surroundings.documents.sentTexts(), CStringArray{u"_.open \"C:\\P\\b.dwg\"\r"});
    surroundings.ui.answerMenu(202);
    surroundings.ui.meanwhile = [this] { select({u"a.dwg"}); };
    tree->contextMenu(&row(u"b.dwg"), {3, 4});
    EXPECT_EQ(surroundings.documents.sent.size(), 1u);
}

/// Whichever row was selected before.
TEST_F(Menus, doubleClick_isAboutItsRow) {
    select({u"a.dwg"});
    tree->doubleClick(row(u"b.dwg"));
    select({u"b.dwg", u"a.dwg"});
    tree->setFocus(&row(u"a.dwg"));
    files.erase(path("a.dwg"));
    tree->doubleClick(row(u"b.dwg"));
    const CString opening = u"_.open \"C:\\P\\b.dwg\"\r";
    EXPECT_EQ(surroundings.documents.sentTexts(), (CStringArray{opening, opening}));
}

TEST_F(Menus, drawingThatCannotBeOpened_isToldWhy) {
    reRead("A", "a.dwg\nGONE\\b.dwg\nc.dwg\nd.dwg\n");
    files.erase(path("a.dwg"));
    files.erase(path("GONE\\b.dwg"));
    FileHandle holder = FileHandle::none;
    files.put(path("c.dwg.FLL"), "nonsense");
    ASSERT_TRUE(files.open(path("c.dwg.FLL"), OpenMode::readWrite, holder).ok());
    ASSERT_TRUE(files.lock(holder, {}).ok());
    surroundings.documents.sent.clear(); // the re-read
    const std::pair<const char16_t*, std::string> cases[] = {{u"a.dwg", "a.dwg was not found in "},
        {u"b.dwg", "b.dwg was not found: there is no folder "},
        {u"c.dwg", "c.dwg is locked, and its lock file does not say by whom."}};
    for (const auto& [label, text] : cases) {
        tree->notice().clear();
        tree->doubleClick(row(label));
        EXPECT_EQ(noticeText().substr(0, text.size()), text);
        tree->notice().clear();
        EXPECT_TRUE(tree->key(TreeKeyCode::enter));
        EXPECT_EQ(noticeText().substr(0, text.size()), text);
    }
    static_cast<void>(files.close(holder));
    EXPECT_EQ(surroundings.documents.sentTexts(), CStringArray());
    faults.arm({.error = FileError::denied, .kind = FileCall::information, .lasting = true});
    tree->doubleClick(row(u"d.dwg"));
    faults.disarm();
    EXPECT_EQ(noticeText().substr(0, 27), "d.dwg could not be opened: ");
}

TEST_F(Menus, notice_lastsUntilTheUserGoesOn) {
    const struct {
        const char* what;
        std::function<void()> act;
        bool clears;
    } cases[] = {{"the same row", [&] { tree->click(&row(u"a.dwg")); }, false},
        {"rows for the program", [&] { tree->setSelection({&row(u"b.dwg")}); }, false},
        {"a row that goes", [&] { reRead("A", "b.dwg\n=====SUB=S\ns1.dwg\n"); }, false},
        {"a disabled command", [&] { tree->runCommand(4711); }, false},
        {"another row", [&] { tree->click(&row(u"b.dwg")); }, true},
        {"a key", [&] { tree->key(TreeKeyCode::up); }, true},
        {"all rows", [&] { tree->key(TreeKeyCode::selectAll); }, true},
        {"no row", [&] { tree->click(nullptr); }, true},
        {"a menu elsewhere", [&] { tree->contextMenu(&row(u"b.dwg"), {}); }, true},
        {"a command", [&] { tree->runCommand(202); }, true},
        {"an edit", [&] { tree->editLabel(row(u"a.dwg")); }, true}};
    for (const bool offers : {false, true})
        for (const auto& each : cases) {
            SCOPED_TRACE(each.what);
            tree->finishEdit(std::nullopt);
            reRead("A", plainLines);
            select({u"a.dwg"});
            if (offers)
                tree->notice().tell(u"told", u"Undo", [] {});
            else
                tree->notice().tell(u"told");
            each.act();
            EXPECT_EQ(noticeText(), each.clears && !offers ? "" : "told");
        }
}

TEST_F(Menus, keysAndClicks_giveCommands) {
    select({u"a.dwg"});
    EXPECT_TRUE(tree->key(TreeKeyCode::enter));
    tree->doubleClick(row(u"b.dwg"));
    EXPECT_EQ(surroundings.documents.sent.size(), 2u);
    surroundings.documents.setQuiescent(surroundings.documents.currentDocument(), false);
    tree->doubleClick(row(u"a.dwg"));
    EXPECT_EQ(surroundings.documents.sent.size(), 2u);
    EXPECT_EQ(surroundings.ui.asked, CStringArray{u"message 465"});
    select({u"S"});
    const bool expanded = row(u"S").expanded();
    EXPECT_TRUE(tree->key(TreeKeyCode::enter));
    EXPECT_NE(row(u"S").expanded(), expanded);
    surroundings.ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6);
    EXPECT_TRUE(tree->key(TreeKeyCode::remove));
    EXPECT_EQ(onDisk(), "b.dwg a.dwg");
    select({u"A"});
    EXPECT_FALSE(tree->key(TreeKeyCode::remove));
}

} // namespace
} // namespace ryv::test
