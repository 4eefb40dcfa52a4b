// Tree controls with many rows, and a view of them.
#pragma once

#include "base/text.h"
#include "toolkit/tree_control.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace bench {

using ryv::CString;
using ryv::TreeControl;
using ryv::TreeItem;
using ryv::TreeRow;

inline CString labelOf(std::size_t n) {
    return u"PANEL" + ryv::toText(static_cast<long long>(n)) + u".dwg - Motor control, sheet";
}

/// Rows with the numbers from `first` on in their labels.
inline std::vector<TreeRow> rows(std::size_t count, std::size_t first = 0) {
    std::vector<TreeRow> made(count);
    for (std::size_t n = 0; n < count; ++n)
        made[n].label = labelOf(first + n);
    return made;
}

/// A view that is told everything, as there always is one.
class View final : public ryv::TreeObserver {
public:
    void aboutToInsert(TreeItem*, std::size_t row, std::size_t) override { sum += row; }
    void aboutToRemove(TreeItem*, std::size_t row, std::size_t) override { sum += row; }
    std::size_t sum = 0;
};

/// One expanded parent at the top with that many rows.
struct Tree {
    explicit Tree(std::size_t count) : parent(&control.insert(nullptr, 0, {u"project"})) {
        control.attach(view);
        control.insertRows(parent, 0, rows(count));
        control.expand(*parent, true);
    }
    ~Tree() { benchmark::DoNotOptimize(view.sum); }
    View view;
    TreeControl control{1};
    TreeItem* parent;
};

/// Rows in levels, ten below each, all expanded: ten parents at the top, then a hundred rows, and so on.
struct NestedTree {
    static constexpr std::size_t width = 10;

    /// `count` is a multiple of ten.
    explicit NestedTree(std::size_t count) {
        control.attach(view);
        parents.push_back(nullptr);
        for (std::size_t first = 0; first < count; first += width) {
            control.insertRows(parents[first / width], 0, rows(width, first));
            for (std::size_t row = 0; row < width; ++row)
                parents.push_back(control.child(parents[first / width], row));
        }
        control.expandAll(nullptr, true);
        parents.resize(count / width);
    }
    ~NestedTree() { benchmark::DoNotOptimize(view.sum); }
    View view;
    TreeControl control{1};
    std::vector<TreeItem*> parents; ///< those that have rows; null for the top
};

inline std::size_t sizeOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

inline void treeSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1500)->Arg(15000)->Arg(150000)->Unit(benchmark::kMicrosecond);
}

} // namespace bench
