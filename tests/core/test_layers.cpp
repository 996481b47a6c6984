// The folders of src/ form layers: a file may include headers of its own layer and of the layers
// below it, never of a layer above. The table below is the one place that says which is which.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

// Bottom first. Folders on one line form one layer; a folder of a line may include any folder of
// its own line and of the lines above. Deeper folders are named before the folder that holds them.
const QList<QStringList>& Layers() {
    static const QList<QStringList> layers = {
        {"core", "phonebook/store", "support/helpers"}, // the data library and the error trap
        {"support"},                                    // control adapters, icons
        {"preferences"},
        {"phonebook"},
        {"legacy"}, // phonebooks of the Windows version, converted
        {"trees"},
        {"contactlist"},
        {"card"},
        {"search"},
        {"reports"},
        {"access"},
        {"exchange"},
        {"sync"}, // address-book servers
        {"mainwindow"},
        {"app", "main.cpp"},
    };
    return layers;
}

// The layer of a path below src/, -1 when no layer claims it.
int LayerOf(const QString& path) {
    int best = -1;
    int bestLength = -1;
    for (int i = 0; i < Layers().size(); ++i)
        for (const QString& folder : Layers()[i])
            if ((path == folder || path.startsWith(folder + QLatin1Char('/'))) &&
                folder.size() > bestLength) {
                best = i;
                bestLength = folder.size();
            }
    return best;
}

struct Include {
    QString file;
    int line;
    QString header;
};

QList<Include> ProjectIncludes(const QString& src) {
    static const QRegularExpression include(QStringLiteral(R"re(^\s*#\s*include\s+"([^"]+)")re"));
    QList<Include> found;
    QDirIterator it(src, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) continue;
        int line = 0;
        while (!file.atEnd()) {
            ++line;
            const auto m = include.match(QString::fromUtf8(file.readLine()));
            if (m.hasMatch()) found.append({QDir(src).relativeFilePath(path), line, m.captured(1)});
        }
    }
    return found;
}

} // namespace

TEST(Layers, EveryFileBelongsToALayer) {
    const QString src = QStringLiteral(KELVARIN_SOURCE_DIR "/src");
    QDirIterator it(src, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                    QDirIterator::Subdirectories);
    int files = 0;
    while (it.hasNext()) {
        const QString path = QDir(src).relativeFilePath(it.next());
        ++files;
        EXPECT_GE(LayerOf(path), 0) << path.toStdString() << " is in no layer";
    }
    EXPECT_GT(files, 100);
}

TEST(Layers, NoFileIncludesALayerAboveItsOwn) {
    const QList<Include> includes = ProjectIncludes(QStringLiteral(KELVARIN_SOURCE_DIR "/src"));
    ASSERT_GT(includes.size(), 500);
    for (const Include& inc : includes) {
        const int from = LayerOf(inc.file);
        const int to = LayerOf(inc.header);
        if (to < 0) continue; // a header beside the file (moc output and the like)
        EXPECT_LE(to, from) << inc.file.toStdString() << ":" << inc.line << " includes "
                            << inc.header.toStdString() << " from a layer above its own";
    }
}

TEST(Layers, TheRuleCatchesAnUpwardInclude) {
    EXPECT_LT(LayerOf(QStringLiteral("core/error.h")), LayerOf(QStringLiteral("mainwindow/form1.h")));
    EXPECT_EQ(LayerOf(QStringLiteral("phonebook/store/dao.h")), LayerOf(QStringLiteral("core/globals.h")));
    EXPECT_LT(LayerOf(QStringLiteral("support/controls/listview.h")),
              LayerOf(QStringLiteral("phonebook/login.h")));
    EXPECT_LT(LayerOf(QStringLiteral("trees/pedigree.h")), LayerOf(QStringLiteral("contactlist/listfill.h")));
    EXPECT_EQ(LayerOf(QStringLiteral("nowhere/file.h")), -1);
}
