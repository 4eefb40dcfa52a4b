#include "embedded/drawings/drawing_file.h"
#include "base/text.h"
#include "siblings/open_file.h"

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::FileError;
using ryv::FileStatus;

namespace {

/// Far above any drawing that the format's text form is used for; what is larger would be read in vain.
constexpr std::uint64_t largestFile = std::uint64_t{2} << 30;

FileStatus checkReadable(const ryv::FileInformation& information) {
    if (information.isFolder)
        return {FileError::isFolder, 0};
    if (!information.isRegular)
        return {FileError::notRegular, 0};
    return {information.size > largestFile ? FileError::tooLarge : FileError::none, 0};
}

/// Reads the file in one go; `busy` when it changed meanwhile.
FileStatus readOnce(
    ryv::Files& files, CStringView path, ryv::ByteBuffer& bytes, ryv::FileInformation& information) {
    ryv::OpenFile file(files);
    FileStatus status = file.open(path, ryv::OpenMode::read);
    if (status.ok())
        status = file.information(information);
    if (status.ok())
        status = checkReadable(information);
    const auto size = static_cast<std::size_t>(information.size);
    if (!status.ok() || !bytes.allocate(size + 1)) // a byte more, so that growth shows
        return status.ok() ? FileStatus{FileError::tooLarge, 0} : status;
    std::size_t count = 0;
    status = file.read(bytes.span(), count);
    bytes.shrink(count);
    ryv::FileInformation after;
    if (status.ok())
        status = file.information(after);
    if (status.ok() && (count != size || after.size != information.size ||
                           after.modifiedNanoseconds != information.modifiedNanoseconds))
        return {FileError::busy, 0};
    return status.ok() ? file.close() : status;
}

/// Reads the bytes. A file that somebody is writing is left to readWholeFile, which has patience.
FileStatus readBytes(
    ryv::Files& files, CStringView path, ryv::ByteBuffer& bytes, ryv::Fingerprint& fingerprint) {
    ryv::FileInformation information;
    const FileStatus status = readOnce(files, path, bytes, information);
    if (status.error == FileError::busy)
        return ryv::readWholeFile(files, path, bytes, fingerprint);
    fingerprint = {
        information.device, information.inode, information.size, information.modifiedNanoseconds, 0, true};
    return status;
}

} // namespace

ryv::DrawingResult drawingFailure(CStringView file, std::size_t line, CStringView reason) {
    CString problem(file.empty() ? CStringView(u"drawing without a name") : file);
    if (line > 0)
        problem += u":" + ryv::toText(static_cast<long long>(line));
    return {false, problem + u": " + CString(reason)};
}

std::optional<DrawingContent> readDrawing(
    ryv::Files& files, CStringView path, ryv::Fingerprint& fingerprint, ryv::DrawingResult& result) {
    ryv::ByteBuffer bytes;
    const FileStatus status = readBytes(files, path, bytes, fingerprint);
    if (!status.ok()) {
        result = drawingFailure(path, 0, ryv::fromAscii(ryv::describe(status.error)));
        return std::nullopt;
    }
    DxfFault fault;
    const std::string_view view = bytes.view();
    std::optional<DrawingContent> content = DrawingContent::read(bytes, fault);
    result =
        content ? ryv::DrawingResult() : drawingFailure(path, lineNumber(view, fault.offset), fault.reason);
    return content;
}

} // namespace drafta
