// What replacing the rows of a tree control costs, by how much differs, beside a standard hash map of the
// keys.

#include "bench/support/bench_tree.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

using namespace bench;

CString keyOf(const CString& label, const ryv::TreeItemData*) {
    return label;
}

/// Replaces all rows of one parent by what `change` makes of them and puts them back, which does not count.
template <class Change>
void replaceAndRestore(benchmark::State& state, const Change& change) {
    Tree tree(sizeOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        auto contents = rows(sizeOf(state));
        change(contents);
        state.ResumeTiming();
        tree.control.replaceChildren(tree.parent, std::move(contents), keyOf);
        state.PauseTiming();
        tree.control.replaceChildren(tree.parent, rows(sizeOf(state)), keyOf);
        state.ResumeTiming();
    }
}

void changeTen(std::vector<TreeRow>& contents) {
    for (std::size_t i = 0; i < 10; ++i)
        contents[i * contents.size() / 10].label += u" (new)";
}

void yardstickMapOfKeys(benchmark::State& state) {
    const std::vector<TreeRow> old = rows(sizeOf(state));
    auto contents = rows(sizeOf(state));
    changeTen(contents);
    for (auto _ : state) {
        std::unordered_map<CString, const TreeRow*> map;
        map.reserve(old.size());
        for (const TreeRow& row : old)
            map.emplace(row.label, &row);
        std::size_t found = 0;
        for (const TreeRow& row : contents)
            found += map.count(row.label);
        benchmark::DoNotOptimize(found);
    }
}

void replaceTen(benchmark::State& state) {
    replaceAndRestore(state, changeTen);
}

void replaceAll(benchmark::State& state) {
    replaceAndRestore(state, [](std::vector<TreeRow>& contents) {
        for (TreeRow& row : contents)
            row.label += u" (new)";
    });
}

void replaceReversed(benchmark::State& state) {
    replaceAndRestore(
        state, [](std::vector<TreeRow>& contents) { std::reverse(contents.begin(), contents.end()); });
}

/// Every second row, so that no two stand side by side.
void replaceHalfRemoved(benchmark::State& state) {
    replaceAndRestore(state, [](std::vector<TreeRow>& contents) {
        for (std::size_t i = 1; 2 * i < contents.size(); ++i)
            contents[i] = std::move(contents[2 * i]);
        contents.resize((contents.size() + 1) / 2);
    });
}

/// Under each parent of a nested tree in turn; at the lowest level one row of ten is another one.
void replaceNested(benchmark::State& state) {
    NestedTree tree(sizeOf(state));
    bool changed = false;
    for (auto _ : state) {
        state.PauseTiming();
        changed = !changed;
        std::vector<std::vector<TreeRow>> contents;
        for (std::size_t i = 0; i < tree.parents.size(); ++i) {
            contents.push_back(rows(NestedTree::width, i * NestedTree::width));
            if (changed && NestedTree::width * i > tree.parents.size())
                contents.back().front().label += u" (new)";
        }
        state.ResumeTiming();
        for (std::size_t i = 0; i < contents.size(); ++i)
            tree.control.replaceChildren(tree.parents[i], std::move(contents[i]), keyOf);
    }
}

BENCHMARK(yardstickMapOfKeys)->Apply(treeSizes);
BENCHMARK(replaceTen)->Apply(treeSizes);
BENCHMARK(replaceAll)->Apply(treeSizes);
BENCHMARK(replaceReversed)->Apply(treeSizes);
BENCHMARK(replaceHalfRemoved)->Apply(treeSizes);
BENCHMARK(replaceNested)->Apply(treeSizes);

} // namespace

BENCHMARK_MAIN();
