#include "embedded/drawings/dxf_record.h"

#include <charconv>
#include <cmath>

namespace drafta {

DxfRecord::DxfRecord(std::string_view bytes, std::size_t begin) {
    constexpr std::size_t usualPairs = 16;
    pairs_.reserve(usualPairs);
    DxfPairReader reader(bytes, begin);
    bool own = true;
    for (DxfPair pair; reader.next(pair) == DxfPairReader::Step::pair;) {
        if (pair.code == 0 && !pairs_.empty())
            break;
        own = own && pair.code != dxf::embedded && pair.code < dxf::applicationData;
        pairs_.push_back(pair);
        ownCount_ += own ? 1 : 0;
    }
}

const DxfPair* DxfRecord::find(int code) const noexcept {
    bool inGroup = false;
    for (std::size_t i = 1; i < ownCount_; ++i) {
        const DxfPair& pair = pairs_[i];
        if (pair.code == dxf::group)
            inGroup = pair.value.starts_with('{');
        else if (pair.code == code && !inGroup)
            return &pair;
    }
    return nullptr;
}

std::string_view DxfRecord::text(int code) const noexcept {
    const DxfPair* const pair = find(code);
    return pair ? pair->value : std::string_view();
}

std::optional<double> DxfRecord::real(int code) const noexcept {
    const DxfPair* const pair = find(code);
    return pair ? parseReal(pair->value) : std::nullopt;
}

int DxfRecord::integer(int code, int otherwise) const noexcept {
    const DxfPair* const pair = find(code);
    return pair ? parseInteger(pair->value).value_or(otherwise) : otherwise;
}

std::size_t DxfRecord::embeddedBegin() const noexcept {
    return ownCount_ < pairs_.size() && pairs_[ownCount_].code == dxf::embedded ? ownCount_ : pairs_.size();
}

std::size_t DxfRecord::embeddedEnd() const noexcept {
    std::size_t at = embeddedBegin();
    while (at < pairs_.size() && pairs_[at].code < dxf::applicationData)
        ++at;
    return at;
}

namespace {

template <class Number, class... Base>
std::optional<Number> parseNumber(std::string_view text, Base... base) noexcept {
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base...);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

} // namespace

std::optional<double> parseReal(std::string_view text) noexcept {
    const std::optional<double> number = parseNumber<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<int> parseInteger(std::string_view text) noexcept {
    return parseNumber<int>(text);
}

std::optional<std::uint64_t> parseHandle(std::string_view text) noexcept {
    return parseNumber<std::uint64_t>(text, 16);
}

bool isReferenceCode(int code) noexcept {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481 ||
           code == 1005;
}

} // namespace drafta
