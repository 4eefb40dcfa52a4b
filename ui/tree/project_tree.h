// The tree of the open projects with their subfolders and drawings, as the Project Manager palette shows it.
#pragma once

#include "base/event.h"
#include "manager/project_manager.h"
#include "platform/os/files.h"
#include "platform/services/project_database.h"
#include "toolkit/menu.h"
#include "toolkit/notice_line.h"
#include "toolkit/tree_control.h"
#include "ui/tree/at_work.h"
#include "ui/tree/item_address.h"
#include "ui/tree/project_work.h"
#include "ui/tree/told_problems.h"
#include "ui/tree/tree_records.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace ryv {

struct ItemMove;
struct ItemPlace;
struct Rearrangement;

/// How the drawings of a build are labelled.
struct TreeLabelling {
    CArray<int> displayOrder; ///< field codes, see resources/message_numbers.h
    CString separator;
    DatabaseRecordset* database = nullptr; ///< null when there is none
};

/// Rows are named from outside by project ID, drawing path and subfolder trace, because a re-read may replace
/// any of them; pointers to rows are good until the next call that can fire an event or ask the user. Derived
/// classes attach richer records and change what commands do; commands are the virtual operations without
/// "On".
class RYV_EXPORT CProjectTree : public TreeControl, private ProjectDatabaseObserver {
public:
    static constexpr int controlId = 201;
    static constexpr int noticeId = 211;

    // Images, also of selected rows.
    static constexpr int projectImage = 0;
    static constexpr int drawingImage = 1;
    static constexpr int referenceImage = 2;
    static constexpr int subfolderImage = 3;

    explicit CProjectTree(int id = controlId);
    ~CProjectTree() override;

    /// What the palette shows of the selected row may be different now: selection, details, lock status.
    Event<> detailsChanged;

    /// Below the tree: what a command did or could not do, and the offer to take it back. What offers nothing
    /// goes with the next command, and when the user selects something else.
    NoticeLine& notice() noexcept { return notice_; }

    // -- Records (project_tree_records.cpp)

    virtual std::unique_ptr<_projdatastruct> NewProjDataStruct() const;
    virtual std::unique_ptr<_dwgdatastruct> NewDwgDataStruct() const;
    virtual std::unique_ptr<_subfolderdatastruct> NewSubfolderDataStruct() const;

    /// Null for a row without a record, and for null.
    static _itemdatastruct* GetItemData(const TreeItem* item) noexcept;
    static TreeItemType GetItemType(const TreeItem* item) noexcept;

    // -- Finding rows (project_tree_lookup.cpp); null when there is none

    TreeItem* GetProjectItem(CStringView projectId) const;
    /// The project row that a row is in, or is.
    static TreeItem* GetProjectItemFromItem(const TreeItem* item) noexcept;
    /// The record of the project row that a row is in.
    static _projdatastruct* GetProjectDataForItem(const TreeItem* item) noexcept;
    TreeItem* GetActiveProjItem() const;
    /// The first drawing of that path, depth first: below a row, or in the whole tree.
    TreeItem* GetDrawingItem(CStringView drawing, const TreeItem* start = nullptr) const;
    /// The subfolders' names from the outermost to this row, joined by "/"; empty for a row that is none. The
    /// names above are the labels; the row's own is its key or its label.
    static CString GetSubfolderTraceForItem(const TreeItem* item, bool keyOfItem = true);
    TreeItem* GetTreeItemBySubfolderTrace(const TreeItem* project, CStringView trace) const;
    /// The ID of the project that a row is in; empty without one.
    static CString GetProjectOfItem(const TreeItem* item);

    // -- Building (project_tree_build.cpp, project_tree_labels.cpp)

    /// Brings the rows of a project up to what the open project holds; only what differs is touched. False
    /// when the project is not open or the display setting cannot be read.
    bool AddDWGNodes(TreeItem& projectItem, CStringView projectId);
    TreeItem* InsertProjectItem(CStringView projectId);
    /// A new subfolder row in front of the row with the number `row`. When the parent has one of that name,
    /// without regard to case, `alreadyExists` is set and that one is given, or null with `mustBeNew`.
    TreeItem* InsertSubfolderItem(CStringView name, TreeItem& parent, bool& alreadyExists,
        std::size_t row = atEnd, bool mustBeNew = false);
    TreeItem* InsertDwgItem(const RyvPrmFileDetails& details, CString label, CString sheet, TreeItem& parent,
        std::size_t row = atEnd);
    /// Of rows that stand for the same item and have lost their place, the last one goes, with all below it,
    /// to the end of `parent` and leaves the list. One that `parent` lies in is passed over. The row that
    /// went, or null.
    TreeItem* InsertNewItem(std::vector<TreeItem*>& homeless, TreeItem& parent);

