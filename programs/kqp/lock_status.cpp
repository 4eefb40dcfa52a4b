#include "programs/kqp/lock_status.h"

#include "manager/virtual_file_locker.h"
#include "programs/kqp/json_writer.h"
#include "programs/kqp/project_input.h"

#include <array>

namespace kqp {

namespace {

constexpr std::array<ryv::CStringView, 8> statusNames = {u"lockInvalid", u"lockNone", u"lockMine",
    u"lockOther", u"lockUnreadable", u"lockReadOnly", u"lockMissing", u"lockFolderReadOnly"};
static_assert(statusNames[ryv::lockFolderReadOnly] == u"lockFolderReadOnly");

struct Holder {
    ryv::CString who;
    ryv::CString machine;
    ryv::CString time;
};

void print(ryv::_lockStatus status, const Holder& holder, Output& out) {
    JsonWriter json(out);
    json.beginObject(JsonWriter::Layout::oneLine);
    json.key(u"number");
    json.number(status);
    json.key(u"name");
    json.text(statusNames[static_cast<std::size_t>(status)]);
    json.key(u"holder");
    json.text(holder.who);
    json.key(u"machine");
    json.text(holder.machine);
    json.key(u"time");
    json.text(holder.time);
    json.end();
    out.write("\n");
}

} // namespace

int lockStatus(const std::string& file, Console& console) {
    ryv::RyvPrmVirtualFileLocker locker;
    Holder holder;
    const ryv::_lockStatus status =
        locker.whoLocked(pathFromNative(file), holder.who, holder.machine, holder.time);
    print(status, holder, console.out);
    const bool mayWork = status == ryv::lockNone || status == ryv::lockMine;
    return finishOutput(console, mayWork ? done : answerIsNo);
}

} // namespace kqp
