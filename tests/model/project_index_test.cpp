// The look-ups of a project against a search that walks the tree, after each of thousands of random changes.
#include "base/fold.h"
#include "model/trace.h"
#include "tests/support/project_builder.h"
#include "tests/support/random.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

// -- The search to compare with: level by level, in array order.

RyvPrmFileDetails* walkToDrawing(const RyvPrmItems& items, CStringView name) {
    for (const auto& item : items) {
        RyvPrmFileDetails* const drawing = asFileDetails(item.get());
        if (drawing && equalNoCase(drawing->getFileName(), name))
            return drawing;
        if (RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            if (RyvPrmFileDetails* const found = walkToDrawing(subfolder->getItems(), name))
                return found;
    }
    return nullptr;
}

RyvPrmSubfolder* walkToChild(const RyvPrmItems& items, CStringView name) {
    for (const auto& item : items)
        if (RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            if (equalNoCase(subfolder->getName(), name))
                return subfolder;
    return nullptr;
}

RyvPrmSubfolder* walkToSubfolder(const RyvPrmItems& top, CStringView trace) {
    const RyvPrmItems* items = &top;
    RyvPrmSubfolder* found = nullptr;
    TraceComponents components(trace);
    for (CStringView name = components.next(); !name.empty(); name = components.next()) {
        found = walkToChild(*items, name);
        if (!found)
            return nullptr;
        items = &found->getItems();
    }
    return found;
}

void collect(
    const RyvPrmItems& items, std::vector<RyvPrmSubfolder*>& subfolders, std::vector<RyvPrmItem*>& all) {
    for (const auto& item : items) {
        all.push_back(item.get());
        if (RyvPrmSubfolder* const subfolder = asSubfolder(item.get())) {
            subfolders.push_back(subfolder);
            collect(subfolder->getItems(), subfolders, all);
        }
    }
}

/// A project under change. Names come from so few that equal ones meet all the time.
class Changed {
public:
    explicit Changed(std::uint64_t seed) : chance_(seed) {}

    /// One random change; the name of what was done.
    const char* change();

    /// Compares look-ups; not all of them each time, so that the index is at times there and at times not.
    void check();

private:
    const char* changeTree(RyvPrmSubfolder& parent);
    const char* changeByName();
    const char* replaceTree();

    CString drawingName() {
        return CString(chance_.pick({u"a", u"A", u"b", u"B", u"c", u"C", u"\u00E4", u"\u00C4"}));
    }
    CString subfolderName() {
        return CString(chance_.pick({u"S", u"s", u"T", u"t", u"U", u"u", u"S (1)", u"", u"S/T"}));
    }
    CString trace();
    void refresh();
    RyvPrmSubfolder& someParent();
    std::unique_ptr<RyvPrmSubfolder> someTree(int depth);

    Random chance_;
    RyvPrmProjectData project_;
    std::vector<RyvPrmSubfolder*> subfolders_;
    std::vector<RyvPrmItem*> items_;
};

CString Changed::trace() {
    CString text;
    for (std::size_t i = chance_.below(4); i-- > 0;)
        text += subfolderName() + u"/";
    return text + subfolderName();
}

void Changed::refresh() {
    subfolders_.clear();
    items_.clear();
    collect(project_.getProjFileDetails(), subfolders_, items_);
}

/// The root is reached through a drawing that is put there first.
RyvPrmSubfolder& Changed::someParent() {
    if (project_.getProjFileDetails().empty())
        project_.addFile(drawing(drawingName()));
    refresh();
    const std::size_t choice = chance_.below(subfolders_.size() + 1);
    return choice == subfolders_.size() ? *items_[0]->parent() : *subfolders_[choice];
}

std::unique_ptr<RyvPrmSubfolder> Changed::someTree(int depth) {
    auto tree = std::make_unique<RyvPrmSubfolder>(subfolderName());
    for (std::size_t i = chance_.below(3); i-- > 0;) {
        if (depth > 0 && chance_.oneIn(2))
            tree->add(someTree(depth - 1));
        else
            tree->add(drawing(drawingName()));
    }
    return tree;
}

/// A change through the items of the tree; `parent` is any subfolder of it.
const char* Changed::changeTree(RyvPrmSubfolder& parent) {
    const std::size_t position = chance_.below(parent.getItems().size() + 1);
    RyvPrmItem* const item = chance_.pick(items_);
    RyvPrmSubfolder* const subfolder = subfolders_.empty() ? nullptr : chance_.pick(subfolders_);
    switch (chance_.below(8)) {
    case 0:
        return parent.add(drawing(drawingName())), "add drawing";
    case 1:
        return parent.insert(position, drawing(drawingName())), "insert drawing";
    case 2:
        return parent.insert(position, someTree(2)), "insert subfolder";
    case 3:
        return item->parent()->take(*item), "take item";
    case 4:
        if (RyvPrmFileDetails* const drawing = asFileDetails(item))
            drawing->setFileName(drawingName());
        return "rename drawing";
    case 5:
        if (subfolder)
            subfolder->setName(subfolderName());
        return "rename subfolder";
    case 6:
        if (subfolder && chance_.oneIn(2))
            subfolder->clear();
        else if (subfolder)
            *subfolder = RyvPrmSubfolder(subfolderName());
        return "clear a subfolder";
    default:
        std::unique_ptr<RyvPrmItem> moved = item->parent()->take(*item);
        RyvPrmSubfolder& target = someParent();
        target.insert(chance_.below(target.getItems().size() + 1), std::move(moved));
        return "move item";
    }
}

/// A change through the project, by names and traces.
const char* Changed::changeByName() {
    const CString name = drawingName();
    const CString where = trace();
    RyvPrmSubfolder* start = chance_.oneIn(2) ? nullptr : &someParent();
    switch (chance_.below(8)) {
    case 0:
        return project_.getSubfolderByTrace(where, start, true, chance_.oneIn(2)), "make subfolder";
    case 1:
        return project_.removeFile(name), "remove by name";
    case 2:
        return project_.removeFiles({name, drawingName()}), "remove several";
    case 3:
        return project_.removeSubfolders({where}), "remove subfolder";
    case 4:
        return project_.replaceFile(name, chance_.oneIn(2) ? toUpper(name) : drawingName()), "rename by name";
    case 5:
        return project_.modifyDetailsForFile(fullDrawing(name)), "modify";
    default:
        return project_.addFile(drawing(name), &where), "add by trace";
    }
}

const char* Changed::replaceTree() {
    refresh();
    CArray<RyvPrmItem*> kept;
    for (RyvPrmItem* const item : items_)
        if (chance_.oneIn(3))
            kept.push_back(item);
    project_.setProjFileDetails(kept);
    return "replace the tree";
}

const char* Changed::change() {
    refresh();
    if (items_.size() > 60 || chance_.oneIn(80))
        return replaceTree();
    return chance_.oneIn(2) ? changeTree(someParent()) : changeByName();
}

void Changed::check() {
    const RyvPrmItems& top = project_.getProjFileDetails();
    if (!chance_.oneIn(4)) {
        for (const CStringView name : {u"A", u"b", u"C", u"\u00C4", u"nowhere", u""}) {
            RyvPrmFileDetails* const expected = walkToDrawing(top, name);
            ASSERT_EQ(project_.findFile(name), expected) << shown(name) << " in " << treeText(project_);
            ASSERT_EQ(project_.isFileInProject(name), expected != nullptr);
        }
    }
    if (chance_.oneIn(4))
        return;
    for (int i = 0; i < 12; ++i) {
        const CString where = trace();
        ASSERT_EQ(project_.findSubfolder(where), walkToSubfolder(top, where))
            << shown(where) << " in " << treeText(project_);
        refresh();
        if (subfolders_.empty())
            continue;
        RyvPrmSubfolder* const start = chance_.pick(subfolders_);
        RyvPrmSubfolder* const expected = walkToSubfolder(start->getItems(), where);
        RyvPrmSubfolder* found = start;
        project_.getSubfolderByTrace(where, found, false, false);
        if (!where.empty()) {
            ASSERT_EQ(found, expected)
                << shown(where) << " below " << shown(start->getName()) << " in " << treeText(project_);
        }
    }
}

class ProjectIndexChanges : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(ProjectIndexChanges, findWhatAWalkFinds) {
    Changed project(GetParam());
    for (int i = 0; i < 3000; ++i) {
        SCOPED_TRACE(::testing::Message() << "change " << i << ": " << project.change());
        project.check();
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ProjectIndexChanges, ::testing::Values(1, 2, 3, 5, 8, 13, 21, 34));

/// Look-ups of a large project stay fast: with a walk each this would take minutes.
TEST(ProjectIndex, hundredThousandDrawingsOfOneName_areHandled) {
    constexpr int count = 100'000;
    RyvPrmProjectData project;
    ASSERT_FALSE(project.isFileInProject(u"x")); // from here on there is an index
    for (int i = 0; i < count; ++i)
        add(project, i % 2 ? u"x" : u"X");
    for (int i = 0; i < count; ++i)
        ASSERT_TRUE(project.isFileInProject(u"x"));
    RyvPrmFileDetails* const first = project.findFile(u"x");
    EXPECT_EQ(first, asFileDetails(project.getProjFileDetails()[0].get()));
    EXPECT_TRUE(project.removeFiles(CStringArray(std::size_t{count - 1}, CString(u"x"))));
    EXPECT_EQ(drawingNames(project).size(), 1u);
    EXPECT_EQ(treeText(project), "x") << "the last one is left";
}

TEST(ProjectIndex, manyDrawingsAndSubfolders_areFoundAndRenamed) {
    constexpr int count = 20'000;
    RyvPrmProjectData project;
    for (int i = 0; i < count; ++i)
        add(project, u"d" + fromAscii(std::to_string(i)), u"s" + fromAscii(std::to_string(i % 500)) + u"/t");
    for (int i = 0; i < count; ++i) {
        const CString name = u"D" + fromAscii(std::to_string(i));
        ASSERT_TRUE(project.replaceFile(name, name + u"x"));
    }
    EXPECT_FALSE(project.isFileInProject(u"d7"));
    EXPECT_EQ(project.findFile(u"d777X")->parent(), project.findSubfolder(u"S277/T"));
}

} // namespace
} // namespace ryv::test
