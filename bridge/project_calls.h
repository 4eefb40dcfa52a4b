// The package's LISP functions around projects and their drawings, a wrapper for each. All are true only when
// the call succeeded and gave what is asked for; otherwise the output is left alone. Without a current
// document nothing is called. Project and drawing paths are full paths.
#pragma once

#include "platform/host/result_buffer.h"

namespace ryv::lisp {

/// Tells LISP which project is active now.
bool makeProjectActive(CStringView project);

/// Has LISP make a new project; gives the string that it answers.
bool newProject(CString& answer);

/// Lets the user choose one of the recent projects; gives its path.
bool chooseRecentProject(CString& project);

/// Tells LISP that the list of drawings has changed: after a project was opened or written.
bool updateDrawingList();

/// Removes drawings from a project in LISP, which asks the user which.
bool removeDrawings(CStringView project);

/// Runs the dialog that sorts a project's drawings. `chosen`, handed over as one nested value, holds the
/// paths of drawings and the traces of subfolders that take part; none means all. `cancelled` is set when the
/// user cancelled (LISP answered nil): nothing was sorted then, though the call succeeded.
bool sortDrawings(CStringView project, const CStringArray& chosen, bool& cancelled);

/// Run the dialog for a project's description lines and give the lines as they were edited; `lines` may be
/// the list that was passed. The first form works on what LISP knows itself and takes a number that selects
/// it; the second one works on the lines that it is given, under a text. False when the user cancels;
/// when no line is left, one empty one comes back.
bool editDescriptionLines(std::int16_t selection, CStringArray& lines);
bool editDescriptionLines(CStringView text, const CStringArray& present, CStringArray& lines);

/// Runs the dialog for the section and sub-section of drawings, on the two values as they are.
bool editSections(CStringView section, CStringView subSection);

/// The path of the title-block file of a project.
bool findTitleBlockFile(CStringView project, CString& file);

/// Shows the project's properties as LISP knows them.
bool displayProjectProperties();

/// Shows the help on project settings.
bool showProjectSettingsHelp();

/// Runs the dialog for a project's symbol libraries.
bool editSymbolLibraries(CStringView project);

/// Has LISP read the parameters of the current drawing again.
bool rereadDrawingParameters();

/// For a drawing that was just made: updates its title block without asking, and its ladder references.
bool updateTitleBlock();
bool updateLadderReferences();

/// Gives the ladders of one sheet value another one; `all`: every ladder, whatever sheet it has.
bool updateLadderSheet(CStringView oldSheet, CStringView newSheet, bool all);

/// Asks which terminal links concern drawings that are about to be added. They are passed as one list: the
/// drawings' paths, then the path of the project's database. False also when there is nothing to do.
bool checkTerminalLinks(const CStringArray& drawings, CStringView database, HostResultBuffer& links);

/// Updates the terminal links of drawings in the project database; `drawings` is passed as one list.
bool updateTerminalLinks(const CStringArray& drawings);

/// A text with the package's replaceable values put in; `result` may be the text itself.
bool substituteReplaceables(CStringView text, CString& result);

} // namespace ryv::lisp
