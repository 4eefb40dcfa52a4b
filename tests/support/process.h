// Running a program as a child process and looking at all that it leaves behind.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ryv::test {

struct ProcessResult {
    int exitCode = -1; ///< -1 when a signal ended the program
    int signal = 0;    ///< the signal that ended it, 0 for none
    std::string out;
    std::string error;
};

struct ProcessSetUp {
    std::string folder; ///< current folder of the program; empty: that of the test
    std::string input;  ///< what it finds on standard input
    std::map<std::string, std::string> environment; ///< variables set in addition; an empty text unsets one
    /// Runs in the child just before the program starts, with the standard descriptors in place: to change
    /// the user, the limits or the descriptors. Must not fail a test; false ends the child with code 126.
    std::function<bool()> inChild;
    unsigned seconds = 120; ///< the program is killed after this time
};

/// Starts the program and waits for its end. The first word is its path, or a name looked up in PATH; a path
/// works also when the user that `inChild` changes to may not enter its folder. Throws when no process can be
/// started.
ProcessResult runProcess(const std::vector<std::string>& words, const ProcessSetUp& setUp = {});

/// True when PATH has a program of that name.
bool hasProgram(const std::string& name);

/// For `inChild`: gives up the rights of the superuser, if there are any; true when there are none now.
bool becomeNobody();

} // namespace ryv::test
