// Where pictures get their drawings from.
#pragma once

#include "base/strings.h"
#include "embedded/drawings/display_list.h"
#include "embedded/os/path_mapper.h"

#include <memory>

namespace drafta {

/// What reading a drawing has come to.
struct DrawingReading {
    std::shared_ptr<const DisplayList> list; ///< null after a failure
    ryv::CString problem; ///< a sentence for people that does not name the file; empty after success
};

/// Reads drawings, on whatever thread, but on one alone.
class DrawingReader {
public:
    virtual ~DrawingReader() = default;
    virtual DrawingReading read(ryv::CStringView path) = 0;
};

class DrawingSource {
public:
    virtual ~DrawingSource() = default;

    /// A reader that may be used while this object and other readers are. The main thread only.
    virtual std::unique_ptr<DrawingReader> makeReader() = 0;
};

/// Drawings in files. A reader remembers a few drawings, for as long as their files stay the same.
class FileDrawingSource final : public DrawingSource {
public:
    /// Drives and shares as they are mapped at the time when a reader is made; the mapper outlives this
    /// object.
    explicit FileDrawingSource(const PathMapper& mapper) : mapper_(mapper) {}

    /// Larger files are not read.
    static constexpr std::uint64_t largestFile = std::uint64_t{64} << 20;

    std::unique_ptr<DrawingReader> makeReader() override;

private:
    const PathMapper& mapper_;
};

} // namespace drafta
