// Drawings read beside the window, so that it goes on answering.
#pragma once

#include "embedded/qt/drawing/drawing_source.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

class QObject;

namespace drafta {

/// A thread that reads one drawing after the other. Of several that are asked for while it reads, only the
/// last is read.
class PictureReader {
public:
    using Done = std::function<void(const ryv::CString& path, const DrawingReading& reading)>;

    /// `done` is called by the receiver's event loop, unless the receiver is gone by then. The receiver owns
    /// this object, or outlives it.
    PictureReader(std::unique_ptr<DrawingReader> reader, QObject& receiver, Done done);
    PictureReader(const PictureReader&) = delete;
    PictureReader& operator=(const PictureReader&) = delete;
    /// Waits for what is being read.
    ~PictureReader();

    void read(ryv::CString path);

private:
    std::optional<ryv::CString> next();
    void run();

    std::unique_ptr<DrawingReader> reader_; // used by the thread alone
    QObject& receiver_;
    Done done_;
    std::mutex mutex_;
    std::condition_variable awake_;
    std::optional<ryv::CString> wanted_; // under the mutex
    bool isEnding_ = false;              // under the mutex
    std::thread thread_;                 // last, as it uses all of the above
};

} // namespace drafta
