#include "embedded/lisp/entry.h"

#include <pthread.h>

namespace drafta::lisp {

namespace {

// For native functions, and for what runs between two looks at the stack.
constexpr std::size_t reserve = std::size_t{768} << 10;
constexpr std::size_t usualStack = std::size_t{2} << 20;

/// The lowest address that LISP code may bring the thread's stack to.
std::uintptr_t lowestAddress() {
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return here - usualStack;
    void* lowest = nullptr;
    std::size_t size = 0;
    const int status = pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    const auto low = reinterpret_cast<std::uintptr_t>(lowest);
    if (status != 0 || here < low || here - low > size)
        return here - usualStack;
    return low + std::min(reserve, (here - low) / 2);
}

} // namespace

Entry::Entry(Machine& machine) : machine_(&machine) {
    if (machine.entries_++ > 0)
        return;
    machine.steps_ = 0;
    machine.heap_.makeHeadroom();
    const pthread_t thread = pthread_self();
    if (machine.stackLimit_ == 0 || !pthread_equal(thread, machine.thread_))
        machine.stackLimit_ = lowestAddress();
    machine.thread_ = thread;
}

Entry::~Entry() {
    --machine_->entries_;
}

} // namespace drafta::lisp
