// DXF text is a row of pairs: a line with a group code, and a line with its value. Here they are read one
// after the other, without a copy.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace drafta {

/// One pair, and where it stands in the bytes.
struct DxfPair {
    int code = 0;
    std::string_view value; ///< without the end of its line; blanks are kept
    std::size_t begin = 0;  ///< of the code's line
    std::size_t valueBegin = 0;
    std::size_t end = 0; ///< behind the end of the value's line
};

/// The value without the blanks around it, as numbers and the names of records are read.
inline std::string_view trimmed(std::string_view value) noexcept {
    while (!value.empty() && (value.front() == ' ' || value.front() == '\t'))
        value.remove_prefix(1);
    while (!value.empty() && (value.back() == ' ' || value.back() == '\t' || value.back() == '\r'))
        value.remove_suffix(1);
    return value;
}

class DxfPairReader {
public:
    /// Largest group code that is taken for one.
    static constexpr int largestCode = 32767;

    enum class Step {
        pair,
        end,     ///< no bytes are left
        badCode, ///< the line at `pair.begin` is not a group code
        noValue  ///< the bytes end behind a group code's line
    };

    explicit DxfPairReader(std::string_view bytes, std::size_t start = 0) noexcept
        : bytes_(bytes), at_(start) {}

    /// Reads the next pair. Its value's line may lack an end when it is the last one.
    Step next(DxfPair& pair) noexcept {
        pair.begin = at_;
        if (at_ >= bytes_.size())
            return Step::end;
        std::size_t at = at_;
        if (!parseCode(at, pair.code))
            return Step::badCode;
        if (at == bytes_.size())
            return Step::noValue;
        pair.valueBegin = at + 1;
        const std::size_t valueEnd = lineEnd(pair.valueBegin);
        pair.end = valueEnd == bytes_.size() ? valueEnd : valueEnd + 1;
        at_ = pair.end;
        const bool hasReturn = valueEnd > pair.valueBegin && bytes_[valueEnd - 1] == '\r';
        pair.value = bytes_.substr(pair.valueBegin, valueEnd - pair.valueBegin - (hasReturn ? 1 : 0));
        return Step::pair;
    }

private:
    /// Where the line that begins at `at` has its line feed; the number of bytes when it has none. Eight
    /// bytes at a time: lines are too short for a call of memchr to pay.
    std::size_t lineEnd(std::size_t at) const noexcept {
        constexpr std::uint64_t low = 0x7F7F7F7F7F7F7F7Fu, feeds = 0x0A0A0A0A0A0A0A0Au;
        for (; at + sizeof(std::uint64_t) <= bytes_.size(); at += sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes_.data() + at, sizeof word);
            word ^= feeds;
            const std::uint64_t zeros = ~(((word & low) + low) | word | low);
            if (zeros == 0)
                continue;
            const int bit = std::endian::native == std::endian::little ? std::countr_zero(zeros)
                                                                       : std::countl_zero(zeros);
            return at + static_cast<std::size_t>(bit) / 8;
        }
        while (at < bytes_.size() && bytes_[at] != '\n')
            ++at;
        return at;
    }

    /// Reads the group code in the line at `at`, which becomes the line's end.
    bool parseCode(std::size_t& at, int& code) const noexcept {
        const char* next = bytes_.data() + at;
        const char* const end = bytes_.data() + bytes_.size();
        const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
        while (next != end && isBlank(*next))
            ++next;
        const bool negative = next != end && *next == '-';
        next += negative ? 1 : 0;
        const char* const digits = next;
        unsigned number = 0;
        for (unsigned digit = 0;
             next != end && (digit = static_cast<unsigned char>(*next) - unsigned{'0'}) <= 9 &&
             number <= largestCode;
             ++next)
            number = number * 10 + digit;
        const bool some = next != digits && number <= largestCode;
        while (next != end && isBlank(*next))
            ++next;
        code = negative ? -static_cast<int>(number) : static_cast<int>(number);
        at = static_cast<std::size_t>(next - bytes_.data());
        return some && (next == end || *next == '\n');
    }

    std::string_view bytes_;
    std::size_t at_;
};

} // namespace drafta
