// One drawing: its content, the file that it belongs to, and what was changed in it since.
//
// Any number of views look at a drawing, and a document when one has it open; they share it, and each sees
// what the others change. The content is DXF text. It is kept as the bytes that were read, and an edit
// replaces only the bytes that it has to: an untouched drawing is saved byte for byte.
#pragma once

#include "embedded/drawings/drawing_content.h"
#include "platform/host/drawings.h"
#include "siblings/file_content.h"

#include <functional>
#include <memory>

namespace drafta {

class Drawing {
public:
    /// Reads a drawing. Null when that fails; `result` then names file, line and reason. `files` has to
    /// outlive the drawing, here and below.
    static std::shared_ptr<Drawing> load(
        ryv::Files& files, ryv::CStringView path, ryv::DrawingResult& result);

    /// A new drawing with the content of a template and no file of its own; counts as not modified. Null when
    /// the template cannot be read, with the reason in `result`.
    static std::shared_ptr<Drawing> fromTemplate(
        ryv::Files& files, ryv::CStringView path, ryv::DrawingResult& result);

    /// A new drawing with nothing in it and no file of its own; counts as not modified.
    static std::shared_ptr<Drawing> blank(ryv::Files& files);

    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    /// The file that it was read from or last saved to, as that was spelled; empty when it has none.
    const ryv::CString& path() const noexcept { return path_; }

    /// What the file was like when this drawing was last the same as it; of a missing file when it has none.
    ryv::Fingerprint fingerprint() const noexcept;

    /// True when something was changed since it was read, made or saved.
    bool isModified() const noexcept { return content_.revision() != savedRevision_; }

    /// The content as it is now: the bytes to be saved. The view is valid until the next change.
    std::string_view bytes() const noexcept { return content_.bytes(); }

    /// Writes the content to path(), atomically, unless it is unmodified. Fails, and leaves the file alone,
    /// when there is no path, or when somebody else wrote the file since fingerprint() was taken.
    ryv::DrawingResult save();

    /// Writes the content to another file, whatever is there, modified or not; from then on the drawing
    /// belongs to that file. After a failure it belongs to the old one. Its own file is guarded as in save().
    ryv::DrawingResult saveAs(ryv::CStringView path);

    /// Gives its file another name in the folder, to which it belongs then; what was changed stays to be
    /// saved. Never replaces a file (`exists`).
    ryv::FileStatus rename(ryv::CStringView path);

    /// What the views' save() calls instead of save(), so that a document is saved with all that belongs to
    /// it; the hook may call save() or saveAs(). An empty one takes it off.
    using SaveHook = std::function<ryv::DrawingResult()>;
    void setSaveHook(SaveHook hook) { hook_ = std::move(hook); }
    const SaveHook& saveHook() const noexcept { return hook_; }

    /// Tells that the document is gone: views that still look at this drawing have no space any more, and
    /// fail to save. The hook is taken off. There is no way back.
    void close() noexcept;
    bool isClosed() const noexcept { return closed_; }

    /// For views: what is in the drawing, and the means to change it.
    DrawingContent& content() noexcept { return content_; }
    ryv::Files& files() const noexcept { return *files_; }

private:
    Drawing(ryv::Files& files, DrawingContent content);
    ryv::DrawingResult write(ryv::CStringView path, std::optional<ryv::Fingerprint> expected);

    ryv::Files* files_;
    DrawingContent content_;
    std::size_t savedRevision_ = 0;
    ryv::CString path_;
    ryv::Fingerprint fingerprint_;
    bool hashIsDue_ = false; // fingerprint_ lacks the hash, which only a save needs
    SaveHook hook_;
    bool closed_ = false;
};

} // namespace drafta
