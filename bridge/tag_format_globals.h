// The LISP globals that decide how installation and location stand in component tags.
#pragma once

#include <array>

namespace ryv {

/// What was read of the three globals. Whoever shows the project's properties reads them before and after;
/// when the two differ the tags in the drawings have to be freshened.
struct TagFormatGlobals {
    struct Global {
        bool found = false;
        int value = 0;
        bool operator==(const Global&) const = default;
    };
    std::array<Global, 3> globals;

    bool operator==(const TagFormatGlobals&) const = default;
};

/// "GBL_kq_tagloc_format_instloc_into_tag", "GBL_kq_tagloc_redundant_instloc_suppress" and
/// "GBL_kq_combined_tagloc_prefix", in this order. One that cannot be read is not found, with value 0.
TagFormatGlobals readTagFormatGlobals();

} // namespace ryv
