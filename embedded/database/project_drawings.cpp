#include "embedded/database/project_drawings.h"

namespace drafta {

namespace {

class DrawingLister final : private ryv::RyvPmUtilsKQPFiler {
public:
    explicit DrawingLister(ryv::Files& files) : RyvPmUtilsKQPFiler(files) {}

    bool list(ryv::CStringView project, ryv::CStringArray& drawings) {
        if (!openProject(project, false) || !readProject())
            return false;
        ryv::CString path;
        for (std::size_t i = 0; i < sections().drawingLineCount(); ++i)
            if (const ryv::CStringView line = sections().drawingLine(i); line.front() != u'=') {
                drawingPathOf(line, path);
                drawings.push_back(path);
            }
        return true;
    }
};

} // namespace

bool readProjectDrawings(ryv::Files& files, ryv::CStringView project, ryv::CStringArray& drawings) {
    return DrawingLister(files).list(project, drawings);
}

} // namespace drafta
