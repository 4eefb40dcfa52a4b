// The heap: pairs in blocks with a bitmap, all other objects one by one; collection by marking and sweeping.
//
// Nothing is collected by an allocation. When enough was allocated, the heap raises a flag, and the machine
// collects at its next safe point. So code between two safe points may hold values as it likes.
#pragma once

#include "embedded/lisp/object.h"

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

namespace drafta::lisp {

/// A run of 16-byte cells, aligned to its size, with a bit for each cell that was alive at the last marking.
struct ConsBlock {
    static constexpr std::size_t size = std::size_t{256} << 10;
    static constexpr std::size_t cellCount = size / sizeof(Cons);
    static constexpr std::size_t wordCount = cellCount / 64;
    static constexpr std::size_t firstCell = wordCount * sizeof(std::uint64_t) / sizeof(Cons);

    std::uint64_t marks[wordCount];
    Cons cells[cellCount - firstCell];

    static ConsBlock* of(const Cons* cell) noexcept {
        return reinterpret_cast<ConsBlock*>(reinterpret_cast<std::uintptr_t>(cell) & ~(size - 1));
    }
    /// Number of the cell within the block; bit numbers begin with the first cell behind the bitmap, so the
    /// bits before firstCell are never used.
    static std::size_t index(const Cons* cell) noexcept {
        return (reinterpret_cast<std::uintptr_t>(cell) & (size - 1)) / sizeof(Cons);
    }
    Cons* at(std::size_t index) noexcept { return cells + (index - firstCell); }
    bool isMarked(std::size_t index) const noexcept { return (marks[index / 64] >> (index % 64) & 1) != 0; }
};
static_assert(sizeof(ConsBlock) == ConsBlock::size);

/// Marks what can be reached. Deep structures cost memory of its own stack, not of the thread's.
class Marker {
public:
    void mark(Value value) {
        if (isUnmarked(value))
            pending_.push_back(value);
    }
    void mark(Object* object) {
        if (object)
            mark(Value::of(object));
    }
    /// Follows everything handed to mark() so far.
    void run();
    /// Pairs marked so far.
    std::size_t cellCount() const noexcept { return cellCount_; }

private:
    static bool isUnmarked(Value value) noexcept;
    void visitList(Value list);
    void visitObject(Object& object);
    void visitFunction(Function& function);

    std::vector<Value> pending_;
    std::size_t cellCount_ = 0;
};

class Heap {
public:
    /// `attention` is raised when it is time to collect.
    Heap(std::size_t limit, std::atomic<bool>& attention) noexcept;
    Heap(const Heap&) = delete;
    Heap& operator=(const Heap&) = delete;
    ~Heap();

    /// Throws LispError when the limit is reached, as all operations do that allocate.
    Value cons(Value car, Value cdr) {
        if (next_ == end_)
            nextRun();
        *next_ = {car, cdr};
        return Value::of(next_++);
    }

    /// Makes an object that the heap owns. `extra` is what it holds besides itself, in bytes.
    template <class T, class... Args>
    T* make(std::size_t extra, Args&&... args) {
        account(sizeof(T) + extra);
        auto object = std::make_unique<T>(std::forward<Args>(args)...);
        objects_.push_back(object.get());
        return object.release();
    }

    /// Where memory is full of what is in use, lets a little more be used all the same, so that code can run
    /// that frees some. For the start of an evaluation.
    void makeHeadroom() noexcept;

    /// Bytes left up to the limit.
    std::size_t room() const noexcept { return limit_ - (inUse_ < limit_ ? inUse_ : limit_); }
    /// Throws when `bytes` more would go beyond the limit.
    void requireRoom(std::size_t bytes) const;
    /// Counts bytes that an object took on after it was made.
    void account(std::size_t bytes);

    bool wantsCollection() const noexcept { return inUse_ >= collectAt_; }
    std::size_t inUse() const noexcept { return inUse_; }

    /// Before marking.
    void clearMarks() noexcept;
    /// Destroys what `marker`, which has to be through, has not marked.
    void sweep(const Marker& marker);

    static std::size_t bytesOf(const Object& object) noexcept;

private:
    void nextRun();
    bool findRun();
    void addBlock();
    void sweepObjects();
    void dropEmptyBlocks();
    static void destroy(Object* object) noexcept;

    std::size_t usualLimit_;
    std::size_t limit_; // at present
    std::atomic<bool>* attention_;
    std::size_t inUse_ = 0;
    std::size_t collectAt_ = 0;
    Cons* next_ = nullptr; // cells free for the taking, up to end_
    Cons* end_ = nullptr;
    std::vector<ConsBlock*> blocks_;
    std::size_t block_ = 0; // where the search for free cells goes on
    std::size_t cell_ = ConsBlock::firstCell;
    std::vector<Object*> objects_;
};

} // namespace drafta::lisp
