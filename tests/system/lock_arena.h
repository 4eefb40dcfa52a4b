// What the test of locks and its workers share: a piece of memory, mapped from a file.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <fcntl.h>
#include <new>
#include <sched.h>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace ryv::test {

constexpr std::size_t mostWorkers = 16384; // over the whole of a test, those that were killed included

struct LockArena {
    /// The race: the step that is on (odd: take the lock, even: give it back), and for each of the two racers
    /// the step that it has done and whether it won.
    std::atomic<std::uint32_t> step{0};
    std::array<std::atomic<std::uint32_t>, 2> done{};
    std::array<std::atomic<std::uint32_t>, 2> won{};

    /// Which worker holds the lock, 0 for none. One that is killed leaves its number behind.
    std::atomic<std::uint32_t> holder{0};
    std::array<std::atomic<std::uint32_t>, mostWorkers> killed{};

    /// Updates that each worker knows to be written, and all of them together.
    std::array<std::atomic<std::uint32_t>, mostWorkers> written{};
    std::atomic<std::uint32_t> total{0};
    std::atomic<std::uint32_t> stop{0};

    /// What must not be.
    std::atomic<std::uint32_t> twoHolders{0};
    std::atomic<std::uint32_t> tornReads{0};
    std::atomic<std::uint32_t> refusedWrites{0}; // for the guard's sake, when everybody has the same identity
};

/// Maps the arena; the file is made when it is not there yet. It stays mapped to the end of the process.
inline LockArena& mapArena(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file == -1 || ::ftruncate(file, sizeof(LockArena)) != 0)
        throw std::runtime_error("no arena");
    void* const memory = ::mmap(nullptr, sizeof(LockArena), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    if (memory == MAP_FAILED)
        throw std::runtime_error("no arena");
    return *std::launder(static_cast<LockArena*>(memory)); // a file of zeros is an arena at its beginning
}

/// Waits for as short as can be; the racers are to start together.
template <class Condition>
void spinUntil(Condition condition) {
    while (!condition())
        ::sched_yield();
}

} // namespace ryv::test
