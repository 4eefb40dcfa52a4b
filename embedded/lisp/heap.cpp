#include "embedded/lisp/heap.h"

#include "embedded/lisp/lisp_file.h"

#include <algorithm>
#include <bit>
#include <new>

namespace drafta::lisp {

namespace {

// Cells taken at a time. They count as used at once, so there must be many runs between two collections.
constexpr std::size_t longestRun = 512;
constexpr std::size_t leastCollection = std::size_t{16} << 20; // bytes between two collections

std::size_t nextCollection(std::size_t alive, std::size_t limit) {
    const std::size_t free = limit - std::min(limit, alive);
    // Near the limit a collection must not follow every few cells.
    const std::size_t most = std::max({free / 2, limit / 32, 16 * longestRun * sizeof(Cons)});
    return alive + std::min(std::max(alive, leastCollection), most);
}

/// Where the run of set (or clear) bits that begins at `index` ends, at most at the block's end.
std::size_t runEnd(const ConsBlock& block, std::size_t index, bool marked) {
    while (index < ConsBlock::cellCount) {
        const std::uint64_t word = block.marks[index / 64] >> (index % 64);
        const auto count = static_cast<std::size_t>(marked ? std::countr_one(word) : std::countr_zero(word));
        const std::size_t left = 64 - index % 64;
        if (count < left)
            return index + count;
        index += left;
    }
    return ConsBlock::cellCount;
}

} // namespace

Heap::Heap(std::size_t limit, std::atomic<bool>& attention) noexcept
    : usualLimit_(limit), limit_(limit), attention_(&attention), collectAt_(nextCollection(0, limit)) {}

Heap::~Heap() {
    for (Object* const object : objects_)
        destroy(object);
    for (ConsBlock* const block : blocks_)
        ::operator delete (block, std::align_val_t{ConsBlock::size});
}

void Heap::makeHeadroom() noexcept {
    const std::size_t most = usualLimit_ + usualLimit_ / 4;
    limit_ = std::clamp(inUse_ + usualLimit_ / 8, usualLimit_, most);
}

void Heap::requireRoom(std::size_t bytes) const {
    if (bytes > limit_ || inUse_ > limit_ - bytes)
        throw LispError(u"memory is used up", ErrorKind::memory);
}

void Heap::account(std::size_t bytes) {
    inUse_ += bytes;
    if (wantsCollection())
        attention_->store(true);
    if (inUse_ > limit_) {
        inUse_ -= bytes;
        throw LispError(u"memory is used up", ErrorKind::memory);
    }
}

/// Cells that were not marked are free; those handed out since lie before the place where the search goes on.
bool Heap::findRun() {
    for (; block_ < blocks_.size(); ++block_, cell_ = ConsBlock::firstCell) {
        ConsBlock& block = *blocks_[block_];
        const std::size_t start = runEnd(block, cell_, true);
        if (start == ConsBlock::cellCount)
            continue;
        cell_ = std::min(runEnd(block, start, false), start + longestRun);
        next_ = block.at(start);
        end_ = next_ + (cell_ - start);
        return true;
    }
    return false;
}

void Heap::addBlock() {
    blocks_.reserve(blocks_.size() + 1);
    auto* const block =
        static_cast<ConsBlock*>(::operator new (sizeof(ConsBlock), std::align_val_t{ConsBlock::size}));
    std::fill(std::begin(block->marks), std::end(block->marks), 0);
    blocks_.push_back(block);
}

void Heap::nextRun() {
    if (block_ == blocks_.size()) {
        requireRoom(ConsBlock::size);
        addBlock();
    }
    if (!findRun()) {
        requireRoom(ConsBlock::size);
        addBlock();
        findRun();
    }
    const std::size_t bytes = static_cast<std::size_t>(end_ - next_) * sizeof(Cons);
    try {
        account(bytes);
    } catch (const LispError&) {
        end_ = next_;
        throw;
    }
}

void Heap::clearMarks() noexcept {
    for (ConsBlock* const block : blocks_)
        std::fill(std::begin(block->marks), std::end(block->marks), 0);
}

void Heap::sweep(const Marker& marker) {
    sweepObjects();
    dropEmptyBlocks();
    next_ = end_ = nullptr;
    block_ = 0;
    cell_ = ConsBlock::firstCell;
    inUse_ = marker.cellCount() * sizeof(Cons);
    for (const Object* const object : objects_)
        inUse_ += bytesOf(*object);
    collectAt_ = nextCollection(inUse_, usualLimit_);
}

void Heap::sweepObjects() {
    std::erase_if(objects_, [](Object* object) {
        const bool dead = !object->marked;
        object->marked = false;
        if (dead)
            destroy(object);
        return dead;
    });
}

/// A quarter of the blocks may stay empty, so that a program that needs them again does not pay for them
/// anew.
void Heap::dropEmptyBlocks() {
    const auto isEmpty = [](const ConsBlock* block) {
        return std::all_of(
            std::begin(block->marks), std::end(block->marks), [](auto word) { return word == 0; });
    };
    std::size_t spare = 64 + blocks_.size() / 4;
    std::erase_if(blocks_, [&](ConsBlock* block) {
        if (!isEmpty(block))
            return false;
        if (spare > 0) {
            --spare;
            return false;
        }
        ::operator delete (block, std::align_val_t{ConsBlock::size});
        return true;
    });
}

std::size_t Heap::bytesOf(const Object& object) noexcept {
    constexpr std::size_t nodeBytes = 96; // on the average
    switch (object.kind) {
    case Kind::symbol:
        return sizeof(Symbol) + static_cast<const Symbol&>(object).name.capacity() * sizeof(char16_t);
    case Kind::string:
        return sizeof(Text) + static_cast<const Text&>(object).text.capacity() * sizeof(char16_t);
    case Kind::function:
        if (const auto& function = static_cast<const Function&>(object);
            function.type == FunctionType::lambda)
            return sizeof(Lambda) + static_cast<const Lambda&>(function).code.nodes.size() * nodeBytes +
                   static_cast<const Lambda&>(function).code.constants.size() * sizeof(Value);
        return sizeof(Builtin);
    default:
        return sizeof(File);
    }
}

void Heap::destroy(Object* object) noexcept {
    switch (object->kind) {
    case Kind::symbol:
        delete static_cast<Symbol*>(object);
        return;
    case Kind::string:
        delete static_cast<Text*>(object);
        return;
    case Kind::file:
        delete static_cast<File*>(object);
        return;
    case Kind::opaque:
        delete static_cast<Opaque*>(object);
        return;
    case Kind::failure:
        delete static_cast<Failure*>(object);
        return;
    default:
        break;
    }
    switch (static_cast<Function*>(object)->type) {
    case FunctionType::special:
        delete static_cast<Special*>(object);
        return;
    case FunctionType::builtin:
        delete static_cast<Builtin*>(object);
        return;
    case FunctionType::lambda:
        delete static_cast<Lambda*>(object);
        return;
    }
}

} // namespace drafta::lisp
