// What a view hands on to a tree control: keys, modifier keys and places.
#pragma once

namespace ryv {

/// Which modifier keys are held down.
struct Modifiers {
    bool ctrl = false;
    bool shift = false;
    bool alt = false;
    bool operator==(const Modifiers&) const = default;
};

/// The keys that a tree control knows. Of `remove` and `enter` it knows no meaning of its own.
enum class TreeKeyCode {
    up,
    down,
    left,
    right,
    home,
    end,
    pageUp,
    pageDown,
    space,
    edit,      ///< F2
    selectAll, ///< Ctrl+A
    expandAll, ///< the asterisk
    escape,
    remove,
    enter
};

/// Where something would land, as seen from the row under the pointer.
enum class DropPosition { before, after, onto };

/// A place on the screen, in pixels.
struct TreePoint {
    int x = 0;
    int y = 0;
    bool operator==(const TreePoint&) const = default;
};

} // namespace ryv
