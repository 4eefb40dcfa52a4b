#!/usr/bin/env python3
"""Runs the benchmarks and prints the tables of bench/README.md.

Usage: bench/table.py [FOLDER OF THE PROGRAMS]      (default build/bench/bin)
Every benchmark runs in a process of its own, because what one leaves in the heap changes what the next one costs; the
median of five runs counts. Times are processor time.
"""
import json
import statistics
import subprocess
import sys

SIZES = (1000, 10000, 100000)
TREE_SIZES = (1500, 15000, 150000)
RUNS = 5


def measure(program, name, size):
    """Median processor time of one iteration, in nanoseconds for each drawing (or key)."""
    command = [program, f"--benchmark_filter=^{name}/{size}(/|$)", "--benchmark_min_time=0.2", "--benchmark_format=json"]
    times = []
    for _ in range(RUNS):
        printed = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        result = json.loads(printed)["benchmarks"][0]
        if result.get("error_occurred"):
            sys.exit(f"{name}/{size}: {result['error_message']}")
        scale = {"ns": 1, "us": 1e3, "ms": 1e6}[result["time_unit"]]
        times.append(result["cpu_time"] * scale / size)
    return statistics.median(times)


def row(title, cells):
    print("| " + " | ".join([title, *cells]) + " |")


def table(program, names, sizes=SIZES):
    """Prints one table and returns the figures by name."""
    row("ns for each", [f"{size:,}" for size in sizes])
    row("---", ["---:"] * len(sizes))
    figures = {}
    for title, name in names:
        figures[name] = [measure(program, name, size) for size in sizes]
        row(title, [f"{figure:,.0f}" for figure in figures[name]])
    return figures


def ratio(title, figures, above, below):
    row(title, [f"{a / b:.2f}" for a, b in zip(figures[above], figures[below])])


def growth(figures, name):
    return figures[name][-1] / figures[name][0]


def main():
    folder = next((word for word in sys.argv[1:] if not word.startswith("-")), "build/bench/bin")
    print("\n### Reading and writing, for each drawing\n")
    files = table(f"{folder}/project_file_bench", [
        ("yardstick: read() and memchr for every line", "yardstickReadAndScan"),
        ("yardstick: read() and decode to UTF-16", "yardstickReadAndDecode"),
        ("yardstick: pugixml, the same project as XML", "yardstickXml"),
        ("**reading a project**", "readProject"),
        ("yardstick: encode, write(), fsync()", "yardstickEncodeAndWrite"),
        ("**writing a project**", "writeProject"),
    ])
    ratio("reading / decode", files, "readProject", "yardstickReadAndDecode")
    ratio("reading / pugixml", files, "readProject", "yardstickXml")
    ratio("writing / encode and write", files, "writeProject", "yardstickEncodeAndWrite")
    print(f"\nFrom 1,000 to 100,000 drawings the time for each grows by {growth(files, 'readProject'):.2f} (reading), "
          f"{growth(files, 'writeProject'):.2f} (writing), {growth(files, 'yardstickReadAndDecode'):.2f} (decode) and "
          f"{growth(files, 'yardstickXml'):.2f} (pugixml).")
    print("\n### The tree, for each drawing or key\n")
    tree = table(f"{folder}/project_tree_bench", [
        ("yardstick: std::unordered_map by path", "yardstickMapByPath"),
        ("**look-up by path**", "findByPath"),
        ("yardstick: std::unordered_map by trace", "yardstickMapByTrace"),
        ("**look-up by trace**", "findByTrace"),
        ("**removing half of the drawings**", "removeHalf"),
        ("**comparing two equal projects**", "compareEqual"),
        ("**the flat list**", "flatList"),
    ])
    ratio("by path / map", tree, "findByPath", "yardstickMapByPath")
    ratio("by trace / map", tree, "findByTrace", "yardstickMapByTrace")
    print("\n### The tree control, for each row\n")
    rows = table(f"{folder}/tree_bench", [
        ("yardstick: std::list, push_back", "yardstickListPushBack"),
        ("**inserting at the end**", "insertAtEnd"),
        ("**inserting at the front**", "insertAtFront"),
        ("yardstick: std::list, erase in any order", "yardstickListEraseScattered"),
        ("**removing from the front**", "removeFromFront"),
        ("**removing from the back**", "removeFromBack"),
        ("**removing in any order**", "removeScattered"),
        ("**the same, all rows selected**", "removeScatteredSelected"),
        ("yardstick: std::vector of the rows", "yardstickVectorOfPointers"),
        ("**selecting all**", "selectAll"),
        ("**the same, nested**", "selectAllNested"),
        ("**a range, click and shift-click**", "clickWithShift"),
        ("yardstick: a pass over the labels", "yardstickPassOverLabels"),
        ("**filter that few rows pass**", "filterFew"),
        ("**the same, nested**", "filterFewNested"),
        ("**filter that all rows pass**", "filterAll"),
        ("**the same, nested**", "filterAllNested"),
    ], TREE_SIZES)
    ratio("removing in any order / list", rows, "removeScattered", "yardstickListEraseScattered")
    ratio("filter that few pass / labels", rows, "filterFew", "yardstickPassOverLabels")
    print()
    replacing = table(f"{folder}/tree_replace_bench", [
        ("yardstick: std::unordered_map of the keys", "yardstickMapOfKeys"),
        ("**replacing by key, ten rows differ**", "replaceTen"),
        ("**all rows differ**", "replaceAll"),
        ("**the same rows, reversed**", "replaceReversed"),
        ("**every second row is gone**", "replaceHalfRemoved"),
        ("**nested, under each parent**", "replaceNested"),
    ], TREE_SIZES)
    ratio("ten differ / map", replacing, "replaceTen", "yardstickMapOfKeys")
    ratio("all differ / map", replacing, "replaceAll", "yardstickMapOfKeys")
    print("\n### Memory\n", flush=True)
    subprocess.run([f"{folder}/project_memory_bench"], check=True)


main()
