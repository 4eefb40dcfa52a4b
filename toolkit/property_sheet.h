// A dialog of pages, of which one is shown at a time.
#pragma once

#include "toolkit/dialog.h"

namespace ryv {

/// Pages are counted from 0 in the order of adding. The dialog's own panels, if any, stand above the pages.
class PropertySheet : public Dialog {
public:
    struct Page {
        CString title;
        CString name; ///< by which scripts turn to it
        std::vector<Panel*> panels;
    };

    explicit PropertySheet(const DialogLayout& layout, TextSource texts = nullptr) : Dialog(layout, texts) {}

    /// The panels are not owned and live as long as the sheet runs. All pages are there before it opens.
    void addPage(Page page);
    const CArray<Page>& pages() const noexcept { return pages_; }

    /// -1 when there is no page.
    int activePage() const noexcept { return active_; }
    /// By the program or by the user. False when there is no such page.
    bool turnTo(int page);

protected:
    /// Turns to the page where the control stands.
    void reveal(const Control& control) override;

    /// Another page is shown now.
    virtual void onPage(int) {}

private:
    CArray<Page> pages_;
    int active_ = -1;
};

} // namespace ryv
