#include "embedded/os/posix_unique_ids.h"

#include "embedded/os/file_error.h"

#include <array>
#include <sys/random.h>

namespace drafta {

namespace {

using Bytes = std::array<unsigned char, 16>;

/// Random but for the bits that tell version and variant.
bool fill(Bytes& bytes) {
    const auto got = uninterrupted([&] { return ::getrandom(bytes.data(), bytes.size(), 0); });
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);
    return got == static_cast<ssize_t>(bytes.size());
}

} // namespace

ryv::CString PosixUniqueIds::newGuid() {
    Bytes bytes{};
    if (!fill(bytes))
        return {};
    ryv::CString guid = u"{";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            guid += u'-';
        guid += u"0123456789ABCDEF"[bytes[i] >> 4];
        guid += u"0123456789ABCDEF"[bytes[i] & 0xF];
    }
    return guid += u'}';
}

} // namespace drafta
