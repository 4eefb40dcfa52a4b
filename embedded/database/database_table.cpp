#include "embedded/database/database_table.h"

#include "base/fold.h"

#include <algorithm>
#include <random>

namespace drafta {

DatabaseTable::DatabaseTable(ryv::CStringArray columns)
    : columns_(std::move(columns)), hashKey_(std::uint64_t{std::random_device()()} << 32 | columns_.size()) {}

std::size_t DatabaseTable::Hash::operator()(ryv::CStringView text) const noexcept {
    return ryv::hashNoCase(text, key);
}

bool DatabaseTable::Equal::operator()(ryv::CStringView a, ryv::CStringView b) const noexcept {
    return ryv::equalNoCase(a, b);
}

std::optional<std::size_t> DatabaseTable::column(ryv::CStringView name) const {
    const auto hit = std::find_if(columns_.begin(), columns_.end(),
        [name](const ryv::CString& each) { return ryv::equalNoCase(each, name); });
    if (hit == columns_.end())
        return std::nullopt;
    return static_cast<std::size_t>(hit - columns_.begin());
}

DatabaseTable::Index& DatabaseTable::indexOf(std::size_t keyColumn) {
    const auto [place, isNew] = indexes_.try_emplace(keyColumn, 0, Hash{hashKey_});
    Index& index = place->second;
    if (!isNew)
        return index;
    index.reserve(rowCount());
    for (std::size_t row = 0; row < rowCount(); ++row)
        if (const ryv::CString& key = cells_[row * columnCount() + keyColumn]; !key.empty())
            index.emplace(key, row);
    return index;
}

const ryv::CString* DatabaseTable::find(std::size_t keyColumn, ryv::CStringView key, std::size_t column) {
    const Index& index = indexOf(keyColumn);
    const auto hit = index.find(key);
    return hit == index.end() ? nullptr : &cells_[hit->second * columnCount() + column];
}

} // namespace drafta
