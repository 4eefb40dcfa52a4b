// The two commands that make a drawing.
#pragma once

namespace ryv {

/// Asks for a new drawing of the active project, makes its file and has the host open it; the host then runs
/// the second half in it. When the file cannot be made the user is told, and may correct what was typed, or
/// cancel. The project's files are locked from here on, until the drawing is in the project, the user cancels
/// or opening it fails. Nothing happens without an active project; the subfolder that was chosen for the
/// drawing is forgotten whatever comes of it.
void startNewDrawing();

/// The second half: adds the drawing that was opened to the project that was active when it was asked for,
/// shows its properties if that was asked for, and updates its title block and ladders. Nothing happens
/// unless a drawing is being made. When it is not the current document, or cannot be added the user is told,
/// and it stays open outside of the project.
void continueNewDrawing();

} // namespace ryv
