#include "embedded/qt/dialogs/menu_popup.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/qt_text.h"

namespace drafta {

namespace {

void addCommand(QMenu& menu, const ryv::MenuItem& item, bool isDefault) {
    QAction* const action = menu.addAction(toQt(item.text));
    action->setData(item.id);
    action->setEnabled(item.enabled);
    if (item.image != 0)
        action->setIcon(rowIcon(item.image));
    action->setCheckable(item.checked);
    action->setChecked(item.checked);
    if (isDefault)
        menu.setDefaultAction(action);
}

} // namespace

void fillMenu(QMenu& menu, const ryv::Menu& model) {
    for (const ryv::MenuItem& item : model.items()) {
        if (item.separator) {
            menu.addSeparator();
        } else if (item.submenu) {
            QMenu* const inner = menu.addMenu(toQt(item.text));
            inner->menuAction()->setEnabled(item.enabled);
            fillMenu(*inner, *item.submenu);
        } else {
            addCommand(menu, item, item.id != 0 && item.id == model.defaultItem());
        }
    }
}

int commandOf(const QAction* action) {
    return action ? action->data().toInt() : 0;
}

} // namespace drafta
