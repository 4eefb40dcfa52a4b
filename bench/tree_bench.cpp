// What a tree control does with many rows, of one parent or ten to a parent, beside the same on the standard
// containers.

#include "bench/support/bench_tree.h"

#include <algorithm>
#include <list>
#include <numeric>
#include <random>

namespace {

using namespace bench;

/// Runs `work` on a fresh subject each time; making and destroying it does not count.
template <class Make, class Work>
void onFresh(benchmark::State& state, const Make& make, const Work& work) {
    for (auto _ : state) {
        state.PauseTiming();
        auto subject = make();
        state.ResumeTiming();
        work(*subject);
        state.PauseTiming();
        subject.reset();
        state.ResumeTiming();
    }
}

// -- Inserting, one by one

using List = std::list<std::unique_ptr<TreeRow>>;

void yardstickListPushBack(benchmark::State& state) {
    onFresh(
        state, [] { return std::make_unique<List>(); },
        [&](List& list) {
            for (TreeRow& row : rows(sizeOf(state)))
                list.push_back(std::make_unique<TreeRow>(std::move(row)));
        });
}

void insertEach(benchmark::State& state, std::size_t place) {
    onFresh(
        state, [] { return std::make_unique<Tree>(0); },
        [&](Tree& tree) {
            for (TreeRow& row : rows(sizeOf(state)))
                tree.control.insert(tree.parent, place, std::move(row));
        });
}

void insertAtEnd(benchmark::State& state) {
    insertEach(state, TreeControl::atEnd);
}

void insertAtFront(benchmark::State& state) {
    insertEach(state, 0);
}

// -- Removing, one by one

enum class Sequence { forwards, backwards, scattered };

std::vector<std::size_t> sequenceOf(std::size_t count, Sequence sequence) {
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0u);
    if (sequence == Sequence::backwards)
        std::reverse(numbers.begin(), numbers.end());
    if (sequence == Sequence::scattered)
        std::shuffle(
            numbers.begin(), numbers.end(), std::mt19937_64(7)); // NOLINT(bugprone-random-generator-seed)
    return numbers;
}

void yardstickListEraseScattered(benchmark::State& state) {
    struct Filled {
        List list;
        std::vector<List::iterator> places;
    };
    const auto sequence = sequenceOf(sizeOf(state), Sequence::scattered);
    onFresh(
        state,
        [&] {
            auto filled = std::make_unique<Filled>();
            for (TreeRow& row : rows(sizeOf(state)))
                filled->places.push_back(
                    filled->list.insert(filled->list.end(), std::make_unique<TreeRow>(std::move(row))));
            return filled;
        },
        [&](Filled& filled) {
            for (const std::size_t number : sequence)
                filled.list.erase(filled.places[number]);
        });
}

void removeEach(benchmark::State& state, Sequence order, bool selected) {
    struct Filled {
        explicit Filled(std::size_t count) : tree(count) {
            for (TreeItem* item = tree.parent->firstChild(); item; item = item->next())
                items.push_back(item);
        }
        Tree tree;
        std::vector<TreeItem*> items;
    };
    const auto sequence = sequenceOf(sizeOf(state), order);
    onFresh(
        state,
        [&] {
            auto filled = std::make_unique<Filled>(sizeOf(state));
            if (selected)
                filled->tree.control.selectAll();
            return filled;
        },
        [&](Filled& filled) {
            for (const std::size_t number : sequence)
                filled.tree.control.remove(*filled.items[number]);
        });
}

void removeFromFront(benchmark::State& state) {
    removeEach(state, Sequence::forwards, false);
}

void removeFromBack(benchmark::State& state) {
    removeEach(state, Sequence::backwards, false);
}

void removeScattered(benchmark::State& state) {
    removeEach(state, Sequence::scattered, false);
}

void removeScatteredSelected(benchmark::State& state) {
    removeEach(state, Sequence::scattered, true);
}

// -- Selecting and filtering

void yardstickVectorOfPointers(benchmark::State& state) {
    const Tree tree(sizeOf(state));
    for (auto _ : state) {
        std::vector<TreeItem*> all;
        for (TreeItem* item = tree.parent->firstChild(); item; item = item->next())
            all.push_back(item);
        benchmark::DoNotOptimize(all.data());
    }
}

template <class AnyTree>
void selectAll(benchmark::State& state) {
    AnyTree tree(sizeOf(state));
    for (auto _ : state) {
        tree.control.setSelection({});
        tree.control.selectAll();
    }
}

void clickWithShift(benchmark::State& state) {
    Tree tree(sizeOf(state));
    for (auto _ : state) {
        tree.control.click(tree.parent);
        tree.control.click(tree.parent->lastChild(), {false, true});
    }
}

void yardstickPassOverLabels(benchmark::State& state) {
    const auto contents = rows(sizeOf(state));
    const ryv::TreeFilter filter(u"99");
    for (auto _ : state) {
        std::size_t found = 0;
        for (const TreeRow& row : contents)
            found += filter.matches(row.label) ? 1u : 0u;
        benchmark::DoNotOptimize(found);
    }
}

template <class AnyTree>
void filterEach(benchmark::State& state, const CString& text, const CString& other) {
    AnyTree tree(sizeOf(state));
    bool first = false;
    for (auto _ : state)
        tree.control.setFilter((first = !first) ? text : other);
}

template <class AnyTree>
void filterFew(benchmark::State& state) {
    filterEach<AnyTree>(state, u"99", u"98");
}

template <class AnyTree>
void filterAll(benchmark::State& state) {
    filterEach<AnyTree>(state, u"panel", u"PANE");
}

BENCHMARK(yardstickListPushBack)->Apply(treeSizes);
BENCHMARK(insertAtEnd)->Apply(treeSizes);
BENCHMARK(insertAtFront)->Apply(treeSizes);
BENCHMARK(yardstickListEraseScattered)->Apply(treeSizes);
BENCHMARK(removeFromFront)->Apply(treeSizes);
BENCHMARK(removeFromBack)->Apply(treeSizes);
BENCHMARK(removeScattered)->Apply(treeSizes);
BENCHMARK(removeScatteredSelected)->Apply(treeSizes);
BENCHMARK(yardstickVectorOfPointers)->Apply(treeSizes);
BENCHMARK(selectAll<Tree>)->Name("selectAll")->Apply(treeSizes);
BENCHMARK(selectAll<NestedTree>)->Name("selectAllNested")->Apply(treeSizes);
BENCHMARK(clickWithShift)->Apply(treeSizes);
BENCHMARK(yardstickPassOverLabels)->Apply(treeSizes);
BENCHMARK(filterFew<Tree>)->Name("filterFew")->Apply(treeSizes);
BENCHMARK(filterFew<NestedTree>)->Name("filterFewNested")->Apply(treeSizes);
BENCHMARK(filterAll<Tree>)->Name("filterAll")->Apply(treeSizes);
BENCHMARK(filterAll<NestedTree>)->Name("filterAllNested")->Apply(treeSizes);

} // namespace

BENCHMARK_MAIN();
