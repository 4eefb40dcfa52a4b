#include "siblings/file_content.h"
#include "siblings/open_file.h"

#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <thread>

namespace ryv {

namespace {

constexpr std::uint64_t lengthFactor = 0xD1B54A32D192ED03u;
constexpr std::uint64_t wordFactor = 0x8FB3C1A5D76E4E2Du;
constexpr std::array<std::uint64_t, 4> laneFactors = {
    0x9E6C63D0676A9A99u, 0xC2A5F3B11D8E7C6Bu, 0xA0D3C5E9B7F12467u, 0xE7B1D94F3A5C8E2Du};
constexpr std::size_t laneBytes = sizeof(std::uint64_t);
constexpr std::size_t blockBytes = laneBytes * laneFactors.size();

std::uint64_t word(const char* bytes) noexcept {
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    if constexpr (std::endian::native == std::endian::big) {
        std::uint64_t swapped = 0;
        for (int i = 0; i < 8; ++i)
            swapped = swapped << 8 | ((value >> (8 * i)) & 0xFF);
        return swapped;
    }
    return value;
}

/// One step of a lane. A bijection of the state for a given word and of the word for a given state, so that
/// one changed word always changes the lane. The word is mixed before it meets the state: otherwise a flip of
/// its top bit would come out as a flip of one single bit, which a flip in the lane's next word could undo.
std::uint64_t step(std::uint64_t state, std::uint64_t value, std::uint64_t factor) noexcept {
    value *= wordFactor;
    value ^= value >> 32;
    return std::rotl(state + value, 31) * factor;
}

/// Spreads every bit over all bits.
std::uint64_t spread(std::uint64_t value) noexcept {
    value = (value ^ (value >> 32)) * 0xBEA225F9EB34556Du;
    value = (value ^ (value >> 29)) * 0xA3B195354A39B70Du;
    return value ^ (value >> 32);
}

} // namespace

std::uint64_t contentHash(std::string_view bytes) noexcept {
    std::array<std::uint64_t, 4> lanes = laneFactors;
    const auto addBlock = [&lanes](const char* block) {
        for (std::size_t lane = 0; lane < lanes.size(); ++lane)
            lanes[lane] = step(lanes[lane], word(block + lane * laneBytes), laneFactors[lane]);
    };
    std::size_t at = 0;
    for (; bytes.size() - at >= blockBytes; at += blockBytes)
        addBlock(bytes.data() + at);
    if (at <
        bytes
            .size()) { // the rest with zeros behind it; the length tells it from a content that ends in zeros
        std::array<char, blockBytes> last{};
        std::memcpy(last.data(), bytes.data() + at, bytes.size() - at);
        addBlock(last.data());
    }
    std::uint64_t hash = static_cast<std::uint64_t>(bytes.size()) * lengthFactor;
    for (const std::uint64_t lane : lanes)
        hash = spread(hash ^ lane);
    return hash;
}

Fingerprint makeFingerprint(const FileInformation& information, std::string_view content) noexcept {
    return {information.device, information.inode, content.size(), information.modifiedNanoseconds,
        contentHash(content), true};
}

namespace {

constexpr int readAttempts = 6;
constexpr std::chrono::milliseconds readPause{5};

FileStatus checkReadable(const FileInformation& information) {
    if (information.isFolder)
        return {FileError::isFolder, 0};
    if (!information.isRegular)
        return {FileError::notRegular, 0};
    return {information.size < std::numeric_limits<std::size_t>::max() / 2 ? FileError::none
                                                                           : FileError::tooLarge,
        0};
}

/// Reads one byte more than the file should have, so that growth shows.
FileStatus readExpected(OpenFile& file, std::size_t size, ByteBuffer& content) {
    if (!content.allocate(size + 1))
        return {FileError::tooLarge, 0};
    std::size_t count = 0;
    const FileStatus status = file.read(content.span(), count);
    content.shrink(count);
    return status;
}

/// One attempt; `busy` when the file changed meanwhile. The file is opened anew each time, because it may
/// have been replaced.
FileStatus readOnce(Files& files, CStringView path, ByteBuffer& content, Fingerprint& fingerprint) {
    OpenFile file(files);
    if (const FileStatus status = file.open(path, OpenMode::read); !status.ok())
        return status;
    FileInformation before;
    if (const FileStatus status = file.information(before); !status.ok())
        return status;
    if (const FileStatus status = checkReadable(before); !status.ok())
        return status;
    if (const FileStatus status = readExpected(file, static_cast<std::size_t>(before.size), content);
        !status.ok())
        return status;
    FileInformation after;
    if (const FileStatus status = file.information(after); !status.ok())
        return status;
    if (content.size() != before.size || after.size != before.size ||
        after.modifiedNanoseconds != before.modifiedNanoseconds)
        return {FileError::busy, 0};
    fingerprint = makeFingerprint(after, content.view());
    return file.close();
}

} // namespace

FileStatus readWholeFile(Files& files, CStringView path, ByteBuffer& content, Fingerprint& fingerprint) {
    fingerprint = {};
    FileStatus status;
    for (int attempt = 0; attempt < readAttempts; ++attempt) {
        if (attempt != 0)
            std::this_thread::sleep_for(readPause);
        status = readOnce(files, path, content, fingerprint);
        if (status.error != FileError::busy)
            break;
    }
    if (!status.ok()) {
        content.clear();
        fingerprint = {};
    }
    return status;
}

FileStatus fingerprintOf(Files& files, CStringView path, Fingerprint& fingerprint) {
    ByteBuffer content;
    const FileStatus status = readWholeFile(files, path, content, fingerprint);
    return status.error == FileError::missing ? FileStatus{} : status;
}

} // namespace ryv
