// Tells of what others do to one drawing: the one that the palette shows.
#pragma once

#include "base/strings.h"

#include <functional>

namespace ryv {

class RyvPrmProjectManager;

/// Follows the drawing's file and its lock file with the project manager's own watch list. Does nothing
/// without a project manager, which may end first.
class DrawingWatch {
public:
    enum class Change {
        content, ///< another file stands there now, or none
        access   ///< who works on it, or whether it can be written
    };

    /// `changed` is called from the message loop, behind each notice.
    explicit DrawingWatch(std::function<void(Change)> changed) : changed_(std::move(changed)) {}
    DrawingWatch(const DrawingWatch&) = delete;
    DrawingWatch& operator=(const DrawingWatch&) = delete;
    ~DrawingWatch() { follow({}); }

    /// Follows another drawing from now on; none for an empty path.
    void follow(CStringView drawing);

private:
    void begin(RyvPrmProjectManager& manager);
    void end();
    void onFile(const CString& path);
    void onReadOnly(const CString& path, bool);
    void onRenamed(const CString& oldPath, const CString& newPath);

    std::function<void(Change)> changed_;
    RyvPrmProjectManager* manager_ = nullptr; // that watches for us
    CString drawing_;
    CString lockFile_; // beside what the drawing's name leads to
};

} // namespace ryv
