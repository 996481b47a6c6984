// The program's pictures: every one is one of the SVG drawings in the resources, drawn at the
// device's resolution (sharp at 200%), the desktop's icon theme comes first for the standard
// actions only, and the drawings fall back in when the theme has nothing.
#include "core/commandids.h"
#include "support/controls/icons.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QImage render(const QIcon& icon, int side, qreal ratio) {
    return icon.pixmap(QSize(side, side), ratio).toImage().convertToFormat(QImage::Format_ARGB32);
}

int paintedPixels(const QImage& img) {
    int painted = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            painted += qAlpha(img.pixel(x, y)) > 0;
    return painted;
}

// Every command id that has an icon; the ids in use lie below 60000.
QList<int> commandsWithIcons() {
    QList<int> ids;
    for (int id = 0; id < 60000; ++id)
        if (!mIcons::CommandIcon(id).isNull()) ids << id;
    return ids;
}

// Each test sees a theme folder of its own and no icons of the machine's themes.
class Icons : public ::testing::Test {
  protected:
    void SetUp() override {
        m_oldName = QIcon::themeName();
        m_oldFallbackName = QIcon::fallbackThemeName();
        m_oldPaths = QIcon::themeSearchPaths();
        m_oldFallbackPaths = QIcon::fallbackSearchPaths();
        QIcon::setThemeSearchPaths({m_themes.path()});
        QIcon::setFallbackSearchPaths({});
        QIcon::setFallbackThemeName(QStringLiteral("kelvarin-none"));
        QIcon::setThemeName(QStringLiteral("kelvarin-none"));
        mIcons::Image(QStringLiteral("CAT")); // the resources are registered with the first picture
    }
    void TearDown() override {
        QIcon::setThemeSearchPaths(m_oldPaths);
        QIcon::setFallbackSearchPaths(m_oldFallbackPaths);
        QIcon::setFallbackThemeName(m_oldFallbackName);
        QIcon::setThemeName(m_oldName);
    }
    // A scalable theme whose every icon in `names` is a plain magenta square.
    void makeTheme(const QStringList& names) {
        QDir root(m_themes.path());
        ASSERT_TRUE(root.mkpath(QStringLiteral("plain/scalable/actions")));
        QFile index(root.filePath(QStringLiteral("plain/index.theme")));
        ASSERT_TRUE(index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nName=Plain\nDirectories=scalable/actions\n\n"
                    "[scalable/actions]\nSize=16\nMinSize=8\nMaxSize=512\nType=Scalable\n");
        index.close();
        for (const QString& name : names) {
            QFile svg(root.filePath(QStringLiteral("plain/scalable/actions/%1.svg").arg(name)));
            ASSERT_TRUE(svg.open(QIODevice::WriteOnly));
            svg.write(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)"
                      R"(<rect width="16" height="16" fill="#ff00ff"/></svg>)");
        }
        QIcon::setThemeName(QStringLiteral("plain"));
    }
    static QStringList drawings() {
        return QDir(QStringLiteral(":/icons")).entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
    }

    QTemporaryDir m_themes;
    QString m_oldName, m_oldFallbackName;
    QStringList m_oldPaths, m_oldFallbackPaths;
};

} // namespace

TEST_F(Icons, EveryDrawingIsInTheResourcesAndDrawnAtTheDevicesResolution) {
    QStringList sources = QDir(QStringLiteral(KELVARIN_SOURCE_DIR "/resources/icons"))
                              .entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
    sources << QStringLiteral("kelvarin.svg");
    sources.sort();
    ASSERT_EQ(drawings(), sources);
    for (const QString& name : drawings()) {
        const QString file = QStringLiteral(":/icons/") + name;
        QSvgRenderer svg(file);
        ASSERT_TRUE(svg.isValid()) << name.toStdString();
        if (name != QLatin1String("kelvarin.svg")) {
            EXPECT_EQ(svg.viewBoxF(), QRectF(0, 0, 16, 16)) << name.toStdString();
        }
        // At 200% a 32-pixel icon is 64 device pixels drawn from the SVG, not a small picture blown up.
        const QPixmap sharp = QIcon(file).pixmap(QSize(32, 32), 2.0);
        EXPECT_EQ(sharp.size(), QSize(64, 64)) << name.toStdString();
        EXPECT_EQ(sharp.devicePixelRatio(), 2.0) << name.toStdString();
        QImage direct(64, 64, QImage::Format_ARGB32_Premultiplied);
        direct.fill(Qt::transparent);
        QPainter p(&direct);
        svg.render(&p);
        p.end();
        const QImage got = sharp.toImage().convertToFormat(QImage::Format_ARGB32);
        const QImage want = direct.convertToFormat(QImage::Format_ARGB32);
        int off = 0;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                off += qAbs(qAlpha(got.pixel(x, y)) - qAlpha(want.pixel(x, y))) > 16;
        EXPECT_LT(off, 40) << name.toStdString();
    }
}

