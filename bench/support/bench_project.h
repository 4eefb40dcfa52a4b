// The project that the benchmarks work on, in any size.
#pragma once

#include "base/strings.h"
#include "embedded/os/posix_platform.h"
#include "model/project_data.h"

#include <filesystem>
#include <string>

namespace bench {

/// Drawings nested three deep, ten to a subfolder, each with two descriptions and five description lines: 256
/// bytes a drawing, as large projects have them.
std::string projectText(std::size_t drawings);

/// The same project as XML, an element for what is a line there.
std::string projectXml(std::size_t drawings);

/// Path and trace of the n-th drawing of a project in the folder `\bench`.
std::u16string drawingPath(std::size_t n);
std::u16string drawingTrace(std::size_t n);

/// A folder of its own under $BENCH_FOLDER, or on the memory file system, so that the device does not hide
/// what the code costs; removed with the object. Also installs the ports of this machine.
class Workbench {
public:
    Workbench();
    ~Workbench();

    /// Writes a file and gives its native path.
    std::string put(const std::string& name, const std::string& content) const;
    ryv::CString modulePath(const std::string& native);

private:
    drafta::PosixPlatform platform_;
    std::filesystem::path folder_;
};

/// Reads a project file with the system's own reader; ends the program when that fails.
void readProject(const ryv::CString& path, ryv::RyvPrmProjectData& data);

} // namespace bench
