#include "support/themes/desktopscheme.h"

#include <QGuiApplication>
#include <QProcess>
#include <QString>
#include <optional>

#ifdef KELVARIN_HAVE_QTDBUS
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QObject>
#endif

namespace mThemes {

namespace {

std::function<ColorScheme()>& Reader() {
    static std::function<ColorScheme()> reader;
    return reader;
}

std::optional<QPalette>& KeptPalette() {
    static std::optional<QPalette> palette;
    return palette;
}

#ifdef KELVARIN_HAVE_QTDBUS
const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kColorScheme = QStringLiteral("color-scheme");

// The portal's value: 1 prefers dark, 2 prefers light, 0 (or anything else) no preference.
std::optional<ColorScheme> SchemeOfPortalValue(QVariant v) {
    // Read answers a variant inside a variant.
    while (v.userType() == qMetaTypeId<QDBusVariant>())
        v = v.value<QDBusVariant>().variant();
    bool ok = false;
    const uint value = v.toUInt(&ok);
    if (!ok) return std::nullopt;
    if (value == 1) return ColorScheme::Dark;
    if (value == 2) return ColorScheme::Light;
    return std::nullopt;
}

// The portal's setting, kept up to date by its SettingChanged signal.
class PortalWatch : public QObject {
    Q_OBJECT
  public:
    PortalWatch() {
        QDBusConnection bus = QDBusConnection::sessionBus();
        if (!bus.isConnected() || !bus.interface()) return;
        // Only a portal already running: starting one could keep the program waiting.
        if (!bus.interface()->isServiceRegistered(kPortal).value()) return;
        QDBusMessage call =
            QDBusMessage::createMethodCall(kPortal, kPortalPath, kSettings, QStringLiteral("Read"));
        call << kAppearance << kColorScheme;
        const QDBusMessage answer = bus.call(call, QDBus::Block, 300);
        if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
            scheme = SchemeOfPortalValue(answer.arguments().constFirst());
        bus.connect(kPortal, kPortalPath, kSettings, QStringLiteral("SettingChanged"), this,
                    SLOT(settingChanged(QString, QString, QDBusVariant)));
        watching = true;
    }
    bool watching = false;
    std::optional<ColorScheme> scheme;

  public slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
        if (group == kAppearance && key == kColorScheme) scheme = SchemeOfPortalValue(value.variant());
    }
};

std::optional<ColorScheme> PortalScheme() {
    if (!QCoreApplication::instance()) return std::nullopt;
    static PortalWatch* watch = new PortalWatch;
    return watch->scheme;
}
#else
std::optional<ColorScheme> PortalScheme() {
    return std::nullopt;
}
#endif

// GTK_THEME, then the GNOME interface settings; read once.
bool GtkSaysDark() {
    static const bool dark = [] {
        if (GtkThemeNameIsDark(qEnvironmentVariable("GTK_THEME"))) return true;
        QProcess gsettings;
        gsettings.start(QStringLiteral("gsettings"),
                        {QStringLiteral("get"), QStringLiteral("org.gnome.desktop.interface"),
                         QStringLiteral("gtk-theme")});
        if (!gsettings.waitForFinished(500)) {
            gsettings.kill();
            gsettings.waitForFinished(100);
            return false;
        }
        QString name = QString::fromUtf8(gsettings.readAllStandardOutput()).trimmed();
        name.remove(QLatin1Char('\''));
        return gsettings.exitCode() == 0 && GtkThemeNameIsDark(name);
    }();
    return dark;
}

} // namespace

bool GtkThemeNameIsDark(const QString& name) {
    const QString n = name.trimmed().toLower();
    return n.endsWith(QLatin1String("-dark")) || n.endsWith(QLatin1String(":dark"));
}

void SetDesktopSchemeReader(std::function<ColorScheme()> reader) {
    Reader() = std::move(reader);
}

void KeepDesktopPalette() {
    if (!KeptPalette()) KeptPalette() = QGuiApplication::palette();
}

const QPalette& DesktopPalette() {
    KeepDesktopPalette();
    return *KeptPalette();
}

ColorScheme DesktopColorScheme() {
    if (Reader()) return Reader()();
    if (const auto portal = PortalScheme()) return *portal;
    if (GtkSaysDark()) return ColorScheme::Dark;
    return DesktopPalette().color(QPalette::Window).lightness() < 128 ? ColorScheme::Dark
                                                                      : ColorScheme::Light;
}

} // namespace mThemes

#ifdef KELVARIN_HAVE_QTDBUS
#include "desktopscheme.moc"
#endif
