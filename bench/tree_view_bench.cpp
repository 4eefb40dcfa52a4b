// The project tree on a screen that nobody sees: the first screen of a large project, what the user does with
// 30 projects until it is painted, and scrolling through all of it. Each beside its yardstick, in turn with
// it. Processor time, the least of the runs.

#include "bench/support/tree_bench.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_view.h"

#include <QApplication>
#include <QScrollBar>
#include <QStandardItemModel>

namespace {

using namespace bench;

/// Shown, and painted whenever it is asked to be.
template <class View>
class Screen final : public View {
public:
    template <class... Arguments>
    explicit Screen(Arguments&... arguments) : View(arguments..., nullptr) {
        this->resize(320, 800);
        this->show();
        paint();
    }
    /// Lets everything that is due happen, and paints all of it once.
    void paint() {
        QApplication::processEvents();
        const int before = painted_;
        this->viewport()->repaint();
        require(painted_ > before, "nothing is painted");
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        ++painted_;
        View::paintEvent(event);
    }

private:
    int painted_ = 0;
};

/// Without a parent to be named.
class PlainView : public QTreeView {
public:
    explicit PlainView(QWidget* parent) : QTreeView(parent) {
        setHeaderHidden(true);
        setUniformRowHeights(true);
        setVerticalScrollMode(ScrollPerPixel);
    }
};

drafta::ViewContext& context() {
    static drafta::ViewContext instance;
    return instance;
}

// The first screen ---------------------------------------------------------------------------------------

/// From an empty palette to the first rows of a project, expanded; the yardstick reads the file.
void firstScreen(benchmark::State& state) {
    OpenProjects projects;
    const CString project = projects.put("p.kqp", projectText(sizeOf(state)));
    Least read, open, rows, paint, all;
    for (auto _ : state) {
        read.measure([&] { readPlain(project); });
        ProjectTree tree;
        Screen<drafta::TreeView> screen(static_cast<ryv::TreeControl&>(tree), context());
        const double opening = processorSecondsOf([&] { projects.open(project); });
        const double building = processorSecondsOf([&] { tree.onProjectOpen(project); });
        const double painting = processorSecondsOf([&] {
            tree.expand(*tree.child(nullptr, 0), true);
            screen.paint();
        });
        open.add(opening);
        rows.add(building);
        paint.add(painting);
        all.add(opening + building + painting);
        projects.manager().closeProject(project, true);
        state.SetIterationTime(all.seconds());
    }
    state.counters["yardstick: read, ms"] = read.milliseconds();
    state.counters["open, ms"] = open.milliseconds();
    state.counters["rows, ms"] = rows.milliseconds();
    state.counters["paint, ms"] = paint.milliseconds();
    state.counters["all, ms"] = all.milliseconds();
    state.counters["ratio"] = all.seconds() / read.seconds();
}

// What the user does -------------------------------------------------------------------------------------

enum Step { build, expand, key, reRead, select, stepCount };
constexpr std::array<const char*, stepCount> stepNames = {
    "build", "expand all", "dearest key", "read one again", "select all"};
using Times = std::array<double, stepCount>;

/// `paint` comes after each step.
template <class Paint>
Times walkThrough(ProjectTree& tree, OpenProjects& projects, const Paint& paint) {
    const auto measure = [&](const auto& work) {
        return processorSecondsOf([&] {
            work();
            paint();
        });
    };
    Times times{};
    times[build] = measure([&] { tree.HookProjectEvents(); });
    times[expand] = measure([&] { tree.expandAll(nullptr, true); });
    for (const CString& text : filterKeys())
        times[key] = std::max(times[key], measure([&] { tree.setFilter(text); }));
    times[reRead] = measure(
        [&] { require(projects.manager().reReadProject(projects.ids[manyProjects / 2]), "not read again"); });
    times[select] = measure([&] { tree.selectAll(); });
    tree.UnhookProjectEvents();
    return times;
}

/// 30 projects; the yardstick is the same without a view.
void untilPainted(benchmark::State& state) {
    OpenProjects projects(manyProjects, sizeOf(state));
    const std::string text = projectText(sizeOf(state));
    std::array<Least, stepCount> bare, shown;
    int turn = 0;
    const auto add = [&](std::array<Least, stepCount>& least, const Times& times) {
        for (std::size_t step = 0; step < stepCount; ++step)
            least[step].add(times[step]);
        projects.put("p15.kqp", withOneChange(text, ++turn));
    };
    for (auto _ : state) {
        {
            ProjectTree tree;
            add(bare, walkThrough(tree, projects, [] {}));
        }
        ProjectTree tree;
        Screen<drafta::TreeView> screen(static_cast<ryv::TreeControl&>(tree), context());
        const Times times = walkThrough(tree, projects, [&screen] { screen.paint(); });
        add(shown, times);
        state.SetIterationTime(times[build]);
    }
    for (std::size_t step = 0; step < stepCount; ++step) {
        state.counters[std::string(stepNames[step]) + ", ms"] = shown[step].milliseconds();
        state.counters[std::string(stepNames[step]) + ", unseen, ms"] = bare[step].milliseconds();
    }
}

// Scrolling ----------------------------------------------------------------------------------------------

/// The same rows in the items that the library brings.
void copyRows(const ryv::TreeControl& tree, QStandardItemModel& model) {
    std::map<const TreeItem*, QStandardItem*> made{{nullptr, model.invisibleRootItem()}};
    for (const TreeItem* at = tree.child(nullptr, 0); at; at = nextInTree(*at, nullptr)) {
        auto* const item = new QStandardItem(drafta::toQt(at->label()));
        made[at->parent()]->appendRow(item);
        if (at->childCount() > 0)
            made[at] = item;
    }
}

/// From the top to the end, a page each.
template <class View>
std::size_t scrollThrough(View& screen) {
    QScrollBar& bar = *screen.verticalScrollBar();
    std::size_t pages = 0;
    for (int at = 0; at <= bar.maximum(); at += bar.pageStep(), ++pages) {
        bar.setValue(at);
        screen.paint();
    }
    return pages;
}

/// All rows of 30 projects; the yardstick is a plain tree view of the same library with rows of its own.
void scrollPages(benchmark::State& state) {
    const OpenProjects projects(manyProjects, sizeOf(state));
    const auto tree = buildTree();
    tree->expandAll(nullptr, true);
    QStandardItemModel model;
    copyRows(*tree, model);
    Screen<PlainView> plain;
    plain.setModel(&model);
    plain.expandAll();
    Screen<drafta::TreeView> screen(static_cast<ryv::TreeControl&>(*tree), context());
    plain.paint();
    screen.paint();
    Least yardstick, scroll;
    std::size_t pages = 0, plainPages = 0;
    for (auto _ : state) {
        yardstick.measure([&] { plainPages = scrollThrough(plain); });
        scroll.measure([&] { pages = scrollThrough(screen); });
        state.SetIterationTime(scroll.seconds());
    }
    const double ofPlain = yardstick.milliseconds() / static_cast<double>(plainPages);
    const double ofOurs = scroll.milliseconds() / static_cast<double>(pages);
    state.counters["pages"] = static_cast<double>(pages);
    state.counters["yardstick: a page, ms"] = ofPlain;
    state.counters["a page, ms"] = ofOurs;
    state.counters["ratio"] = ofOurs / ofPlain;
}

void fiveTurns(benchmark::internal::Benchmark* benchmark) {
    measureTurns(benchmark, 5);
}

void twoTurns(benchmark::internal::Benchmark* benchmark) {
    measureTurns(benchmark, 2);
}

BENCHMARK(firstScreen)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Apply(fiveTurns);
BENCHMARK(untilPainted)->Arg(50)->Arg(500)->Arg(5'000)->Apply(fiveTurns);
BENCHMARK(scrollPages)->Arg(50)->Arg(500)->Arg(5'000)->Apply(twoTurns);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
