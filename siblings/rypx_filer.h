// The companion store of a project: a small file beside it, named like it with the extension ".rypx", that
// gives drawings identifiers which survive a rename, and keeps the identity of the project.
//
// It is UTF-8 text, one entry a line: "RYPX 1" first, then "next=N", "local=A<tab>B", "linked=A<tab>B" and
// "id=N<tab>PATH", the path relative to the project's folder where it can be.
#pragma once

#include "base/strings.h"
#include "platform/os/files.h"
#include "siblings/file_content.h"

#include <cstdint>
#include <map>
#include <memory>

namespace ryv {

/// Reads the store when it is first asked and never makes one by reading; changes are kept in memory until
/// save(). A store that cannot be understood is left as it is: nothing is known, and nothing is written over
/// it.
class RyvPmUtilsRypxFiler {
public:
    /// `files` outlives the filer; `project` is the full path of the project file.
    RyvPmUtilsRypxFiler(Files& files, CStringView project);
    ~RyvPmUtilsRypxFiler();

    /// The path of the store of a project.
    static CString storePathFor(CStringView project);

    /// Two texts of the project's identity: its own (`local`) or that of the project it is linked to. False,
    /// with the outputs left alone, when the store has none.
    bool GetProjectData(CString& a, CString& b, bool local);
    void SetProjectData(CStringView a, CStringView b, bool local);

    /// False when no drawing has an identifier, so that there is nothing to ask.
    bool knowsDrawings();

    /// One identifier for each drawing path, 0 for an unknown one; an empty list when there is no store.
    CArray<std::int32_t> ValidateAndGetFileIds(const CStringArray& paths);

    /// The identifier of a drawing, 0 when unknown.
    std::int32_t GetFileId(CStringView path);

    /// Gives a drawing an identifier that no drawing of this project ever had, unless it has one; returns it.
    /// 0 when the store cannot be understood or the identifiers are used up.
    std::int32_t add(CStringView path);
    void remove(CStringView path);
    /// The identifier moves from one name to the other; a drawing that had none gets one.
    void rename(CStringView from, CStringView to);
    /// Forgets every drawing that is not in `paths`.
    void keepOnly(const CStringArray& paths);

    bool hasUnsavedChanges() const noexcept;

    /// Writes the store when something changed. What another process wrote meanwhile is not lost: the change
    /// is made again on top of it. A drawing
    /// that both added may have another identifier after that than add() returned.
    FileStatus save();

private:
    struct Store;
    Store& store();
    CString keyOf(CStringView path) const;

    Files& files_;
    CString project_;
    std::unique_ptr<Store> store_;
};

} // namespace ryv
