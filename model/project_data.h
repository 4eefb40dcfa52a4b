// The in-memory content of one project file.
#pragma once

#include "base/export.h"
#include "base/strings.h"
#include "model/drawing_settings.h"
#include "model/file_details.h"
#include "model/subfolder.h"
#include "siblings/misc_proj_settings.h"

#include <memory>

namespace ryv {

class ProjectIndex;

/// Description lines, miscellaneous settings, default drawing settings and the tree of drawings and
/// subfolders.
///
/// Names and traces are compared without regard to case in every look-up; operator== is exact. A trace names
/// a subfolder by the names on the way from the top level, joined by "/"; empty components are skipped.
///
/// The project owns every item. Where an operation unlinks an item without destroying it, the item stays
/// alive as long as the tree it was in: until the project is destroyed that has this tree, which swap()
/// hands over.
class RYV_EXPORT RyvPrmProjectData {
public:
    RyvPrmProjectData();
    ~RyvPrmProjectData();
    RyvPrmProjectData(const RyvPrmProjectData&) = delete;
    RyvPrmProjectData& operator=(const RyvPrmProjectData&) = delete;
    /// Exchanges all content, so that a project can be read aside and put in place only when that went well.
    void swap(RyvPrmProjectData& other) noexcept;

    const CStringList& getProjDescriptions() const noexcept { return descriptions_; }
    void setProjDescriptions(CStringList descriptions);

    const RyvCfgDrawingSettings& getProjDefKQMVals() const noexcept { return defaultSettings_; }
    /// Makes the default settings equal to `settings`: present values are copied, absent ones cleared.
    void setProjDefKQMVals(const RyvCfgDrawingSettings& settings);

    const RyvPmMiscProjSettings& getMiscProjSettings() const noexcept { return miscSettings_; }
    /// The same for the bracket indices 1 to the largest.
    void setMiscProjSettings(const RyvPmMiscProjSettings& settings);

    /// The top-level items.
    const RyvPrmItems& getProjFileDetails() const noexcept;
    /// Replaces the tree by `items`, in order, and takes them over. Items of this project are moved to their
    /// new place, wherever they stand; all other items of the old tree are destroyed. Null entries are
    /// skipped.
    void setProjFileDetails(const CArray<RyvPrmItem*>& items);

    /// Appends `item` to the top level, or to the subfolder of `trace` when that is neither null nor empty;
    /// missing subfolders are made. False when no subfolder results; `item` is destroyed then.
    bool addFile(std::unique_ptr<RyvPrmItem> item, const CString* trace = nullptr);

    /// Appends all items to the top level, in order.
    bool addFiles(RyvPrmItems&& items);

    /// Destroys the tree.
    bool removeAllFiles();

    /// Destroys the first drawing of that name, depth first; false when there is none.
    bool removeFile(CStringView name);

    /// Takes out one drawing for each entry of `names`, depth first, a name given twice taking two; the
    /// records are not destroyed but kept aside. True when `names` was empty or at least one was taken.
    bool removeFiles(const CStringArray& names);

    /// For each trace, from the last entry to the first, takes the subfolder out of its parent: one at the
    /// top level is destroyed with all that it holds, a nested one is only unlinked and kept aside. (The
    /// difference is deliberate: callers that unlink a nested subfolder may still look at it.) True only when
    /// every one was found.
    bool removeSubfolders(const CStringArray& traces);

    /// Gives the first drawing named `oldName` the name `newName`, in its place; false when there is none.
    bool replaceFile(CStringView oldName, CStringView newName);

    /// Assigns `details` to the first drawing of the same file name; false when there is none.
    bool modifyDetailsForFile(const RyvPrmFileDetails& details);

    /// Whether the project lists the drawing; on success stores its reference-only flag when asked to.
    bool isFileInProject(CStringView name, bool* isReferenceOnly = nullptr) const;

    /// The first drawing of that name, or null; the tree's own record.
    RyvPrmFileDetails* findFile(CStringView name) const;

    /// Appends a copy of one drawing for each entry of `names`, depth first; matching and result as in
    /// removeFiles.
    bool getDetailsForFiles(const CStringArray& names, CArray<RyvPrmFileDetails>& out) const;

    /// Empties `out` and appends the subfolder of each trace that is found; the tree's own objects. False
    /// when any was not found.
    bool getDetailsForSubfolders(const CStringArray& traces, CArray<RyvPrmSubfolder*>& out) const;

    /// Finds the subfolder of `trace` below `subfolder` (the top level when null) and stores it there, or
    /// null.
    ///
    /// `create`: missing subfolders are made, with upper-case names. `makeUnique` (only together with
    /// `create`): when the last component exists already, a new subfolder beside it is made, named with "
    /// (1)", " (2)" and so on. True when a subfolder results. An empty trace, or `makeUnique` without
    /// `create`, gives false and leaves `subfolder` alone.
    bool getSubfolderByTrace(CStringView trace, RyvPrmSubfolder*& subfolder, bool create, bool makeUnique);
    /// The look-up alone, from the top level; null when there is none.
    RyvPrmSubfolder* findSubfolder(CStringView trace) const;

    /// Appends every drawing of the tree, depth first, a subfolder's drawings at its place; the tree's own
    /// records.
    void generateFlatFileDetailsArray(CArray<RyvPrmFileDetails*>& out) const;

    /// Exact comparison of descriptions, default settings (case ignored there), miscellaneous settings and
    /// tree.
    bool operator==(const RyvPrmProjectData& other) const;

private:
    RyvPrmSubfolder* makeTrace(RyvPrmSubfolder& start, CStringView trace);
    RyvPrmSubfolder& addUniqueSibling(RyvPrmSubfolder& taken);

    CStringList descriptions_;
    RyvCfgDrawingSettings defaultSettings_;
    RyvPmMiscProjSettings miscSettings_;
    std::unique_ptr<ProjectIndex> index_;
    std::unique_ptr<RyvPrmSubfolder> root_;
};

} // namespace ryv
