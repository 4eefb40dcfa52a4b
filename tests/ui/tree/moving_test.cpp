// Where dragged rows land, what a move does to a project, and taking it back, without a tree.
#include "ui/tree/drop_place.h"
#include "ui/tree/item_move.h"

#include "base/text.h"
#include "model/tree_walk.h"
#include "tests/support/random.h"

#include <gtest/gtest.h>

#include <unordered_map>

namespace ryv::test {
namespace {

TEST(DropPlace, everyPlace_isDefined) {
    using Type = TreeItemType;
    using enum DropPosition;
    constexpr Landing nowhere = Landing::nowhere;
    constexpr Landing first = Landing::first;
    constexpr Landing last = Landing::last;
    const struct {
        Type target;
        DropPosition position;
        Landing closed;
        Landing open;
    } inTheProject[] = {
        {Type::none, before, nowhere, nowhere},
        {Type::none, onto, nowhere, nowhere},
        {Type::none, after, nowhere, nowhere},
        {Type::drawing, before, Landing::before, Landing::before},
        {Type::drawing, onto, nowhere, nowhere},
        {Type::drawing, after, Landing::after, Landing::after},
        {Type::subfolder, before, Landing::before, Landing::before},
        {Type::subfolder, onto, last, last},
        {Type::subfolder, after, Landing::after, first},
        {Type::project, before, nowhere, first},
        {Type::project, onto, last, last},
        {Type::project, after, nowhere, first},
    };
    for (const auto& each : inTheProject) {
        SCOPED_TRACE(&each - inTheProject);
        EXPECT_EQ(landingOf({each.target, DropRelation::sameProject, false}, each.position), each.closed);
        const bool canOpen = each.target == Type::subfolder || each.target == Type::project;
        if (canOpen)
            EXPECT_EQ(landingOf({each.target, DropRelation::sameProject, true}, each.position), each.open);
        for (const DropRelation elsewhere : {DropRelation::otherProject, DropRelation::ownChild})
            for (const bool isOpen : {false, true})
                EXPECT_EQ(landingOf({each.target, elsewhere, isOpen}, each.position), nowhere);
    }
}

/// "x S(a b T(c)) y": drawings in small letters, subfolders in capitals.
std::string textOf(const RyvPrmItems& items) {
    std::string text;
    for (const auto& item : items) {
        text += text.empty() ? "" : " ";
        if (const RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            text += toAscii(subfolder->getName()) + "(" + textOf(subfolder->getItems()) + ")";
        else
            text += toAscii(asFileDetails(item.get())->getFileName());
    }
    return text;
}
std::string textOf(const RyvPrmProjectData& project) {
    return textOf(project.getProjFileDetails());
}

/// The project of such a text, whose names have one letter.
void fill(RyvPrmProjectData& project, std::string_view text) {
    std::vector<RyvPrmSubfolder*> open;
    for (const char letter : text) {
        const CString name(1, static_cast<char16_t>(letter));
        if (letter == ')')
            open.pop_back();
        if (letter == ' ' || letter == '(' || letter == ')')
            continue;
        std::unique_ptr<RyvPrmItem> item;
        if (letter >= 'A' && letter <= 'Z')
            item = std::make_unique<RyvPrmSubfolder>(name);
        else
            item = std::make_unique<RyvPrmFileDetails>(name);
        RyvPrmItem* const added = item.get();
        if (open.empty())
            project.addFile(std::move(item));
        else
            open.back()->add(std::move(item));
        if (RyvPrmSubfolder* const subfolder = asSubfolder(added))
            open.push_back(subfolder);
    }
}

/// "S/T/c" as an address.
ItemAddress at(CStringView trace) {
    const std::size_t slash = trace.rfind(u'/');
    const CStringView name = trace.substr(slash + 1);
    return {CString(slash == CStringView::npos ? CStringView() : trace.substr(0, slash)), CString(name),
        name[0] < u'a'};
}

TEST(ItemMove, plan_givesTheNewOrder) {
    using Side = ItemPlace::Side;
    constexpr const char* project = "x S(a b T(c)) y T(d) z";
    const struct {
        std::vector<const char16_t*> items;
        ItemPlace place;
        const char* rows;
        const char* taken = "";
    } cases[] = {
        {{u"x", u"z"}, {u"S", Side::first, {}}, "S(x z a b T(c)) y T(d)"},
        {{u"x", u"S/b"}, {u"S/T", Side::last, {}}, "S(a T(c x b)) y T(d) z"},
        {{u"S/T/c", u"T/d"}, {u"", Side::before, at(u"y")}, "x S(a b T()) c d y T() z"},
        {{u"z", u"S/b"}, {u"S", Side::after, at(u"S/a")}, "x S(a z b T(c)) y T(d)"},
        {{u"y"}, {u"", Side::first, {}}, "y x S(a b T(c)) T(d) z"},
        {{u"x"}, {u"", Side::last, {}}, "S(a b T(c)) y T(d) z x"},
        // Into itself, where its name is taken, not there any more, moved by somebody else, place gone.
        {{u"S", u"y"}, {u"S/T", Side::last, {}}, "x S(a b T(c y)) T(d) z"},
        {{u"y", u"T"}, {u"S", Side::last, {}}, "x S(a b T(c) y) T(d) z", "T"},
        {{u"q", u"Q", u"y"}, {u"S", Side::last, {}}, "x S(a b T(c) y) T(d) z"},
        {{u"S/d"}, {u"", Side::first, {}}, "d x S(a b T(c)) y T() z"},
        {{u"y"}, {u"", Side::after, at(u"gone")}, "x S(a b T(c)) T(d) z y"},
        {{u"y"}, {u"Q", Side::last, {}}, project},
        {{u"T"}, {u"", Side::before, at(u"S")}, "x T(d) S(a b T(c)) y z"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        RyvPrmProjectData data;
        fill(data, project);
        std::vector<ItemAddress> items;
        for (const char16_t* const item : each.items)
            items.push_back(at(item));
        const ItemMove move = planMove(data, items, each.place);
        EXPECT_EQ(move.change.changesAnything(), each.rows != std::string(project));
        EXPECT_EQ(move.namesTaken.empty() ? "" : toAscii(move.namesTaken.front()), each.taken);
        EXPECT_TRUE(move.change.apply());
        EXPECT_EQ(textOf(data), each.rows);
    }
}

TEST(ItemMove, twins_areOneSubfolder) {
    RyvPrmProjectData data;
    fill(data, "S(a)");
    data.getProjFileDetails().front()->parent()->add(std::make_unique<RyvPrmSubfolder>(u"s"));
    fill(data, "y Q()");
    EXPECT_TRUE(planMove(data, {at(u"y")}, {u"S", ItemPlace::Side::last, {}}).change.apply());
    EXPECT_EQ(textOf(data), "S(a) s(y) Q()");
    EXPECT_TRUE(planMove(data, {at(u"S")}, {u"Q", ItemPlace::Side::last, {}}).change.apply());
    EXPECT_EQ(textOf(data), "Q(S(a) s(y))");
    EXPECT_TRUE(planMove(data, {at(u"Q")}, {u"Q/S", ItemPlace::Side::last, {}}).items.empty());
}

TEST(Rearrangement, incomplete_isRefused) {
    RyvPrmProjectData data;
    fill(data, "a S(b) c");
    const RyvPrmItems& top = data.getProjFileDetails();
    RyvPrmSubfolder* const root = top.front()->parent();
    RyvPrmItem* const a = top[0].get();
    RyvPrmItem* const s = top[1].get();
    RyvPrmItem* const c = top[2].get();
    RyvPrmItem* const b = asSubfolder(s)->getItems()[0].get();
    const std::vector<RyvPrmItem*> orders[] = {{s, a}, {a, s, c, c}, {a, s, s}, {a, s, b}, {a, s, nullptr}};
    for (const auto& order : orders) {
        EXPECT_FALSE((Rearrangement{{{root, order}}}.apply()));
        EXPECT_EQ(textOf(data), "a S(b) c");
    }
    EXPECT_TRUE((Rearrangement{{{root, {c, s, a}}}}.apply()));
    EXPECT_EQ(textOf(data), "c S(b) a");
}

/// Moves at random, each taken back and made again. No two arrangements that come up have one hash, and what
/// leads back from one leads nowhere from another.
TEST(Rearrangement, takenBack_isExactlyAsBefore) {
    std::unordered_map<std::uint64_t, std::string> known;
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        Random chance(seed);
        RyvPrmProjectData data;
        fill(data, "a S(b c T(d U(e)) f) g V(h W(i X(j k)))");
        for (int step = 0; step < 12; ++step) {
            std::vector<ItemAddress> all;
            TreeWalk walk(*data.getProjFileDetails().front()->parent());
            while (const RyvPrmItem* const item = walk.next()) {
                const RyvPrmSubfolder* const subfolder = asSubfolder(item);
                const CStringView name =
                    subfolder ? CStringView(subfolder->getName()) : asFileDetails(item)->getFileName();
                all.push_back({traceOf(*item->parent()), CString(name), subfolder != nullptr});
            }
            const ItemAddress target = chance.pick(all);
            ItemPlace place{target.folder, static_cast<ItemPlace::Side>(chance.below(4)), target};
            std::vector<ItemAddress> items;
            for (const ItemAddress& each : all)
                if (chance.oneIn(4))
                    items.push_back(each);
            const std::string before = textOf(data);
            const std::uint64_t hash = arrangementHash(data);
            const ItemMove move = planMove(data, items, place);
            const auto applied = AppliedRearrangement::apply(move.change, data);
            const std::string after = textOf(data);
            ASSERT_TRUE(applied && applied->isLatest(data));
            ASSERT_EQ(known.try_emplace(hash, before).first->second, before);
            ASSERT_EQ(known.try_emplace(arrangementHash(data), after).first->second, after);
            const auto back = applied->reverse(data);
            ASSERT_TRUE(back && back->apply());
            ASSERT_EQ(textOf(data), before) << seed << ":" << step;
            ASSERT_EQ(applied->reverse(data).has_value(), before == after);
            ASSERT_TRUE(planMove(data, items, place).change.apply());
            ASSERT_EQ(textOf(data), after);
        }
    }
}

} // namespace
} // namespace ryv::test
