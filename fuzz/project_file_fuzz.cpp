// A project file of any bytes: read, looked through, written, and read again.
//
// The first reading may meet what the format does not keep: a single carriage return inside a text, an empty
// description at the end of the list, the two settings that are never written, a path spelled with the
// project's folder in another case, a subfolder's name that begins with a "=" or a blank behind a "/". So the
// first writing is only held to an equal project when none of these is there. From the second reading on
// nothing may change any more but such a name.
#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "fuzz/fuzz_input.h"
#include "model/kqp_filer.h"
#include "model/tree_walk.h"
#include "tests/support/memory_files.h"

#include <cstdint>

namespace ryv::test {

namespace {

constexpr CStringView path = u"C:\\P\\a.kqp";

using fuzz::require;

/// Hears everything and looks at every unit of it.
class Listener final : public ProjectReporter {
public:
    void found(std::size_t line, ProjectFinding finding, CStringView text) override {
        require(line > 0 && finding <= ProjectFinding::emptyTraceComponent);
        units_ += hashNoCase(text) != 0 ? text.size() : 0;
    }

private:
    std::size_t units_ = 0;
};

void read(RyvPrmKQPFiler& filer, RyvPrmProjectData& project) {
    require(filer.readProject(project) && filer.getLastError() == 0);
}

/// Every drawing and every subfolder is found by its name; the one found may be an equal one in front of it.
void lookUpAll(const RyvPrmProjectData& project) {
    CArray<RyvPrmFileDetails*> drawings;
    project.generateFlatFileDetailsArray(drawings);
    for (const RyvPrmFileDetails* const drawing : drawings)
        require(project.isFileInProject(drawing->getFileName()));
    if (project.getProjFileDetails().empty())
        return;
    const RyvPrmSubfolder& root = *project.getProjFileDetails()[0]->parent();
    TreeWalk walk(root);
    while (RyvPrmItem* const item = walk.next()) {
        const RyvPrmSubfolder* const subfolder = asSubfolder(item);
        CString trace;
        for (const RyvPrmSubfolder* level = subfolder; level && level != &root && walk.depth() < 100;
             level = level->parent())
            trace.insert(0, u"/" + level->getName());
        require(trace.empty() || project.findSubfolder(trace) == subfolder);
    }
}

bool holdsReturn(CStringView text) {
    return text.find(u'\r') != CStringView::npos;
}

bool isSpelledOtherwise(CStringView name, CStringView start) {
    const CStringView same = name.substr(0, start.size());
    return same != start && equalNoCase(same, start);
}

bool isKept(const RyvPrmFileDetails& drawing) {
    for (const CStringView line : drawing.getDescriptions())
        if (holdsReturn(line))
            return false;
    const CStringView name = drawing.getFileName();
    // Folding can bring white space to the end of a path, where it is not kept.
    const bool endsInSpace = !name.empty() && isSpace(name.back());
    return !endsInSpace && !holdsReturn(name) && !isSpelledOtherwise(name, u"C:") &&
           !isSpelledOtherwise(name, u"C:\\P") && !holdsReturn(drawing.getDescription1()) &&
           !holdsReturn(drawing.getDescription2());
}

/// In front of a trace a "=" or a blank is lost, one kind with each writing.
bool namesAreKept(const RyvPrmProjectData& project) {
    for (const auto& item : project.getProjFileDetails())
        if (const RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            if (subfolder->getName()[0] == u'=' || isSpace(subfolder->getName()[0]))
                return false;
    return true;
}

/// True when the project holds nothing that the format does not keep.
bool isKept(const RyvPrmProjectData& project) {
    const CStringList& descriptions = project.getProjDescriptions();
    bool kept = namesAreKept(project) && (descriptions.empty() || !descriptions.back().empty());
    for (const CString& text : descriptions)
        kept = kept && !holdsReturn(text);
    for (const auto& [index, text] : project.getMiscProjSettings().values())
        kept = kept && !holdsReturn(text);
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        const CString& text = *project.getProjDefKQMVals().find(index);
        kept = kept && !holdsReturn(text) && (text.empty() || (index != 13 && index != 46));
    }
    if (project.getProjFileDetails().empty())
        return kept;
    TreeWalk walk(*project.getProjFileDetails()[0]->parent());
    while (RyvPrmItem* const item = kept ? walk.next() : nullptr)
        kept = asSubfolder(item) ? !holdsReturn(asSubfolder(item)->getName()) : isKept(*asFileDetails(item));
    return kept;
}

void run(std::string bytes) {
    MemoryFiles files;
    Platform ports;
    ports.os.files = &files;
    setPlatform(&ports);
    files.put(path, std::move(bytes));
    Listener listener;
    RyvPrmKQPFiler filer(path, true, true);
    filer.setReporter(&listener);

    RyvPrmProjectData first;
    read(filer, first);
    lookUpAll(first);
    require(filer.writeProject(first));
    const std::string second = *files.get(path);

    RyvPrmProjectData again;
    read(filer, again);
    lookUpAll(again);
    require(!isKept(first) || again == first);
    require(filer.writeProject(again));
    const std::string third = *files.get(path);
    require(third == second || !isKept(first));

    RyvPrmProjectData last;
    read(filer, last);
    require(last == again || !namesAreKept(again));
    require(filer.writeProject(last));
    require(*files.get(path) == third || !namesAreKept(again));
    setPlatform(nullptr);
}

} // namespace

} // namespace ryv::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ryv::test::run(std::string(data, data + size));
    return 0;
}