    /// The label of a drawing; left alone unless it is empty.
    void GetDwgNodeName(CString& label, const RyvPrmFileDetails& details, const TreeLabelling& labelling);
    /// The label that the row of a drawing has; false when the tree has none.
    bool GetDwgNodeName(CString& label, CStringView drawing) const;
    /// One value of a drawing from the project's database, by field code. True when it could be asked.
    bool GetValueFromScratchDb(
        CString& value, CStringView drawing, int fieldCode, DatabaseRecordset& database);

    /// Marks the active drawing and the subfolders above it; without a path that of the current document.
    void BoldNewActiveDrawingAndSubfolders(CStringView drawing);
    void UnboldSubfAndDwgItemText(TreeItem& projectItem);

    // -- Details (project_tree_details.cpp)

    // The row concerned is the one with the focus when it is selected, else the one selected first.

    /// What the details pane says of the row, lines parted by "\n"; empty without one.
    void GetDisplayDetails(CString& text);
    /// The status line of a row, with its line end; empty for a subfolder.
    void GetDisplayDetails_Status(const TreeItem& item, _lockStatus& lockStatus, CString& text);
    /// `lockStatus` may be null.
    static void GetDrawingStatusText(CStringView drawing, CString& text, _lockStatus* lockStatus);
    static void GetProjectStatusText(CStringView projectId, CString& text, _lockStatus* lockStatus);
    /// The path of the drawing to be previewed; empty when the row is none.
    CString previewedDrawing() const;

    // -- Events of the project manager (project_tree_events.cpp)

    void HookProjectEvents();
    void UnhookProjectEvents();
    void onProjectOpen(const CString& projectId);
    void onProjectClose(const CString& projectId);
    void onProjectCloseAllNA();
    void onProjectSetActive(const CString& projectId);
    void onProjectReRead(const CString& projectId);
    void onDrawingActivate(const CString& drawing);
    /// Reads every project again and brings all rows up to date, with the view as it was.
    void Refresh();

    /// While one exists the tree takes no notice of re-reads: the project is being changed from here, and the
    /// rows are put right by who changes it. Afterwards the projects that were read again meanwhile are
    /// looked at.
    class SuppressReread {
    public:
        explicit SuppressReread(CProjectTree& tree);
        SuppressReread(const SuppressReread&) = delete;
        SuppressReread& operator=(const SuppressReread&) = delete;
        ~SuppressReread();

    private:
        CProjectTree& tree_;
    };

    /// While one exists, something is under way that comes back to the tree behind a question, a call of LISP
    /// or a message pump: it must not be destroyed.
    [[nodiscard]] AtWork atWork() noexcept { return AtWork(works_); }
    bool isAtWork() const noexcept { return works_ > 0; }

    // -- What is selected (project_tree_selection.cpp)

    /// The paths of the selected drawings in the order of the tree; a project or subfolder stands for all
    /// drawings below it. None twice. With a project's row only those of that project.
    CStringArray GetAllSelectedDwgs(const TreeItem* project = nullptr) const;
    /// Every drawing at or below a row, in order.
    static CStringArray GenerateDwgListUnderItem(const TreeItem& item);
    /// The traces of all subfolders below a row, outer ones first.
    static CStringArray GetChildSubfolderTraces(const TreeItem& item);

    // -- Commands (tree_commands.h has the table; project_tree_*.cpp)

    /// The menu for what is selected, with what cannot apply disabled.
    virtual std::unique_ptr<Menu> CreateContextMenu();
    /// Runs a command of the table on what is selected, as its menu would; false for an unknown number or one
    /// that is disabled now.
    bool runCommand(int id);

