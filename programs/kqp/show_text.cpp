#include "programs/kqp/show_text.h"

#include "base/text.h"
#include "bridge/platform.h"
#include "programs/kqp/show_tree.h"
#include "programs/kqp/terminal/escape.h"
#include "resources/setting_texts.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kqp {

namespace {

/// Explanations stand below each other, unless a longer value would move them out of sight.
constexpr std::size_t widestValueColumn = 30;

struct Row {
    std::string name;
    std::string value;
    std::string explanation; ///< what the value is about; may be empty
};
using Rows = std::vector<Row>;

/// A value as it can be told apart: one that is empty or has blanks at its ends stands in quotes.
std::string visibleValue(const ryv::CString& value) {
    const bool bare = !value.empty() && value.front() != u' ' && value.back() != u' ';
    return bare ? visible(value) : "\"" + visible(value) + "\"";
}

Rows miscRows(const ryv::RyvPmMiscProjSettings& misc) {
    Rows rows;
    for (const auto& [index, value] : misc.values())
        rows.push_back({"[" + std::to_string(index) + "]", visibleValue(value), {}});
    return rows;
}

/// What a setting is about, without the examples and lists of codes that follow in brackets or behind a
/// colon.
std::string explanationOf(int setting) {
    ryv::CString key;
    if (!ryv::RyvCfgDrawingSettings::getMessageKeyForIndex(setting, key))
        return {};
    ryv::CStringView subject = ryv::settingText(key);
    if (subject.ends_with(u')'))
        subject = subject.substr(0, subject.rfind(u'('));
    subject = subject.substr(0, subject.find(u':'));
    const bool onlyCodes = subject.find(u'=') != ryv::CStringView::npos;
    return onlyCodes ? std::string() : visible(ryv::trim(subject));
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
        rows.push_back({visible(name), visibleValue(*value), explanationOf(index)});
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
        std::size_t nameWidth = 0;
        std::size_t valueWidth = 0;
        for (const Row& row : rows) {
            nameWidth = std::max(nameWidth, row.name.size());
            valueWidth = std::max(valueWidth, columns(row.value));
        }
        for (const Row& row : rows)
            showRow(row, nameWidth, std::min(valueWidth, widestValueColumn));
    }

    void showRow(const Row& row, std::size_t nameWidth, std::size_t valueWidth) {
        out_.write("  ").write(row.name).write(std::string(nameWidth - row.name.size() + 2, ' '));
        out_.write(row.value);
        if (!row.explanation.empty()) {
            const std::size_t width = std::max(valueWidth, columns(row.value));
            out_.write(std::string(width - columns(row.value) + 2, ' '))
                .write(painter_.paint(Style::faint, row.explanation));
        }
        out_.write("\n");
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
