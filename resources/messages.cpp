#include "resources/messages.h"

#include "resources/catalogue.h"
#include "resources/message_numbers.h"

namespace ryv {

namespace {

// In ascending order of the numbers. Titles and labels are names and end without a full stop; a message says
// what happened and then what the user can do about it.
// clang-format off
constexpr Message texts[] = {
    {message::buttonOk, u"OK"},
    {message::buttonCancel, u"Cancel"},
    {message::fieldInstallationCode, u"Installation code"},
    {message::fieldLocationCode, u"Location code"},
    {message::fieldFileName, u"File name"},
    {message::fieldSection, u"Section"},
    {message::fieldSubSection, u"Sub-section"},
    {message::fieldSheet, u"Sheet"},
    {message::fieldDrawingNumber, u"Drawing number"},
    {message::fieldDescription1, u"Description line 1"},
    {message::lockUnreadable, u"Unknown user (the lock file cannot be read)"},
    {message::lockReadOnly, u"Read-only file or folder"},
    {message::projectsCaption, u"Projects"},
    {message::lockMissing, u"File not found"},
    {message::detailsCaption, u"Details"},
    {message::previewCaption, u"Preview"},
    {message::paletteSetName, u"Project Manager"},
    {message::paletteName, u"Projects"},
    {message::allFoundInFolder,
        u"Drawings of the project are no longer in the folder\n%s\n"
        u"All of them were found in the project's folder\n%s\n\n"
        u"Choose OK to use the drawings found there, or Cancel to leave the project as it is."},
    {message::allFoundInFolderTitle, u"Drawings Moved"},
    {message::oneFoundInFolder,
        u"Drawings of the project are missing. At least one of them was found in the project's folder\n%s\n\n"
        u"Choose OK to use the drawings found there; you are asked about the others next. "
        u"Choose Cancel to leave the project as it is."},
    {message::oneFoundInFolderTitle, u"Drawings Missing"},
    {message::drawingNotFound,
        u"The drawing\n%s\nof project %s was not found.\n\n"
        u"Choose OK to show where it is now, or Cancel to leave the project as it is."},
    {message::drawingNotFoundTitle, u"Drawing Not Found"},
    {message::locateDrawingTitle, u"Locate %s"},
    {message::replaceOpenProject,
        u"Two projects of the same name cannot be open together, and one of this name is open already.\n\n"
        u"Do you want to close it and open the other one in its place?"},
    {message::replaceOpenProjectTitle, u"Project %s Is Open"},
    {message::repairRefusedTitle, u"Drawing Paths Not Saved"},
    {message::repairRefusedMissing,
        u"The new drawing paths were not saved, because the project file was not found:\n%s\n\n"
        u"Check that its folder can be reached, and open the project again."},
    {message::repairRefusedLocked,
        u"The new drawing paths were not saved, because the project file\n%s\nis locked by %s.\n\n"
        u"Open the project again when it is free."},
    {message::repairRefusedUnreadable,
        u"The new drawing paths were not saved, because the project is locked and its lock file cannot be "
        u"read, so it is not known by whom.\n\n"
        u"Open the project again when nobody else works on it."},
    {message::repairRefusedReadOnly,
        u"The new drawing paths were not saved, because the project file or its folder is read-only.\n\n"
        u"Make both writable, and open the project again."},
    {message::repairNotWrittenTitle, u"Project File Not Written"},
    {message::repairNotWritten,
        u"The new drawing paths could not be written to the project file\n%s\n\n"
        u"Check that the disk has space left and that the file has not been changed by others, "
        u"and open the project again."},
    {message::blockNotInserted,
        u"The settings block KQ_M could not be inserted into the drawing.\n\n"
        u"Check that the drawing can be changed and that the block's file KQ_M.dwg is undamaged."},
    {message::blockNotInsertedTitle, u"Settings Block"},
    {message::fieldDescription2, u"Description line 2"},
    {message::fieldDescription3, u"Description line 3"},
    {message::updateTerminalsTitle, u"Terminal Links"},
    {message::updateTerminalsPrompt,
        u"Terminals in these drawings are linked, but the project does not know the links yet. "
        u"Do you want to update them in the project? The drawings are added either way."},
    {message::updateTerminalsAccept, u"Update"},
    {message::updateTerminalsDecline, u"Do Not Update"},
    {message::workRefusedHeld, u"%s is being worked on by %s. Nothing was changed; try again later."},
    {message::workRefusedReadOnly, u"%s or its folder is read-only. Nothing was changed."},
    {message::workRefusedMissing, u"%s was not found. Nothing was changed."},
    {message::workRefusedUnreadable,
        u"%s is locked, and its lock file does not say by whom. Nothing was changed; try again later."},
    {message::workRefused, u"The files of project %s could not be locked. Nothing was changed."},
    {message::projectNotReadAgain, u"%s could not be read again: %s."},
    {message::workNeedsDrawing, u"No drawing is open, and the command needs one. Open a drawing, and try again."},
    {message::workProjectGone, u"Project %s is not open any more. Nothing was changed."},
    {message::workItemsGone, u"What the command was about is not in project %s any more. Nothing was changed."},
    {message::projectNotWrittenTitle, u"Project File Not Written"},
    {message::projectNotWritten,
        u"The change could not be written to\n%s: %s.\n\n"
        u"The project is shown as its file has it. Remove the cause, and make the change again."},
    {message::projectNotWrittenStale,
        u"The change could not be written to\n%s: %s.\n\n"
        u"The project could not be read again either (%s). What is shown is not saved."},
    {message::workRefusedByDisk, u"%s could not be locked: %s. Nothing was changed."},
    {message::workListedHeld, u"%s: %s is working on it"},
    {message::workListedReadOnly, u"%s: the file or its folder is read-only"},
    {message::workListedMissing, u"%s: not found"},
    {message::workListedUnreadable, u"%s: it is locked, and its lock file does not say by whom"},
    {message::workListedByDisk, u"%s: it could not be locked: %s"},
    {message::workListedNotLocked, u"%s: it could not be locked"},
    {message::commandActivate, u"&Activate"},
    {message::commandCloseProject, u"C&lose"},
    {message::commandDescriptions, u"&Descriptions..."},
    {message::commandTitleBlocks, u"&Title Block Update"},
    {message::commandReport, u"Drawing List &Report"},
    {message::commandAddDrawings, u"Add Dra&wings..."},
    {message::commandAddActiveDrawing, u"Add Acti&ve Drawing"},
    {message::commandRemoveDrawings, u"Re&move Drawings..."},
    {message::commandTaskList, u"Tas&k List"},
    {message::commandPublish, u"&Publish"},
    {message::commandPlot, u"&Plot"},
    {message::commandPublishFile, u"P&ublish to File"},
    {message::commandArchive, u"&Archive"},
    {message::commandSettings, u"Settin&gs..."},
    {message::commandExceptionList, u"&Exception List..."},
    {message::commandProperties, u"Propert&ies..."},
    {message::commandNewDrawing, u"&New Drawing..."},
    {message::commandFlatten, u"&Flatten Structure"},
    {message::commandLowerCase, u"File Names to Lower &Case"},
    {message::commandUpperCase, u"File Names to &Upper Case"},
    {message::commandSort, u"&Sort..."},
    {message::commandNewSubfolder, u"New Su&bfolder"},
    {message::commandExpandAll, u"E&xpand All"},
    {message::commandCollapseAll, u"C&ollapse All"},
    {message::commandApplyDefaults, u"Apply Project De&faults"},
    {message::commandOpen, u"&Open"},
    {message::commandCloseDrawing, u"&Close"},
    {message::commandCopyTo, u"Copy &To..."},
    {message::commandRemove, u"&Remove"},
    {message::commandReplace, u"Rep&lace..."},
    {message::commandRename, u"Rena&me"},
    {message::commandCopySettings, u"Cop&y Settings"},
    {message::commandPasteSettings, u"&Paste Settings"},
    {message::commandCompareSettings, u"Compare &Settings..."},
    {message::commandNewProject, u"New &Project..."},
    {message::commandOpenProject, u"&Open Project..."},
    {message::addDrawingsTitle, u"Add Drawings to %s"},
    {message::openProjectTitle, u"Open Project"},
    {message::replaceDrawingTitle, u"Replace %s"},
    {message::copyDrawingTitle, u"Copy %s"},
    {message::copyIntoProject, u"Project that gets the copy"},
    {message::currentDrawingBusy,
        u"A command is running in the current drawing.\n\nFinish or cancel it, and open the drawing then."},
    {message::currentDrawingBusyTitle, u"Drawing Not Opened"},
    {message::projectNotOpened, u"%s could not be opened.\n\nCheck that it is a project file that can be read."},
    {message::projectNotOpenedTitle, u"Project Not Opened"},
    {message::drawingIsListed, u"%s belongs to project %s already.\n\nChoose another file."},
    {message::drawingExists, u"There is a file\n%s\nalready, and a copy never replaces one.\n\nChoose another name."},
    {message::drawingNotCopied, u"The drawing could not be copied to\n%s: %s."},
    {message::commandRefusedTitle, u"Project Manager"},
    {message::drawingsNotOpened, u"%d of the drawings could not be opened."},
    {message::drawingsListedBefore, u"Drawings added: %d. In project %s already: %d."},
    {message::fileNamesChanged, u"File names changed:"},
    {message::drawingCopied, u"%s was added to project %s."},
    {message::changingFileNames, u"Changing File Names"},
    {message::fileNamesNotPutBack,
        u"File names that could not be put back: %d. The project lists these drawings as they were called before."},
    {message::moreInSubfolders,
        u"There is more in the subfolders now than when you were asked. Nothing was removed from project %s."},
    {message::nameEmpty, u"A name is needed."},
    {message::nameForbidden, u"A name holds none of these characters: %s"},
    {message::nameTooLong, u"The name is too long for its folder."},
    {message::nameTaken, u"The name %s is taken already."},
    {message::fileNotRenamed, u"The drawing was not renamed:\n%s\n\n%s"},
    {message::fileNotRenamedTitle, u"Drawing Not Renamed"},
    {message::renamedItemGone, u"%s is not in the project any more. Nothing was changed."},
    {message::drawingsMoved, u"%d drawings were moved to %s."},
    {message::itemsMoved, u"%d items were moved to %s."},
    {message::subfolderMoved, u"Subfolder %s was moved to %s."},
    {message::takeBack, u"Undo"},
    {message::moveNotTakenBack, u"The project was changed since. The move was not taken back."},
    {message::movedItemsGone,
        u"What was to be moved, or the place for it, is not in the project any more. Nothing was changed."},
    {message::renamedNotEverywhere,
        u"%s is called %s now. These projects still list the old name: %s. %s"},
    {message::drawingFileNotFound, u"%s was not found in %s."},
    {message::drawingFolderNotFound, u"%s was not found: there is no folder %s."},
    {message::drawingHeld, u"%s is being worked on by %s."},
    {message::drawingLockUnreadable, u"%s is locked, and its lock file does not say by whom."},
    {message::drawingNotOpened, u"%s could not be opened: %s."},
    {message::replacedStaysOpen, u"%s was replaced in the project, but stays open, because a command runs in it. Finish the command, and "
        u"close the drawing."},
    {message::workListedGone, u"%s: it is not in the project any more"},
    {message::workListedNotDone, u"%s: %s"},
    {message::workNeedsProject, u"No project is active. Make one, or open one, first."},
    {message::fileNamesChangedTitle, u"File Names Changed"},
    {message::lockStatusFirst, u"Unknown"},
    {message::lockStatusFirst + 1, u"Not locked"},
    {message::lockStatusFirst + 2, u"Locked by you, %s"},
    {message::lockStatusFirst + 3, u"Locked by %s"},
    {message::lockStatusFirst + 4, u"Locked (the lock file cannot be read)"},
    {message::lockStatusFirst + 5, u"Read-only"},
    {message::lockStatusFirst + 6, u"File not found"},
    {message::lockStatusFirst + 7, u"Not locked (the folder is read-only)"},
    {message::detailsStatus, u"Status:"},
    {message::detailsFileName, u"File name:"},
    {message::detailsFolder, u"Folder:"},
    {message::detailsFileSize, u"File size:"},
    {message::detailsLastSaved, u"Last saved:"},
    {message::detailsDescription, u"Description %d:"},
    {message::detailsKilobytes, u"%d KB (%d bytes)"},
    {message::detailsMegabytes, u"%d MB (%d bytes)"},
    {message::tabNewProject, u"New project"},
    {message::tabOpenProject, u"Open a project"},
    {message::tabNewDrawing, u"New drawing in the active project"},
    {message::tabRefresh, u"Read all projects again"},
    {message::tabTaskList, u"Pending tasks of the active project"},
    {message::tabResequence, u"Runs the package's renumbering (bump) on the project"},
    {message::tabDisplay, u"What drawings are labelled with"},
    {message::tabPublish, u"Plot, publish or archive"},
    {message::tabHelp, u"Help"},
    {message::drawingListTitle, u"Drawing List Display"},
    {message::drawingListAvailable, u"A&vailable fields"},
    {message::drawingListShown, u"&Fields shown"},
    {message::drawingListAdd, u"&Add >"},
    {message::drawingListRemove, u"< &Remove"},
    {message::drawingListUp, u"Move &Up"},
    {message::drawingListDown, u"Move &Down"},
    {message::drawingListSeparator, u"&Separator"},
    {message::drawingListSelection, u"&Keep the selection visible"},
    {message::drawingListNoSeparator,
        u"Several fields are shown, and nothing stands between them. Enter a separator, or show one field."},
    {message::drawingListNoField, u"No field is shown. Add at least one, so that drawings have a name."},
    {message::drawingListNotStored,
        u"The settings could not be saved. Check that your settings can be written, and try again."},
    {message::treeEmpty,
 u"No project is open.\nMake one with the first button above, or open one with the second. A right click here offers both."},
    {message::testRunDrawingProperties, u"Run dwg props?"},
    {message::testRunScript, u"Run script?"},
    {message::testRunOwnScript, u"Ryv script?"},
    {message::testChooseDrawingTitle, u"Select Drawing"},
};
// clang-format on

static_assert(isAscending(texts));

} // namespace

namespace english {
std::span<const Message> mainMessages() noexcept {
    return texts;
}
} // namespace english

Catalogue catalogueOf(Language language) noexcept {
    if (language == Language::german)
        return {german::mainMessages(), german::settingMessages(), german::creationMessages(),
            german::projectListMessages()};
    return {english::mainMessages(), english::settingMessages(), english::creationMessages(),
        english::projectListMessages()};
}

CStringView messageText(int number, Language language) noexcept {
    for (const std::span<const Message> part : catalogueOf(language))
        if (const CStringView text = findMessage(part, number); !text.empty())
            return text;
    return {};
}

CStringView messageText(int number) noexcept {
    return messageText(number, language());
}

} // namespace ryv
