#include "embedded/os/native_path.h"
#include "embedded/os/file_error.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace drafta {

namespace {

constexpr int mostLinks = 40; // as many as the kernel follows

struct Free {
    void operator()(char* memory) const noexcept { std::free(memory); }
};

bool isLink(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// The path behind all links; empty, with errno set, when it does not lead to anything.
std::string realPath(const std::string& path) {
    const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
    return real ? std::string(real.get()) : std::string();
}

/// What a symbolic link says; empty when it is none.
std::string linkTarget(const std::string& path) {
    std::array<char, PATH_MAX> target{};
    const ssize_t size = ::readlink(path.c_str(), target.data(), target.size());
    return size < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(size));
}

std::string parentOf(const std::string& path) {
    std::string real;
    if (isLink(path))
        real = realPath(path);
    return std::string(nativeFolder(real.empty() ? path : real));
}

} // namespace

std::vector<std::string_view> nativeComponents(std::string_view path) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::string_view component = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(path.size(), component.size() + 1));
        if (!component.empty() && component != ".")
            components.push_back(component);
    }
    return components;
}

std::string joinNative(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.ends_with('/'))
        path += '/';
    return path += name;
}

std::string_view nativeFolder(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return path.substr(0, separator == 0 ? 1 : separator);
}

std::string_view nativeName(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

bool existsNative(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::string currentNativeFolder() {
    const std::unique_ptr<char, Free> folder(::getcwd(nullptr, 0));
    // A folder outside of this process's root comes back without a "/" at its start.
    return folder && folder.get()[0] == '/' ? std::string(folder.get()) : std::string();
}

std::string absoluteNative(std::string_view path) {
    std::string absolute = path.starts_with('/') ? std::string("/") : currentNativeFolder();
    if (absolute.empty())
        return absolute;
    for (const std::string_view component : nativeComponents(path))
        absolute = component == ".." ? parentOf(absolute) : joinNative(absolute, component);
    return absolute;
}

ryv::FileStatus resolveNative(const std::string& path, std::string& resolved) {
    std::string target = path;
    for (int links = 0; links < mostLinks; ++links) {
        if (resolved = realPath(target); !resolved.empty())
            return {};
        if (errno != ENOENT)
            return lastFailure();
        const std::string folder = realPath(std::string(nativeFolder(target)));
        if (folder.empty())
            return lastFailure();
        resolved = joinNative(folder, nativeName(target));
        const std::string next = linkTarget(resolved);
        if (next.empty())
            return {};
        target = next.starts_with('/') ? next : joinNative(folder, next);
    }
    return statusOf(ELOOP);
}

} // namespace drafta
