#include "programs/kqp/show_text.h"

#include "bridge/platform.h"
#include "programs/kqp/show_tree.h"
#include "programs/kqp/terminal/escape.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kqp {

namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

/// A value as it can be told apart: one that is empty or has blanks at its ends stands in quotes.
std::string visibleValue(const ryv::CString& value) {
    const bool bare = !value.empty() && value.front() != u' ' && value.back() != u' ';
    return bare ? visible(value) : "\"" + visible(value) + "\"";
}

Rows miscRows(const ryv::RyvPmMiscProjSettings& misc) {
    Rows rows;
    for (const auto& [index, value] : misc.values())
        rows.emplace_back("[" + std::to_string(index) + "]", visibleValue(value));
    return rows;
}

/// Those default settings that are not what a project without any would have.
Rows settingRows(const ryv::RyvPrmProjectData& project) {
    ryv::RyvCfgDrawingSettings defaults;
    defaults.fillWithDefaults(project.getMiscProjSettings());
    Rows rows;
    for (int index = 0; index <= ryv::RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        const ryv::CString* const value = project.getProjDefKQMVals().find(index);
        const ryv::CString* const usual = defaults.find(index);
        if (value == nullptr || (usual != nullptr && *value == *usual))
            continue;
        ryv::CString name;
        ryv::RyvCfgDrawingSettings::getKQ_MTagForIndex(index, name);
        rows.emplace_back(visible(name), visibleValue(*value));
    }
    return rows;
}

class TextShower {
public:
    TextShower(const ShownProject& shown, const Painter& painter, Output& out)
        : shown_(shown), painter_(painter), out_(out) {}

    void show() {
        showHeader();
        showDescriptions();
        showTable("Miscellaneous settings", miscRows(shown_.project.getMiscProjSettings()), "none");
        showTable("Default drawing settings", settingRows(shown_.project), "all as default");
        out_.write("\n");
        showTree(shown_, painter_, out_);
    }

private:
    void showHeader() {
        const std::string path = visibleName(ryv::platform().os.paths->toNative(shown_.path));
        out_.write(painter_.paint(Style::strong, visible(shown_.name())))
            .write("  ")
            .write(painter_.paint(Style::faint, path));
        if (shown_.encoding != ryv::TextEncoding::utf8)
            out_.write(painter_.paint(Style::faint, std::string("  ") + ryv::encodingName(shown_.encoding)));
        out_.write("\n");
    }

    void showDescriptions() {
        for (const ryv::CString& line : shown_.project.getProjDescriptions()) {
            if (!line.empty())
                out_.write("  ").write(visible(line)).write("\n");
        }
    }

    void showTable(std::string_view title, const Rows& rows, std::string_view whenEmpty) {
        out_.write("\n").write(title).write(rows.empty() ? ": " : ":");
        out_.write(rows.empty() ? whenEmpty : std::string_view()).write("\n");
        std::size_t width = 0;
        for (const auto& [name, value] : rows)
            width = std::max(width, name.size());
        for (const auto& [name, value] : rows)
            out_.write("  ")
                .write(name)
                .write(std::string(width - name.size() + 2, ' '))
                .write(value)
                .write("\n");
    }

    const ShownProject& shown_;
    const Painter& painter_;
    Output& out_;
};

} // namespace

void showText(const ShownProject& shown, const Painter& painter, Output& out) {
    TextShower(shown, painter, out).show();
}

} // namespace kqp
