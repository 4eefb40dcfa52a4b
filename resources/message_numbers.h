// The numbers of the texts in the catalogue (resources/messages.h). A number is never used for another text:
// answer files and the package's other modules know them. What a text takes is named in the order in which
// format() gets it; a text without a remark takes nothing.
#pragma once

namespace ryv::message {

// The usual buttons of dialogs; toolkit/dialog.cpp knows these numbers.
inline constexpr int buttonOk = 91;
inline constexpr int buttonCancel = 92;

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
inline constexpr int projectsCaption = 126;
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

// What commands of the project tree tell. In the notice line:
inline constexpr int workRefusedHeld = 401;       ///< file, holder of the lock
inline constexpr int workRefusedReadOnly = 402;   ///< file
inline constexpr int workRefusedMissing = 403;    ///< file
inline constexpr int workRefusedUnreadable = 404; ///< file
inline constexpr int workRefused = 405;           ///< name of the project
inline constexpr int projectNotReadAgain = 406;   ///< file, reason
inline constexpr int workNeedsDrawing = 407;
inline constexpr int workProjectGone = 408; ///< name of the project
inline constexpr int workItemsGone = 409;   ///< name of the project
// In boxes:
inline constexpr int projectNotWrittenTitle = 410;
inline constexpr int projectNotWritten = 411;      ///< file, reason
inline constexpr int projectNotWrittenStale = 412; ///< file, reason, why it could not be read again
inline constexpr int workRefusedByDisk = 413;      ///< file, reason; in the notice line again
// The same in lists of files that were passed over; parameters as above.
inline constexpr int workListedHeld = 414;
inline constexpr int workListedReadOnly = 415;
inline constexpr int workListedMissing = 416;
inline constexpr int workListedUnreadable = 417;
inline constexpr int workListedByDisk = 418;
inline constexpr int workListedNotLocked = 419; ///< file

// Commands of the project tree; "&" marks the letter that chooses one in its menu.
inline constexpr int commandActivate = 420;
inline constexpr int commandCloseProject = 421;
inline constexpr int commandDescriptions = 422;
inline constexpr int commandTitleBlocks = 423;
inline constexpr int commandReport = 424;
inline constexpr int commandAddDrawings = 425;
inline constexpr int commandAddActiveDrawing = 426;
inline constexpr int commandRemoveDrawings = 427;
inline constexpr int commandTaskList = 428;
inline constexpr int commandPublish = 429;
inline constexpr int commandPlot = 430;
inline constexpr int commandPublishFile = 431;
inline constexpr int commandArchive = 432;
inline constexpr int commandSettings = 433;
inline constexpr int commandExceptionList = 434;
inline constexpr int commandProperties = 435;
inline constexpr int commandNewDrawing = 436;
inline constexpr int commandFlatten = 437;
inline constexpr int commandLowerCase = 438;
inline constexpr int commandUpperCase = 439;
inline constexpr int commandSort = 440;
inline constexpr int commandNewSubfolder = 441;
inline constexpr int commandExpandAll = 442;
inline constexpr int commandCollapseAll = 443;
inline constexpr int commandApplyDefaults = 444;
inline constexpr int commandOpen = 445;
inline constexpr int commandCloseDrawing = 446;
inline constexpr int commandCopyTo = 447;
inline constexpr int commandRemove = 448;
inline constexpr int commandReplace = 449;
inline constexpr int commandRename = 450;
inline constexpr int commandCopySettings = 451;
inline constexpr int commandPasteSettings = 452;
inline constexpr int commandCompareSettings = 453;
inline constexpr int commandNewProject = 454;
inline constexpr int commandOpenProject = 455;

// What the commands ask and tell.
inline constexpr int addDrawingsTitle = 460; ///< name of the project; of a file dialog, as the next three
inline constexpr int openProjectTitle = 461;
inline constexpr int replaceDrawingTitle = 462; ///< name of the drawing
inline constexpr int copyDrawingTitle = 463;    ///< name of the drawing; also of the form before it
inline constexpr int copyIntoProject = 464;     ///< label of the form's field
inline constexpr int currentDrawingBusy = 465;
inline constexpr int currentDrawingBusyTitle = 466;
inline constexpr int projectNotOpened = 467; ///< file; a box, as the next four
inline constexpr int projectNotOpenedTitle = 468;
inline constexpr int drawingIsListed = 470;      ///< name of the drawing, name of the project
inline constexpr int drawingExists = 471;        ///< file
inline constexpr int drawingNotCopied = 472;     ///< file, reason
inline constexpr int commandRefusedTitle = 473;  ///< of the last three
inline constexpr int drawingsNotOpened = 474;    ///< number; a notice, as the next one
inline constexpr int drawingsListedBefore = 475; ///< number added, name of the project, number that it had
inline constexpr int fileNamesChanged = 476;     ///< above their names, in the report
inline constexpr int drawingCopied = 477;        ///< name of the copy, name of the project; a notice
inline constexpr int changingFileNames = 478;    ///< of a progress display
inline constexpr int fileNamesNotPutBack = 479;  ///< their number; a notice, as the next one
inline constexpr int moreInSubfolders = 480;     ///< name of the project

// What is wrong with a name for a subfolder or drawing, as a sentence of its own.
inline constexpr int nameEmpty = 481;
inline constexpr int nameForbidden = 482; ///< the characters
inline constexpr int nameTooLong = 483;
inline constexpr int nameTaken = 484; ///< the name
// Renaming and moving in the project tree.
inline constexpr int fileNotRenamed = 485; ///< file, one of the four above or the reason
inline constexpr int fileNotRenamedTitle = 486;
inline constexpr int renamedItemGone = 487; ///< its name; a notice, as the rest
inline constexpr int drawingsMoved = 488;   ///< their number, subfolder or project
inline constexpr int itemsMoved = 489;      ///< the same
inline constexpr int subfolderMoved = 490;  ///< its name, subfolder or project
inline constexpr int takeBack = 491;        ///< what the offer to take a move back is called
inline constexpr int moveNotTakenBack = 492;
inline constexpr int movedItemsGone = 493;
inline constexpr int renamedNotEverywhere = 494; ///< old name, new name, projects, why the last one does

// Why a drawing was not opened, and what became of one that was open when it was replaced. Notices.
inline constexpr int drawingFileNotFound = 495;   ///< name, folder
inline constexpr int drawingFolderNotFound = 496; ///< name, folder
inline constexpr int drawingHeld = 497;           ///< name, holder of the lock
inline constexpr int drawingLockUnreadable = 498; ///< name
inline constexpr int drawingNotOpened = 499;      ///< name, reason
inline constexpr int replacedStaysOpen = 500;     ///< name

// More for lists of files that were passed over.
inline constexpr int workListedGone = 501;    ///< file
inline constexpr int workListedNotDone = 502; ///< file, reason

inline constexpr int workNeedsProject = 503; ///< a notice
inline constexpr int fileNamesChangedTitle = 504;

// The details of what is selected. Status texts stand in the order of the lock statuses.
inline constexpr int lockStatusFirst = 601; ///< 603 and 604: holder of the lock
inline constexpr int detailsStatus = 611;   ///< a label, as the next four
inline constexpr int detailsFileName = 612;
inline constexpr int detailsFolder = 613;
inline constexpr int detailsFileSize = 614;
inline constexpr int detailsLastSaved = 615;
inline constexpr int detailsDescription = 616; ///< number of the line, from 1
inline constexpr int detailsKilobytes = 617;   ///< kilobytes, bytes
inline constexpr int detailsMegabytes = 618;   ///< megabytes, bytes

// Tooltips of the buttons above the project tree.
inline constexpr int tabNewProject = 621;
inline constexpr int tabOpenProject = 622;
inline constexpr int tabNewDrawing = 623;
inline constexpr int tabRefresh = 624;
inline constexpr int tabTaskList = 625;
inline constexpr int tabResequence = 626;
inline constexpr int tabDisplay = 627;
inline constexpr int tabPublish = 628;
inline constexpr int tabHelp = 629;

// The dialog for what drawings are labelled with; "&" marks the letter that leads to a control.
inline constexpr int drawingListTitle = 640; ///< of the dialog and its boxes
inline constexpr int drawingListAvailable = 641;
inline constexpr int drawingListShown = 642;
inline constexpr int drawingListAdd = 643;
inline constexpr int drawingListRemove = 644;
inline constexpr int drawingListUp = 645;
inline constexpr int drawingListDown = 646;
inline constexpr int drawingListSeparator = 647;
inline constexpr int drawingListSelection = 648;
inline constexpr int drawingListNoSeparator = 649; ///< a box, as the next two
inline constexpr int drawingListNoField = 650;
inline constexpr int drawingListNotStored = 651;

// The project tree without a project.
inline constexpr int treeEmpty = 652;

// Numbers from 9001 on are for those who work on the module.
inline constexpr int testRunDrawingProperties = 9001; ///< Yes and No, as the next two
inline constexpr int testRunScript = 9002;
inline constexpr int testRunOwnScript = 9003;
inline constexpr int testChooseDrawingTitle = 9004; ///< of a file dialog

} // namespace ryv::message
