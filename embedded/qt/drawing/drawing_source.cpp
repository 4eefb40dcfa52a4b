#include "embedded/qt/drawing/drawing_source.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/drawings/drawing_file.h"
#include "embedded/os/posix_files.h"
#include "embedded/services/host_texts.h"
#include "resources/file_reasons.h"

#include <algorithm>
#include <list>

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

constexpr std::size_t mostRemembered = 8;
constexpr std::size_t mostShapes = 1'000'000; // of all drawings that are remembered together

bool isSameFile(const ryv::FileInformation& a, const ryv::FileInformation& b) {
    return a.device == b.device && a.inode == b.inode && a.size == b.size &&
           a.modifiedNanoseconds == b.modifiedNanoseconds;
}

DrawingReading failure(CString problem) {
    return {nullptr, std::move(problem)};
}

DrawingReading tooBig(std::uint64_t bytes) {
    const auto megabytes = static_cast<long long>(bytes >> 20);
    return failure(ryv::format(hostText(u"This drawing is too big to preview (%d MB)."), {megabytes}));
}

/// What the reader of drawings says, without the file that it begins with.
CString reasonOf(CStringView problem, CStringView path) {
    if (problem.starts_with(path))
        problem.remove_prefix(path.size());
    if (problem.starts_with(u": "))
        return CString(problem.substr(2));
    return ryv::format(hostText(u"line %s"), {problem.substr(problem.starts_with(u":") ? 1 : 0)});
}

class FileDrawingReader final : public DrawingReader {
public:
    explicit FileDrawingReader(const PathMapper& mapper) : mapper_(mapper) {}

    DrawingReading read(CStringView path) override {
        ryv::FileInformation information;
        const ryv::FileStatus status = files_.information(path, information);
        if (status.error == ryv::FileError::missing || status.error == ryv::FileError::notFolder)
            return failure(CString(hostText(u"The file of this drawing is missing.")));
        if (!status.ok())
            return failure(
                ryv::format(hostText(u"This drawing cannot be read: %s."), {ryv::fileReason(status.error)}));
        if (information.size > FileDrawingSource::largestFile)
            return tooBig(information.size);
        if (auto list = recall(path, information))
            return {std::move(list), {}};
        return load(path, information);
    }

private:
    struct Remembered {
        CString path;
        ryv::FileInformation information;
        std::shared_ptr<const DisplayList> list;
    };

    std::shared_ptr<const DisplayList> recall(CStringView path, const ryv::FileInformation& information) {
        const auto hit = std::find_if(remembered_.begin(), remembered_.end(), [&](const Remembered& drawing) {
            return drawing.path == path && isSameFile(drawing.information, information);
        });
        if (hit == remembered_.end())
            return nullptr;
        remembered_.splice(remembered_.begin(), remembered_, hit);
        return hit->list;
    }

    DrawingReading load(CStringView path, const ryv::FileInformation& information) {
        ryv::Fingerprint fingerprint;
        ryv::DrawingResult result;
        const std::optional<DrawingContent> content = readDrawing(files_, path, fingerprint, result);
        if (!content)
            return failure(
                ryv::format(hostText(u"This drawing cannot be read: %s."), {reasonOf(result.problem, path)}));
        auto list = std::make_shared<const DisplayList>(makeDisplayList(*content));
        remember({CString(path), information, list});
        return {std::move(list), {}};
    }

    void remember(Remembered drawing) {
        std::erase_if(remembered_, [&](const Remembered& other) { return other.path == drawing.path; });
        remembered_.push_front(std::move(drawing));
        std::size_t count = 0, shapes = 0;
        for (auto drawn = remembered_.begin(); drawn != remembered_.end(); ++drawn, ++count) {
            shapes += drawn->list->size();
            if (count > 0 && (count >= mostRemembered || shapes > mostShapes)) {
                remembered_.erase(drawn, remembered_.end());
                return;
            }
        }
    }

    PathMapper mapper_;
    PosixFiles files_{mapper_};
    std::list<Remembered> remembered_; // the one that was read last first
};

} // namespace

std::unique_ptr<DrawingReader> FileDrawingSource::makeReader() {
    return std::make_unique<FileDrawingReader>(mapper_);
}

} // namespace drafta
