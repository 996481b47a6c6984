// The four report writers against files kept beside this test, a cancelled run, and a separated
// text report read back by a real CSV reader.
#include "reports/reportbook.h"

#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTimer>

using namespace Qt::StringLiterals;
using reporttest::FileDialogAnswer;

namespace {

struct Case {
    const char* file; // the expected file in tests/reports/expected
    bool html;
    bool columnar;
    QStringList columns; // empty: all
    const char* title;
    const char* comment;
    const char* separator;
};

class Writers : public reporttest::ReportBook {
  protected:
    // Writes the report of `c` through the wizard and answers the path.
    QString write(const Case& c) {
        const QString out = path(QString::fromLatin1(c.file));
        FileDialogAnswer answer(out);
        auto frm = wizard();
        checkColumns(*frm, c.columns);
        frm->Option2[c.html ? 0 : 1]->setChecked(true);
        frm->Option3[c.columnar ? 0 : 1]->setChecked(true);
        frm->fdTitle->setText(QString::fromUtf8(c.title));
        frm->fdComment->setText(QString::fromUtf8(c.comment));
        frm->fdSeparator->setText(QString::fromUtf8(c.separator));
        frm->cmbSortDisks->setCurrentIndex(0);
        frm->bnNextSave_Click();
        frm->bnNextSave_Click();
        return out;
    }
    static QString expectedPath(const char* file) {
        return QStringLiteral(KELVARIN_SOURCE_DIR "/tests/reports/expected/") + QLatin1String(file);
    }
};

const Case kCases[] = {
    {"html_columnar_all.html", true, true, {}, "Team & Friends", "<i>not italic</i>", ","},
    {"html_tabular_all.html", true, false, {}, "", "", ","},
    {"html_columnar_one.html", true, true, {"FullName"}, "", "", ","},
    {"html_tabular_one.html", true, false, {"Comment"}, "Quotes \"here\"", "", ","},
    {"csv_columnar_all.csv", false, true, {}, "Team & Friends", "Kept as typed", ","},
    {"csv_tabular_all.csv", false, false, {}, "", "", "::"},
    {"csv_tabular_one.csv", false, false, {"FullName"}, "Names", "", ";"},
};

TEST_F(Writers, EachFormatWritesTheExpectedFile) {
    const bool update = qEnvironmentVariableIsSet("KELVARIN_UPDATE_EXPECTED");
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.file);
        const QByteArray written = readAll(write(c));
        ASSERT_FALSE(written.isEmpty());
        if (update) {
            QFile f(expectedPath(c.file));
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(written);
            continue;
        }
        const QByteArray expected = readAll(expectedPath(c.file));
        ASSERT_FALSE(expected.isEmpty()) << "missing " << expectedPath(c.file).toStdString();
        if (written != expected) {
            const QList<QByteArray> a = written.split('\n'), b = expected.split('\n');
            for (int i = 0; i < std::min(a.size(), b.size()); ++i)
                ASSERT_EQ(a[i], b[i]) << "line " << i + 1;
            ASSERT_EQ(a.size(), b.size());
        }
    }
}

TEST_F(Writers, CancellingDuringARunLeavesNoFile) {
    for (int kind = 0; kind < 4; ++kind) {
        SCOPED_TRACE(kind);
        const QString out = path(u"cancelled%1"_s.arg(kind));
        QFile old(out);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("an older report");
        old.close();
        FileDialogAnswer answer(out);
        fixture::MsgBoxRecorder boxes;
        auto frm = wizard();
        frm->Option2[kind / 2]->setChecked(true);
        frm->Option3[kind % 2]->setChecked(true);
        frm->bnNextSave_Click();
        // Close is pressed while the first row is being written.
        QTimer::singleShot(0, frm.get(), [&frm] { frm->bnCancel_Click(); });
        frm->bnNextSave_Click();
        EXPECT_FALSE(QFile::exists(out));
        EXPECT_TRUE(boxes.texts().isEmpty());
        EXPECT_FALSE(frm->Running());
    }
}

