// Scripts that answer dialogs: whatever stands in them, a dialog takes only what a user could give it.
#include "base/encoding.h"
#include "base/text.h"
#include "fuzz/fuzz_input.h"
#include "tests/support/sample_dialog.h"
#include "toolkit/combo_box.h"
#include "toolkit/dialog_script.h"
#include "toolkit/grid.h"
#include "toolkit/group_control.h"
#include "toolkit/list_box.h"
#include "toolkit/script_text.h"
#include "toolkit/text_field.h"
#include "toolkit/text_renderer.h"
#include "toolkit/tree_control.h"

#include <algorithm>

namespace ryv::test {
namespace {

using fuzz::require;

constexpr int treeId = 50, groupId = 51;

/// The sample's panels as pages of a sheet, with a tree and a group beside them.
class Sheet : public PropertySheet {
public:
    Sheet() : PropertySheet(DialogLayout{u"Sheet", u"Title", {}, {}}) {
        second_.control<ListBox>(sample::drawings).setRows({{u"a.dwg"}, {u"b.dwg"}, separatorChoice()});
        second_.control<ComboBox>(sample::remark).setRows({{u"Plan"}, separatorChoice()});
        second_.control<Grid>(sample::layers).addRow({u"WIREFMT", u"%N"});
        tree = &second_.add(std::make_unique<TreeControl>(treeId));
        TreeItem& top = tree->insert(nullptr, 0, {u"DEMO"});
        tree->insert(&top, 0, {u"a/b"});
        tree->insert(&top, 1, {u"c"});
        auto& group = second_.add(std::make_unique<GroupControl>(groupId));
        group.addPage(u"Tree", *tree);
        group.addPage(u"List", second_.control<ListBox>(sample::drawings));
        addPage({u"First", u"p1", {&first_}});
        addPage({u"Second", u"p2", {&second_}});
        begin();
    }
    TreeControl* tree;

private:
    Panel first_{sample::panels[0]};
    Panel second_{sample::panels[1]};
};

void checkLimits(const Sheet& sheet) {
    require(sheet.control<TextField>(sample::name).text().size() <= 8);
    require(sheet.control<ComboBox>(sample::remark).text().size() <= 12);
    require(sheet.control<TextField>(sample::folder).text().empty());
    require(sheet.control<TextField>(sample::code).text().empty());
    require(!sheet.control<ListBox>(sample::levels).firstChosen());
    for (const std::size_t row : sheet.control<ListBox>(sample::drawings).chosen())
        require(row < 2);
    for (const TreeItem* const item : sheet.tree->selection())
        require(item->selected() && item->shown());
    require(sheet.isOpen() || sheet.result() == Dialog::idOk || sheet.result() == Dialog::idCancel);
}

void run(CStringView script) {
    Sheet sheet;
    const ScriptResult result = runDialogScript(sheet, script);
    require(result.ok() == result.problem.empty());
    require(result.steps <= static_cast<std::size_t>(std::count(script.begin(), script.end(), u';')) + 1);
    checkLimits(sheet);
    const CString text = TextRenderer().dialog(sheet);
    require(text.ends_with(u'\n'));
    Sheet other;
    require(runDialogScript(other, script).failedStep == result.failedStep);
    require(TextRenderer().dialog(other) == text);
}

/// A text in quotes arrives as it is, whatever it holds.
void giveQuoted(CStringView text) {
    const CString quoted = u"\"" + replaceAll(text, u"\"", u"\"\"") + u"\"";
    require(unquoted(quoted) == text);
    require(splitUnquoted(quoted + u";" + quoted, u';') == CStringArray{quoted, quoted});
    Sheet sheet;
    if (runDialogScript(sheet, u"name = " + quoted + u" ; ownFolder=1").ok())
        require(sheet.control<TextField>(sample::name).text() == text);
}

} // namespace
} // namespace ryv::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ryv::CString text = ryv::decodeUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    ryv::test::run(text);
    ryv::test::giveQuoted(text);
    return 0;
}
