// What can be told of the file of a module before the loader maps it.
#pragma once

#include <string>

namespace drafta {

/// Why a file, by its native path, must not be handed to the loader; empty when it may be. The loader trusts
/// that all that a library's headers announce is in the file, and maps pages behind the end of one that was
/// cut off: touching them kills the process. What else may be wrong, it says itself.
std::string whyNoLibrary(const std::string& file);

} // namespace drafta