    virtual void ProjectMenuActivate();
    virtual void ProjectMenuClose();
    virtual void ProjectMenuDescriptions();
    virtual void ProjectMenuTitleBlockUpdate();
    virtual void ProjectMenuDrawingListReport();
    virtual void ProjectMenuAddDrawings();
    virtual void ProjectMenuAddActiveDrawing();
    virtual void ProjectMenuRemoveDrawings();
    virtual void ProjectMenuTaskList();
    virtual void ProjectMenuPubPlotMenuPlot();
    virtual void ProjectMenuPubPlotMenuPubFile();
    virtual void ProjectMenuPubPlotMenuZip();
    virtual void ProjectMenuSettings();
    virtual void ProjectMenuExceptionList();
    virtual void ProjectMenuProperties();
    virtual void ProjectMenuNewDrawing();
    virtual void ProjectMenuFlattenStructure();
    virtual void ProjectMenuFlipFileNameLowerCase();
    virtual void ProjectMenuFlipFileNameUpperCase();
    virtual void ProjAndSubfolderMenuSort();
    virtual void MenuAddSubFolder();
    virtual void MenuExpandAll();
    virtual void MenuCollapseAll();
    virtual void SubfolderMenuNewDrawing();
    virtual void SubfolderMenuAddDrawings();
    virtual void PropsMenuApplyProjDefaults();
    virtual void DrawingMenuOpen();
    virtual void DrawingMenuClose();
    virtual void DrawingMenuCopyTo();
    virtual bool DrawingAndSubfolderMenuRemove(
        CStringView projectId, const CStringArray& drawings, const CStringArray& traces);
    void OnDrawingAndSubfolderMenuRemove(); ///< asks, then removes
    /// Another file takes the place of a drawing in the project. When that is open in the host, the
    /// replacement is opened in its stead and its own document closed, for which the host asks about changes
    /// that are not saved: they belong to its file, and a user who does not close it goes on with it outside
    /// of the project. It stays open, with a notice, while a command is at work in it, and for good where it
    /// is listed still.
    virtual void DrawingMenuReplace();
    virtual void DrawingAndSubfolderMenuRename();
    virtual void DrawingMenuProperties();
    virtual void DrawingPropsMenuApplyProjDefaults();
    virtual void DrawingPropsMenuCopy();
    virtual void DrawingPropsMenuPaste();
    virtual void DrawingPropsMenuDrawCompare();
    virtual void EmptySelectMenuNewProject();
    virtual void EmptySelectMenuOpenProject();
    virtual void EmptySelectMenuNewDrawing();

    // The handlers of the menus; each runs the operation of its name, which a derived tree may have replaced.
    void OnProjectMenuActivate() { ProjectMenuActivate(); }
    void OnProjectMenuClose() { ProjectMenuClose(); }
    void OnProjectMenuDescriptions() { ProjectMenuDescriptions(); }
    void OnProjectMenuTitleBlockUpdate() { ProjectMenuTitleBlockUpdate(); }
    void OnProjectMenuDrawingListReport() { ProjectMenuDrawingListReport(); }
    void OnProjectMenuAddDrawings() { ProjectMenuAddDrawings(); }
    void OnProjectMenuAddActiveDrawing() { ProjectMenuAddActiveDrawing(); }
    void OnProjectMenuRemoveDrawings() { ProjectMenuRemoveDrawings(); }
    void OnProjectMenuTaskList() { ProjectMenuTaskList(); }
    void OnProjectMenuPubPlotMenuPlot() { ProjectMenuPubPlotMenuPlot(); }
    void OnProjectMenuPubPlotMenuPubFile() { ProjectMenuPubPlotMenuPubFile(); }
    void OnProjectMenuPubPlotMenuZip() { ProjectMenuPubPlotMenuZip(); }
    void OnProjectMenuSettings() { ProjectMenuSettings(); }
    void OnProjectMenuExceptionList() { ProjectMenuExceptionList(); }
    void OnProjectMenuProperties() { ProjectMenuProperties(); }
    void OnProjectMenuNewDrawing() { ProjectMenuNewDrawing(); }
    void OnProjectMenuFlattenStructure() { ProjectMenuFlattenStructure(); }
    void OnProjectMenuFlipFileNameLowerCase() { ProjectMenuFlipFileNameLowerCase(); }
    void OnProjectMenuFlipFileNameUpperCase() { ProjectMenuFlipFileNameUpperCase(); }
    void OnProjAndSubfolderMenuSort() { ProjAndSubfolderMenuSort(); }
    void OnMenuAddSubFolder() { MenuAddSubFolder(); }
    void OnMenuExpandAll() { MenuExpandAll(); }
    void OnMenuCollapseAll() { MenuCollapseAll(); }
    void OnSubfolderMenuNewDrawing() { SubfolderMenuNewDrawing(); }
    void OnSubfolderMenuAddDrawings() { SubfolderMenuAddDrawings(); }
    void OnPropsMenuApplyProjDefaults() { PropsMenuApplyProjDefaults(); }
    void OnDrawingMenuOpen() { DrawingMenuOpen(); }
    void OnDrawingMenuClose() { DrawingMenuClose(); }
    void OnDrawingMenuCopyTo() { DrawingMenuCopyTo(); }
    void OnDrawingMenuReplace() { DrawingMenuReplace(); }
    void OnDrawingAndSubfolderMenuRename() { DrawingAndSubfolderMenuRename(); }
    void OnDrawingMenuProperties() { DrawingMenuProperties(); }
    void OnDrawingPropsMenuApplyProjDefaults() { DrawingPropsMenuApplyProjDefaults(); }
    void OnDrawingPropsMenuCopy() { DrawingPropsMenuCopy(); }
    void OnDrawingPropsMenuPaste() { DrawingPropsMenuPaste(); }
    void OnDrawingPropsMenuDrawCompare() { DrawingPropsMenuDrawCompare(); }
    void OnEmptySelectMenuNewProject() { EmptySelectMenuNewProject(); }
    void OnEmptySelectMenuOpenProject() { EmptySelectMenuOpenProject(); }
    void OnEmptySelectMenuNewDrawing() { EmptySelectMenuNewDrawing(); }

