// An open-addressing table from 64-bit hashes to records that the caller compares itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ryv {

/// Slots are 16 bytes and lie in one block, so that a look-up costs one probe and one comparison. The records
/// hold their own keys; the table never owns them. The lowest bit of a hash is not used: it marks a record
/// whose key occurs again in the tree, behind the first.
template <class T>
class HashTable {
public:
    struct Slot {
        std::uint64_t hash = 0;
        T* item = nullptr;

        bool hasDuplicate() const noexcept { return (hash & 1) != 0; }
        void markDuplicate() noexcept { hash |= 1; }
    };

    /// Room for `expected` records without growing.
    explicit HashTable(std::size_t expected = 0) { resize(expected); }

    /// The slot of the record with that hash for which `matches(record)` holds, or null.
    template <class Matches>
    Slot* find(std::uint64_t hash, const Matches& matches) {
        for (std::size_t at = home(hash); slots_[at].item; at = next(at))
            if (((slots_[at].hash ^ hash) >> 1) == 0 && matches(*slots_[at].item))
                return &slots_[at];
        return nullptr;
    }

    /// Adds a record whose key is not in the table.
    void insert(std::uint64_t hash, T& item) {
        if ((count_ + 1) * 2 > slots_.size())
            resize(count_ * 2 + 8);
        place({hash & ~std::uint64_t{1}, &item});
        ++count_;
    }

    /// Removes a record; the slots behind it move up, so that no marks are left.
    void erase(Slot* slot) {
        auto hole = static_cast<std::size_t>(slot - slots_.data());
        for (std::size_t at = next(hole); slots_[at].item; at = next(at)) {
            const std::size_t wanted = home(slots_[at].hash);
            if (((at - wanted) & mask()) < ((at - hole) & mask()))
                continue;
            slots_[hole] = slots_[at];
            hole = at;
        }
        slots_[hole] = {};
        --count_;
    }

    std::size_t size() const noexcept { return count_; }

private:
    std::size_t mask() const noexcept { return slots_.size() - 1; }
    std::size_t home(std::uint64_t hash) const noexcept {
        return static_cast<std::size_t>(hash >> 1) & mask();
    }
    std::size_t next(std::size_t at) const noexcept { return (at + 1) & mask(); }

    void place(Slot slot) {
        std::size_t at = home(slot.hash);
        while (slots_[at].item)
            at = next(at);
        slots_[at] = slot;
    }

    void resize(std::size_t expected) {
        std::size_t size = 16;
        while (size < expected * 2 + 2)
            size *= 2;
        std::vector<Slot> old(size);
        old.swap(slots_);
        for (const Slot& slot : old)
            if (slot.item)
                place(slot);
    }

    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

} // namespace ryv
