#include "embedded/qt/drawing/picture_view.h"
#include "base/paths.h"
#include "embedded/qt/drawing/picture_reader.h"
#include "embedded/qt/qt_text.h"

namespace drafta {

using ryv::CString;

PictureView::PictureView(ryv::Picture& picture, ViewContext& context, QWidget* parent)
    : DrawingCanvas(parent), picture_(picture) {
    if (context.drawings)
        reader_ = std::make_unique<PictureReader>(context.drawings->makeReader(), *this,
            [this](const CString& path, const DrawingReading& reading) { take(path, reading); });
    rest_.setSingleShot(true);
    rest_.setInterval(restMilliseconds);
    connect(&rest_, &QTimer::timeout, this, [this] { ask(); });
    patience_.setSingleShot(true);
    patience_.setInterval(patienceMilliseconds);
    connect(&patience_, &QTimer::timeout, this, [this] {
        setDrawing(nullptr);
        setMessage(tr("Reading..."));
    });
    setMessage(tr("Select a drawing to see it here."));
    changed_ = picture_.changed.subscribe([this](const ryv::Control&) { follow(); });
    follow();
}

PictureView::~PictureView() = default;

void PictureView::follow() {
    takeVisibility();
    setEnabled(picture_.isEnabled());
    setToolTip(toQt(picture_.tooltip()));
    if (picture_.drawing() != wanted_)
        followDrawing();
    else if (picture_.version() != version_ && !wanted_.empty())
        rest_.start(); // what is shown stays until then
    version_ = picture_.version();
}

/// Whoever stacks views hides them as well: only what was hidden here is shown again.
void PictureView::takeVisibility() {
    if (!parentWidget() || hiddenByModel_ == !picture_.isVisible())
        return;
    hiddenByModel_ = !picture_.isVisible();
    setVisible(!hiddenByModel_);
}

void PictureView::followDrawing() {
    wanted_ = picture_.drawing();
    const QString name = toQt(ryv::paths::findFileName(ryv::CStringView(wanted_)));
    setAccessibleName(name.isEmpty() ? tr("Preview") : tr("Preview of %1").arg(name));
    patience_.stop();
    if (!wanted_.empty())
        return rest_.start();
    rest_.stop();
    setDrawing(nullptr);
    setMessage(tr("Select a drawing to see it here."));
}

void PictureView::ask() {
    if (!reader_)
        return;
    reader_->read(wanted_);
    patience_.start();
}

/// Answers to earlier questions are of no use any more.
void PictureView::take(const CString& path, const DrawingReading& reading) {
    if (path != wanted_ || rest_.isActive())
        return;
    patience_.stop();
    setMessage(toQt(reading.problem));
    setDrawing(reading.list);
}

QWidget* makePictureView(ryv::Picture& picture, ViewContext& context, QWidget* parent) {
    return new PictureView(picture, context, parent);
}

} // namespace drafta
