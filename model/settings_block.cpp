#include "model/settings_block.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "bridge/lisp.h"
#include "bridge/platform.h"
#include "bridge/settings_calls.h"
#include "model/setting_value.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "siblings/stdio_file_ex.h"

#include <array>
#include <limits>

namespace ryv {

namespace {

constexpr CStringView modelSpace = u"*Model_Space";
constexpr CStringView wireFormatTag = u"WIREFMT";
constexpr double attributeSpacing = 1.5; // drawing units

constexpr std::array<CStringView, 16> ladderBlocks{u"KQ_MLRH", u"KQ_MLRHX", u"KQ_MLRH1", u"KQ_MLRH2",
    u"KQ_MLRH6", u"KQ_MLRH7", u"KQ_MLRH8", u"KQ_MLRH9", u"KQ_MLRV", u"KQ_MLRVX", u"KQ_MLRV1", u"KQ_MLRV2",
    u"KQ_MLRV6", u"KQ_MLRV7", u"KQ_MLRV8", u"KQ_MLRV9"};

/// The names of all spaces that the drawing may have, in the order in which they are searched. The paper
/// layout that was active last goes without a number and the others are numbered from 0, so the last names
/// may well stand for no space; those are passed over.
CStringArray spacesOf(RyvDbxBlockRef& accessor) {
    CStringArray names{CString(modelSpace), u"*Paper_Space"};
    const std::size_t layouts = accessor.layoutCount();
    for (std::size_t number = 0; number + 2 <= layouts; ++number)
        names.push_back(format(u"*Paper_Space%d", {number}));
    return names;
}

bool openSettingsBlock(RyvDbxBlockRef& accessor) {
    return accessor.isOpen() || findSettingsBlock(accessor, settingsBlockName);
}

CString tagOf(int index) {
    CString tag;
    RyvCfgDrawingSettings::getKQ_MTagForIndex(index, tag);
    return tag;
}

/// The tag under which the open reference has a setting: its own, else its second one. False when it has
/// neither.
bool findTag(RyvDbxBlockRef& accessor, int index, CString& tag) {
    tag = tagOf(index);
    return accessor.hasAttribute(tag) ||
           (RyvCfgDrawingSettings::getKQ_MAltTagForIndex(index, tag) && accessor.hasAttribute(tag));
}

/// The first attribute of a reference without any cannot stand below another one: no tag is handed over, and
/// it is placed at the insertion point.
bool addMissingAttributes(RyvDbxBlockRef& accessor) {
    CString previous;
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        CString found;
        if (findTag(accessor, index, found))
            continue;
        if (previous.empty())
            findLowestAttributeTag(accessor, previous);
        const CString tag = tagOf(index);
        if (!accessor.addAttribute(tag, {}, previous, -attributeSpacing))
            return false;
        previous = tag;
    }
    return true;
}

/// A value that the drawing refuses is passed over: one of the 77 must not keep the others from being
/// written.
void writeValue(RyvDbxBlockRef& accessor, int index, CStringView value) {
    CString secondTag;
    if (!accessor.setAttribute(tagOf(index), value) &&
        RyvCfgDrawingSettings::getKQ_MAltTagForIndex(index, secondTag))
        accessor.setAttribute(secondTag, value);
}

bool insertSettingsBlock(RyvDbxBlockRef& accessor, CStringView file) {
    return accessor.setSpace(modelSpace) &&
           accessor.insertBlock(settingsBlockName, replaceAll(file, u'/', u'\\'), {}, {1, 1, 1}, 0) &&
           findSettingsBlock(accessor, settingsBlockName);
}

void showCannotInsert() {
    MessageBoxRequest request;
    request.message = message::blockNotInserted;
    request.text = messageText(message::blockNotInserted);
    request.caption = messageText(message::blockNotInsertedTitle);
    request.icon = MessageIcon::warning;
    platform().ui->messageBox(request);
}

void replaceWireFormat(RyvDbxBlockRef& accessor, CStringView oldFormat, CStringView newFormat) {
    CString value;
    if (accessor.getAttribute(wireFormatTag, value) && equalNoCase(value, oldFormat))
        accessor.setAttribute(wireFormatTag, newFormat);
}

} // namespace

