#include "programs/kqp/drawing_name.h"

#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "programs/kqp/terminal/escape.h"

namespace kqp {

DrawingNames::DrawingNames(ryv::CStringView project) : folder_(ryv::paths::folderOf(project)) {}

std::string DrawingNames::shown(const ryv::RyvPrmFileDetails& drawing) const {
    const ryv::CStringView path = drawing.getFileName();
    if (ryv::paths::isRelative(path)) // it could not be joined to the folder when it was read
        return visible(ryv::replaceAll(path, u'\\', u'/'));
    const std::optional<ryv::CString> relative = ryv::paths::relativePathTo(folder_, path);
    if (!relative)
        return visibleName(ryv::platform().os.paths->toNative(path));
    ryv::CStringView name = *relative;
    if (name.starts_with(u".\\"))
        name.remove_prefix(2);
    return visible(ryv::replaceAll(name, u'\\', u'/'));
}

} // namespace kqp
