// Brings a tree view up to what the control says is expanded, selected, focused and scrolled to.
#pragma once

#include "toolkit/tree_control.h"

namespace drafta {

class TreeView;

/// Attach it behind the model of the view: rows have come and gone for Qt when it hears of them. View and
/// control outlive it.
class TreeFollower final : private ryv::TreeObserver {
public:
    TreeFollower(TreeView& view, ryv::TreeControl& control);
    ~TreeFollower();

    /// The view has forgotten everything.
    void followAll();

    /// The rows of the view stand elsewhere than before.
    void laidOut();

    /// The user has scrolled. The control is told when control is back in the event loop.
    void scrolled();

    /// Other rows are on the screen, which accessibility has to know of.
    void exposed();

private:
    void aboutToInsert(ryv::TreeItem* parent, std::size_t row, std::size_t count) override;
    void inserted() override;
    void aboutToMove(ryv::TreeItem& item, ryv::TreeItem* parent, std::size_t row) override;
    void moved() override;
    void expansionChanged(ryv::TreeItem& item) override;
    void manyExpansionsChanged(ryv::TreeItem* item) override;
    void selectionChanged() override;
    void focusChanged() override;
    void editStarted(ryv::TreeItem& item, const ryv::CString& text) override;
    void editEnded() override;
    void firstVisibleChanged(ryv::TreeItem* item) override;
    void revealed(ryv::TreeItem& item) override;
    void dropPlaceChanged() override;

    void expandAsTold(const ryv::TreeItem& item);
    void expandBelow(ryv::TreeItem& top);
    void followFocus();
    void mirrorSelection();
    void tellFirstVisible();

    TreeView& view_;
    ryv::TreeControl& control_;
    ryv::TreeItem* parent_ = nullptr; // of the notice under way
    ryv::TreeItem* moving_ = nullptr;
    std::size_t row_ = 0;
    std::size_t count_ = 0;
    int offset_ = 0;        // of the view's upper edge in the first visible row, in pixels
    bool scrolled_ = false; // the control has not been told yet
    bool telling_ = false;
};

} // namespace drafta
