// The list of the open projects that drops down above the tree, with commands to open and to make projects.
#pragma once

#include "base/export.h"
#include "manager/project_manager.h"
#include "platform/ui/user_interface.h"
#include "toolkit/combo_box.h"

#include <memory>
#include <unordered_map>

namespace ryv {

/// The kinds of entries. The numbers are relied upon outside.
namespace combo_entry {
inline constexpr std::int32_t project = 1;
inline constexpr std::int32_t projectFile = 2; ///< one of the recent projects
inline constexpr std::int32_t openProject = 3;
inline constexpr std::int32_t newProject = 4;
inline constexpr std::int32_t separator = 9;
} // namespace combo_entry

/// What an entry stands for.
struct ryvprmComboDataTag {
    std::int32_t kind = combo_entry::separator;
    CString project;        ///< ID: of an open project, or of the project file that kind 2 opens
    CString text;           ///< shown
    bool isCommand = false; ///< the entry does something and stays no choice
};

/// Shows the active project while it is closed. Open projects stand in the order of their names, each with an
/// image that follows its lock; the active one is marked. Derived classes add entries of their own kinds and
/// act on them. The project manager may end before the box.
class RYV_EXPORT RyvPrmComboBox : public ComboBox {
public:
    static constexpr int controlId = 212;

    explicit RyvPrmComboBox(int id = controlId);
    ~RyvPrmComboBox() override;

    /// Builds the list and follows the projects from now on. Called once, by who made the box.
    virtual void Create();

    /// The entries from the top; as many as rows().
    const CArray<ryvprmComboDataTag>& entries() const noexcept { return entries_; }

    /// Adds the open projects and the commands behind what is there.
    virtual void AddDefaultComboList();
    /// Puts an entry in front of that with the number `index`, or behind the last one.
    void InsertItem(std::size_t index, const ryvprmComboDataTag& data);

    /// The user has chosen an entry. Asks the project manager's listeners first; one that objects ends it.
    /// The box may be gone when this returns.
    virtual void OnItemSelection(const ryvprmComboDataTag& data);
    /// Queues the command that makes a project.
    virtual void CreateProject();
    /// Shows the menu of recent projects and opens the one that is chosen there. True when one was opened or
    /// became active.
    virtual bool DoSSMRUMenu(ScreenPoint point);

    void HookProjectEvents();
    void UnhookProjectEvents();
    void onProjectOpen(const CString& projectId);
    void onProjectClose(const CString& projectId);
    void onProjectCloseAllNA();
    void onProjectSetActive(const CString& projectId);
    void onProjectLocked(const CString& projectId);
    void onProjectUnlocked(const CString& projectId);
    void onProjectReadOnlyChanged(const CString& projectId, bool readOnly);
    /// The list of last projects is another one.
    void onListNeedsUpdate();

    /// Looks at the lock of a project again; of all open ones without an ID.
    void ReloadLockerImage(CStringView projectId = {});
    /// A project's lock is another one, or may be.
    void OnProjectLockChanged(CStringView projectId);

private:
    void rebuild();
    void showEntries();
    void select(const ryvprmComboDataTag& data);
    int imageOf(const CString& projectId);
    Choice rowOf(const ryvprmComboDataTag& data);
    void showActive();

    CArray<ryvprmComboDataTag> entries_;
    std::unordered_map<CString, int> images_; ///< of the open projects, by ID in capitals
    bool building_ = false;                   ///< the rows are shown when all entries are there
    Subscription choices_;
    Subscription listUpdates_;
    /// Tells whether the box is still there after something that may end it.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace ryv
