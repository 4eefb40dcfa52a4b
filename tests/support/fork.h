// Child processes that run a piece of the test itself, and pipes between them and the test.
#pragma once

#include <array>
#include <csignal>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace ryv::test {

/// A pipe whose ends close with the object.
class Pipe {
public:
    Pipe() {
        if (::pipe(ends_.data()) != 0)
            throw std::runtime_error("no pipe");
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }
    /// Blocks until the other side wrote a byte (true) or is gone (false).
    bool wait() {
        char byte = 0;
        return ::read(ends_[0], &byte, 1) == 1;
    }
    void notify() { static_cast<void>(::write(ends_[1], "x", 1) == 1); }
    void closeEnd(std::size_t end) {
        if (ends_[end] != -1)
            ::close(ends_[end]);
        ends_[end] = -1;
    }
    int readEnd() const { return ends_[0]; }
    int writeEnd() const { return ends_[1]; }

private:
    std::array<int, 2> ends_{};
};

/// Runs `body` in a child process, whose exit code is what it returns.
template <class Body>
pid_t startChild(Body body) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body());
    return child;
}

/// Waits for the end of a child; -1 when a signal ended it.
inline int exitCode(pid_t child) {
    int ended = 0;
    ::waitpid(child, &ended, 0);
    return WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
}

/// A child that does `prepare` (true when that went well) and then stays, until it is killed.
class StayingChild {
public:
    template <class Prepare>
    explicit StayingChild(Prepare prepare) {
        Pipe ready;
        child_ = startChild([&] {
            if (!prepare())
                return 1;
            ready.notify();
            for (;;)
                ::pause();
        });
        ready.closeEnd(1);
        stays_ = ready.wait();
    }
    StayingChild(const StayingChild&) = delete;
    StayingChild& operator=(const StayingChild&) = delete;
    ~StayingChild() { kill(); }

    /// Whether the preparation went well.
    bool stays() const noexcept { return stays_; }
    void kill() {
        if (child_ == -1)
            return;
        ::kill(child_, SIGKILL);
        exitCode(child_);
        child_ = -1;
    }

private:
    pid_t child_ = -1;
    bool stays_ = false;
};

} // namespace ryv::test
