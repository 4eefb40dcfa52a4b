#include "manager/term_associations.h"

#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv {

namespace {

constexpr CStringView confirmationForm = u"CRyvCfgMessageWithEditDlg";
constexpr CStringView drawingsField = u"DRAWINGS";

CString shownLines(const CStringArray& lines) {
    CString text;
    for (const CString& line : lines)
        text += (text.empty() ? u"" : u"\n") + shownPath(line);
    return text;
}

bool userAgrees(const CStringArray& drawings) {
    FormRequest request;
    request.name = confirmationForm;
    request.title = messageText(message::updateTerminalsTitle);
    request.confirm = messageText(message::updateTerminalsAccept);
    request.cancel = messageText(message::updateTerminalsDecline);
    FormField& list = request.fields.emplace_back();
    list.name = drawingsField;
    list.label = messageText(message::updateTerminalsPrompt);
    list.values = {shownLines(drawings)};
    return platform().ui->fillForm(request);
}

} // namespace

bool updateTermAssociations(const CArray<RyvPrmFileDetails>& drawings, RyvPrmProject* project, bool quiet) {
    if (!project)
        return false;
    CStringArray paths;
    for (const RyvPrmFileDetails& drawing : drawings)
        if (!project->isFileInProject(drawing.getFileName()))
            paths.emplace_back(drawing.getFileName());
    CString database;
    if (!platform().services.projectDatabase->PmGetProjectDb(project->getProjectID(), database))
        return true;
    HostResultBuffer links;
    if (lisp::checkTerminalLinks(paths, database, links) && (quiet || userAgrees(paths)))
        lisp::updateTerminalLinks(paths);
    return true;
}

} // namespace ryv
