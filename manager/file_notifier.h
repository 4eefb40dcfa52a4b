// What happens to the files of open projects, as five lists of handlers.
#pragma once

#include "base/strings.h"
#include "manager/file_poller.h"
#include "manager/handler_list.h"
#include "platform/os/file_monitor.h"

namespace ryv {

/// What a file-monitoring service tells, by the numbers that it uses.
class RyvPrmMonitorReceiver : private FileMonitorReceiver {
public:
    virtual ~RyvPrmMonitorReceiver() = default;

    virtual void fileContentChanged(const CString& path) = 0;
    virtual void fileCreated(const CString& path) = 0;
    virtual void fileDeleted(const CString& path) = 0;
    virtual void fileReadOnlyChanged(const CString& path, bool readOnly) = 0;
    virtual void fileWasRenamed(const CString& oldPath, const CString& newPath) = 0;

protected:
    FileMonitorReceiver& asReceiver() noexcept { return *this; }

private:
    void fileChanged(CStringView path, FileChange change) override;
    void fileRenamed(CStringView oldPath, CStringView newPath) override;
};

/// A client of the monitoring service of the platform. A service that does not start, or that cannot watch a
/// file, stops nothing: the reason is logged, and the files concerned are looked at from time to time.
class RyvPrmFileNotifier final : public RyvPrmMonitorReceiver {
public:
    RyvPrmFileNotifier() = default;
    RyvPrmFileNotifier(const RyvPrmFileNotifier&) = delete;
    RyvPrmFileNotifier& operator=(const RyvPrmFileNotifier&) = delete;
    ~RyvPrmFileNotifier() override;

    HandlerList<const CString&> onContentChanged;
    HandlerList<const CString&> onCreated;
    HandlerList<const CString&> onDeleted;
    HandlerList<const CString&, const CString&> onRenamed; ///< old path, new path
    HandlerList<const CString&, bool> onReadOnlyChanged;

    /// Begins to tell. True when the service runs.
    bool startMonitoring();
    void stopMonitoring();
    bool isMonitoring() const noexcept { return running_; }

    void addFile(CStringView path);
    /// False when the file was not watched.
    bool removeFile(CStringView path);

private:
    void fileContentChanged(const CString& path) override { onContentChanged(path); }
    void fileCreated(const CString& path) override { onCreated(path); }
    void fileDeleted(const CString& path) override { onDeleted(path); }
    void fileReadOnlyChanged(const CString& path, bool readOnly) override {
        onReadOnlyChanged(path, readOnly);
    }
    void fileWasRenamed(const CString& oldPath, const CString& newPath) override {
        onRenamed(oldPath, newPath);
    }

    bool running_ = false;
    FilePoller poller_{asReceiver()};
};

} // namespace ryv
