// Following files without a monitoring service: by looking again and again.
#pragma once

#include "platform/os/file_monitor.h"
#include "platform/os/message_loop.h"

#include <vector>

namespace ryv {

/// Looks at every file on its list in a fixed rhythm, on a timer of the message loop, and tells what changed
/// as a monitoring service would. Without a message loop nothing is told. Main thread only.
class FilePoller final : private MessageReceiver {
public:
    static constexpr std::chrono::milliseconds period{2000};

    /// `receiver` is not owned and outlives the poller.
    explicit FilePoller(FileMonitorReceiver& receiver) noexcept : receiver_(receiver) {}
    FilePoller(const FilePoller&) = delete;
    FilePoller& operator=(const FilePoller&) = delete;
    ~FilePoller();

    /// Adding a file twice counts once.
    void add(CStringView path);
    bool remove(CStringView path);

private:
    struct Watched {
        CString path;
        bool present = false;
        FileInformation last;
    };

    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 0; }
    void onTimer(std::uint32_t id) override;
    std::vector<Watched>::iterator find(CStringView path);
    void look(const CString& path);
    void startTimer();
    void tell(const CString& path, FileChange change);

    FileMonitorReceiver& receiver_;
    std::vector<Watched> watched_;
    WindowHandle window_ = WindowHandle::none;
    bool polling_ = false;
};

} // namespace ryv
