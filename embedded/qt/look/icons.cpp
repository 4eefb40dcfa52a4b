#include "embedded/qt/look/icons.h"

#include "embedded/qt/look/theme.h"
#include "toolkit/images.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>
#include <utility>

/// Resources of a static library come in when somebody asks for them; that is a matter of the outermost
/// namespace.
static void initializeIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace drafta {

namespace {

/// Draws the file in the colours of the theme that is applied when it is drawn: "currentColor" is the text's,
/// "accentColor" the accent. So icons that widgets hold follow a change of the theme by themselves.
class ThemeIconEngine final : public QIconEngine {
public:
    ThemeIconEngine(QString name, QByteArray drawing)
        : name_(std::move(name)), drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State) override {
        QSvgRenderer(inColours(mode)).render(painter, QRectF(rectangle));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const QString key = QStringLiteral("%1 %2x%3 %4 %5")
                                .arg(name_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode)
                                .arg(static_cast<int>(currentTheme().look));
        QPixmap image;
        if (QPixmapCache::find(key, &image))
            return image;
        image = QPixmap(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, image);
        return image;
    }
    QIconEngine* clone() const override { return new ThemeIconEngine(name_, drawing_); }

private:
    QByteArray inColours(QIcon::Mode mode) const {
        const Theme& theme = currentTheme();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool selected = mode == QIcon::Selected;
        const QColor text = selected ? theme.palette.highlightedText().color()
                                     : theme.palette.color(group, QPalette::ButtonText);
        const QColor accent = mode == QIcon::Normal || mode == QIcon::Active ? theme.accent : text;
        QByteArray colored = drawing_;
        colored.replace("currentColor", text.name().toLatin1());
        colored.replace("accentColor", accent.name().toLatin1());
        return colored;
    }

    QString name_;
    QByteArray drawing_;
};

} // namespace

QIcon themeIcon(const char* name) {
    initializeIcons();
    QFile file(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? QIcon(new ThemeIconEngine(QLatin1String(name), file.readAll()))
                                          : QIcon();
}

QIcon treeIcon(int image) {
    static constexpr const char* names[] = {"project", "drawing", "reference", "subfolder"};
    return image >= 0 && image < 4 ? themeIcon(names[image]) : QIcon();
}

QIcon rowIcon(int image) {
    namespace images = ryv::images;
    static constexpr std::pair<int, const char*> names[] = {{images::project, "project"},
        {images::ownLock, "lockown"}, {images::locked, "lock"}, {images::readOnly, "readonly"},
        {images::missing, "missing"}, {images::pinned, "pin"}, {images::newProject, "newproj"},
        {images::openProject, "openproj"}, {images::recent, "recent"}};
    const auto* const hit = std::find_if(
        std::begin(names), std::end(names), [image](const auto& each) { return each.first == image; });
    return hit == std::end(names) ? QIcon() : themeIcon(hit->second);
}

} // namespace drafta
