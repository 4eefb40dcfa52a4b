// A project file in its raw sections, read and written for package LISP.
#pragma once

#include "siblings/kqp_filer.h"
#include "siblings/misc_proj_settings.h"

namespace drafta {

/// Reads sections, and writes them back with one of them replaced. The file's encoding stays, saving is
/// atomic, and a save is refused when somebody else wrote the file since it was read here.
class ProjectText : public ryv::RyvPmUtilsKQPFiler {
public:
    using RyvPmUtilsKQPFiler::RyvPmUtilsKQPFiler;

    struct Content {
        ryv::CStringArray descriptions; ///< the first is "*[1]"
        ryv::RyvPmMiscProjSettings misc;
        std::map<int, ryv::CString> settings;
        ryv::CStringArray lines; ///< of the drawing section, as they stand in the file
    };

    /// False when the file cannot be read; see getLastError().
    bool read(ryv::CStringView path, Content& content);

    /// Writes `content` to the file that was read last. False when that fails, with the old file whole.
    bool write(const Content& content);

    /// The last failure in words, with the file that it concerns.
    ryv::CString problem() const;
};

} // namespace drafta
