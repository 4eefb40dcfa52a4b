#include "programs/kqp/terminal/console.h"

#include "programs/kqp/terminal/escape.h"

#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace kqp {

void holdStandardDescriptors() {
    // The lowest free number is taken each time. For reading only, so that writing there fails and is
    // noticed.
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) == -1)
            static_cast<void>(::open("/dev/null", O_RDONLY));
    }
}

void complain(Console& console, std::string_view what) {
    console.error.write("kqp: ").write(visibleName(what)).write("\n");
    console.error.finish(); // nobody is left to tell when this fails
}

int finishOutput(Console& console, int code) {
    if (console.out.finish())
        return code;
    complain(console, "standard output: " + std::generic_category().message(console.out.error()));
    return failed;
}

} // namespace kqp
