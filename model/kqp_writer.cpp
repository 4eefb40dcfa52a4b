// The writing half of RyvPrmKQPFiler.

#include "base/fold.h"
#include "base/format.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/lisp.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "model/kqp_filer.h"
#include "model/line_prefixes.h"
#include "model/project_line_writer.h"

#include <array>
#include <vector>

namespace ryv {

namespace {

/// A path variable and the LISP global whose value is the folder that it stands for, in the order of their
/// use.
struct PathVariable {
    CStringView variable;
    CStringView global;
};
constexpr std::array<PathVariable, 4> pathVariables{
    {{u"%SL_DIR%", u"GBL_kq_BaseLibs"}, {u"%KQ_DIR%", u"GBL_KQ_DOCSETKQBASE"},
        {u"%DS_DIR%", u"GBL_KQ_DOCSETBASE"}, {u"%PF_DIR%", u"GBL_KQ_BASEINSTALL"}}};
constexpr int lastWithVariables = 4;

/// True when a path line would be read as another kind of line, or lose its first character.
bool needsQuote(CStringView path) {
    if (path.empty() || path[0] == u'=' || path[0] == u'"' || isSpace(path[0]))
        return true;
    return path.size() > 1 && path[1] == u'[' && (path[0] == u'*' || path[0] == u'+' || path[0] == u'?');
}

/// What relativePathTo would give, by a mere look, for a drawing below the folder that is spelled alike;
/// empty when it takes more than a look.
CStringView tailBelow(CStringView folder, CStringView fileName) noexcept {
    const std::size_t start = folder.size() + 1;
    const bool below = !folder.empty() && fileName.size() > start && fileName[folder.size()] == u'\\' &&
                       fileName[start] != u'\\' && sameText(fileName.substr(0, folder.size()), folder);
    return below ? fileName.substr(start) : CStringView();
}

/// Where the writer is in one subfolder: the next item, and how much of the trace belongs to the subfolder.
struct Level {
    const RyvPrmItems* items;
    std::size_t position;
    std::size_t traceLength;
};

} // namespace

bool RyvPrmKQPFiler::writeProject(const RyvPrmProjectData& data) {
    return write(data, false);
}

bool RyvPrmKQPFiler::writeProjectEx(const RyvPrmProjectData& data) {
    return write(data, true);
}

bool RyvPrmKQPFiler::write(const RyvPrmProjectData& data, bool replaceVariables) {
    if (!isOpen() || !isOpenForWriting()) {
        setLastError(isOpen() ? notOpenForWriting : notOpen);
        return false;
    }
    // LISP may change or read the project again while it answers, so what needs it comes first and from a
    // copy.
    const CStringArray miscLines = miscSettingLines(data.getMiscProjSettings(), replaceVariables);
    ProjectLineWriter lines(reporter());
    lines.reserve(lastKnownSize() + lastKnownSize() / 16);
    const CStringList& descriptions = data.getProjDescriptions();
    for (std::size_t i = 0; i < descriptions.size(); ++i)
        if (!descriptions[i].empty())
            lines.write(format(u"*[%d]%s", {i + 1, descriptions[i]}));
    for (const CString& line : miscLines)
        lines.write(line);
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
        if (const CString* const value = data.getProjDefKQMVals().find(index);
            value && RyvCfgDrawingSettings::isKeptInProjects(index))
            lines.write(format(u"?[%d]%s", {index, *value}));
    writeOutDwgInfo(data.getProjFileDetails(), lines);
    return commit(lines.finish());
}

/// Takes a copy: LISP that is asked on the way may change the project's own settings.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
CStringArray RyvPrmKQPFiler::miscSettingLines(RyvPmMiscProjSettings misc, bool replaceVariables) {
    CStringArray lines;
    for (const auto& [index, value] : misc.values()) {
        CString& line = lines.emplace_back(format(u"+[%d]%s", {index, value}));
        if (index <= lastWithVariables && replaceVariables)
            replaceGblVars(line);
        else if (index <= lastWithVariables)
            SwapFullPathWithVariable(line, false);
    }
    return lines;
}

/// Walks without recursion: how deep subfolders are nested comes from outside.
void RyvPrmKQPFiler::writeOutDwgInfo(const RyvPrmItems& topLevel, ProjectLineWriter& lines) {
    CString trace;
    std::vector<Level> levels{{&topLevel, 0, 0}};
    while (!levels.empty()) {
        Level& level = levels.back();
        trace.resize(level.traceLength);
        if (level.position == level.items->size()) {
            levels.pop_back();
            continue;
        }
        const RyvPrmItem* const item = (*level.items)[level.position++].get();
        if (const RyvPrmFileDetails* const drawing = asFileDetails(item))
            writeDrawing(*drawing, trace, lines);
        const RyvPrmSubfolder* const subfolder = asSubfolder(item);
        if (!subfolder)
            continue;
        if (!trace.empty())
            trace += u'/';
        trace += toUpper(subfolder->getName());
        if (subfolder->getItems().empty())
            lines.write(prefix::subfolder, trace, prefix::empty);
        else
            levels.push_back({&subfolder->getItems(), 0, trace.size()});
    }
}

void RyvPrmKQPFiler::writeDrawing(
    const RyvPrmFileDetails& drawing, CStringView trace, ProjectLineWriter& lines) {
    if (drawing.getFileName().empty())
        return;
    if (!drawing.getDescription1().empty())
        lines.write(prefix::firstDescription, drawing.getDescription1());
    if (!drawing.getDescription2().empty())
        lines.write(prefix::secondDescription, drawing.getDescription2());
    for (const CStringView line : drawing.getDescriptions())
        lines.write(prefix::furtherDescription, line);
    if (drawing.isReferenceOnly())
        lines.write(prefix::reference, {});
    if (!trace.empty())
        lines.write(prefix::subfolder, trace);
    CString room;
    const CStringView path = pathFor(drawing.getFileName(), room);
    lines.write(needsQuote(path) ? u"\"" : u"", path);
}

/// The path to write, a view of `fileName` or of `room`.
CStringView RyvPrmKQPFiler::pathFor(CStringView fileName, CString& room) const {
    room.clear();
    if (paths::isRelative(fileName)) {
        paths::combineInto(room, projectFolder(), fileName);
    } else if (relativePaths_) {
        if (const CStringView tail = tailBelow(projectFolder(), fileName);
            !tail.empty() && leadsBack(tail, fileName))
            return tail;
        room = relativePath(fileName).value_or(CString());
        if (!leadsBack(room, fileName))
            room.clear();
    }
    if (room.empty())
        room = fileName;
    return relativePaths_ ? room : room = toUpper(room);
}

/// A reader has to come back to the same name: names that look absolute on their own ("C:x.dwg"), paths
/// longer than the platform's rules join, and names that joining would fold into others are better written
/// whole.
bool RyvPrmKQPFiler::leadsBack(CStringView relative, CStringView fileName) const {
    const bool tooLong = projectFolder().size() + 1 + relative.size() > paths::maxLength;
    if (relative.empty() || tooLong || !paths::isRelative(relative))
        return false;
    if (relative[0] != u'.' && relative.find(u"\\.") == CStringView::npos)
        return true; // nothing to fold
    const std::optional<CString> joined = paths::combine(projectFolder(), relative);
    return joined && equalNoCase(*joined, fileName);
}

std::optional<CString> RyvPrmKQPFiler::relativePath(CStringView absolute) const {
    std::optional<CString> relative = paths::relativePathTo(projectFolder(), absolute);
    if (relative && relative->starts_with(u".\\"))
        relative->erase(0, 2);
    return relative;
}

bool RyvPrmKQPFiler::absoluteToRelative(CString& path) const {
    std::optional<CString> relative = relativePath(path);
    if (!relative)
        return false;
    path = std::move(*relative);
    return true;
}

bool RyvPrmKQPFiler::relativeToAbsolute(CString& path) const {
    std::optional<CString> absolute = paths::combine(projectFolder(), path);
    if (!absolute)
        return false;
    path = std::move(*absolute);
    return true;
}

void RyvPrmKQPFiler::SwapFullPathWithVariable(CString& text, bool expand) {
    for (const PathVariable& entry : pathVariables) {
        CString folder;
        readLispGlobal(entry.global, folder);
        if (!folder.empty())
            text =
                expand ? replaceAll(text, entry.variable, folder) : replaceAll(text, folder, entry.variable);
    }
}

void RyvPrmKQPFiler::replaceGblVars(CString& text) {
    if (platform().host.documents->hasCurrentDocument())
        lisp::substituteReplaceables(text, text);
    else
        text = platform().services.globalVariables->Gbl_ReplaceGblVars(text);
}

} // namespace ryv
