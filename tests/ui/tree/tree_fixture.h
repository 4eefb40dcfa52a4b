// A project tree over a project manager with files in memory, and what its views are told.
#pragma once

#include "base/encoding.h"
#include "base/text.h"
#include "tests/support/memory_manager.h"
#include "ui/tree/project_tree.h"

#include <gtest/gtest.h>

#include <utility>

namespace ryv::test {

/// Notes what a view is told, each notice as a line: "insert DEMO:0+2", "changed x.dwg".
class TreeStory final : public TreeObserver {
public:
    explicit TreeStory(TreeControl& tree) : tree_(tree) { tree_.attach(*this); }
    TreeStory(const TreeStory&) = delete;
    TreeStory& operator=(const TreeStory&) = delete;
    ~TreeStory() { tree_.detach(*this); }

    /// The notices since the last call, joined by ", ".
    std::string take() { return std::exchange(story_, {}); }

    void aboutToInsert(TreeItem* parent, std::size_t row, std::size_t count) override {
        note("insert " + place(parent, row) + "+" + std::to_string(count));
    }
    void aboutToRemove(TreeItem* parent, std::size_t row, std::size_t count) override {
        note("remove " + place(parent, row) + "-" + std::to_string(count));
    }
    void aboutToMove(TreeItem& item, TreeItem* parent, std::size_t row) override {
        note("move " + name(&item) + " to " + place(parent, row));
    }
    void aboutToReset() override { note("reset"); }
    void changed(TreeItem& item) override { note("changed " + name(&item)); }
    void expansionChanged(TreeItem& item) override {
        note((item.expanded() ? "expanded " : "collapsed ") + name(&item));
    }
    void selectionChanged() override { note("selection"); }
    void focusChanged() override { note("focus " + name(tree_.focus())); }
    void editEnded() override { note("edit ended"); }
    void firstVisibleChanged(TreeItem* item) override { note("first " + name(item)); }
    void revealed(TreeItem& item) override { note("revealed " + name(&item)); }

private:
    static std::string name(const TreeItem* item) { return item ? toUtf8(item->label()) : ""; }
    static std::string place(const TreeItem* parent, std::size_t row) {
        return name(parent) + ":" + std::to_string(row);
    }
    void note(const std::string& line) { story_ += (story_.empty() ? "" : ", ") + line; }

    TreeControl& tree_;
    std::string story_;
};

class TreeFixture : public MemoryManager {
protected:
    TreeFixture() {
        tree = std::make_unique<CProjectTree>();
        tree->HookProjectEvents();
    }

    /// Writes "C:\P\NAME.kqp" with these lines, makes the drawings that they name, and gives the ID.
    CString project(const std::string& name, const std::string& lines) {
        for (const CString& line : split(decodeUtf8(lines), u'\n'))
            if (line.ends_with(u".dwg") && line[0] != u'=' && !files.get(u"C:\\P\\" + line))
                files.put(u"C:\\P\\" + line, "drawing");
        files.put(path(name + ".kqp"), lines);
        return path(name + ".kqp");
    }
    CString open(const std::string& name, const std::string& lines, bool activate = false) {
        const CString projectId = project(name, lines);
        EXPECT_TRUE(manager->openProject(projectId, activate));
        return projectId;
    }
    /// The project file becomes another one, and is read again.
    void reRead(const std::string& name, const std::string& lines) {
        manager->reReadProject(project(name, lines));
    }
    void display(const CArray<int>& order, const CString& separator = u"-", bool showSelection = true) {
        EXPECT_TRUE(manager->setDwgDisplaySetting(order, separator, showSelection));
    }

    /// The row of that label, top to bottom. A test that asks for one that is not there ends.
    TreeItem& row(CStringView label) const {
        TreeItem* item = tree->child(nullptr, 0);
        while (item && item->label() != label)
            item = nextInTree(*item, nullptr);
        if (!item)
            throw std::invalid_argument("no row " + toUtf8(label));
        return *item;
    }
    /// "DEMO(*A(x.dwg) *y.dwg)": "*" in front of what is bold, "&" of drawings for reference.
    std::string rows() const {
        std::string text;
        std::vector<const TreeItem*> open;
        for (const TreeItem* item = tree->child(nullptr, 0); item; item = nextInTree(*item, nullptr)) {
            for (; !open.empty() && open.back() != item->parent(); open.pop_back())
                text += ")";
            text += text.empty() || text.ends_with('(') ? "" : " ";
            text += item->bold() ? "*" : "";
            text += (item->image() == CProjectTree::referenceImage ? "&" : "") + toUtf8(item->label());
            if (item->childCount() > 0) {
                text += "(";
                open.push_back(item);
            }
        }
        return text + std::string(open.size(), ')');
    }
    std::string selected() const {
        std::string text;
        for (const TreeItem* const item : tree->selection())
            text += (text.empty() ? "" : " ") + toUtf8(item->label());
        return text;
    }

    std::unique_ptr<CProjectTree> tree;
};

} // namespace ryv::test
