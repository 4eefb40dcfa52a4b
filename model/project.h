// One open project: its file, and what the program holds of it in memory.
#pragma once

#include "base/export.h"
#include "model/kqp_filer.h"
#include "model/project_data.h"

#include <memory>

namespace ryv {

/// Reading and writing call LISP, and LISP may do anything meanwhile, so whoever lets a project read or write
/// keeps it alive on its own account.
class RYV_EXPORT RyvPrmProject {
public:
    /// How a read ended.
    enum class ReadResult {
        failed,    ///< the file cannot be read, is being written just now, or this object is writing it
        unchanged, ///< the file holds what this object holds; nothing was touched
        replaced   ///< the content is new
    };

    RyvPrmProject();
    RyvPrmProject(const RyvPrmProject&) = delete;
    RyvPrmProject& operator=(const RyvPrmProject&) = delete;
    virtual ~RyvPrmProject();

    /// The full path of the project file.
    const CString& getProjectID() const noexcept { return projectId_; }

    /// Reads the project file at `path`, which becomes the project's ID, and takes its content over when it
    /// was read whole. False, with the old content kept, when it cannot be read. The second argument is part
    /// of the interface and has no meaning.
    bool readProject(CStringView path, int unused = 0) { return read(path, unused) != ReadResult::failed; }
    /// The same, telling more. A file that is suddenly empty, or that changes while it is
    /// read, counts as being written; one whose writer pauses in the middle is taken as it stands. Content
    /// that LISP changes while it is asked for defaults is newer than what was read: the file is read again
    /// then.
    ReadResult read(CStringView path, int unused = 0);

    /// The same for the project's own file after a notice that it changed: when it holds what this object
    /// read or wrote last, changes in memory that are not written yet stay (`unchanged`).
    ReadResult readAfterNotice();

    /// Whether the file looks as it did when it was read or written last, without reading it.
    bool isFileUntouched() const;

    /// Writes the content to `path`, or to the project's file when that is null, and lets LISP bring its list
    /// of drawings up to date. False when the file cannot be opened or written, or when another process
    /// changed it since it was read; the file is what it was then, and the content stays in memory.
    bool writeProject(const CString* path = nullptr);

    /// Why the last read or write failed: one of RyvPmUtilsKQPFiler's errors, the file operation behind it,
    /// and the file that it concerns. A file that is being written is `busy`.
    int getLastError() const noexcept { return lastError_; }
    FileStatus lastStatus() const noexcept { return lastStatus_; }
    const CString& lastFile() const noexcept { return lastFile_; }
    /// For whoever has to tell an error of what follows from an older one.
    void forgetLastError() noexcept;

    const RyvPrmProjectData& getProjectData() const noexcept { return data_; }
    /// The same for changing it: what is changed here stays until the file is read again.
    RyvPrmProjectData& editProjectData() noexcept;

    /// Kept as empty members of the interface, which callers outside of this module were built against.
    int getState() const noexcept { return 0; }
    void changedState() noexcept {}
    void changedContent() noexcept {}

    bool getUseZarn() const noexcept { return useZarn_; }
    void setUseZarn(bool use) noexcept { useZarn_ = use; }

    /// True for a project with an electromechanical link: its miscellaneous setting 39 is not empty.
    bool isOZMProject() const;
    /// True for such a project, and for one whose companion store knows the project that it is linked to:
    /// what has to be asked before drawings leave it. LISP is told of the setting alone.
    bool isLinked() const;

    /// Marks of the path check: paths were repaired, and the user stopped it. They stay for the life of the
    /// object.
    bool pathsRepaired = false;
    bool pathCheckCancelled = false;

    /// Changes in memory, which writeProject() makes last. They forward to RyvPrmProjectData, and those that
    /// concern names of drawings tell the companion store, so that identifiers follow.
    bool addFile(std::unique_ptr<RyvPrmFileDetails> details, const CString& trace);
    /// Copies of all, at the top level or in the subfolder of `trace`.
    bool addFiles(const CArray<RyvPrmFileDetails>& drawings, const CString& trace);
    bool removeFile(CStringView path);
    bool removeFiles(const CStringArray& paths);
    bool removeSubfolders(const CStringArray& traces);
    /// The drawing listed as `oldPath` becomes `newPath`, with its identifier; false when there is none. The
    /// flag tells a rename from a replacement, which is the same here.
    bool replaceFile(CStringView oldPath, CStringView newPath, bool rename);
    bool modifyDetailsForFile(const RyvPrmFileDetails& details);
    bool setMiscProjSettings(const RyvPmMiscProjSettings& settings);

    /// Questions; as in RyvPrmProjectData.
    std::int32_t GetFileId(CStringView path);
    bool getDetailsForFiles(const CStringArray& paths, CArray<RyvPrmFileDetails>& out) const;
    bool getDetailsForSubfolders(const CStringArray& traces, CArray<RyvPrmSubfolder*>& out) const;
    bool getSubfolderByTrace(CStringView trace, RyvPrmSubfolder*& subfolder) const;
    bool isFileInProject(CStringView path, bool* isReferenceOnly = nullptr) const;

private:
    enum class Unwritten { dropped, kept }; ///< what becomes of changes in memory
    ReadResult readOnce(Unwritten unwritten, bool& again);
    ReadResult readRepeatedly(Unwritten unwritten);
    bool isBeingWritten(const RyvPrmKQPFiler& fresh) const;
    bool isWhatWeReadOrWrote(const RyvPrmKQPFiler& fresh) const;
    ReadResult failBusy();
    void noteErrorOf(const RyvPrmKQPFiler& filer);
    bool write(RyvPrmKQPFiler& filer, CStringView path);
    bool writeCopy(CStringView path);

    CString projectId_;
    RyvPrmProjectData data_;
    std::shared_ptr<RyvPrmKQPFiler> filer_; // shared: a read may put another one here while LISP runs
    int lastError_ = RyvPmUtilsKQPFiler::noError;
    FileStatus lastStatus_;
    CString lastFile_;
    bool changedInMemory_ = false;
    std::uint64_t generation_ = 0; // of the content: grows with every change
    int writing_ = 0;              // depth: LISP may change and write the project while it is being written
    bool useZarn_ = false;
};

} // namespace ryv
