// Another current folder for as long as the object lives.
#pragma once

#include <filesystem>

namespace ryv::test {

class CurrentFolder {
public:
    explicit CurrentFolder(const std::filesystem::path& folder) : old_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { std::filesystem::current_path(old_); }

private:
    std::filesystem::path old_;
};

} // namespace ryv::test
