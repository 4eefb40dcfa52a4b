// A drawing as a picture. The model knows only which file; how it is read and drawn is the view's business.
#pragma once

#include "toolkit/control.h"

namespace ryv {

class Picture : public Control {
public:
    explicit Picture(int id) noexcept : Control(ControlKind::picture, id) {}

    /// Module path of the drawing's file; empty when nothing is shown. The file need not exist.
    const CString& drawing() const noexcept { return drawing_; }
    void setDrawing(CString path) { set(drawing_, std::move(path)); }

    /// How often the file was found to be another one: a view reads it again when this has grown.
    unsigned version() const noexcept { return version_; }
    void refresh() { set(version_, version_ + 1); }

private:
    CString drawing_;
    unsigned version_ = 0;
};

} // namespace ryv