bool findSettingsBlock(RyvDbxBlockRef& accessor, CStringView blockName) {
    for (const CString& space : spacesOf(accessor))
        if (accessor.setSpace(space) && accessor.findFirst(blockName))
            return true;
    return false;
}

bool ensureSettingsBlock(RyvDbxBlockRef& accessor, bool showMessages) {
    if (findSettingsBlock(accessor, settingsBlockName))
        return true;
    CString file;
    if (!lisp::findBlockFile(settingsBlockName, file)) {
        if (showMessages)
            lisp::tellBlockFileMissing(settingsBlockName);
        return false;
    }
    const bool inserted = insertSettingsBlock(accessor, file);
    if (!inserted && showMessages)
        showCannotInsert();
    return inserted;
}

bool readDrawingSettings(RyvDbxBlockRef& accessor, RyvCfgDrawingSettings& settings, bool startFromDefaults) {
    if (startFromDefaults)
        settings.fillWithDefaults(nullptr, true);
    if (!openSettingsBlock(accessor))
        return false;
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        CString tag;
        CString value;
        if (findTag(accessor, index, tag) && accessor.getAttribute(tag, value))
            settings.setValue(index, &value);
    }
    return true;
}

bool writeDrawingSettings(RyvDbxBlockRef& accessor, const RyvCfgDrawingSettings& settings) {
    if (!openSettingsBlock(accessor) || !addMissingAttributes(accessor))
        return false;
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
        writeValue(accessor, index, valueOrEmpty(settings, index));
    return true;
}

bool addMissingSettingsAttributes(RyvDbxBlockRef& accessor) {
    return findSettingsBlock(accessor, settingsBlockName) && addMissingAttributes(accessor);
}

bool findLowestAttributeTag(RyvDbxBlockRef& accessor, CString& tag) {
    double lowest = std::numeric_limits<double>::max();
    bool found = false;
    CString current;
    DrawingPoint position;
    for (bool more = accessor.firstAttribute(current, position); more;
         more = accessor.nextAttribute(current, position)) {
        if (position.y < lowest) {
            lowest = position.y;
            tag = current;
            found = true;
        }
    }
    return found;
}

void replaceLadderWireFormat(RyvDbxBlockRef& accessor, CStringView oldFormat, CStringView newFormat) {
    if (oldFormat == newFormat)
        return;
    const CStringArray spaces = spacesOf(accessor);
    for (const CStringView block : ladderBlocks)
        for (const CString& space : spaces) {
            if (!accessor.setSpace(space))
                continue;
            for (bool more = accessor.findFirst(block); more; more = accessor.findNext())
                replaceWireFormat(accessor, oldFormat, newFormat);
        }
}

bool applySettingsToDrawing(
    RyvDbxBlockRef& accessor, const RyvCfgDrawingSettings& source, bool showMessages) {
    if (!ensureSettingsBlock(accessor, showMessages))
        return false;
    const int wireFormat = RyvCfgDrawingSettings::getIndexForKQ_MTag(CString(wireFormatTag));
    RyvCfgDrawingSettings settings;
    if (!readDrawingSettings(accessor, settings, true))
        return false;
    const CString oldFormat = valueOrEmpty(settings, wireFormat);
    settings.CopyNonDrawingSpecificValues(source, true);
    if (!writeDrawingSettings(accessor, settings))
        return false;
    replaceLadderWireFormat(accessor, oldFormat, valueOrEmpty(settings, wireFormat));
    return true;
}

bool writeTempScript(CStringView text, CString& path) {
    CString file;
    if (!readLispGlobal(u"GBL_kq_usr", file) || file.empty())
        return false;
    // The folder comes with its separator, or with whatever else the name is to begin with.
    file += u"_SCRTMP1.SCR";
    // The host reads scripts byte by byte as what a user would type, so it is text and not UTF-16.
    RyvStdioFileEx script(*platform().os.files);
    if (!script.Open(file, RyvStdioFileEx::modeWrite | RyvStdioFileEx::modeCreate).ok() ||
        !script.WriteString(text).ok() || !script.Close().ok())
        return false;
    path = replaceAll(file, u'/', u'\\'); // LISP writes "/" between the parts of a path
    return true;
}

} // namespace ryv
