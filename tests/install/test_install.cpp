// The desktop install: a staged `cmake --install` holds the program, a menu entry the
// freedesktop validator accepts, the file type, the icons, the tips and the help pages, and the
// installed program finds its pages through its own place.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

struct Outcome {
    int status = -1;
    QString out;
};

Outcome runProgram(const QString& program, const QStringList& args,
                   const QProcessEnvironment& env = QProcessEnvironment::systemEnvironment()) {
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    Outcome r;
    if (!p.waitForFinished(120000)) return r;
    r.status = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAll());
    return r;
}

class Install : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        stage = new QTemporaryDir;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DESTDIR"), stage->path());
        installed = new Outcome(runProgram(QStringLiteral("cmake"),
                                           {QStringLiteral("--install"), QStringLiteral(KELVARIN_BINARY_DIR),
                                            QStringLiteral("--prefix"), QStringLiteral("/usr/local")},
                                           env));
    }
    static void TearDownTestSuite() {
        delete installed;
        delete stage;
    }
    static QString at(const QString& relative) {
        return stage->path() + QStringLiteral("/usr/local/") + relative;
    }

    static QTemporaryDir* stage;
    static Outcome* installed;
};
QTemporaryDir* Install::stage = nullptr;
Outcome* Install::installed = nullptr;

TEST_F(Install, StagesEveryFileUnderTheDestdir) {
    ASSERT_EQ(installed->status, 0) << installed->out.toStdString();
    for (const char* file :
         {"bin/kelvarin", "share/applications/kelvarin.desktop", "share/mime/packages/kelvarin.xml",
          "share/icons/hicolor/scalable/apps/kelvarin.svg", "share/icons/hicolor/48x48/apps/kelvarin.png",
          "share/icons/hicolor/128x128/apps/kelvarin.png",
          "share/icons/hicolor/scalable/mimetypes/application-x-kelvarin-phonebook.svg",
          "share/kelvarin/Tips.txt", "share/kelvarin/help/index.html", "share/kelvarin/help/style.css"})
        EXPECT_TRUE(QFile::exists(at(QString::fromLatin1(file)))) << file;
    QFile tips(at(QStringLiteral("share/kelvarin/Tips.txt")));
    ASSERT_TRUE(tips.open(QIODevice::ReadOnly));
    EXPECT_EQ(tips.readAll().trimmed().split('\n').size(), 20);
}

TEST_F(Install, TheMenuEntryAndTheFileTypeAreValid) {
    ASSERT_EQ(installed->status, 0);
    const QString validator = QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate"));
    if (validator.isEmpty()) GTEST_SKIP() << "desktop-file-validate is missing: run make deps";
    const Outcome checked =
        runProgram(validator, {at(QStringLiteral("share/applications/kelvarin.desktop"))});
    EXPECT_EQ(checked.status, 0) << checked.out.toStdString();
    EXPECT_TRUE(checked.out.trimmed().isEmpty()) << checked.out.toStdString();

    // The entry and the file type name the same type, and the type claims the phonebook's suffix.
    QFile entry(at(QStringLiteral("share/applications/kelvarin.desktop")));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    EXPECT_TRUE(entry.readAll().contains("MimeType=application/x-kelvarin-phonebook;"));
    QFile mime(at(QStringLiteral("share/mime/packages/kelvarin.xml")));
    ASSERT_TRUE(mime.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&mime);
    QStringList seen;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("mime-type"))
            seen << xml.attributes().value(QLatin1String("type")).toString();
        if (xml.name() == QLatin1String("glob"))
            seen << xml.attributes().value(QLatin1String("pattern")).toString();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(seen,
              (QStringList{QStringLiteral("application/x-kelvarin-phonebook"), QStringLiteral("*.kvdb")}));
}

TEST_F(Install, TheInstalledProgramFindsItsHelpPages) {
    ASSERT_EQ(installed->status, 0);
    const Outcome help = runProgram(at(QStringLiteral("bin/kelvarin")), {QStringLiteral("--help")});
    ASSERT_EQ(help.status, 0) << help.out.toStdString();
    const QString index = QDir::cleanPath(at(QStringLiteral("share/kelvarin/help/index.html")));
    EXPECT_TRUE(help.out.contains(QStringLiteral("Help pages: ") + index)) << help.out.toStdString();
    // Every page the help links to is there.
    QFile page(index);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    int links = 0;
    for (qsizetype at = text.indexOf(QLatin1String("href=\"")); at >= 0;
         at = text.indexOf(QLatin1String("href=\""), at + 1)) {
        const QString target = text.mid(at + 6, text.indexOf(QLatin1Char('"'), at + 6) - at - 6);
        EXPECT_TRUE(QFile::exists(QFileInfo(index).absolutePath() + QLatin1Char('/') + target))
            << target.toStdString();
        ++links;
    }
    EXPECT_GT(links, 5);
}

} // namespace
