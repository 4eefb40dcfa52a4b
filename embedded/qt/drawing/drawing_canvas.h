// A widget that shows a drawing, to be looked at from near and far.
#pragma once

#include "embedded/qt/drawing/drawing_scene.h"

#include <QWidget>

#include <optional>

namespace drafta {

/// The wheel zooms at the pointer, the middle or left button drags, a double click of the middle button shows
/// all. With the keyboard: arrows move, + and - zoom, F and Home show all. A drawing that is shown whole
/// stays so when the widget is resized.
class DrawingCanvas : public QWidget {
public:
    explicit DrawingCanvas(QWidget* parent = nullptr);

    /// Shows a drawing whole; null for none.
    void setDrawing(std::shared_ptr<const DisplayList> list);

    /// Shows another state of the drawing, at the place and size that the user looks at.
    void replaceDrawing(std::shared_ptr<const DisplayList> list);

    /// Told in place of a drawing, when there is none or nothing in it.
    void setMessage(const QString& message);
    const QString& message() const noexcept { return message_; }

    bool hasDrawing() const noexcept { return scene_ != nullptr; }
    const CanvasView& view() const noexcept { return view_; }
    void fit();
    void zoom(QPointF at, double factor);
    void pan(QPointF pixels);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool isEmpty() const { return !scene_ || scene_->list().size() == 0; }
    QString shownMessage() const;
    void paintMessage(QPainter& painter) const;
    void paintNotice(QPainter& painter) const;
    void describe();

    std::unique_ptr<DrawingScene> scene_;
    std::optional<DrawingColours> colours_; // of the theme; made when they are needed
    CanvasView view_;
    CanvasView fitted_;
    bool isFitted_ = true;
    std::optional<QPointF> drag_; // where the pointer was last
    QString message_;
};

} // namespace drafta
