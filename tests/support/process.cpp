#include "tests/support/process.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <memory>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace ryv::test {
namespace {

constexpr uid_t nobody = 65534;
constexpr int couldNotStart = 126;

/// A file without a name: whoever writes into it never waits for a reader.
using File = std::unique_ptr<std::FILE, decltype([](std::FILE* file) { std::fclose(file); })>;

File makeFile(const std::string& content = {}) {
    File file(std::tmpfile());
    if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size())
        throw std::runtime_error("no temporary file");
    std::rewind(file.get());
    return file;
}

std::string contentOf(const File& file) {
    std::string text(static_cast<std::size_t>(::lseek(::fileno(file.get()), 0, SEEK_END)), '\0');
    std::rewind(file.get());
    text.resize(std::fread(text.data(), 1, text.size(), file.get()));
    return text;
}

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
    const File input = makeFile(setUp.input);
    const File out = makeFile();
    const File error = makeFile();
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no child process");
    if (child == 0) {
        ::dup2(::fileno(input.get()), STDIN_FILENO);
        ::dup2(::fileno(out.get()), STDOUT_FILENO);
        ::dup2(::fileno(error.get()), STDERR_FILENO);
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
    result.out = contentOf(out);
    result.error = contentOf(error);
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
