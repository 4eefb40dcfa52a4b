// A folder of a test's own, gone with all that is in it when the test ends.
#pragma once

#include "base/encoding.h"
#include "base/text.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace ryv::test {

class TempFolder {
public:
    TempFolder() {
        std::string pattern =
            (std::filesystem::canonical(std::filesystem::temp_directory_path()) / "ryvXXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder");
        native_ = pattern;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(native_, ignored);
    }

    /// The folder, or something in it: as a native path and as module text.
    std::string native(const std::string& name = {}) const {
        return name.empty() ? native_ : native_ + "/" + name;
    }
    CString module(const CString& name = {}) const {
        CString path = replaceAll(nameFromBytes(native_), u'/', u'\\');
        return name.empty() ? path : path + u"\\" + name;
    }

    /// Plain reading and writing, without the code under test.
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(native(name), std::ios::binary) << content;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The names of what is in the folder, sorted.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(native_))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    std::string native_;
};

} // namespace ryv::test
