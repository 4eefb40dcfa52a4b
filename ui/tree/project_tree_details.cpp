// What the details pane says of a row of the project tree.
#include "ui/tree/project_tree.h"

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "network/network_places.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/project_list_message_numbers.h"
#include "ui/tree/row_name.h"

namespace ryv {

namespace {

constexpr std::uint64_t unitStep = 1024;
constexpr std::int64_t nanosecondsOfSecond = 1'000'000'000;

CString statusText(CStringView path, _lockStatus* lockStatus) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    CString holder;
    CString machine; // without a place for each part nothing would be told
    CString since;
    const _lockStatus status =
        manager ? manager->whoHasProjectFileLocked(path, &holder, &machine, &since) : lockInvalid;
    if (lockStatus)
        *lockStatus = status;
    return format(messageText(message::lockStatusFirst + status), {holder}) + u"\n";
}

void addLine(CString& text, int label, CStringView value) {
    text.append(messageText(label)).append(u" ").append(value).append(u"\n");
}

void addPlace(CString& text, CStringView path) {
    addLine(text, message::detailsFileName, paths::findFileName(path));
    addLine(text, message::detailsFolder, shownPath(paths::folderOf(path)));
    const CString shared = navState() ? navState()->networkPlaces().networkPathOf(path) : CString();
    if (!shared.empty())
        addLine(text, message::detailsNetworkPath, shared);
}

CString sizeText(std::uint64_t bytes) {
    const std::uint64_t kilobytes = bytes / unitStep;
    return kilobytes < unitStep
               ? format(messageText(message::detailsKilobytes), {kilobytes, bytes})
               : format(messageText(message::detailsMegabytes), {kilobytes / unitStep, bytes});
}

CString timeText(std::int64_t nanoseconds) {
    Clock& clock = *platform().os.clock;
    const LocalTime time = clock.localTimeOf(nanoseconds / nanosecondsOfSecond);
    return clock.longDate(time) + u" " + clock.timeOfDay(time);
}

/// Nothing for a file that is not there.
void addFile(CString& text, CStringView path) {
    FileInformation file;
    if (!platform().os.files->information(path, file).ok())
        return;
    addLine(text, message::detailsFileSize, sizeText(file.size));
    addLine(text, message::detailsLastSaved, timeText(file.modifiedNanoseconds));
}

template <class Lines>
void addDescriptions(CString& text, const Lines& lines) {
    int number = 0;
    for (const CStringView line : lines) {
        text += number++ == 0 ? u"\n" : u"";
        text.append(format(messageText(message::detailsDescription), {number})).append(u" ");
        text.append(line).append(u"\n");
    }
}

} // namespace

void CProjectTree::GetProjectStatusText(CStringView projectId, CString& text, _lockStatus* lockStatus) {
    text = statusText(projectId, lockStatus);
}

void CProjectTree::GetDrawingStatusText(CStringView drawing, CString& text, _lockStatus* lockStatus) {
    text = statusText(drawing, lockStatus);
}

void CProjectTree::GetDisplayDetails_Status(const TreeItem& item, _lockStatus& lockStatus, CString& text) {
    text.clear();
    const _itemdatastruct* const record = GetItemData(&item);
    if (record && record->type == TreeItemType::project)
        GetProjectStatusText(record->key, text, &lockStatus);
    else if (record && record->type == TreeItemType::drawing)
        GetDrawingStatusText(record->key, text, &lockStatus);
}

void CProjectTree::GetDisplayDetails(CString& text) {
    text.clear();
    const TreeItem* const row = contextRow(*this);
    const _itemdatastruct* const record = GetItemData(row);
    _lockStatus lockStatus = lockInvalid;
    CString status;
    if (record)
        GetDisplayDetails_Status(*row, lockStatus, status);
    if (status.empty())
        return;
    text.append(messageText(message::detailsStatus)).append(u" ").append(status).append(u"\n");
    addPlace(text, record->key);
    if (const auto* const drawing = dynamic_cast<const _dwgdatastruct*>(record)) {
        addFile(text, record->key);
        addDescriptions(text, drawing->details.getDescriptions());
    } else if (const RyvPrmProjectManager* const manager = GetProjectManager()) {
        if (const RyvPrmProject* const project = manager->getProject(CStringView(record->key)))
            addDescriptions(text, project->getProjectData().getProjDescriptions());
    }
    text.pop_back();
}

CString CProjectTree::previewedDrawing() const {
    const TreeItem* const row = contextRow(*this);
    return GetItemType(row) == TreeItemType::drawing ? GetItemData(row)->key : CString();
}

} // namespace ryv
