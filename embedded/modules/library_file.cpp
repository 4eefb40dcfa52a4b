#include "embedded/modules/library_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <elf.h>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace drafta {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

class LibraryFile {
public:
    /// `size` is that of the file in bytes.
    LibraryFile(std::FILE& file, std::uint64_t size) noexcept : file_(file), size_(size) {}

    bool isLibrary() {
        const std::size_t read = std::fread(&header_, 1, sizeof header_, &file_);
        return read >= SELFMAG && std::memcmp(header_.e_ident, ELFMAG, SELFMAG) == 0;
    }

    bool isWhole() {
        if (size_ < sizeof header_)
            return false;
        if (header_.e_ident[EI_CLASS] != ELFCLASS64 || header_.e_phentsize != sizeof(Elf64_Phdr))
            return true; // of another kind, which the loader refuses in its own words
        const std::uint64_t sections = std::uint64_t{header_.e_shentsize} * header_.e_shnum;
        return holds(header_.e_shoff, sections) && holdsSegments();
    }

private:
    bool holds(std::uint64_t offset, std::uint64_t length) const {
        return length <= size_ && offset <= size_ - length;
    }

    bool holdsSegments() {
        std::vector<Elf64_Phdr> segments(header_.e_phnum);
        if (!holds(header_.e_phoff, segments.size() * sizeof(Elf64_Phdr)) ||
            std::fseek(&file_, static_cast<long>(header_.e_phoff), SEEK_SET) != 0 ||
            std::fread(segments.data(), sizeof(Elf64_Phdr), segments.size(), &file_) != segments.size())
            return false;
        for (const Elf64_Phdr& segment : segments)
            if (segment.p_type == PT_LOAD && !holds(segment.p_offset, segment.p_filesz))
                return false;
        return true;
    }

    std::FILE& file_;
    std::uint64_t size_;
    Elf64_Ehdr header_{};
};

} // namespace

std::string whyNoLibrary(const std::string& file) {
    struct stat state {};
    if (::stat(file.c_str(), &state) != 0)
        return std::strerror(errno);
    if (!S_ISREG(state.st_mode))
        return "it is not a file";
    const std::unique_ptr<std::FILE, CloseFile> opened(std::fopen(file.c_str(), "rb"));
    if (!opened)
        return std::strerror(errno);
    LibraryFile library(*opened, static_cast<std::uint64_t>(state.st_size));
    if (!library.isLibrary())
        return "it is not a module";
    return library.isWhole() ? "" : "the file is cut off";
}

} // namespace drafta
