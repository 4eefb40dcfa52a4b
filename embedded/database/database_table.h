// One table of a database in memory, as it was at one moment.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace drafta {

/// Names of columns and keys are compared without regard to case.
class DatabaseTable {
public:
    explicit DatabaseTable(ryv::CStringArray columns = {});
    DatabaseTable(DatabaseTable&&) = default;
    DatabaseTable& operator=(DatabaseTable&&) = default;

    std::size_t columnCount() const noexcept { return columns_.size(); }
    std::size_t rowCount() const noexcept { return columns_.empty() ? 0 : cells_.size() / columns_.size(); }

    /// Adds the next field of the last row, row by row and in the order of the columns.
    void addField(ryv::CString field) { cells_.push_back(std::move(field)); }

    /// The number of a column, if there is one of the name.
    std::optional<std::size_t> column(ryv::CStringView name) const;

    /// A field of the first row that holds the key in a column; null when there is none. Rows without a key
    /// are never found. The first question for a key column makes its index.
    const ryv::CString* find(std::size_t keyColumn, ryv::CStringView key, std::size_t column);

private:
    struct Hash {
        std::uint64_t key;
        std::size_t operator()(ryv::CStringView text) const noexcept;
    };
    struct Equal {
        bool operator()(ryv::CStringView a, ryv::CStringView b) const noexcept;
    };
    using Index = std::unordered_map<ryv::CStringView, std::size_t, Hash, Equal>; // views of cells_

    Index& indexOf(std::size_t keyColumn);

    ryv::CStringArray columns_;
    std::vector<ryv::CString> cells_;
    std::map<std::size_t, Index> indexes_; // by key column
    std::uint64_t hashKey_;                // nobody can make up keys that collide
};

} // namespace drafta
