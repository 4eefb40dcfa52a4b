#include "programs/kqp/shown_project.h"

#include "base/fold.h"
#include "base/paths.h"

namespace kqp {

ryv::CString ShownProject::name() const {
    return ryv::toUpper(ryv::paths::titleOf(path));
}

} // namespace kqp
