// The file-monitoring service: tells what other processes, and this one, do to files on a watch list.
#pragma once

#include "platform/os/files.h"

namespace ryv {

/// What happened to a file; the numbers are the service's own. A receiver passes over any other number.
enum class FileChange : int {
    contentChanged = 0,
    created = 1,
    deleted = 2,
    madeReadOnly = 4,
    madeWritable = 5
};

/// Hears of the files on the watch list, by the path that each was added with. Called on the main thread,
/// from the message loop, never from within watch() or unwatch().
class FileMonitorReceiver {
public:
    virtual void fileChanged(CStringView path, FileChange change) = 0;

    /// A file on the list was renamed, or another file took the name of one.
    virtual void fileRenamed(CStringView oldPath, CStringView newPath) = 0;

protected:
    ~FileMonitorReceiver() = default;
};

/// The watch list may be changed whether monitoring runs or not; notices come only while it runs. Paths are
/// compared without regard to case.
class FileMonitor {
public:
    virtual ~FileMonitor() = default;

    /// Begins to tell `receiver`, which is not owned and stays until stop(). Fails with `busy` when
    /// monitoring runs already, and with `unsupported` when this machine has no such service.
    virtual FileStatus start(FileMonitorReceiver& receiver) = 0;

    /// Ends the notices, those under way included. Nothing happens when monitoring does not run.
    virtual void stop() = 0;

    virtual bool isRunning() = 0;

    /// Adds a file to the watch list; it need not exist, its folder must. Adding it twice counts once.
    /// Fails as opening the folder would, or with `noSpace` when the system's watches are used up and the
    /// service has no other way to follow the file.
    virtual FileStatus watch(CStringView path) = 0;

    /// Takes a file off the watch list; false when it was not on it.
    virtual bool unwatch(CStringView path) = 0;
};

/// Watches nothing.
class NullFileMonitor final : public FileMonitor {
public:
    FileStatus start(FileMonitorReceiver&) override { return {FileError::unsupported, 0}; }
    void stop() override {}
    bool isRunning() override { return false; }
    FileStatus watch(CStringView) override { return {FileError::unsupported, 0}; }
    bool unwatch(CStringView) override { return false; }
};

} // namespace ryv
