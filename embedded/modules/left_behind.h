// What a module has registered on a port and not taken back yet.
#pragma once

#include <set>
#include <utility>

namespace drafta {

/// `Item` is what the port knows it by: the address of an observer, the number of a window, a path.
template <class Item>
class LeftBehind {
public:
    void add(const Item& item) { items_.insert(item); }
    void remove(const Item& item) { items_.erase(item); }
    bool contains(const Item& item) const { return items_.contains(item); }

    /// Hands over all items, which are forgotten before, as taking one off may run code of the module.
    template <class TakeOff>
    void drop(const TakeOff& takeOff) {
        for (const Item& item : std::exchange(items_, {}))
            takeOff(item);
    }

private:
    std::set<Item> items_;
};

} // namespace drafta
