#include "programs/kqp/watch/output_reader.h"

#include <cerrno>
#include <poll.h>
#include <sys/stat.h>

namespace kqp {

namespace {

bool isPipe(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}

bool isBroken(int descriptor) {
    pollfd asked{descriptor, 0, 0};
    return ::poll(&asked, 1, 0) == 1 && (asked.revents & (POLLERR | POLLHUP)) != 0;
}

} // namespace

OutputReader::OutputReader(drafta::EpollMessageLoop& loop, Output& out) : loop_(loop), out_(out) {
    if (isPipe(out_.descriptor()))
        loop_.addDescriptor(out_.descriptor(), [this] { look(); });
}

OutputReader::~OutputReader() {
    loop_.removeDescriptor(out_.descriptor());
}

/// A pipe that is open both ways, or a socket, may also be readable; that would go on for ever.
void OutputReader::look() {
    if (isBroken(out_.descriptor())) {
        out_.fail(EPIPE);
        loop_.quit();
    }
    loop_.removeDescriptor(out_.descriptor());
}

} // namespace kqp
