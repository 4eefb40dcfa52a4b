// The low-level project file: opens and closes it, reads it into raw sections, writes it as a whole, keeps
// the last error and the identifiers of its drawings.
#pragma once

#include "base/export.h"
#include "platform/os/files.h"
#include "siblings/file_content.h"
#include "siblings/project_sections.h"
#include "siblings/rypx_filer.h"

#include <memory>
#include <optional>

namespace ryv {

class RYV_EXPORT RyvPmUtilsKQPFiler {
public:
    /// The last error. The numbers 2 and 4 are relied upon by callers outside; the others are for telling
    /// people.
    enum ErrorCode : int {
        noError = 0,
        cannotOpen = 1, ///< the file could not be opened; lastStatus() says why
        notOpen = 2,    ///< an operation came before openProject
        cannotRead = 3, ///< the file was opened and could not be read
        notOpenForWriting = 4,
        cannotWrite = 5,     ///< the save failed; the old file or the new one is there, whole
        changedOutside = 6,  ///< another process wrote the file since it was read; its content stands
        cannotWriteStore = 7 ///< the project is written, its companion store is not
    };

    /// A filer that has no file open. `files` outlives it.
    explicit RyvPmUtilsKQPFiler(Files& files);
    /// The same, with `path` opened at once; getLastError() tells how that went.
    RyvPmUtilsKQPFiler(Files& files, CStringView path, bool forWriting);
    virtual ~RyvPmUtilsKQPFiler();
    RyvPmUtilsKQPFiler(const RyvPmUtilsKQPFiler&) = delete;
    RyvPmUtilsKQPFiler& operator=(const RyvPmUtilsKQPFiler&) = delete;

    /// Opens a project file. For reading it must exist. For writing it may be missing, and nothing is changed
    /// yet; what the file holds now (or held when this filer last read or wrote it) is remembered, and
    /// writing fails when somebody else changed it since. A left-over temporary file of a killed writer is
    /// removed.
    bool openProject(CStringView path, bool forWriting);

    /// Ends the access and lets the raw sections go.
    void closeProject();

    bool isOpen() const noexcept { return open_; }
    bool isOpenForWriting() const noexcept { return open_ && forWriting_; }

    /// Reads the open file into the raw sections; these are empty when that fails.
    bool readProject();

    /// What the file held when this filer last read or wrote it: the guard of the next write. A filer that
    /// writes what another one has read takes that over with expectContent(), after opening the file.
    const std::optional<Fingerprint>& knownContent() const noexcept { return known_; }
    void expectContent(const Fingerprint& content) { known_ = content; }

    /// The encoding that the file was read in and will be written in, UTF-8 for a new one.
    TextEncoding encoding() const noexcept { return encoding_; }
    void setEncoding(TextEncoding encoding) noexcept { encoding_ = encoding; }

    /// Path of the file that is or was last open, and the folder that it lies in.
    const CString& projectPath() const noexcept { return path_; }
    const CString& projectFolder() const noexcept { return folder_; }

    const ProjectSections& sections() const noexcept { return sections_; }

    /// Fills the values of the "+[n]" lines of the last read in. True.
    bool initMiscProjSettings(RyvPmMiscProjSettings& misc) const;

    /// Adds the drawing to, removes it from, or renames it in the companion store of the project that is or
    /// was last open; false with error 2 when there was none. Kept in memory, also while the file is closed,
    /// until the project is written.
    bool AddFile(CStringView path);
    bool RemoveFile(CStringView path);
    bool RemoveFiles(const CStringArray& paths);
    bool RenameFile(CStringView from, CStringView to);

    /// The drawing's identifier, 0 when unknown.
    std::int32_t GetFileId(CStringView path);

    /// Forgets identifiers of drawings that the open project's file does not list now, after it was moved or
    /// edited by hand; writes the companion store when that changes it. Makes no store, and leaves alone what
    /// this filer has read and guards.
    bool CleanupProjectData();

    int getLastError() const noexcept { return lastError_; }
    /// The file operation behind the last error, and the file it concerns.
    FileStatus lastStatus() const noexcept { return lastStatus_; }
    const CString& lastFile() const noexcept { return lastFile_; }

    /// Hears of everything that reading drops or repairs and that writing repairs; null for nobody. Not
    /// owned.
    void setReporter(ProjectReporter* reporter) noexcept { reporter_ = reporter; }

protected:
    /// Bytes of the file as this filer last saw it.
    std::size_t lastKnownSize() const noexcept { return known_ ? static_cast<std::size_t>(known_->size) : 0; }
    Files& files() const noexcept { return files_; }
    ProjectReporter* reporter() const noexcept { return reporter_; }
    RyvPmUtilsRypxFiler& store();

    /// The drawing of a path line, without white space at its ends and without the one double quote that may
    /// stand in front, absolute where it can be joined to the project's folder. Stored in `path`, whose room
    /// is used again.
    void drawingPathOf(CStringView line, CString& path) const;

    /// Replaces the file's content by `utf8`, in the encoding that the file was read in, or as UTF-8 with a
    /// mark when that cannot hold it; then writes the companion store. False with the last error set when any
    /// step fails, but for the companion store: the project is written then, so only the last error tells of
    /// it.
    bool commit(std::string utf8);

    void setLastError(ErrorCode error, FileStatus status = {}, CStringView file = {});
    void clearLastError() { setLastError(noError); }

private:
    bool hasProject();
    bool examineForReading();
    bool examineForWriting();
    bool fail(ErrorCode error, FileStatus status, CStringView file);
    void pointTo(CStringView path);

    Files& files_;
    CString path_;
    CString folder_;
    bool open_ = false;
    bool forWriting_ = false;
    int lastError_ = noError;
    FileStatus lastStatus_;
    CString lastFile_;
    ProjectReporter* reporter_ = nullptr;
    ProjectSections sections_;
    TextEncoding encoding_ = TextEncoding::utf8;
    std::optional<Fingerprint> known_; // content of path_ as this filer last saw it
    FileStatus unread_;                // why the last read of the open file failed
    std::unique_ptr<RyvPmUtilsRypxFiler> store_;
};

} // namespace ryv
