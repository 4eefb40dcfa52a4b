#include "ui/dialogs/settings/setting_description.h"

#include "bridge/environment.h"
#include "model/drawing_settings.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "resources/setting_texts.h"

namespace ryv {

CString settingDescription(int index) {
    CString key;
    if (RyvCfgDrawingSettings::getMessageKeyForIndex(index, key))
        return lispMessage(key, settingText(key));
    CString name;
    RyvCfgDrawingSettings::getKQ_MTagForIndex(index, name);
    const CStringView own = messageText(message::settingExplanations + index);
    return own.empty() ? name : CString(own);
}

CString settingExplanation(int index) {
    CString name;
    if (!RyvCfgDrawingSettings::getKQ_MTagForIndex(index, name))
        return {};
    const CString text = settingDescription(index);
    return text == name ? name : text + u" (" + name + u")";
}

} // namespace ryv
