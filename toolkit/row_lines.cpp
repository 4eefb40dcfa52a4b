#include "toolkit/row_lines.h"

#include "base/format.h"
#include "base/text.h"
#include "toolkit/grid.h"
#include "toolkit/list_box.h"
#include "toolkit/plain_text.h"
#include "toolkit/tree_control.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView lineText = u"--";
constexpr std::size_t deepestIndent = 40; // of trees; below that the level is said

/// Cuts a long list and says so.
TextLines cut(TextLines rows, std::size_t count, const RenderOptions& options) {
    if (rows.empty())
        return {u"(empty)"};
    if (count > options.mostRows)
        rows.push_back(format(u"  ... %d more", {count - options.mostRows}));
    return rows;
}

TextLines listLines(const ListBox& list, const RenderOptions& options) {
    TextLines rows;
    for (std::size_t i = 0; i < std::min(list.rows().size(), options.mostRows); ++i) {
        const Choice& row = list.rows()[i];
        const CStringView mark = list.isChosen(i) ? u"* " : u"  ";
        rows.push_back(CString(mark) + (row.separator ? CString(lineText) : onOneLine(row.text)));
    }
    return headed(list, options, cut(std::move(rows), list.rows().size(), options));
}

CString gridLine(const CStringArray& texts, const std::vector<std::size_t>& widths) {
    CString line;
    for (std::size_t column = 0; column < texts.size(); ++column)
        line += padded(onOneLine(texts[column]), widths[column]) + u"  ";
    return CString(trimRight(line));
}

TextLines gridLines(const Grid& grid, const RenderOptions& options) {
    const std::size_t count = std::min(grid.rowCount(), options.mostRows);
    CArray<CStringArray> rows;
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < grid.columns().size(); ++column) {
        widths.push_back(grid.columns()[column].size());
        for (std::size_t row = 0; row < count; ++row)
            widths.back() = std::max(widths.back(), grid.text(row, column).size());
    }
    TextLines lines;
    for (std::size_t row = 0; row < count; ++row) {
        CStringArray texts;
        for (std::size_t column = 0; column < widths.size(); ++column)
            texts.push_back(grid.text(row, column));
        const CString marks =
            CString(grid.chosen() == row ? u"*" : u" ") + (grid.isMarked(row) ? u"! " : u"  ");
        lines.push_back(marks + gridLine(texts, widths));
    }
    lines = cut(std::move(lines), grid.rowCount(), options);
    if (!widths.empty())
        lines.insert(lines.begin(), u"   " + gridLine(grid.columns(), widths));
    if (grid.rowCount() == 0 && !grid.placeholder().empty())
        lines.push_back(u"   " + onOneLine(grid.placeholder()));
    return headed(grid, options, std::move(lines));
}

/// "- " in front of a row whose rows are shown below it, "+ " where they are not.
CString treeLine(const TreeItem& item, std::size_t level) {
    CString line = item.selected() ? u"* " : u"  ";
    line += CString(2 * std::min(level, deepestIndent), u' ');
    if (level > deepestIndent)
        line += format(u"(level %d) ", {level});
    line += item.shownChildCount() == 0 ? u"  " : item.expanded() ? u"- " : u"+ ";
    const CStringView weight = item.bold() ? u"**" : u"";
    return line + CString(weight) + onOneLine(item.label()) + CString(weight);
}

TextLines treeLines(const TreeControl& tree, const RenderOptions& options) {
    TextLines lines;
    std::size_t level = 0;
    for (const TreeItem* item = tree.shownChild(nullptr, 0); item;) {
        if (lines.size() == options.mostRows) {
            lines.push_back(u"  ...");
            break;
        }
        lines.push_back(treeLine(*item, level));
        const TreeItem* const next = nextVisible(*item);
        const TreeItem* above = item;
        if (next && next->parent() == item)
            ++level;
        else if (next)
            for (; above->parent() != next->parent(); above = above->parent())
                --level;
        item = next;
    }
    return headed(tree, options, lines.empty() ? TextLines{u"(empty)"} : std::move(lines));
}

} // namespace

TextLines rowLines(const Control& control, const RenderOptions& options) {
    if (const auto* const list = dynamic_cast<const ListBox*>(&control))
        return listLines(*list, options);
    if (const auto* const grid = dynamic_cast<const Grid*>(&control))
        return gridLines(*grid, options);
    if (const auto* const tree = dynamic_cast<const TreeControl*>(&control))
        return treeLines(*tree, options);
    return {};
}

} // namespace ryv
