#include "programs/kqp/watch/watch_ports.h"

namespace kqp {

WatchPorts::WatchPorts(drafta::EpollMessageLoop& loop, ryv::EventLog& log)
    : monitor_(loop, *os_.files, mapper_, {.warn = [&log](ryv::CStringView message) {
          log.log(monitoringNotice, {ryv::CString(message)});
      }}) {
    ryv::Platform& ports = ryv::platform();
    ports.os.messages = &loop;
    ports.os.monitor = &monitor_;
    ports.services.projectDatabase = &database_;
    ports.services.eventLog = &log;
}

WatchPorts::~WatchPorts() {
    ryv::platform().os = os_;
    ryv::platform().services = services_;
}

} // namespace kqp
