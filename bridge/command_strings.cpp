#include "bridge/command_strings.h"

#include "base/format.h"
#include "bridge/platform.h"

#include <algorithm>
#include <array>

namespace ryv {

namespace {

struct Entry {
    CommandString command;
    CStringView text;
    bool onlyAtRest = false; ///< not queued while the current document is busy
};

constexpr std::array<Entry, 19> entries{{
    {CommandString::reportDrawings, u"(c:kq_dwglst_proj)\r"},
    {CommandString::updateTitleBlocks, u"(c:kq_tb)\r"},
    {CommandString::resequence, u"(c:kq_bump)\r"},
    {CommandString::runPendingUpdates, u"(c:kq_upd_pending nil)\r"},
    {CommandString::plotDrawings, u"(c:ryv_prnt_proj nil nil)\r"},
    {CommandString::archiveProject, u"(c:kq_zip_do_kqzip 0)\r"},
    {CommandString::rereadProject, u"(c:ryv_kqp_reread)\r", true},
    {CommandString::freshenTags, u"(c:kq_iec_tag_freshen)\r"},
    {CommandString::rereadDrawingParameters, u"(c:kq_reread_dwg_params)\r"},
    {CommandString::updateComponent, u"(RYMtUpdateComponent)\r"},
    {CommandString::publishDrawings, u"RYPUBLISH\r"},
    {CommandString::clearMenuChoice, u"kq_menu_clear_kqmenu2use\r"},
    {CommandString::newProject, u"_.ryvnewproject\r"},
    {CommandString::newDrawing, u"_.ryvnewdrawing\r"},
    {CommandString::drawingProperties, u"_.ryvdrawingprops\r"},
    {CommandString::compareDrawingToProject, u"_.ryvcomparedtop\r"},
    {CommandString::projectProperties, u"_.ryvprojectprops\r"},
    {CommandString::continueNewDrawing, u"_ryvcontinuenewdrawing\r"},
    {CommandString::copyDrawing, u"RYNAVCOPYTO\r"},
}};
constexpr CStringView openCommand = u"_.open \"%s\"\r";

constexpr bool inOrder() {
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (static_cast<std::size_t>(entries[i].command) != i)
            return false;
    return true;
}
static_assert(inOrder(), "a command is looked up by its place");

void send(CStringView text, bool echo) {
    HostDocuments& documents = *platform().host.documents;
    if (documents.hasCurrentDocument())
        documents.sendStringToExecute(documents.currentDocument(), text, {true, false, echo});
}

bool breaksOutOfQuotes(CStringView path) {
    return std::any_of(path.begin(), path.end(), [](char16_t unit) { return unit == u'"' || unit < u' '; });
}

bool isFile(CStringView path) {
    FileInformation found;
    return platform().os.files->information(path, found).ok() && !found.isFolder;
}

} // namespace

void queueCommandString(CommandString command) {
    const Entry& entry = entries[static_cast<std::size_t>(command)];
    if (!entry.onlyAtRest || isQuiescent())
        send(entry.text, false);
}

void runInApplicationContext(CommandString command) {
    platform().host.documents->executeInApplicationContext([command] { queueCommandString(command); });
}

bool openDrawing(CStringView path) {
    if (breaksOutOfQuotes(path) || !isFile(path))
        return false;
    if (platform().host.documents->hasCurrentDocument())
        send(format(openCommand, {path}), true);
    else
        platform().host.documents->executeInApplicationContext([path = CString(path)] {
            platform().host.commands->runCommand({u"_.open", path});
        });
    return true;
}

bool isQuiescent() {
    HostDocuments& documents = *platform().host.documents;
    return !documents.hasCurrentDocument() || documents.isQuiescent(documents.currentDocument());
}

} // namespace ryv
