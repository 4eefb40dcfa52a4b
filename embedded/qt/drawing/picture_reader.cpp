#include "embedded/qt/drawing/picture_reader.h"

#include <QMetaObject>
#include <QObject>

#include <utility>

namespace drafta {

PictureReader::PictureReader(std::unique_ptr<DrawingReader> reader, QObject& receiver, Done done)
    : reader_(std::move(reader)), receiver_(receiver), done_(std::move(done)), thread_([this] { run(); }) {}

PictureReader::~PictureReader() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    awake_.notify_one();
    thread_.join();
}

void PictureReader::read(ryv::CString path) {
    {
        const std::lock_guard lock(mutex_);
        wanted_ = std::move(path);
    }
    awake_.notify_one();
}

std::optional<ryv::CString> PictureReader::next() {
    std::unique_lock lock(mutex_);
    awake_.wait(lock, [this] { return isEnding_ || wanted_; });
    return isEnding_ ? std::nullopt : std::exchange(wanted_, std::nullopt);
}

void PictureReader::run() {
    while (const std::optional<ryv::CString> path = next())
        QMetaObject::invokeMethod(
            &receiver_, [done = done_, path = *path, reading = reader_->read(*path)] { done(path, reading); },
            Qt::QueuedConnection);
}

} // namespace drafta
