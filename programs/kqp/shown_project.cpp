#include "programs/kqp/shown_project.h"

#include "siblings/ut_file.h"

namespace kqp {

ryv::CString ShownProject::name() const {
    return ryv::RyvUtFile::ProjectNameOf(path);
}

} // namespace kqp
