#include "toolkit/tree_replace.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace ryv {

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

/// From so many moves on, one notice that everything is different costs views less.
constexpr std::size_t manyMoves = 64;

/// The old rows of each key, first to last.
struct OldRows {
    std::vector<TreeItem*> items;
    std::vector<std::size_t> nextOfKey;
    std::unordered_map<CString, std::size_t> firstOfKey;
};

OldRows collectOld(TreeItem* first, const TreeKey& key) {
    OldRows old;
    for (TreeItem* item = first; item; item = item->next())
        old.items.push_back(item);
    old.nextOfKey.assign(old.items.size(), none);
    old.firstOfKey.reserve(old.items.size());
    for (std::size_t i = old.items.size(); i-- > 0;) {
        const auto [at, fresh] =
            old.firstOfKey.try_emplace(key(old.items[i]->label(), old.items[i]->data()), i);
        if (!fresh)
            old.nextOfKey[i] = std::exchange(at->second, i);
    }
    return old;
}

/// For each new row the number of its old one, or none.
std::vector<std::size_t> pairUp(OldRows& old, const std::vector<TreeRow>& contents, const TreeKey& key) {
    std::vector<std::size_t> pairs;
    pairs.reserve(contents.size());
    for (const TreeRow& content : contents) {
        const auto at = old.firstOfKey.find(key(content.label, content.data.get()));
        const bool found = at != old.firstOfKey.end() && at->second != none;
        pairs.push_back(found ? std::exchange(at->second, old.nextOfKey[at->second]) : none);
    }
    return pairs;
}

/// Marks a longest rising sequence: what is in it can stay where it is while the others move around it.
std::vector<bool> longestRising(const std::vector<std::size_t>& numbers) {
    std::vector<std::size_t> tails; // place of the smallest number that ends a sequence of each length
    std::vector<std::size_t> before(numbers.size(), none);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] == none)
            continue;
        const auto length = std::lower_bound(tails.begin(), tails.end(), numbers[i],
            [&](std::size_t place, std::size_t number) { return numbers[place] < number; });
        before[i] = length == tails.begin() ? none : *(length - 1);
        if (length == tails.end())
            tails.push_back(i);
        else
            *length = i;
    }
    std::vector<bool> marked(numbers.size(), false);
    for (std::size_t i = tails.empty() ? none : tails.back(); i != none; i = before[i])
        marked[i] = true;
    return marked;
}

} // namespace

TreeMatch matchRows(TreeItem* firstChild, const std::vector<TreeRow>& contents, const TreeKey& key) {
    OldRows old = collectOld(firstChild, key);
    const std::vector<std::size_t> pairs = pairUp(old, contents, key);
    TreeMatch match;
    match.inPlace = longestRising(pairs);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        match.kept.push_back(pairs[i] == none ? nullptr : std::exchange(old.items[pairs[i]], nullptr));
        match.moving += match.kept[i] && !match.inPlace[i] ? 1u : 0u;
    }
    std::erase(old.items, nullptr);
    match.stale = std::move(old.items);
    return match;
}

void TreeControl::replaceChildren(TreeItem* parent, std::vector<TreeRow> contents, const TreeKey& key) {
    if (childCount(parent) == 0) { // keys are dear
        insertRows(parent, 0, std::move(contents));
        return settle();
    }
    const TreeMatch match = matchRows(rows_.under(parent).firstChild(), contents, key);
    if (match.moving > manyMoves) {
        endEdit();
        observers_.tellAround([](TreeObserver& o) { o.aboutToReset(); },
            [&] {
                moveKept(match, [](TreeItem& item, TreeItem& to, std::size_t row) {
                    TreeRows::unlink(item);
                    TreeRows::link(item, to, row);
                });
            },
            [](TreeObserver& o) { o.reset(); });
    } else if (match.moving > 0) {
        moveKept(match, [this](TreeItem& item, TreeItem& to, std::size_t row) { place(item, to, row); });
    }
    insertNew(parent, match, contents);
    takeOver(match, contents);
    removeStale(match);
    settle();
}

/// Each row that moves goes behind the one that it is to follow.
void TreeControl::moveKept(const TreeMatch& match, const Placing& placing) {
    TreeItem* behind = nullptr;
    for (std::size_t i = 0; i < match.kept.size(); ++i) {
        TreeItem* const item = match.kept[i];
        if (!item)
            continue;
        if (!match.inPlace[i]) {
            const std::size_t row = behind ? behind->row() + 1 : 0;
            placing(*item, *item->parent_, item->row() < row ? row - 1 : row);
        }
        behind = item;
    }
}

/// Runs of new rows, each behind the row that it is to follow.
void TreeControl::insertNew(TreeItem* parent, const TreeMatch& match, std::vector<TreeRow>& contents) {
    std::vector<TreeRow> run;
    TreeItem* behind = nullptr;
    const auto flush = [&] { insertRows(parent, behind ? behind->row() + 1 : 0, std::exchange(run, {})); };
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (!match.kept[i]) {
            run.push_back(std::move(contents[i]));
            continue;
        }
        if (!run.empty())
            flush();
        behind = match.kept[i];
    }
    flush();
}

void TreeControl::takeOver(const TreeMatch& match, std::vector<TreeRow>& contents) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < contents.size(); ++i)
        if (match.kept[i])
            places.push_back(i);
    std::erase_if(places, [&](std::size_t place) { return !takeOver(*match.kept[place], contents[place]); });
    // Rows that match go first, or the parent might be filtered out between two of them.
    std::stable_partition(
        places.begin(), places.end(), [&](std::size_t place) { return passes(*match.kept[place]); });
    for (const std::size_t place : places)
        relabelled(*match.kept[place]);
}

/// True when somebody has to hear of it.
bool TreeControl::takeOver(TreeItem& item, TreeRow& content) {
    if (content.data) {
        item.data_ = std::move(content.data);
        onDataAttached(item);
    }
    const bool looks =
        item.label_ != content.label || item.image_ != content.image || item.bold_ != content.bold;
    item.label_ = std::move(content.label);
    item.image_ = content.image;
    item.bold_ = content.bold;
    return looks || passes(item) != item.matches_;
}

/// Runs of rows that stand side by side.
void TreeControl::removeStale(const TreeMatch& match) {
    std::vector<TreeItem*> run;
    for (TreeItem* const item : match.stale) {
        if (!run.empty() && run.back()->next() != item) {
            removeRun(run);
            run.clear();
        }
        run.push_back(item);
    }
    if (!run.empty())
        removeRun(run);
}

} // namespace ryv
