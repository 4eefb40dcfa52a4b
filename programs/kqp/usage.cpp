#include "programs/kqp/usage.h"

namespace kqp {

int complainOfUsage(Console& console, std::string_view what) {
    complain(console, what);
    console.error.write("try 'kqp --help'\n").finish();
    return failed;
}

} // namespace kqp
