// One record: a pair with the code 0 and all pairs up to the next one.
#pragma once

#include "embedded/drawings/dxf_pairs.h"

#include <optional>
#include <vector>

namespace drafta {

class DxfRecord {
public:
    DxfRecord() = default;

    /// The record whose 0 pair begins at `begin`, in bytes that have been scanned without a fault. The pairs
    /// refer to the bytes, and are valid until these are changed.
    DxfRecord(std::string_view bytes, std::size_t begin);

    std::string_view kind() const noexcept {
        return pairs_.empty() ? std::string_view() : trimmed(pairs_[0].value);
    }
    const std::vector<DxfPair>& pairs() const noexcept { return pairs_; }
    std::size_t begin() const noexcept { return pairs_.empty() ? 0 : pairs_.front().begin; }
    std::size_t end() const noexcept { return pairs_.empty() ? 0 : pairs_.back().end; }

    /// How many pairs are the record's own: those behind belong to an embedded object or to another
    /// application.
    std::size_t ownCount() const noexcept { return ownCount_; }

    /// The first of its own pairs with a code, those between the braces of a group (102) left out; null when
    /// there is none.
    const DxfPair* find(int code) const noexcept;
    std::string_view text(int code) const noexcept;

    /// A number of its own; nothing when it has none, or one that is no finite number.
    std::optional<double> real(int code) const noexcept;
    int integer(int code, int otherwise) const noexcept;

    /// Where the pairs of an embedded object lie: from its mark (101) on to the application data or the end.
    /// Both are pairs().size() when there is no such object.
    std::size_t embeddedBegin() const noexcept;
    std::size_t embeddedEnd() const noexcept;

private:
    std::vector<DxfPair> pairs_;
    std::size_t ownCount_ = 0;
};

/// The group codes that mean the same in every record.
namespace dxf {
inline constexpr int handle = 5;
inline constexpr int tableHandle = 105; ///< in place of 5 in some tables
inline constexpr int layer = 8;
inline constexpr int lineType = 6;
inline constexpr int textStyle = 7;
inline constexpr int owner = 330;
inline constexpr int subclass = 100;
inline constexpr int embedded = 101;
inline constexpr int group = 102;
inline constexpr int onPaper = 67;
inline constexpr int layout = 410;
inline constexpr int comment = 999;
inline constexpr int applicationData = 1001;
} // namespace dxf

/// Numbers as the format writes them: nothing when the text is no finite number (no number that fits).
std::optional<double> parseReal(std::string_view text) noexcept;
std::optional<int> parseInteger(std::string_view text) noexcept;
std::optional<std::uint64_t> parseHandle(std::string_view text) noexcept;

/// True for the codes whose values are handles of other records.
bool isReferenceCode(int code) noexcept;

} // namespace drafta
