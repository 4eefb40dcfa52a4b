// The embedded host's XML files, which people edit and other versions write: the workspace and the task
// dialogs. Whatever they hold is read as a whole or refused with a reason, and nothing of it is lost.
#include "base/encoding.h"
#include "embedded/palettes/workspace.h"
#include "embedded/palettes/workspace_text.h"
#include "embedded/palettes/workspace_xml.h"
#include "embedded/services/task_dialog_file.h"
#include "fuzz/fuzz_input.h"
#include "tests/support/memory_files.h"

#include <algorithm>
#include <cstring>

namespace {

using fuzz::require;

using Nodes = std::vector<std::shared_ptr<const ryv::WorkspaceNode>>;

/// Whether the bytes are a workspace, which then survives being written and read.
bool readWorkspace(std::string_view bytes) {
    Nodes nodes(1);
    ryv::CString problem;
    const bool isRead = drafta::parseWorkspace(bytes, nodes, problem);
    require(isRead == problem.empty() && (isRead || nodes.empty()));
    if (!isRead)
        return false;
    const std::string printed = drafta::printWorkspace(nodes);
    Nodes again;
    require(drafta::parseWorkspace(printed, again, problem) && drafta::printWorkspace(again) == printed);
    return true;
}

/// A layout is saved into a file of these bytes.
void saveWorkspace(std::string_view bytes) {
    constexpr ryv::CStringView path = u"\\w.xml", id = u"{A}";
    ryv::test::MemoryFiles files;
    files.put(path, std::string(bytes));
    const auto drop = [](ryv::CStringView) {};
    const bool isGood = readWorkspace(bytes);
    const bool isSaved =
        drafta::Workspace(files, ryv::CString(path), drop).save({drafta::Workspace::newLayout(id)});
    const std::string after = files.get(path).value_or("");
    require(isSaved ? readWorkspace(after) : after == bytes);
    require(!isSaved || drafta::Workspace(files, ryv::CString(path), drop).find(u"{a}"));
    require(!isSaved || isGood || files.get(u"\\w.xml.bad") == bytes);
    require(files.openHandles() == 0);
}

void readTaskDialogs(std::string_view bytes) {
    std::vector<ryv::TaskDialogRequest> dialogs(1);
    ryv::CString problem;
    const bool isRead = drafta::parseTaskDialogs(bytes, dialogs, problem);
    require(isRead == problem.empty() && (isRead || dialogs.empty()));
    std::vector<ryv::CString> ids;
    for (const ryv::TaskDialogRequest& dialog : dialogs) {
        require(!dialog.id.empty() && !dialog.title.empty() && !dialog.instruction.empty());
        require(std::any_of(dialog.buttons.begin(), dialog.buttons.end(),
            [&](const auto& button) { return button.id == dialog.defaultButton && !button.text.empty(); }));
        ids.push_back(dialog.id);
    }
    std::sort(ids.begin(), ids.end());
    require(std::adjacent_find(ids.begin(), ids.end()) == ids.end());
}

/// Any units, halves of pairs among them.
void escape(std::string_view bytes) {
    ryv::CString text(bytes.size() / 2, u' ');
    std::memcpy(text.data(), bytes.data(), text.size() * 2);
    const std::string escaped = drafta::escapeText(text);
    require(ryv::isValidUtf8(escaped) && drafta::unescapeText(escaped) == text);
    if (const auto other = drafta::unescapeText(bytes))
        require(drafta::unescapeText(drafta::escapeText(*other)) == other);
}

} // namespace

/// The first byte says what the rest is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return fuzz::runMarked(data, size, {{'W', saveWorkspace}, {'T', readTaskDialogs}, {'E', escape}});
}
