#include "embedded/qt/drawing/drawing_canvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace drafta {

namespace {

constexpr double zoomStep = 1.25;
constexpr double wheelUnits = 120;               // of one step of a wheel
constexpr double keyShare = 0.1;                 // of the canvas that an arrow key moves by
constexpr double nearest = 1e5, farthest = 0.02; // of the size at which all is shown

} // namespace

DrawingCanvas::DrawingCanvas(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Drawing"));
    describe();
}

void DrawingCanvas::setDrawing(std::shared_ptr<const DisplayList> list) {
    scene_ = list ? std::make_unique<DrawingScene>(std::move(list)) : nullptr;
    fit();
    describe();
}

void DrawingCanvas::replaceDrawing(std::shared_ptr<const DisplayList> list) {
    if (isFitted_ || isEmpty() || !list)
        return setDrawing(std::move(list));
    scene_ = std::make_unique<DrawingScene>(std::move(list));
    fitted_ = CanvasView::fitted(scene_->list().extents, size());
    describe();
    update();
}

void DrawingCanvas::setMessage(const QString& message) {
    message_ = message;
    describe();
    update();
}

QString DrawingCanvas::shownMessage() const {
    return scene_ && scene_->list().size() == 0 ? tr("There is nothing in this drawing.") : message_;
}

void DrawingCanvas::describe() {
    setAccessibleDescription(isEmpty() ? shownMessage()
                                       : tr("Arrow keys move the drawing, plus and minus zoom, F "
                                            "shows all of it."));
}

void DrawingCanvas::fit() {
    fitted_ = CanvasView::fitted(scene_ ? scene_->list().extents : DisplayExtents(), size());
    view_ = fitted_;
    isFitted_ = true;
    update();
}

void DrawingCanvas::zoom(QPointF at, double factor) {
    if (isEmpty() || !(factor > 0))
        return;
    const double scale = std::clamp(view_.scale * factor, fitted_.scale * farthest, fitted_.scale * nearest);
    view_.zoom(at, scale / view_.scale);
    isFitted_ = false;
    update();
}

void DrawingCanvas::pan(QPointF pixels) {
    if (isEmpty() || pixels.isNull())
        return;
    view_.origin += pixels;
    isFitted_ = false;
    update();
}

QSize DrawingCanvas::sizeHint() const {
    return {420, 297};
}

QSize DrawingCanvas::minimumSizeHint() const {
    return {80, 60};
}

void DrawingCanvas::paintEvent(QPaintEvent*) {
    if (!colours_)
        colours_.emplace(currentTheme());
    QPainter painter(this);
    painter.fillRect(rect(), colours_->canvas());
    if (isEmpty()) {
        paintMessage(painter);
    } else {
        scene_->paint(painter, view_, rect(), *colours_);
        paintNotice(painter);
    }
    if (hasFocus()) {
        painter.setPen(currentTheme().accent);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void DrawingCanvas::paintMessage(QPainter& painter) const {
    painter.setPen(currentTheme().quietText);
    const QRect area = rect().adjusted(metrics::margin, metrics::margin, -metrics::margin, -metrics::margin);
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, shownMessage());
}

/// Tells that not all of a drawing is there, beside what is.
void DrawingCanvas::paintNotice(QPainter& painter) const {
    if (!scene_->list().isCut)
        return;
    const QString text = tr("This drawing is too large to be shown whole.");
    QRect box = painter.fontMetrics().boundingRect(text).adjusted(
        -metrics::gap, -metrics::gap / 2, metrics::gap, metrics::gap / 2);
    box.moveBottomLeft(rect().bottomLeft());
    painter.fillRect(box, currentTheme().noticeBase);
    painter.setPen(currentTheme().palette.color(QPalette::WindowText));
    painter.drawText(box, Qt::AlignCenter, text);
}

void DrawingCanvas::resizeEvent(QResizeEvent* event) {
    if (isFitted_)
        return fit();
    fitted_ = CanvasView::fitted(scene_ ? scene_->list().extents : DisplayExtents(), size());
    const QSize grown = event->size() - event->oldSize();
    view_.origin += QPointF(grown.width(), grown.height()) / 2;
}

void DrawingCanvas::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        colours_.reset();
        update();
    }
    QWidget::changeEvent(event);
}

void DrawingCanvas::wheelEvent(QWheelEvent* event) {
    zoom(event->position(), std::pow(zoomStep, event->angleDelta().y() / wheelUnits));
    event->accept();
}

void DrawingCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton && event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    drag_ = event->position();
    setCursor(Qt::ClosedHandCursor);
}

void DrawingCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (drag_)
        pan(event->position() - *drag_);
    if (drag_)
        drag_ = event->position();
}

void DrawingCanvas::mouseReleaseEvent(QMouseEvent* event) {
    drag_.reset();
    unsetCursor();
    QWidget::mouseReleaseEvent(event);
}

void DrawingCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton)
        fit();
    else
        mousePressEvent(event);
}

void DrawingCanvas::keyPressEvent(QKeyEvent* event) {
    const QPointF middle = rect().center();
    const double stepX = width() * keyShare, stepY = height() * keyShare;
    switch (event->key()) {
    case Qt::Key_Left:
        return pan({stepX, 0});
    case Qt::Key_Right:
        return pan({-stepX, 0});
    case Qt::Key_Up:
        return pan({0, stepY});
    case Qt::Key_Down:
        return pan({0, -stepY});
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoom(middle, zoomStep);
    case Qt::Key_Minus:
        return zoom(middle, 1 / zoomStep);
    case Qt::Key_F:
    case Qt::Key_Home:
        return fit();
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace drafta
