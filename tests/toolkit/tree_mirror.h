// A view of a tree that knows only what it is told, as a real one does, and finds out when it was told wrong.
#pragma once

#include "toolkit/tree_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace ryv::test {

/// Rows as a view remembers them.
struct MirrorRow {
    TreeItem* item = nullptr;
    std::vector<MirrorRow> rows;
    bool operator==(const MirrorRow&) const = default;
};

class TreeMirror final : public TreeObserver {
public:
    explicit TreeMirror(TreeControl& control) : control_(control) {
        control_.attach(*this);
        root_ = read(nullptr);
    }
    TreeMirror(const TreeMirror&) = delete;
    TreeMirror& operator=(const TreeMirror&) = delete;
    ~TreeMirror() { control_.detach(*this); }

    /// What was put together from notices is what the control holds.
    void check() const { EXPECT_TRUE(root_ == read(nullptr)); }

    void aboutToInsert(TreeItem* parent, std::size_t row, std::size_t count) override {
        check();
        begin(parent, row, count);
    }
    void inserted() override {
        std::vector<MirrorRow>& rows = rowsOf(parent_);
        for (std::size_t i = 0; i < count_; ++i)
            rows.insert(at(rows, row_ + i), read(control_.shownChild(parent_, row_ + i)));
        complete();
    }
    void aboutToRemove(TreeItem* parent, std::size_t row, std::size_t count) override {
        check();
        begin(parent, row, count);
    }
    void removed() override {
        std::vector<MirrorRow>& rows = rowsOf(parent_);
        rows.erase(at(rows, row_), at(rows, row_ + count_));
        complete();
    }
    void aboutToMove(TreeItem& item, TreeItem* parent, std::size_t row) override {
        check();
        begin(parent, row, 1);
        from_ = item.parent();
        fromRow_ = item.shownRow();
    }
    void moved() override {
        std::vector<MirrorRow>& from = rowsOf(from_);
        MirrorRow row = std::move(from[fromRow_]);
        from.erase(at(from, fromRow_));
        std::vector<MirrorRow>& to = rowsOf(parent_);
        to.insert(at(to, row_), std::move(row));
        complete();
    }
    void aboutToReset() override { check(); }
    void reset() override {
        root_ = read(nullptr);
        complete();
    }
    void changed(TreeItem& item) override { EXPECT_TRUE(item.shown()); }
    void selectionChanged() override { ++selectionNotices; }

    std::size_t selectionNotices = 0;

private:
    static std::vector<MirrorRow>::iterator at(std::vector<MirrorRow>& rows, std::size_t row) {
        return rows.begin() + static_cast<std::ptrdiff_t>(row);
    }
    void begin(TreeItem* parent, std::size_t row, std::size_t count) {
        parent_ = parent;
        row_ = row;
        count_ = count;
    }

    /// Selection and focus are in order as soon as rows have come or gone.
    void complete() {
        check();
        for (const TreeItem* const item : control_.selection())
            EXPECT_TRUE(item && item->shown() && item->selected());
        for (const TreeItem* const item : {control_.focus(), control_.anchor(), control_.firstVisible()})
            EXPECT_TRUE(!item || item->shown());
    }
    MirrorRow read(TreeItem* item) const {
        MirrorRow row{item, {}};
        for (std::size_t i = 0; i < control_.shownChildCount(item); ++i)
            row.rows.push_back(read(control_.shownChild(item, i)));
        return row;
    }
    std::vector<MirrorRow>& rowsOf(TreeItem* parent) { return find(root_, parent)->rows; }
    static MirrorRow* find(MirrorRow& below, TreeItem* item) {
        if (below.item == item)
            return &below;
        for (MirrorRow& row : below.rows)
            if (MirrorRow* const found = find(row, item))
                return found;
        return nullptr;
    }

    TreeControl& control_;
    MirrorRow root_;
    TreeItem* parent_ = nullptr;
    TreeItem* from_ = nullptr;
    std::size_t row_ = 0;
    std::size_t fromRow_ = 0;
    std::size_t count_ = 0;
};

} // namespace ryv::test
