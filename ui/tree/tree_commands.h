// The commands of the project tree: one table for its menus, the toolbar and the keys.
#pragma once

#include "ui/tree/project_tree.h"

#include <span>

namespace ryv {

/// The numbers of commands that are asked for by name. All are in the table; answer files and other modules
/// know them.
namespace tree_command {
inline constexpr int openDrawing = 202;
inline constexpr int removeDrawing = 225;
inline constexpr int renameDrawing = 227;
inline constexpr int plot = 238;
inline constexpr int publishToFile = 240;
inline constexpr int archive = 241;
inline constexpr int newProject = 251;
inline constexpr int newDrawing = 252;
inline constexpr int openProject = 259;
inline constexpr int renameSubfolder = 1138;
inline constexpr int removeSubfolder = 1139;
inline constexpr int removeMixed = 1149; ///< drawings and subfolders together
} // namespace tree_command

struct TreeCommand {
    int id = 0;
    int text = 0;                                     ///< number in the catalogue
    bool (*isEnabled)(const CProjectTree&) = nullptr; ///< whether it can do anything with what is selected
    void (CProjectTree::*handler)() = nullptr;
};

/// In no order; some have several numbers, one for each menu.
std::span<const TreeCommand> treeCommands() noexcept;
/// Null when there is none of that number.
const TreeCommand* findTreeCommand(int id) noexcept;

/// The menus, each a list of numbers; 0 is a line.
enum class TreeMenu { emptyArea, project, subfolder, drawing };
std::span<const int> commandsOf(TreeMenu menu) noexcept;
/// Those of the submenu that stands in the project menu where this number is.
inline constexpr int publishSubmenu = -1;
std::span<const int> publishCommands() noexcept;

} // namespace ryv
