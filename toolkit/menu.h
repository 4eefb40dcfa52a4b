// A menu: commands with numbers, lines between them, menus inside. Made, shown once, and thrown away.
#pragma once

#include "base/strings.h"

#include <memory>

namespace ryv {

class Menu;

struct MenuItem {
    int id = 0;   ///< of the command, not 0; 0 for submenus and lines
    CString text; ///< "&" marks the letter behind it, "&&" is one "&"
    bool enabled = true;
    bool checked = false;
    bool separator = false;
    int image = 0; ///< number of an image (toolkit/images.h); 0 for none
    std::unique_ptr<Menu> submenu;

    /// Whether it is a command that the user could choose.
    bool isUsable() const noexcept { return id != 0 && enabled; }
};

class Menu {
public:
    /// Scripts address the menu by its name.
    explicit Menu(CString name = {}) : name_(std::move(name)) {}

    const CString& name() const noexcept { return name_; }

    /// The item is good until the next one is added to the same menu.
    MenuItem& add(int id, CString text);
    /// A line. None is added at the top or below another one.
    void addSeparator();
    /// The menu is owned by this one and keeps its place in memory.
    Menu& addSubmenu(CString text);

    const CArray<MenuItem>& items() const noexcept { return items_; }

    /// The command of that number, also in the menus inside; null when there is none.
    MenuItem* find(int id);
    const MenuItem* find(int id) const { return const_cast<Menu*>(this)->find(id); }

    /// The command that a double click stands for, shown in bold; 0 for none.
    int defaultItem() const noexcept { return defaultItem_; }
    void setDefaultItem(int id) noexcept { defaultItem_ = id; }

private:
    CString name_;
    CArray<MenuItem> items_;
    int defaultItem_ = 0;
};

} // namespace ryv