    /// Hands the project to LISP to be sorted; false when the user cancels.
    virtual bool ProjectMenuReorderDrawings(CStringView projectId, const CStringArray& chosen);
    /// Copies the drawing that DrawingMenuCopyTo() handed over, or else the selected one, to a new file: the
    /// work of the command RYNAVCOPYTO.
    void copySelectedDrawing();

    /// The project's items as the rows stand, hidden ones included: what is stored with setProjFileDetails().
    static std::vector<std::unique_ptr<RyvPrmItem>> GenerateProjDataStruct(const TreeItem& projectItem);

    // -- Renaming (project_tree_rename.cpp)

    /// Whether a click on the label of the only selected row begins to edit it. Unless it is allowed here,
    /// no.
    void SetAllowLeftClickRename(bool allowed) noexcept { setEditOnClick(allowed); }
    /// Renames a subfolder or drawing to a typed text; what is wrong with the text is shown. True when the
    /// row takes the text on as its label at once.
    virtual bool RenameTreeItem(TreeItem& item, const CString& text);
    /// Renames a drawing's file, through its document when it is open in the host. Never replaces a file
    /// that is there; a change of case only is allowed with `caseOnly`. False when the file is what it was.
    /// Tells the reason itself unless `caseOnly`.
    virtual bool DoActualFileRename(CStringView oldPath, CStringView newPath, bool caseOnly);
    FileError lastRenameError() const noexcept { return lastRenameError_; }
    /// The typed text may not be a name: what a view says of it while it is being typed; empty when it may.
    CString problemOfName(const TreeItem& item, const CString& text) const;
    CString problemOfLabel(const TreeItem& item, const CString& text) const override {
        return problemOfName(item, text);
    }

    // -- Moving (project_tree_drag.cpp, project_tree_move_keys.cpp)

    bool IsValidDragDrop(const TreeItem* target, DropPosition position) const;

protected:
    bool onBeginLabelEdit(TreeItem& item) override;
    bool onEndLabelEdit(TreeItem& item, const CString& text) override;
    void onLabelEditEnded() override;
    /// Of a drawing its file name, whatever the label is made of.
    CString editText(const TreeItem& item) const override;
    CString searchText(const TreeItem& item) const override;
    void onDeleteItem(TreeItem& item) override;
    bool onBeginDrag() override;
    bool onDragOver(TreeItem* target, DropPosition position) override;
    void onDrop(TreeItem* target, DropPosition position) override;
    void onDropLost() override;
    void onContextMenu(TreeItem* item, TreePoint point) override;
    void onDoubleClick(TreeItem& item) override;
    bool onKey(TreeKeyCode code, Modifiers modifiers) override;
    void onDataAttached(TreeItem& item) override;
    void onSelectionChanged() override;
    void onUserSelected() override { notice_.clearUnlessOffering(); }

private:
    class Build;
    struct Level;
    using WaitingRow = std::pair<TreeItem*, std::size_t>; // with the number of its level
    struct MoveOffer;

    /// Of several selected rows the one with the focus is told of, which can move without the selection.
    class FocusWatch final : public TreeObserver {
    public:
        explicit FocusWatch(CProjectTree& tree) noexcept : tree_(tree) {}
        void focusChanged() override { tree_.tellDetails(); }

