#include "toolkit/menu.h"

namespace ryv {

MenuItem& Menu::add(int id, CString text) {
    MenuItem& item = items_.emplace_back();
    item.id = id;
    item.text = std::move(text);
    return item;
}

void Menu::addSeparator() {
    if (!items_.empty() && !items_.back().separator)
        items_.emplace_back().separator = true;
}

Menu& Menu::addSubmenu(CString text) {
    MenuItem& item = add(0, std::move(text));
    item.submenu = std::make_unique<Menu>();
    return *item.submenu;
}

MenuItem* Menu::find(int id) {
    for (MenuItem& item : items_) {
        if (item.id == id && id != 0)
            return &item;
        if (item.submenu)
            if (MenuItem* const hit = item.submenu->find(id))
                return hit;
    }
    return nullptr;
}

} // namespace ryv
