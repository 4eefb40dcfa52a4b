#include "ui/tree/item_names.h"

#include "base/file_names.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "ui/tree/item_address.h"

#include <algorithm>

namespace ryv {

namespace {

CStringView lastName(CStringView trace) noexcept {
    return trace.substr(trace.rfind(u'/') + 1); // npos + 1 is 0
}

CStringView traceAbove(CStringView trace) noexcept {
    const std::size_t slash = trace.rfind(u'/');
    return slash == CStringView::npos ? CStringView() : trace.substr(0, slash);
}

bool hasSibling(const RyvPrmProjectData& project, CStringView trace, CStringView name) {
    for (const RyvPrmSubfolder* const folder : foldersOf(project, traceAbove(trace)))
        for (const auto& item : folder->getItems())
            if (const RyvPrmSubfolder* const subfolder = asSubfolder(item.get());
                subfolder && equalNoCase(subfolder->getName(), name))
                return true;
    return false;
}

} // namespace

CString subfolderNameOf(CStringView text) {
    return toUpper(trim(text));
}

NameProblem problemOfSubfolderName(const RyvPrmProjectData& project, CStringView trace, CStringView name) {
    if (name.empty())
        return NameProblem::noName;
    if (equalNoCase(name, lastName(trace)))
        return NameProblem::none;
    if (holdsControls(name) || name.find_first_of(forbiddenInSubfolderNames) != CStringView::npos)
        return NameProblem::forbidden;
    return hasSibling(project, trace, name) ? NameProblem::taken : NameProblem::none;
}

std::optional<CString> renamedDrawing(CStringView drawing, CStringView text) {
    CString path = paths::folderOf(drawing);
    if (!path.ends_with(u'\\'))
        path += u'\\';
    return paths::renameExtension(path.append(trim(text)), u".dwg");
}

NameProblem problemOfDrawingName(const RyvPrmProjectData& project, CStringView drawing, CStringView text) {
    const CStringView name = trim(text);
    if (name.empty() || name.front() == u'.')
        return NameProblem::noName;
    if (!isFileName(name))
        return NameProblem::forbidden;
    const std::optional<CString> path = renamedDrawing(drawing, text);
    if (!path)
        return NameProblem::tooLong;
    const bool taken = !equalNoCase(*path, drawing) && project.isFileInProject(*path);
    return taken ? NameProblem::taken : NameProblem::none;
}

} // namespace ryv
