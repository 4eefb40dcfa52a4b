// Archives.
#pragma once

#include "base/strings.h"

#include <string>
#include <utility>
#include <vector>

namespace drafta {

/// A file on disk, by its native path, and its name in the archive, with "/" between folders.
using ZipEntry = std::pair<std::string, ryv::CString>;

/// Writes a zip archive of the files, in their order; an archive that is there is replaced only when all of
/// it could be written. False, with the reason in `problem` (it names the file concerned by its native path),
/// when there is no entry, a file cannot be read or is the archive itself, two entries have one name, a name
/// is empty or leads out of the archive, or the archive cannot be written.
bool writeZip(const std::string& target, const std::vector<ZipEntry>& entries, ryv::CString& problem);

} // namespace drafta
