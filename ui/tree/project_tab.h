// The page of the Project Manager palette: a row of buttons above the project tree.
#pragma once

#include "manager/nav_state.h"
#include "toolkit/control_page.h"
#include "ui/tree/control_factory.h"
#include "ui/tree/project_tree.h"

#include <array>
#include <unordered_set>

namespace ryv {

/// Owns its buttons and the tree. The buttons do what the tree's menus offer; some can be pressed only while
/// the host is idle, the task list only when the active project has pending tasks. It stays while something
/// is under way in the tree (CProjectTree::isAtWork).
class RyvPrmProjectTab final : private BusyListener {
public:
    static constexpr int pageId = 200;
    static constexpr int publishId = 202;
    static constexpr int refreshId = 203;
    static constexpr int taskListId = 204;
    static constexpr int resequenceId = 205;
    static constexpr int displayId = 206;
    static constexpr int helpId = 207;
    static constexpr int newDrawingId = 208;
    static constexpr int newProjectId = 209;
    static constexpr int openProjectId = 210;

    /// Hooks itself and the tree to the project manager, if there is one. The navigation manager outlives the
    /// tab; the project manager may end before it.
    explicit RyvPrmProjectTab(NavState& nav,
        std::unique_ptr<CProjectTree> tree = RyvPrmControlFactory::Instance().NewProjectTree());
    RyvPrmProjectTab(const RyvPrmProjectTab&) = delete;
    RyvPrmProjectTab& operator=(const RyvPrmProjectTab&) = delete;
    ~RyvPrmProjectTab();

    Control& page() noexcept { return page_; }
    CProjectTree& tree() noexcept { return *tree_; }

    /// The button of a number.
    Button& button(int id);

private:
    static constexpr std::size_t buttonCount = 9;

    void addButtons();
    void press(int id);
    void configureDisplay();
    void publish();
    void busyChanged(std::int16_t busy) override;
    void onProjectSetActive(const CString& projectId);
    void onProjectOpen(const CString&) { showActiveProject(); } // a closed one may be active by name
    void onProjectClose(const CString& projectId);
    void showActiveProject();
    void onProjectTasksChanged(const CString& projectId, const CString& taskFile);
    void enableButtons();

    NavState& nav_;
    std::unique_ptr<CProjectTree> tree_;
    std::vector<std::unique_ptr<Button>> buttons_;
    std::vector<Subscription> presses_;
    ControlPage page_{pageId}; // after what it shows
    bool busy_ = false;
    std::unordered_set<CString>
        shownProjects_; ///< IDs in capitals of those that were brought to the user's eye
};

} // namespace ryv
