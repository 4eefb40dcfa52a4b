#include "programs/kqp/show_tree.h"

#include "base/paths.h"
#include "programs/kqp/drawing_name.h"
#include "programs/kqp/terminal/escape.h"

#include <algorithm>
#include <vector>

namespace kqp {

namespace {

/// Descriptions of one level stand below each other, unless a longer name would move them out of sight.
constexpr std::size_t widestNameColumn = 40;

std::string countOf(std::size_t count, std::string_view noun) {
    std::string text = count == 0 ? "no" : std::to_string(count);
    text.append(" ").append(noun);
    return count == 1 ? text : text + "s";
}

void appendDescription(ryv::CStringView line, std::string& text) {
    if (line.empty())
        return;
    if (!text.empty())
        text += " \u00B7 ";
    text += visible(line);
}

std::string descriptionOf(const ryv::RyvPrmFileDetails& drawing) {
    std::string text;
    appendDescription(drawing.getDescription1(), text);
    appendDescription(drawing.getDescription2(), text);
    for (const ryv::CStringView line : drawing.getDescriptions())
        appendDescription(line, text);
    return text;
}

/// In the order of the project; items of other kinds are left out.
std::vector<const ryv::RyvPrmItem*> shownItems(const ryv::RyvPrmItems& items) {
    std::vector<const ryv::RyvPrmItem*> shown;
    shown.reserve(items.size());
    for (const auto& item : items) {
        if (ryv::asSubfolder(item.get()) || ryv::asFileDetails(item.get()))
            shown.push_back(item.get());
    }
    return shown;
}

class TreePrinter {
public:
    TreePrinter(const ShownProject& shown, const Painter& painter, Output& out)
        : names_(shown.path), painter_(painter), out_(out) {
        enter(shown.project.getProjFileDetails());
    }

    void print() {
        while (!levels_.empty()) {
            if (Level& level = levels_.back(); level.next == level.entries.size())
                leave();
            else
                printEntry(*level.entries[level.next++]);
        }
    }

    std::string counts() const {
        const std::string drawings = countOf(drawings_, "drawing");
        return subfolders_ == 0 ? drawings : drawings + " in " + countOf(subfolders_, "subfolder");
    }

private:
    struct Level {
        std::vector<const ryv::RyvPrmItem*> entries;
        std::size_t next = 0;
        std::size_t nameColumn = 0;
        std::size_t branches = 0; ///< length of the branches that belong to the levels above
    };

    void enter(const ryv::RyvPrmItems& items) {
        Level level{shownItems(items), 0, 0, branches_.size()};
        for (const ryv::RyvPrmItem* item : level.entries) {
            if (const auto* drawing = ryv::asFileDetails(item))
                level.nameColumn = std::max(level.nameColumn, columns(names_.shown(*drawing)));
        }
        level.nameColumn = std::min(level.nameColumn, widestNameColumn);
        if (!levels_.empty())
            branches_ += isLast(levels_.back()) ? "    " : "\u2502   ";
        levels_.push_back(std::move(level));
    }

    void leave() {
        branches_.resize(levels_.back().branches);
        levels_.pop_back();
    }

    static bool isLast(const Level& level) { return level.next == level.entries.size(); }

    void printEntry(const ryv::RyvPrmItem& item) {
        printBranch();
        if (const auto* drawing = ryv::asFileDetails(&item))
            printDrawing(*drawing);
        else
            printSubfolder(*ryv::asSubfolder(&item));
    }

    void printBranch() {
        if (levels_.size() > levelsWithBranches)
            out_.write("[").write(std::to_string(levels_.size())).write("] ");
        else
            out_.write(branches_).write(
                isLast(levels_.back()) ? "\u2514\u2500\u2500 " : "\u251C\u2500\u2500 ");
    }

    void printDrawing(const ryv::RyvPrmFileDetails& drawing) {
        ++drawings_;
        const std::string name = names_.shown(drawing);
        const std::string description = descriptionOf(drawing);
        out_.write(name);
        if (!description.empty()) {
            const std::size_t gap =
                levels_.back().nameColumn - std::min(levels_.back().nameColumn, columns(name));
            out_.write(std::string(gap + 2, ' ')).write(painter_.paint(Style::faint, description));
        }
        if (drawing.isReferenceOnly())
            out_.write(" ").write(painter_.paint(Style::remark, "(reference only)"));
        out_.write("\n");
    }

    void printSubfolder(const ryv::RyvPrmSubfolder& subfolder) {
        ++subfolders_;
        out_.write(painter_.paint(Style::folder, visible(subfolder.getName())));
        if (subfolder.getItems().empty())
            out_.write(" ").write(painter_.paint(Style::faint, "(empty)"));
        out_.write("\n");
        enter(subfolder.getItems());
    }

    DrawingNames names_;
    const Painter& painter_;
    Output& out_;
    std::vector<Level> levels_;
    std::string branches_; ///< what stands in front of every line of the current level
    std::size_t drawings_ = 0;
    std::size_t subfolders_ = 0;
};

} // namespace

void showTree(const ShownProject& shown, const Painter& painter, Output& out) {
    TreePrinter printer(shown, painter, out);
    printer.print();
    out.write(painter.paint(Style::faint, printer.counts())).write("\n");
}

} // namespace kqp
