#include "tests/support/process.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ryv::test {

namespace {

constexpr uid_t nobody = 65534;
constexpr int couldNotStart = 126;

/// A file in memory: whoever writes into it never waits for a reader.
class MemoryFile {
public:
    MemoryFile() : descriptor_(::memfd_create("captured", MFD_CLOEXEC)) {
        if (descriptor_ < 0)
            throw std::runtime_error("no file in memory");
    }
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int descriptor() const { return descriptor_; }

    void fill(const std::string& content) const {
        if (::write(descriptor_, content.data(), content.size()) != static_cast<ssize_t>(content.size()) ||
            ::lseek(descriptor_, 0, SEEK_SET) != 0)
            throw std::runtime_error("cannot fill a file in memory");
    }

    std::string content() const {
        std::string text;
        std::array<char, 65536> block{};
        ssize_t count = 0;
        while (
            (count = ::pread(descriptor_, block.data(), block.size(), static_cast<off_t>(text.size()))) > 0)
            text.append(block.data(), static_cast<std::size_t>(count));
        return text;
    }

private:
    int descriptor_;
};

void setEnvironment(const std::map<std::string, std::string>& environment) {
    for (const auto& [name, value] : environment) {
        if (value.empty())
            ::unsetenv(name.c_str());
        else
            ::setenv(name.c_str(), value.c_str(), 1);
    }
}

/// Never comes back. A path is opened before `inChild` has its way.
[[noreturn]] void becomeProgram(const std::vector<std::string>& words, const ProcessSetUp& setUp) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const bool isPath = words.front().find('/') != std::string::npos;
    const int program = isPath ? ::open(words.front().c_str(), O_RDONLY | O_CLOEXEC) : -1;
    setEnvironment(setUp.environment);
    ::alarm(setUp.seconds);
    if (!setUp.folder.empty() && ::chdir(setUp.folder.c_str()) != 0)
        ::_exit(couldNotStart);
    if (setUp.inChild && !setUp.inChild())
        ::_exit(couldNotStart);
    if (isPath)
        ::fexecve(program, arguments.data(), environ);
    else
        ::execvp(arguments.front(), arguments.data());
    ::_exit(couldNotStart);
}

} // namespace

ProcessResult runProcess(const std::vector<std::string>& words, const ProcessSetUp& setUp) {
    const MemoryFile input;
    const MemoryFile out;
    const MemoryFile error;
    input.fill(setUp.input);
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no child process");
    if (child == 0) {
        ::dup2(input.descriptor(), STDIN_FILENO);
        ::dup2(out.descriptor(), STDOUT_FILENO);
        ::dup2(error.descriptor(), STDERR_FILENO);
        becomeProgram(words, setUp);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    ProcessResult result;
    if (WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    else
        result.signal = WTERMSIG(status);
    result.out = out.content();
    result.error = error.content();
    return result;
}

bool hasProgram(const std::string& name) {
    ProcessSetUp setUp;
    return runProcess({"sh", "-c", "command -v -- \"$0\"", name}, setUp).exitCode == 0;
}

bool becomeNobody() {
    if (::geteuid() != 0)
        return true;
    return ::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
}

} // namespace ryv::test
