// What the desktop says of its looks: through the settings portal, else by the colours and the theme's name.
#include "embedded/qt/look/theme.h"

#include <QApplication>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDBusVariant>
#include <QStyle>

#include <optional>

namespace drafta {

namespace {

constexpr int answersWithin = 300; // milliseconds; a desktop without the portal answers at once

/// The portal wraps a value in one variant or in two, by its version.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<uint> portalSetting(const char* name) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"), QStringLiteral("org.freedesktop.portal.Settings"),
        QStringLiteral("Read"));
    call << QStringLiteral("org.freedesktop.appearance") << QString::fromLatin1(name);
    const QDBusMessage answer = bus.call(call, QDBus::Block, answersWithin);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return std::nullopt;
    bool isNumber = false;
    const uint value = unwrapped(answer.arguments().first()).toUInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

} // namespace

void followSystemLook(QObject& receiver, const char* slot) {
    QDBusConnection::sessionBus().connect(QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"), QStringLiteral("org.freedesktop.portal.Settings"),
        QStringLiteral("SettingChanged"), &receiver, slot);
}

Look systemLook() {
    const QString name = qEnvironmentVariable("GTK_THEME");
    if (portalSetting("contrast").value_or(0) == 1 || name.contains(QLatin1String("HighContrast")))
        return Look::highContrast;
    if (const std::optional<uint> scheme = portalSetting("color-scheme"); scheme && *scheme != 0)
        return *scheme == 1 ? Look::dark : Look::light;
    const bool darkName = name.endsWith(QLatin1String(":dark")) || name.endsWith(QLatin1String("-dark"));
    const bool darkColours = QApplication::style()->standardPalette().window().color().lightness() < 128;
    return darkName || darkColours ? Look::dark : Look::light;
}

} // namespace drafta
