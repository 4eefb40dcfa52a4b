// The rows of open projects: building them, following a change, expanding, filtering, selecting, moving
// drawings, and the memory of a row. Each beside its yardstick, in turn with it. Processor time, the least of
// the runs.

#include "bench/support/tree_bench.h"
#include "embedded/database/database_reader.h"
#include "model/kqp_filer.h"

#include <malloc.h>

#include <algorithm>
#include <array>

namespace {

using namespace bench;

// Building -----------------------------------------------------------------------------------------------

std::size_t heapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// All rows of 30 projects; the yardstick reads the files.
void buildAll(benchmark::State& state) {
    OpenProjects projects(manyProjects, sizeOf(state));
    Least read, build;
    double bytes = 0;
    std::size_t rows = 0;
    for (auto _ : state) {
        read.measure([&] {
            for (const CString& project : projects.ids)
                readPlain(project);
        });
        const std::size_t before = heapBytes();
        std::unique_ptr<ProjectTree> tree;
        build.measure([&] { tree = buildTree(); });
        bytes = static_cast<double>(heapBytes() - before);
        rows = countRows(*tree);
        report(state, read, build);
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["bytes a row"] = bytes / static_cast<double>(rows);
}

// Following ----------------------------------------------------------------------------------------------

/// Counts what a view would have to redraw.
class View final : public ryv::TreeObserver {
public:
    void aboutToInsert(TreeItem*, std::size_t, std::size_t) override { ++others; }
    void aboutToRemove(TreeItem*, std::size_t, std::size_t) override { ++others; }
    void aboutToMove(TreeItem&, TreeItem*, std::size_t) override { ++others; }
    void aboutToReset() override { ++others; }
    void changed(TreeItem&) override { ++rows; }
    void selectionChanged() override { ++others; }
    int rows = 0;
    int others = 0;
};

/// One of 30 projects is read again with one drawing changed; the yardstick reads its file.
void reReadOne(benchmark::State& state) {
    OpenProjects projects(manyProjects, sizeOf(state));
    const auto tree = buildTree();
    tree->expandAll(nullptr, true);
    const std::string text = projectText(sizeOf(state));
    const CString project = projects.ids[manyProjects / 2];
    Least read, follow;
    int turn = 0;
    for (auto _ : state) {
        projects.put("p15.kqp", withOneChange(text, ++turn));
        read.measure([&] { readPlain(project); });
        View view;
        tree->attach(view);
        follow.measure([&] { require(projects.manager().reReadProject(project), "not read again"); });
        tree->detach(view);
        require(view.rows == 1 && view.others == 0, "more was touched than the row that differs");
        report(state, read, follow);
    }
}

// Looking at them ----------------------------------------------------------------------------------------

/// The yardstick walks all rows.
void expandAll(benchmark::State& state) {
    const OpenProjects projects(manyProjects, sizeOf(state));
    const auto tree = buildTree();
    Least walk, expand;
    for (auto _ : state) {
        tree->expandAll(nullptr, false);
        walk.measure([&] { benchmark::DoNotOptimize(countRows(*tree)); });
        expand.measure([&] { tree->expandAll(nullptr, true); });
        report(state, walk, expand);
    }
}

/// The yardstick puts pointers to all rows into a vector.
void selectAll(benchmark::State& state) {
    const OpenProjects projects(manyProjects, sizeOf(state));
    const auto tree = buildTree();
    tree->expandAll(nullptr, true);
    Least collect, select;
    for (auto _ : state) {
        collect.measure([&] {
            std::vector<TreeItem*> rows;
            for (TreeItem* at = tree->child(nullptr, 0); at; at = nextInTree(*at, nullptr))
                rows.push_back(at);
            benchmark::DoNotOptimize(rows.data());
        });
        tree->setSelection({});
        select.measure([&] { tree->selectAll(); });
        require(tree->selectionCount() == countRows(*tree), "not all rows are selected");
        report(state, collect, select);
    }
}

/// The dearest of the keys; the yardstick makes the texts of all rows and looks for the words, without a
/// tree.
void filterKey(benchmark::State& state) {
    const OpenProjects projects(1, sizeOf(state));
    const auto tree = buildTree();
    Least pass;
    std::vector<Least> keys(filterKeys().size());
    for (auto _ : state) {
        pass.measure([&] {
            const ryv::TreeFilter filter(u"pump");
            std::size_t found = 0;
            for (const TreeItem* at = tree->child(nullptr, 0); at; at = nextInTree(*at, nullptr))
                found += filter.matches(tree->searchText(*at)) ? 1u : 0u;
            require(found >= sizeOf(state), "the filter finds too little");
        });
        for (std::size_t key = 0; key < keys.size(); ++key)
            keys[key].measure([&] { tree->setFilter(filterKeys()[key]); });
        report(state, pass, *std::max_element(keys.begin(), keys.end(), [](const Least& a, const Least& b) {
            return a.seconds() < b.seconds();
        }));
    }
}

// Moving -------------------------------------------------------------------------------------------------

/// The first drawing of every subfolder that holds drawings.
std::vector<TreeItem*> aTenth(const ProjectTree& tree) {
    std::vector<TreeItem*> rows;
    for (TreeItem* at = tree.child(nullptr, 0); at; at = nextInTree(*at, nullptr))
        if (ProjectTree::GetItemType(at) == ryv::TreeItemType::drawing && at == at->parent()->firstChild())
            rows.push_back(at);
    return rows;
}

/// A tenth of the drawings is dragged into the last subfolder; the yardstick writes the project.
void dragTenth(benchmark::State& state) {
    Least write, hover, drag;
    for (auto _ : state) {
        OpenProjects projects(1, sizeOf(state));
        const CString project = projects.ids.front();
        const auto tree = buildTree();
        tree->expandAll(nullptr, true);
        const std::vector<TreeItem*> rows = aTenth(*tree);
        require(rows.size() == sizeOf(state) / 10, "not a tenth of the drawings");
        TreeItem* const target = rows.back()->parent();
        const std::size_t before = target->childCount();
        tree->setSelection({rows.begin(), rows.end() - 1});
        const auto over = [&] {
            require(tree->dragOver(target, ryv::DropPosition::onto), "no place to drop");
        };
        drag.measure([&] {
            require(tree->beginDrag(), "cannot be dragged");
            hover.measure(over);
            tree->drop();
        });
        require(target->childCount() == before + rows.size() - 1, "not moved");
        write.measure([&] {
            ryv::RyvPrmKQPFiler filer(project, true, true);
            require(
                filer.writeProject(projects.manager().getProject(project)->getProjectData()), "not written");
        });
        report(state, write, drag);
    }
    state.counters["pointer moves, ms"] = hover.milliseconds();
    state.counters["less writing, ms"] = drag.milliseconds() - write.milliseconds();
}

// Labels from a database ---------------------------------------------------------------------------------

constexpr std::size_t drawingsOfDatabase = 10'000;

/// The recorded database; a reader that has not seen it yet.
class RecordedDatabase final : public NoDatabase {
public:
    bool PmGetProjectDb(ryv::CStringView, CString& path) override {
        path = u"recorded";
        return true;
    }
    std::unique_ptr<ryv::DatabaseRecordset> open(ryv::CStringView, CString& problem) override {
        return reader_.open(RYV_TEST_DATABASES "/LARGE.mdb", problem);
    }

private:
    drafta::DatabaseReader reader_{{DRAFTA_MDB_READER, {std::chrono::seconds(15)}}};
};

std::string drawingsOfThat() {
    std::string text;
    std::array<char, 64> line;
    for (std::size_t n = 1; n <= drawingsOfDatabase; ++n) {
        std::snprintf(
            line.data(), line.size(), "C:\\PROJ\\LARGE\\AREA%02zu\\DWG%05zu.dwg\n", (n - 1) / 500, n);
        text += line.data();
    }
    return text;
}

void scan() {
    RecordedDatabase database;
    CString problem;
    ryv::CStringArray row;
    const auto records = database.open({}, problem);
    require(records && records->query({u"FILETIME", u"SH", u"DWGNAME", u"C:/PROJ/LARGE/AREA00/DWG00001.DWG"},
                           row, problem),
        "the database is not read");
}

/// Labels of five fields, four from the database; the yardstick is the same without one, and a scan.
void labelsFromDatabase(benchmark::State& state) {
    using namespace ryv::message;
    OpenProjects projects;
    projects.display(
        {fieldInstallationCode, fieldLocationCode, fieldSheet, fieldDrawingNumber, fieldFileName});
    projects.open(projects.put("large.kqp", drawingsOfThat()));
    ryv::ProjectDatabase*& port = ryv::platform().services.projectDatabase;
    Least without, scanned, with, yardstick;
    for (auto _ : state) {
        port = &projects.database;
        without.measure([&] { buildTree(); });
        scanned.measure(scan);
        RecordedDatabase database;
        port = &database;
        std::unique_ptr<ProjectTree> tree;
        with.measure([&] { tree = buildTree(); });
        require(tree->child(tree->child(nullptr, 0), drawingsOfDatabase - 2)->label() ==
                    u"PLANT3 - CAB39 - 9999 - E-09999 - DWG09999.dwg",
            "a label is wrong");
        port = &projects.database;
        yardstick.add(without.seconds() + scanned.seconds());
        report(state, yardstick, with);
    }
    state.counters["without, ms"] = without.milliseconds();
    state.counters["scan, ms"] = scanned.milliseconds();
}

void set(benchmark::internal::Benchmark* benchmark) {
    measureTurns(benchmark, 5);
}

void eachOfThirty(benchmark::internal::Benchmark* benchmark) {
    set(benchmark->Arg(50)->Arg(500)->Arg(5'000));
}

BENCHMARK(buildAll)->Apply(eachOfThirty);
BENCHMARK(reReadOne)->Apply(eachOfThirty);
BENCHMARK(expandAll)->Apply(eachOfThirty);
BENCHMARK(selectAll)->Apply(eachOfThirty);
BENCHMARK(filterKey)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Apply(set);
BENCHMARK(dragTenth)->Arg(500)->Arg(5'000)->Arg(50'000)->Apply(set);
BENCHMARK(labelsFromDatabase)->Apply(set);

} // namespace

BENCHMARK_MAIN();
