// A picture control on screen: a drawing, looked at without being opened.
#pragma once

#include "embedded/qt/controls/control_view.h"
#include "embedded/qt/drawing/drawing_canvas.h"
#include "toolkit/picture.h"

#include <QTimer>

namespace drafta {

class PictureReader;
struct DrawingReading;

/// Shows the drawing that the model names once the name has rested for a moment; reading does not keep the
/// window waiting. What was shown before stays until then, unless that takes long.
class PictureView : public DrawingCanvas {
public:
    /// How long a name has to rest, and how long a drawing may take without a word.
    static constexpr int restMilliseconds = 150, patienceMilliseconds = 400;

    PictureView(ryv::Picture& picture, ViewContext& context, QWidget* parent);
    ~PictureView() override;

private:
    void follow();
    void takeVisibility();
    void followDrawing();
    void ask();
    void take(const ryv::CString& path, const DrawingReading& reading);

    ryv::Picture& picture_;
    std::unique_ptr<PictureReader> reader_; // null without a source
    ryv::CString wanted_;
    unsigned version_ = 0; // of the file that is shown
    QTimer rest_, patience_;
    ryv::Subscription changed_;
    bool hiddenByModel_ = false;
};

/// The widget is owned by `parent`; model and context outlive it.
QWidget* makePictureView(ryv::Picture& picture, ViewContext& context, QWidget* parent);

} // namespace drafta
