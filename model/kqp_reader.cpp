// The reading half of RyvPrmKQPFiler.

#include "base/text.h"
#include "bridge/platform.h"
#include "model/drawing_section_reader.h"
#include "model/kqp_filer.h"

namespace ryv {

namespace {

/// These two settings keep blanks in front of their value: text between references may begin with one.
bool keepsLeadingBlanks(int index) {
    return index == 63 || index == 65;
}

} // namespace

RyvPrmKQPFiler::RyvPrmKQPFiler(bool relativePaths)
    : RyvPmUtilsKQPFiler(*platform().os.files), relativePaths_(relativePaths) {}

RyvPrmKQPFiler::RyvPrmKQPFiler(CStringView path, bool forWriting, bool relativePaths)
    : RyvPmUtilsKQPFiler(*platform().os.files, path, forWriting), relativePaths_(relativePaths) {}

RyvPrmKQPFiler::~RyvPrmKQPFiler() = default;

bool RyvPrmKQPFiler::readProject(RyvPrmProjectData& data) {
    // A failed read is known from the last error only; it leaves no sections, and so an empty project.
    readProject();
    return fillFromSections(data);
}

bool RyvPrmKQPFiler::fillFromSections(RyvPrmProjectData& data) {
    data.removeAllFiles();
    initFileDetails(data);
    RyvPmMiscProjSettings misc;
    initMiscProjSettings(misc);
    initProjDescriptionLines(data);
    data.setMiscProjSettings(misc);
    return initCfgDrawingSettings(data);
}

bool RyvPrmKQPFiler::initFileDetails(RyvPrmProjectData& data) {
    DrawingSectionReader reader(data, sections(), reporter());
    CString path;
    for (std::size_t i = 0; i < sections().drawingLineCount(); ++i) {
        const CStringView line = sections().drawingLine(i);
        if (line.front() == u'=') {
            reader.attributeLine(i);
        } else {
            drawingPathOf(line, path);
            reader.pathLine(i, path);
        }
    }
    reader.finish();
    if (!reader.empty() && store().knowsDrawings())
        reader.assignFileIds(store().ValidateAndGetFileIds(reader.names()));
    return true;
}

bool RyvPrmKQPFiler::initProjDescriptionLines(RyvPrmProjectData& data) {
    data.setProjDescriptions(sections().descriptionLines());
    return true;
}

bool RyvPrmKQPFiler::initCfgDrawingSettings(RyvPrmProjectData& data) {
    RyvCfgDrawingSettings written;
    for (const auto& [index, value] : sections().settings()) {
        const CString kept(keepsLeadingBlanks(index) ? CStringView(value) : trimLeft(value));
        if (reporter() && kept.size() != value.size())
            reporter()->found(sections().settingLine(index), ProjectFinding::blanksDropped, value);
        if (reporter() && !RyvCfgDrawingSettings::isKeptInProjects(index))
            reporter()->found(sections().settingLine(index), ProjectFinding::settingOfDrawing, value);
        written.setValue(index, &kept);
    }
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(
        RyvPmMiscProjSettings(data.getMiscProjSettings())); // LISP may change the project
    // Assignment merges: a setting that the file lacks keeps its default.
    settings = written;
    data.setProjDefKQMVals(settings);
    return true;
}

bool RyvPrmKQPFiler::getOZMProjectInfo(CString& a, CString& b) {
    return store().GetProjectData(a, b, false);
}

bool RyvPrmKQPFiler::getLocalProjectInfo(CString& a, CString& b) {
    return store().GetProjectData(a, b, true);
}

} // namespace ryv