    private:
        CProjectTree& tree_;
    };

    std::unique_ptr<_dwgdatastruct> drawingRecord(const RyvPrmFileDetails& details) const;
    static TreeRow drawingRow(
        const RyvPrmFileDetails& details, CString label, std::unique_ptr<_dwgdatastruct> record);
    TreeRow subfolderRow(CStringView name) const;
    TreeRow labelledRow(const RyvPrmFileDetails& drawing, const TreeLabelling& labelling);
    void askDatabase(_dwgdatastruct& record, DatabaseRecordset& database);
    std::vector<Level> planRows(CStringView projectId, TreeLabelling labelling);
    void planLevel(std::vector<Level>& levels, std::size_t number, const TreeLabelling& labelling);
    void buildRows(TreeItem& projectItem, std::vector<Level> levels);
    /// Brings the rows of one parent up to a level, and appends its subfolders to those that wait for theirs.
    void AddDWGNodesUtil(TreeItem& parent, Level& level, std::vector<WaitingRow>& waiting);
    static void keepBold(const TreeItem& parent, std::vector<TreeRow>& rows);
    std::unique_ptr<DatabaseRecordset> openDatabase(CStringView projectId);
    void afterBuild();

    static CStringArray openProjects();
    CString projectOfRow(const TreeItem& projectItem) const;
    void sortProjectItems();
    void boldActiveProject();
    TreeItem* listedDrawingItem(CStringView drawing) const;
    void boldAfterBuild(const TreeItem& projectItem, CStringView projectId);
    void setBoldRows(const std::vector<TreeItem*>& rows);
    void onLockChanged(const CString& projectId);
    void onReadOnlyChanged(const CString& projectId, bool readOnly);
    void databaseChanged(CStringView projectId) override { rebuild(CString(projectId)); }
    void tellDetails();

    /// Brings a project's rows up to date, now or when nothing stands against it any more.
    void rebuild(const CString& projectId);
    bool mustWait() const noexcept;
    /// Looks at the projects that were read again while the tree could not take notice; to be called when
    /// that may be over.
    void handlePendingRereads();

    /// What was typed cannot be the name, and the user was told: it is offered again to be changed.
    void rejectName() noexcept { nameRejected_ = true; }
    bool renameSubfolder(TreeItem& item, const CString& text);
    void renameDrawing(TreeItem& item, const CString& text);
    bool renameListedDrawing(CStringView from, CStringView to);

    bool moveByKey(TreeKeyCode code);
    void moveItems(const CString& projectId, const std::vector<ItemAddress>& items, const ItemPlace& place);
    bool followAfterWriting(ProjectWork& work, const Rearrangement& change);
    static CString tellingOf(const CString& projectId, const CString& folder, const ItemMove& move);
    void offerToTakeBack(const std::shared_ptr<MoveOffer>& offer, const CString& text);
    void takeBack(const std::shared_ptr<MoveOffer>& offer);
    /// To be called when a project may be arranged in another way, or was closed.
    void withdrawMoveOffer(CStringView projectId);

    NoticeLine notice_{noticeId};
    FocusWatch focusWatch_{*this};
    ToldProblems problems_;
    CStringArray pendingRereads_;
    int suppressed_ = 0;
    int works_ = 0;           ///< under way; ahead of what counts itself
    bool detailsDue_ = false; ///< to be told when the build is over
    bool handlingRereads_ = false;
    CString activeDrawing_;
    std::unordered_map<const TreeItem*, CString> bareProjects_; ///< IDs of project rows without a record
    std::unordered_set<const TreeItem*> rowsInWork_; ///< whose children are being built, or will be
    std::unique_ptr<ProjectWork> editWork_;          ///< keeps files locked while a label is edited
    bool nameRejected_ = false;
    TreeItem* rejectedItem_ = nullptr; ///< to be edited again when the editing is over
    CString rejectedText_;
    FileError lastRenameError_ = FileError::none;
    CString draggedFrom_;                   ///< project
    std::vector<ItemAddress> draggedItems_; ///< in the order of the tree
    std::weak_ptr<MoveOffer> moveOffer_;    ///< lives as long as the notice line has it
    /// Of the active drawing and its subfolders, with their numbers from the outermost one.
    std::unordered_map<TreeItem*, std::size_t> boldRows_;
};

} // namespace ryv
