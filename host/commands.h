// What the module's commands do. Each does nothing, and prints nothing, when what it works on is missing.
#pragma once

namespace ryv::commands {

// For those who work on the module.
void lockActiveProject(); ///< locks the file of the active project
void doNothing();
/// Asks three questions and, depending on the answers, runs a script, goes on with a new drawing, or shows
/// the properties of a drawing that the user chooses.
void testModal();

// The palette set.
void showPalettes();
void hidePalettes();
/// Copies the drawing that the project tree handed over, or else the one that is selected there.
void copyDrawingsTo();

// The dialogs.
void projectProperties();
void newProject();
void drawingProperties();
void newDrawing();
void continueNewDrawing();
void compareDrawingToProject();

} // namespace ryv::commands
