#include "programs/drafta/background_work.h"

#include <array>
#include <poll.h>

namespace drafta {

Wake waitForInput(int input, int work) {
    std::array<pollfd, 2> waiting{{{input, POLLIN, 0}, {work, POLLIN, 0}}};
    for (;;) {
        if (::poll(waiting.data(), waiting.size(), -1) == -1)
            return Wake::interrupted;
        if (waiting[0].revents != 0) // an error is told by reading
            return Wake::input;
        if (waiting[1].revents & POLLIN)
            return Wake::work;
        waiting[1].fd = -1; // closed or broken: it would never let us sleep again
    }
}

} // namespace drafta
