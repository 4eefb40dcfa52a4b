#include "siblings/copy_file.h"

#include "siblings/open_file.h"

namespace ryv {

namespace {

constexpr std::size_t bufferSize = 1 << 16;

FileStatus copyContent(OpenFile& from, OpenFile& to) {
    std::vector<char> buffer(bufferSize);
    for (std::size_t count = bufferSize; count == bufferSize;) {
        if (const FileStatus status = from.read(buffer, count); !status.ok())
            return status;
        if (const FileStatus status = to.writeAll({buffer.data(), count}); !status.ok())
            return status;
    }
    return {};
}

FileStatus openSource(OpenFile& file, CStringView path) {
    if (const FileStatus status = file.open(path, OpenMode::read); !status.ok())
        return status;
    FileInformation found;
    if (const FileStatus status = file.information(found); !status.ok())
        return status;
    if (found.isFolder)
        return {FileError::isFolder, 0};
    return {found.isRegular ? FileError::none : FileError::notRegular, 0};
}

/// Removes the file that was made here, unless another one has taken its name meanwhile.
void takeBack(Files& files, OpenFile& made, CStringView path) {
    bool same = false;
    const bool told = isStillAt(files, made.handle(), path, same).ok();
    static_cast<void>(made.close());
    if (told && same)
        static_cast<void>(files.remove(path));
}

} // namespace

FileStatus copyFile(Files& files, CStringView source, CStringView target) {
    OpenFile from(files);
    if (const FileStatus status = openSource(from, source); !status.ok())
        return status;
    OpenFile to(files);
    if (const FileStatus status = to.open(target, OpenMode::createExclusive); !status.ok())
        return status;
    // Before the content, so that nobody reads it who may not read the original.
    static_cast<void>(files.copyAttributes(source, to.handle()));
    FileStatus status = copyContent(from, to);
    if (status.ok())
        status = to.sync();
    if (!status.ok()) {
        takeBack(files, to, target);
        return status;
    }
    if (status = to.close(); !status.ok()) {
        static_cast<void>(files.remove(target));
        return status;
    }
    static_cast<void>(files.setReadOnly(target, false));
    return {};
}

} // namespace ryv
