// Between a project file and a RyvPrmProjectData.
#pragma once

#include "base/export.h"
#include "model/project_data.h"
#include "siblings/kqp_filer.h"

#include <optional>

namespace ryv {

class ProjectLineWriter;

/// Reads and writes project files. All access goes through the files port of platform().
class RYV_EXPORT RyvPrmKQPFiler : public RyvPmUtilsKQPFiler {
public:
    /// `relativePaths`: drawings are written relative to the project's folder where they can be; otherwise
    /// absolute and in upper case. Every filer that the program itself makes writes relative paths.
    explicit RyvPrmKQPFiler(bool relativePaths);
    /// The same, with `path` opened for reading, or for writing too.
    RyvPrmKQPFiler(CStringView path, bool forWriting, bool relativePaths);
    ~RyvPrmKQPFiler() override;

    using RyvPmUtilsKQPFiler::readProject;

    /// Reads the open file into `data`. Returns true whatever happens: when the file cannot be read, `data`
    /// is an empty project with default settings and getLastError() is not 0. Callers that keep an open
    /// project read into a second RyvPrmProjectData and swap.
    bool readProject(RyvPrmProjectData& data);

    /// The second half of it: makes `data` what the raw sections of the last read say. True.
    bool fillFromSections(RyvPrmProjectData& data);

    /// The steps of that. Each returns true.
    bool initFileDetails(RyvPrmProjectData& data);
    bool initCfgDrawingSettings(RyvPrmProjectData& data);
    bool initProjDescriptionLines(RyvPrmProjectData& data);

    /// Writes the whole file. `data` outlives the call, but may be changed by LISP that is asked for path
    /// variables at its beginning. False with error 2 when no file is open, 4 when it is not open for
    /// writing, and with one of the other errors when writing fails; the old file or the new one is whole
    /// then.
    bool writeProject(const RyvPrmProjectData& data);

    /// Like writeProject, but the first four miscellaneous settings pass through replaceGblVars().
    bool writeProjectEx(const RyvPrmProjectData& data);

    /// Replaces folders of the first four miscellaneous settings by the variables that stand for them
    /// ("%SL_DIR%",
    /// "%KQ_DIR%", "%DS_DIR%", "%PF_DIR%"), or with `expand` the variables by the folders. Case counts; a
    /// variable without a value replaces nothing.
    void SwapFullPathWithVariable(CString& text, bool expand);

    /// `path` relative to the project's folder; false, with `path` unchanged, when there is no such path.
    bool absoluteToRelative(CString& path) const;
    /// `path` joined to the project's folder; false, with `path` unchanged, when joining fails.
    bool relativeToAbsolute(CString& path) const;

    /// Replaces references to the package's global variables by their values: through the host's LISP when a
    /// document is open, otherwise through the sibling service.
    virtual void replaceGblVars(CString& text);

    /// Two texts of the identity of the linked project, and of this one; see
    /// RyvPmUtilsRypxFiler::GetProjectData.
    bool getOZMProjectInfo(CString& a, CString& b);
    bool getLocalProjectInfo(CString& a, CString& b);

private:
    bool write(const RyvPrmProjectData& data, bool replaceVariables);
    CStringArray miscSettingLines(RyvPmMiscProjSettings misc, bool replaceVariables);
    void writeOutDwgInfo(const RyvPrmItems& topLevel, ProjectLineWriter& lines);
    void writeDrawing(const RyvPrmFileDetails& drawing, CStringView trace, ProjectLineWriter& lines);
    CStringView pathFor(CStringView fileName, CString& room) const;
    std::optional<CString> relativePath(CStringView absolute) const;
    bool leadsBack(CStringView relative, CStringView fileName) const;

    bool relativePaths_;
};

} // namespace ryv
