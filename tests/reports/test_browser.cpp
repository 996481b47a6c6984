// Reports opened in a real browser: headless Chromium reads the file, and the page it builds
// must hold one row per contact with the values as typed.
#include "reports/reportbook.h"

#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;
using reporttest::FileDialogAnswer;

namespace {

QString browser() {
    for (const char* name : {"chromium", "chromium-browser"}) {
        const QString found = QStandardPaths::findExecutable(QLatin1String(name));
        if (!found.isEmpty()) return found;
    }
    return QString();
}

class Browser : public reporttest::ReportBook {
  protected:
    void SetUp() override {
        m_browser = browser();
        if (m_browser.isEmpty()) GTEST_SKIP() << "chromium is not installed (make deps installs it)";
        ReportBook::SetUp();
    }

    QString write(const QString& name, bool columnar) {
        const QString out = path(name);
        FileDialogAnswer answer(out);
        auto frm = wizard();
        frm->Option2[0]->setChecked(true);
        frm->Option3[columnar ? 0 : 1]->setChecked(true);
        frm->fdTitle->setText(u"Contacts & friends"_s);
        frm->bnNextSave_Click();
        frm->bnNextSave_Click();
        return out;
    }

    // Runs the browser headless on the file with `mode` (a --dump-dom or --screenshot=...), at
    // most 30 seconds; answers what it printed.
    QByteArray run(const QString& file, const QString& mode) {
        QProcess p;
        p.setProcessChannelMode(QProcess::SeparateChannels);
        p.start(m_browser, {u"--headless"_s, u"--no-sandbox"_s, u"--disable-gpu"_s, u"--no-first-run"_s,
                            u"--user-data-dir="_s + path(u"profile"_s), u"--window-size=1280,900"_s, mode,
                            QUrl::fromLocalFile(file).toString()});
        if (!p.waitForFinished(30000)) {
            p.kill();
            p.waitForFinished(5000);
            ADD_FAILURE() << "the browser did not finish within 30 s";
            return QByteArray();
        }
        EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().right(2000).constData();
        return p.readAllStandardOutput();
    }

    // The text content of the cells of each element matched by `rowPattern` in the dumped DOM.
    static QList<QStringList> rows(const QString& dom, const QString& rowPattern) {
        static const QRegularExpression cell(u"<td[^>]*>(.*?)</td>"_s,
                                             QRegularExpression::DotMatchesEverythingOption);
        QList<QStringList> found;
        const QRegularExpression row(rowPattern, QRegularExpression::DotMatchesEverythingOption);
        for (auto m = row.globalMatch(dom); m.hasNext();) {
            QStringList cells;
            for (auto c = cell.globalMatch(m.next().captured(1)); c.hasNext();)
                cells << c.next().captured(1);
            found << cells;
        }
        return found;
    }

    // Saves a picture of the report into the folder KELVARIN_REPORT_SHOTS names, when it is set.
    void screenshot(const QString& file, const QString& name) {
        const QString shot = path(name);
        run(file, u"--screenshot="_s + shot);
        QFile png(shot);
        ASSERT_TRUE(png.open(QIODevice::ReadOnly)) << "no screenshot";
        EXPECT_TRUE(png.read(8).startsWith("\x89PNG"));
        const QString folder = qEnvironmentVariable("KELVARIN_REPORT_SHOTS");
        if (!folder.isEmpty()) {
            QFile::remove(folder + u'/' + name);
            QFile::copy(shot, folder + u'/' + name);
        }
    }

    QString m_browser;
};

TEST_F(Browser, ATabularReportHasOneRowPerContactWithTheValuesAsTyped) {
    const QString file = write(u"tabular.html"_s, false);
    const QString dom = QString::fromUtf8(run(file, u"--dump-dom"_s));
    ASSERT_FALSE(dom.isEmpty());
    EXPECT_TRUE(dom.contains(u"<title>Contacts &amp; friends</title>"_s));
    const QList<QStringList> contacts = rows(dom, u"<tr class=\"text\">(.*?)</tr>"_s);
    ASSERT_EQ(contacts.size(), 5);
    QStringList names;
    for (const QStringList& r : contacts) {
        EXPECT_EQ(r.size(), 25);
        names << r.value(0);
    }
    EXPECT_EQ(names, QStringList({u"Nemo Numberless"_s, u"O'Brien, \"Pat\""_s, u"Pia Photo"_s,
                                  u"Twelve Numbers"_s, QString::fromUtf8("Zoë Åberg-Łukasz")}));
    const QStringList zoeRow = contacts[4];
    EXPECT_EQ(zoeRow[2], "Smith &amp; Sons");
    EXPECT_EQ(zoeRow[3], "Home phone:<br>+46 40 123 45");
    // The comment's tag is text: the browser made no bold element of it.
    EXPECT_EQ(zoeRow[19], "Says \"hi\" &lt;b&gt;loudly&lt;/b&gt;\nand means it");
    EXPECT_FALSE(dom.contains(u"<b>loudly</b>"_s));
    EXPECT_EQ(contacts[0][2], "A&lt;B Corp");
    EXPECT_EQ(contacts[0][3], "<br>");
    screenshot(file, u"report-tabular.png"_s);
}

TEST_F(Browser, AColumnarReportHasOneBlockPerContactWithTheValuesAsTyped) {
    const QString file = write(u"columnar.html"_s, true);
    const QString dom = QString::fromUtf8(run(file, u"--dump-dom"_s));
    ASSERT_FALSE(dom.isEmpty());
    // Each contact opens with a bar row of its own, and then its own table of labels and values.
    EXPECT_EQ(dom.count(u"<tr class=\"htable\">"_s), 5);
    const QList<QStringList> lines = rows(dom, u"<tr class=\"text\">(.*?)</tr>"_s);
    QStringList names, comments;
    for (const QStringList& l : lines) {
        if (l.value(0) == "<b>Full Name:</b>") names << l.value(1);
        if (l.value(0) == "<b>Comment:</b>") comments << l.value(1);
    }
    EXPECT_EQ(names, QStringList({u"Nemo Numberless"_s, u"O'Brien, \"Pat\""_s, u"Pia Photo"_s,
                                  u"Twelve Numbers"_s, QString::fromUtf8("Zoë Åberg-Łukasz")}));
    EXPECT_EQ(comments.value(4), "Says \"hi\" &lt;b&gt;loudly&lt;/b&gt;\nand means it");
    EXPECT_FALSE(dom.contains(u"<b>loudly</b>"_s));
    EXPECT_EQ(dom.count(u"<b>Skype:</b>"_s), 1);
    screenshot(file, u"report-columnar.png"_s);
}

} // namespace
