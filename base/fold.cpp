#include "base/fold.h"

#include "base/case_runs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace ryv {

namespace {

/// What has to be added to a unit, modulo 65536, to get its partner.
using Offsets = std::array<char16_t, 0x10000>;

constexpr Offsets makeOffsets(bool toUpperCase) {
    Offsets offsets{};
    for (const detail::CaseRun& run : detail::caseRuns) {
        const auto delta = static_cast<char16_t>(run.upperFirst - run.lowerFirst);
        for (unsigned lower = run.lowerFirst; lower <= run.lowerLast; lower += run.step) {
            const auto upper = static_cast<char16_t>(lower + delta);
            if (toUpperCase)
                offsets[lower] = delta;
            else
                offsets[upper] = static_cast<char16_t>(-delta);
        }
    }
    return offsets;
}

constexpr Offsets upperOffsets = makeOffsets(true);
constexpr Offsets lowerOffsets = makeOffsets(false);

char16_t upper(char16_t unit) noexcept {
    return static_cast<char16_t>(unit + upperOffsets[unit]);
}

char16_t lower(char16_t unit) noexcept {
    return static_cast<char16_t>(unit + lowerOffsets[unit]);
}

/// Four units in one word. ASCII letters are most of what is compared, and they fold without a table.
using Word = std::uint64_t;
constexpr std::size_t wordUnits = 4;
constexpr Word notAscii = 0xFF80FF80FF80FF80u;

Word loadWord(const char16_t* units) noexcept {
    Word word;
    std::memcpy(&word, units, sizeof word);
    return word;
}

/// Upper-cases four units below 128 at once: bit 7 of a lane is set by the first sum from "a" on and by the
/// second from behind "z" on; lanes where only the first is set lose the bit that tells lower from upper
/// case.
Word upperAscii(Word word) noexcept {
    constexpr Word lane = 0x0001000100010001u;
    const Word fromA = word + lane * (0x80 - u'a');
    const Word behindZ = word + lane * (0x80 - u'z' - 1);
    return word - (((fromA & ~behindZ) & (lane * 0x80)) >> 2);
}

Word upperWord(const char16_t* units) noexcept {
    const Word word = loadWord(units);
    if ((word & notAscii) == 0) [[likely]]
        return upperAscii(word);
    std::array<char16_t, wordUnits> folded{};
    std::transform(units, units + wordUnits, folded.begin(), upper);
    return std::bit_cast<Word>(folded);
}

/// The last units of a text, at most a word of them. A text of a word or more gives its last word, of which
/// the front was seen before; a shorter one is padded with zeros. Two texts of one length are treated alike.
Word upperTail(CStringView text) noexcept {
    if (text.size() >= wordUnits) [[likely]]
        return upperWord(text.data() + text.size() - wordUnits);
    std::array<char16_t, wordUnits> padded{};
    std::copy(text.begin(), text.end(), padded.begin());
    return upperWord(padded.data());
}

/// The first shift brings the word's high bits to where the multiplication spreads them in a way that depends
/// on the key.
Word mix(Word hash, Word word, Word multiplier) noexcept {
    hash ^= word;
    hash ^= hash >> 32;
    hash *= multiplier;
    return hash ^ (hash >> 29);
}

} // namespace

char16_t toUpper(char16_t unit) noexcept {
    return upper(unit);
}

char16_t toLower(char16_t unit) noexcept {
    return lower(unit);
}

CString toUpper(CStringView text) {
    CString result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

CString toLower(CStringView text) {
    CString result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

int compareNoCase(CStringView a, CStringView b) noexcept {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const char16_t x = upper(a[i]);
        const char16_t y = upper(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

bool equalNoCase(CStringView a, CStringView b) noexcept {
    if (a.size() != b.size())
        return false;
    std::size_t i = 0;
    for (; i + wordUnits <= a.size(); i += wordUnits)
        if (loadWord(a.data() + i) != loadWord(b.data() + i) &&
            upperWord(a.data() + i) != upperWord(b.data() + i))
            return false;
    return i == a.size() || upperTail(a) == upperTail(b);
}

std::uint64_t hashNoCase(CStringView text, std::uint64_t key) noexcept {
    const Word multiplier = (key * 0xD6E8FEB86659FD93u + 0x9E3779B97F4A7C15u) | 1;
    Word hash = (text.size() + key) * 0x2545F4914F6CDD1Du;
    std::size_t i = 0;
    for (; i + wordUnits <= text.size(); i += wordUnits)
        hash = mix(hash, upperWord(text.data() + i), multiplier);
    return i == text.size() ? hash : mix(hash, upperTail(text), multiplier);
}

} // namespace ryv