TEST_F(Icons, WithoutAnIconThemeEveryPictureIsOneOfOurDrawingsAndNotEmpty) {
    QHash<QString, QImage> ours;
    for (const QString& name : drawings())
        ours.insert(name, render(QIcon(QStringLiteral(":/icons/") + name), 32, 2.0));
    auto drawing = [&ours](const QImage& img) {
        for (auto it = ours.constBegin(); it != ours.constEnd(); ++it)
            if (it.value() == img) return it.key();
        return QString();
    };
    auto check = [&](const QIcon& icon, const std::string& what) {
        const QImage small = render(icon, 16, 1.0);
        const QImage large = render(icon, 32, 2.0);
        EXPECT_EQ(small.size(), QSize(16, 16)) << what;
        EXPECT_EQ(large.size(), QSize(64, 64)) << what;
        EXPECT_GT(paintedPixels(small), 16 * 16 / 4) << what;
        EXPECT_GT(paintedPixels(large), 64 * 64 / 4) << what;
        EXPECT_FALSE(drawing(large).isEmpty()) << what;
        // A selected row shows the drawing untinted; a disabled command shows it greyed.
        EXPECT_EQ(
            icon.pixmap(QSize(16, 16), 1.0, QIcon::Selected).toImage().convertToFormat(QImage::Format_ARGB32),
            small)
            << what;
        EXPECT_NE(
            icon.pixmap(QSize(16, 16), 1.0, QIcon::Disabled).toImage().convertToFormat(QImage::Format_ARGB32),
            small)
            << what;
    };

    const QList<int> ids = commandsWithIcons();
    EXPECT_GE(ids.size(), 60);
    for (int id : ids)
        check(mIcons::CommandIcon(id), "command " + std::to_string(id));
    EXPECT_EQ(mIcons::ImageKeys().size(), 13);
    for (const QString& key : mIcons::ImageKeys())
        check(mIcons::Image(key), key.toStdString());
    check(mIcons::AppIcon(), "application");

    EXPECT_EQ(drawing(render(mIcons::CommandIcon(cmd::FileNew), 32, 2.0)),
              QStringLiteral("document-new.svg"));
    EXPECT_EQ(drawing(render(mIcons::Image(QStringLiteral("Tray16")), 32, 2.0)),
              QStringLiteral("kelvarin.svg"));
    EXPECT_TRUE(mIcons::Image(QStringLiteral("NONE")).isNull());
    for (int captionOnly : {cmd::LetterA, cmd::ListSortFirst, cmd::RecentFirst})
        EXPECT_TRUE(mIcons::CommandIcon(captionOnly).isNull()) << captionOnly;
}

TEST_F(Icons, TheThemeComesFirstForTheStandardActionsOnly) {
    makeTheme({QStringLiteral("document-new"), QStringLiteral("document-open"), QStringLiteral("edit-delete"),
               QStringLiteral("edit-copy"), QStringLiteral("edit-find"), QStringLiteral("preferences-system"),
               QStringLiteral("help-contents"), QStringLiteral("contact-new"), QStringLiteral("folder"),
               QStringLiteral("starred")});
    auto fromTheme = [](const QIcon& icon) {
        const QImage img = render(icon, 32, 2.0);
        return img.pixel(32, 32) == qRgb(255, 0, 255) && img.pixel(2, 2) == qRgb(255, 0, 255);
    };
    for (int id : {cmd::FileNew, cmd::FileOpen, cmd::ContactDelete, cmd::CategoryDelete, cmd::MainDelete,
                   cmd::ContactCopy, cmd::ToolsSearch, cmd::MainSearch, cmd::ToolsPreferences,
                   cmd::HelpContents, cmd::MainHelp, cmd::ContactAdd, cmd::MainAdd, cmd::ListAdd})
        EXPECT_TRUE(fromTheme(mIcons::CommandIcon(id))) << id;
    // Standard names the theme lacks, our own pictures, and the tree images keep our drawings.
    for (int id :
         {cmd::FileExit, cmd::ViewRefresh, cmd::CategoryRename, cmd::ViewCategories, cmd::ViewFavorites})
        EXPECT_FALSE(fromTheme(mIcons::CommandIcon(id))) << id;
    for (const QString& key : mIcons::ImageKeys())
        EXPECT_FALSE(fromTheme(mIcons::Image(key))) << key.toStdString();
    EXPECT_GT(paintedPixels(render(mIcons::CommandIcon(cmd::FileExit), 16, 1.0)), 16 * 16 / 4);
}

TEST_F(Icons, TheNoPhotoPictureIsAFigureOnALightGround) {
    for (const QSize size : {QSize(120, 150), QSize(40, 30)}) {
        const QImage img = mIcons::NoPhotoPicture(size).toImage();
        ASSERT_EQ(img.size(), size);
        const QRgb ground = qRgb(238, 241, 245);
        EXPECT_EQ(img.pixel(0, 0), ground);
        EXPECT_EQ(img.pixel(size.width() - 1, size.height() - 1), ground);
        // The figure sits in the middle: its body below the centre differs from the ground.
        EXPECT_NE(img.pixel(size.width() / 2, size.height() / 2 + size.height() / 5), ground);
    }
}
