// What drafta does from its first to its last moment.
#pragma once

namespace drafta {

/// Runs the program; its exit code.
int run(int argc, char** argv);

} // namespace drafta
