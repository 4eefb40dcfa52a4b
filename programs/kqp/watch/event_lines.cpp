#include "programs/kqp/watch/event_lines.h"

#include "base/encoding.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "programs/kqp/json_writer.h"
#include "programs/kqp/terminal/escape.h"
#include "programs/kqp/watch/watch_ports.h"

namespace kqp {

namespace {

/// A path as the machine's other programs name it, or a word as it is.
std::string native(ryv::CStringView detail) {
    if (ryv::paths::isRelative(detail))
        return ryv::nameToBytes(detail);
    return ryv::platform().os.paths->toNative(detail);
}

std::string asNotice(const ryv::CStringArray& details) {
    std::string text = "file monitoring";
    for (const ryv::CString& detail : details)
        text += ": " + native(detail);
    return text;
}

} // namespace

void EventLines::log(ryv::CStringView event, const ryv::CStringArray& details) {
    if (event == monitoringNotice)
        return complain(console_, asNotice(details));
    if (form_ == EventForm::json)
        printJson(event, details);
    else
        printText(event, details);
    if (!console_.out.finish())
        loop_.quit();
}

void EventLines::printText(ryv::CStringView event, const ryv::CStringArray& details) {
    console_.out.write(visible(event));
    for (const ryv::CString& detail : details)
        console_.out.write("\t").write(visibleName(native(detail)));
    console_.out.write("\n");
}

void EventLines::printJson(ryv::CStringView event, const ryv::CStringArray& details) {
    JsonWriter json(console_.out);
    json.beginObject(JsonWriter::Layout::oneLine);
    json.key(u"event");
    json.text(event);
    json.key(u"details");
    json.beginArray(JsonWriter::Layout::oneLine);
    for (const ryv::CString& detail : details)
        json.text(detail);
    json.end();
    json.end();
    console_.out.write("\n");
}

} // namespace kqp
