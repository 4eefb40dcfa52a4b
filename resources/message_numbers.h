// The numbers of the texts in the catalogue (resources/messages.h). A number is never used for another text:
// answer files and the package's other modules know them. What a text takes is named in the order in which
// format() gets it; a text without a remark takes nothing.
#pragma once

namespace ryv::message {

// Fields of a drawing's label. The same numbers are the codes under which users' display settings keep them.
inline constexpr int fieldInstallationCode = 101;
inline constexpr int fieldLocationCode = 102;
inline constexpr int fieldFileName = 103;
inline constexpr int fieldSection = 104;
inline constexpr int fieldSubSection = 105;
inline constexpr int fieldSheet = 106;
inline constexpr int fieldDrawingNumber = 107;
inline constexpr int fieldDescription1 = 108;
inline constexpr int fieldDescription2 = 291;
inline constexpr int fieldDescription3 = 292;

// What LISP gets in place of a holder's name.
inline constexpr int lockUnreadable = 121;
inline constexpr int lockReadOnly = 122; ///< the file or its folder
inline constexpr int lockMissing = 127;

// Palettes.
inline constexpr int detailsCaption = 128;
inline constexpr int previewCaption = 129;
inline constexpr int paletteSetName = 130;
inline constexpr int paletteName = 131; ///< stored in workspaces, which lose the layout when it changes

// Drawings that are not where their project says; OK and Cancel.
inline constexpr int allFoundInFolder = 132; ///< old folder, folder of the project
inline constexpr int allFoundInFolderTitle = 133;
inline constexpr int oneFoundInFolder = 134; ///< folder of the project
inline constexpr int oneFoundInFolderTitle = 135;
inline constexpr int drawingNotFound = 136; ///< path of the drawing, name of the project
inline constexpr int drawingNotFoundTitle = 137;
inline constexpr int locateDrawingTitle = 138; ///< name of the drawing; of a file dialog

// Opening a project when one of the same name is open; Yes and No.
inline constexpr int replaceOpenProject = 173;
inline constexpr int replaceOpenProjectTitle = 174; ///< name of the project

// Repaired paths that cannot be written.
inline constexpr int repairRefusedTitle = 179;
inline constexpr int repairRefusedMissing = 180; ///< project ID
inline constexpr int repairRefusedLocked = 181;  ///< project ID, holder of the lock
inline constexpr int repairRefusedUnreadable = 182;
inline constexpr int repairRefusedReadOnly = 183; ///< the file or its folder
inline constexpr int repairNotWrittenTitle = 184;
inline constexpr int repairNotWritten = 185; ///< project ID

// The settings block of a drawing.
inline constexpr int blockNotInserted = 268;
inline constexpr int blockNotInsertedTitle = 269;

// The question whether terminals are to be linked to those of drawings that a project is about to get.
inline constexpr int updateTerminalsTitle = 300;
inline constexpr int updateTerminalsPrompt = 301; ///< above the list of the drawings
inline constexpr int updateTerminalsAccept = 302; ///< a button
inline constexpr int updateTerminalsDecline = 303;

// Numbers from 9001 on are for those who work on the module, and for what a version does not have yet.
inline constexpr int testRunDrawingProperties = 9001; ///< Yes and No, as the next two
inline constexpr int testRunScript = 9002;
inline constexpr int testRunOwnScript = 9003;
inline constexpr int testChooseDrawingTitle = 9004; ///< of a file dialog
inline constexpr int dialogMissing = 9005;          ///< what is not there yet

} // namespace ryv::message
