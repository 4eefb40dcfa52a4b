#include "embedded/qt/window/kept_sizes.h"

#include "embedded/qt/qt_text.h"

#include <QStringList>

namespace drafta {

namespace {

constexpr ryv::CStringView key = u"Software\\drafta\\Window\\Sizes";

QSize sizeIn(const QString& text) {
    const QStringList numbers = text.split(u'x');
    return numbers.size() == 2 ? QSize(numbers[0].toInt(), numbers[1].toInt()) : QSize();
}

} // namespace

WindowSizes sizesKeptIn(ryv::Registry& registry) {
    WindowSizes sizes;
    sizes.get = [&registry](const QString& window) {
        ryv::CString text;
        const bool known = registry.readString(key, fromQt(window), text) == ryv::RegistryStatus::ok;
        return known ? sizeIn(toQt(text)) : QSize();
    };
    sizes.set = [&registry](const QString& window, QSize size) {
        const QString text = QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
        if (registry.createKey(key) == ryv::RegistryStatus::ok) // else the size is forgotten
            static_cast<void>(registry.writeString(key, fromQt(window), fromQt(text)));
    };
    return sizes;
}

} // namespace drafta
