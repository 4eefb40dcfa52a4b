// The user's list of last projects, "LastProj.fil" in the package's settings folder: which projects were open
// when the host ended and which of them was active, the newest first. LISP reads the file too.
//
// One project a line, of text that is written as UTF-16, little endian, with a mark and with "/" in the ID:
//
//     ("C:/Proj/A.kqp" "" "" "" "" "2")
//
// The last string is the code: "0" closed, "1" open, "2" open and active. Nothing is kept in memory, since
// every host that the user runs works on the same file.
#pragma once

#include "bridge/recent_projects.h"

namespace ryv {

/// The states that a project is recorded in.
namespace last_project {
inline constexpr int closed = 1;
inline constexpr int open = 2;
inline constexpr int active = 3;
inline constexpr int removed = 4; ///< takes the project out of the list
} // namespace last_project

/// Writes a project's state into the list: in its place when it is there (case does not count, "\" is the
/// same as "/"), else in front of all others. Recording an active project makes the one that was active open.
/// NavState::onListNeedsUpdate is fired when the list was written. Any number but those above gives an empty
/// code, which reads as open.
///
/// False, with the list as it was: there is no settings folder; the ID is empty or is one that a line cannot
/// hold (a double quote, a line break, the mark of old lists); the list is there but cannot be read; it
/// cannot be written, or others keep writing it.
bool recordProject(CStringView projectId, int state);

/// The same with a code that comes from elsewhere; "X" takes the project out. It is written as it stands, and
/// refused like an ID that a line cannot hold.
bool recordProject(CStringView projectId, CStringView code);

/// Reads the first 30 projects of the list, with IDs as they are stored and exactly one code each, "0", "1"
/// or "2". False when the list cannot be read, or when an old list's mark ends it; `list` then holds what
/// stands in front of the mark.
bool readLastProjects(RecentProjects& list);

/// Records every project of the older list (bridge/recent_projects.h) as closed. False when one of them could
/// not be recorded; the others are recorded all the same.
bool copyFromOlderList();

} // namespace ryv
