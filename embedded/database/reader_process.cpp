#include "embedded/database/reader_process.h"

#include "embedded/loop/descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace drafta {

namespace {

using Time = std::chrono::steady_clock;

/// How the child's descriptors and signals are to be.
class SpawnSetUp {
public:
    SpawnSetUp(int input, int output) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        ::posix_spawnattr_init(&attributes_);
        sigset_t signals;
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        // In a group of its own, so that an interrupt at the terminal is the host's alone.
        ::posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    }
    SpawnSetUp(const SpawnSetUp&) = delete;
    SpawnSetUp& operator=(const SpawnSetUp&) = delete;
    ~SpawnSetUp() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    pid_t start(const std::string& program, const std::vector<std::string>& arguments) {
        std::vector<char*> words{const_cast<char*>(program.c_str())};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        std::array<char*, 1> environment{};
        pid_t child = -1;
        const int error =
            ::posix_spawn(&child, program.c_str(), &actions_, &attributes_, words.data(), environment.data());
        return error == 0 ? child : -1;
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// Waits until there is something to read; false when the time is over.
bool waitReadable(int descriptor, Time::time_point end) {
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Time::now());
        pollfd each{descriptor, POLLIN, 0};
        const int ready = left.count() > 0 ? ::poll(&each, 1, static_cast<int>(left.count())) : 0;
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

/// Reads to the end of the pipe, which the child may close before it ends.
ReaderEnd collect(int pipe, const ReaderLimits& limits, Time::time_point end, std::string& output) {
    std::array<char, 1 << 16> buffer;
    while (waitReadable(pipe, end)) {
        const ssize_t count = ::read(pipe, buffer.data(), buffer.size());
        if (count == 0)
            return ReaderEnd::complete;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return ReaderEnd::failed;
        if (output.size() + static_cast<std::size_t>(count) > limits.bytes)
            return ReaderEnd::tooMuch;
        output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return ReaderEnd::timedOut;
}

/// Whether the child ended well. It was killed if need be, so this takes no time.
bool endedWell(pid_t child) {
    int status = 0;
    pid_t ended = -1;
    do
        ended = ::waitpid(child, &status, 0);
    while (ended < 0 && errno == EINTR);
    return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

ReaderEnd runReader(const std::string& program, const std::vector<std::string>& arguments, int input,
    const ReaderLimits& limits, std::string& output) {
    const Time::time_point end = Time::now() + limits.time;
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return ReaderEnd::notStarted;
    const Descriptor readEnd(ends[0]);
    Descriptor writeEnd(ends[1]);
    const pid_t child = SpawnSetUp(input, writeEnd.get()).start(program, arguments);
    if (child < 0)
        return ReaderEnd::notStarted;
    writeEnd.reset();
    const ReaderEnd result = collect(readEnd.get(), limits, end, output);
    // Also when its output has ended: that changes nothing for one that is ending, and one that was led
    // astray might go on for ever.
    ::kill(child, SIGKILL);
    const bool good = endedWell(child);
    return result == ReaderEnd::complete && !good ? ReaderEnd::failed : result;
}

} // namespace drafta
