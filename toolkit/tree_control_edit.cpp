// Editing a label in place.
#include "toolkit/tree_control.h"
#include "toolkit/tree_item_watch.h"

#include <utility>

namespace ryv {

CString TreeControl::editText(const TreeItem& item) const {
    return item.label_;
}

bool TreeControl::onBeginLabelEdit(TreeItem&) {
    return true;
}

bool TreeControl::onEndLabelEdit(TreeItem&, const CString&) {
    return true;
}

CString TreeControl::problemOfLabel(const TreeItem&, const CString&) const {
    return {};
}

/// An owner that has agreed hears of the end also when something throws, here and in finishEdit(): it may
/// keep something locked until then.
bool TreeControl::editLabel(TreeItem& item, const std::optional<CString>& text) {
    if (edited_ || !isEnabled() || !item.shown_)
        return false;
    const TreeItemWatch watch(*this, item);
    if (!onBeginLabelEdit(item))
        return false;
    if (!watch.item() || !item.shown_ || edited_ || !isEnabled()) {
        onLabelEditEnded();
        return false;
    }
    try {
        ensureVisible(item);
        edited_ = &item;
        changedWhileEdited_ = false;
        const CString offered = text ? *text : editText(item);
        observers_.tell([&](TreeObserver& o) { o.editStarted(item, offered); });
    } catch (...) {
        endEdit();
        pending_.editEnded = false;
        onLabelEditEnded();
        throw;
    }
    return true;
}

/// What was put off meanwhile comes before the owner is asked, so that it decides on the row as it stands.
void TreeControl::finishEdit(const std::optional<CString>& text) {
    if (!edited_)
        return;
    const TreeItemWatch watch(*this, *edited_);
    endEdit();
    pending_.editEnded = false;
    try {
        settle();
        if (text && watch.item() && onEndLabelEdit(*watch.item(), *text) && watch.item())
            setLabel(*watch.item(), *text);
    } catch (...) {
        onLabelEditEnded();
        throw;
    }
    onLabelEditEnded();
}

/// The views stop at once, the owner hears when the operation under way is through. A row that leaves has
/// nothing to tell any more.
void TreeControl::endEdit() {
    if (!edited_)
        return;
    TreeItem& item = *std::exchange(edited_, nullptr);
    pending_.editEnded = true;
    observers_.tell([](TreeObserver& o) { o.editEnded(); });
    if (std::exchange(changedWhileEdited_, false) && !item.leaving_)
        refilter(item);
}

} // namespace ryv