TEST_F(Writers, ARealCsvReaderGetsEveryValueBack) {
    const QString python = QStandardPaths::findExecutable(u"python3"_s);
    if (python.isEmpty()) GTEST_SKIP() << "python3 is not installed: the CSV read-back needs its csv module";
    const QString out = write({"back.csv", false, false, {}, "", "", ","});
    QProcess reader;
    reader.start(python, {u"-c"_s,
                          u"import csv, json, sys\n"
                          "with open(sys.argv[1], encoding='utf-8', newline='') as f:\n"
                          "    print(json.dumps(list(csv.reader(f))))\n"_s,
                          out});
    ASSERT_TRUE(reader.waitForFinished(20000));
    ASSERT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
    const QJsonArray rows = QJsonDocument::fromJson(reader.readAllStandardOutput()).array();
    ASSERT_EQ(rows.size(), 6);
    QStringList heading;
    for (const auto& v : rows[0].toArray())
        heading << v.toString();
    EXPECT_EQ(heading.size(), 25);
    // The columns in their default order: name, title, company, the twelve numbers, address,
    // city, state, zip, comment, category, favorite, number, added, group.
    EXPECT_EQ(heading.mid(0, 5),
              QStringList({u"Full Name"_s, u"Title"_s, u"Company"_s, u"Info 1"_s, u"Info 2"_s}));
    EXPECT_EQ(heading.mid(19), QStringList({u"Comment"_s, u"Category"_s, u"Favorites"_s, u"Contact #"_s,
                                            u"Added"_s, u"Group"_s}));
    // Every row has every cell, and every cell holds the value as stored.
    QMap<QString, QJsonArray> byName;
    for (int i = 1; i < rows.size(); ++i) {
        const QJsonArray row = rows[i].toArray();
        ASSERT_EQ(row.size(), 25) << i;
        byName[row[0].toString()] = row;
    }
    auto cells = [&byName](const QString& name) {
        QStringList out;
        for (const auto& v : byName.value(name))
            out << v.toString();
        return out;
    };
    const QString empty;
    EXPECT_EQ(cells(QString::fromUtf8("Zoë Åberg-Łukasz")),
              QStringList({QString::fromUtf8("Zoë Åberg-Łukasz"),
                           u"Dr."_s,
                           u"Smith & Sons"_s,
                           u"Home phone: +46 40 123 45"_s,
                           empty,
                           empty,
                           empty,
                           u"Email: zoe@example.org"_s,
                           empty,
                           empty,
                           empty,
                           empty,
                           empty,
                           empty,
                           empty,
                           u"Storgatan 1\r\nBox 7"_s,
                           QString::fromUtf8("Malmö"),
                           QString::fromUtf8("Skåne"),
                           u"211 22"_s,
                           u"Says \"hi\" <b>loudly</b>\r\nand means it"_s,
                           u"Business/Customers"_s,
                           u"My favorites"_s,
                           QString::number(zoe),
                           mCommon::TimeCorrectView(QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9))),
                           u"Others"_s}));
    const QStringList pat = cells(u"O'Brien, \"Pat\""_s);
    ASSERT_EQ(pat.size(), 25);
    EXPECT_EQ(pat[4], "Work phone: \"ext\" 12");
    EXPECT_EQ(pat[19], "one, two; three");
    const QStringList twelve = cells(u"Twelve Numbers"_s);
    ASSERT_EQ(twelve.size(), 25);
    EXPECT_EQ(twelve[3], "Home phone: 555-100");
    EXPECT_EQ(twelve[11], "Skype: 555-108");
    EXPECT_EQ(twelve[12], "555-109"); // a number without a type
    EXPECT_EQ(twelve[14], "555-111");
    const QStringList nemo = cells(u"Nemo Numberless"_s);
    ASSERT_EQ(nemo.size(), 25);
    EXPECT_EQ(nemo.mid(3, 12), QStringList(12, empty));
    EXPECT_EQ(nemo[2], "A<B Corp");
}

TEST_F(Writers, AFileThatCannotBeWrittenIsAnError) {
    const QString out = path(u"no/such/folder/r.html"_s);
    FileDialogAnswer answer(out);
    auto frm = wizard();
    frm->bnNextSave_Click();
    try {
        frm->SaveReport();
        FAIL() << "no error";
    } catch (const HuntERR::Error& e) {
        EXPECT_EQ(e.Number(), 75);
        EXPECT_TRUE(e.Stack().join(' ').contains(u"Form15.SaveReport"_s))
            << e.Stack().join(' ').toStdString();
    }
    EXPECT_TRUE(frm->ProgressBar1->isHidden());
}

} // namespace
