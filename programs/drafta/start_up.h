// What every way of running the host begins with.
#pragma once

#include "embedded/documents/host.h"
#include "programs/drafta/options.h"

namespace drafta {

/// The host's options as the command line has them; where it prints is filled in by whoever shows it.
HostOptions hostOptionsOf(const Options& options);

/// Gives a user who has none the palettes' layout that comes with the program: docked beside the drawings.
void giveFirstLayout(const Options& options);

/// Maps the drives and takes the answers file. False, with one line in `problem`, when that cannot be read.
bool prepare(Host& host, const Options& options, std::string& problem);

/// Loads the modules that the command line names, or the one that the program brings. False as above.
bool loadModules(Host& host, const Options& options, std::string& problem);

/// Makes the first document and opens the files of the command line. Projects come before those of the last
/// run: what the user names now comes first, should names be equal. False when one cannot be opened, which
/// is told.
bool openFirst(Host& host, const Options& options);

} // namespace drafta
