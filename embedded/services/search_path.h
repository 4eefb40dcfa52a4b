// The folders that the host looks for its own files in.
#pragma once

#include "platform/host/host_files.h"
#include "platform/os/files.h"

#include <functional>
#include <vector>

namespace drafta {

class SearchPath final : public ryv::HostFiles {
public:
    /// `documentFolder` gives the folder of the current document, empty when it has none. Both outlive the
    /// object.
    SearchPath(ryv::Files& files, std::function<ryv::CString()> documentFolder)
        : files_(files), documentFolder_(std::move(documentFolder)) {}

    /// Adds a folder behind those that are there.
    void add(ryv::CString folder) { folders_.push_back(std::move(folder)); }
    const std::vector<ryv::CString>& folders() const noexcept { return folders_; }

    ryv::CString findFile(ryv::CStringView name) override;

    /// Looks for a bare file name in the added folders only.
    ryv::CString findAmongFolders(ryv::CStringView name);

private:
    bool isFile(ryv::CStringView path);
    ryv::CString findIn(ryv::CStringView folder, ryv::CStringView name);

    ryv::Files& files_;
    std::function<ryv::CString()> documentFolder_;
    std::vector<ryv::CString> folders_;
};

} // namespace drafta
