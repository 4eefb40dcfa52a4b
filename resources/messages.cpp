#include "resources/messages.h"

#include "resources/message_numbers.h"

#include <algorithm>
#include <iterator>

namespace ryv {

namespace {

struct Message {
    int number = 0;
    CStringView text;
};

constexpr bool isBefore(const Message& message, int number) noexcept {
    return message.number < number;
}

// In ascending order of the numbers. Titles and labels are names and end without a full stop; a message says
// what happened and then what the user can do about it.
// clang-format off
constexpr Message messages[] = {
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
    {message::testRunDrawingProperties, u"Run dwg props?"},
    {message::testRunScript, u"Run script?"},
    {message::testRunOwnScript, u"Ryv script?"},
    {message::testChooseDrawingTitle, u"Select Drawing"},
    {message::dialogMissing, u"%s is not there yet in this version."},
};
// clang-format on

static_assert(
    std::adjacent_find(std::begin(messages), std::end(messages),
        [](const Message& a, const Message& b) { return !isBefore(a, b.number); }) == std::end(messages));

} // namespace

CStringView messageText(int number) noexcept {
    const auto hit = std::lower_bound(std::begin(messages), std::end(messages), number, isBefore);
    return hit != std::end(messages) && hit->number == number ? hit->text : CStringView();
}

} // namespace ryv
