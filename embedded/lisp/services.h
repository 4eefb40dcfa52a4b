// What the LISP interpreter needs of its host.
#pragma once

#include "platform/os/files.h"
#include "platform/os/system_paths.h"

#include <optional>

namespace drafta::lisp {

/// Implemented by the host; everything is called from the interpreter's own thread, and none of it may throw.
class Services {
public:
    virtual ~Services() = default;

    /// Prints on the command line as it stands; "\n" begins a new line.
    virtual void print(ryv::CStringView text) = 0;

    /// Called in the middle of long work, when Interpreter::requestBreath() asked for it: to show that
    /// something is at work, say. Runs no LISP.
    virtual void breathe() {}

    /// The files that (open) and (load) work on, and what makes relative paths absolute.
    virtual ryv::Files& files() = 0;
    virtual ryv::SystemPaths& paths() = 0;

    /// Looks for a file as given when the name has a folder, otherwise along the search path. The full path,
    /// or empty when there is none.
    virtual ryv::CString findFile(ryv::CStringView name) = 0;

    /// The value of an environment variable, or nothing; (setenv) changes or makes one, for as long as the
    /// host likes to remember it.
    virtual std::optional<ryv::CString> getEnvironment(ryv::CStringView name) = 0;
    virtual void setEnvironment(ryv::CStringView name, ryv::CStringView value) = 0;
};

/// A host without files and environment, where nobody reads what is printed.
class NullServices : public Services {
public:
    void print(ryv::CStringView) override {}
    ryv::Files& files() override { return files_; }
    ryv::SystemPaths& paths() override { return paths_; }
    ryv::CString findFile(ryv::CStringView) override { return {}; }
    std::optional<ryv::CString> getEnvironment(ryv::CStringView) override { return {}; }
    void setEnvironment(ryv::CStringView, ryv::CStringView) override {}

private:
    ryv::NullFiles files_;
    ryv::NullSystemPaths paths_;
};

} // namespace drafta::lisp
