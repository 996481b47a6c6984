#pragma once
// A phonebook of a few contacts that exercise the reports: one without numbers, one with all
// twelve, one with a photo, names with letters outside ASCII, an ampersand, a "<", quote marks,
// commas and a comment of two lines; and the main window's contact list filled from it.

#include "support/fixture.h"

#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listhooks.h"
#include "core/cfiledialog.h"
#include "core/globals.h"
#include "phonebook/store/dao.h"
#include "reports/form15.h"
#include "reports/reportwriter.h"
#include "support/controls/listview.h"
#include "support/helpers/dates.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <memory>
#include <utility>

// Texts in failure messages as text.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace reporttest {

using Fields = std::initializer_list<std::pair<const char*, QVariant>>;

class ReportBook : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        mDateTime::SetDisplayLocale(QLocale::c());
        m_oldClock = mReport::SetReportClock([] { return QDateTime(QDate(2024, 6, 1), QTime(12, 30, 0)); });
        zoe = contact(QString::fromUtf8("Zoë Åberg-Łukasz"), 4, 1, 1,
                      {{"Title", QStringLiteral("Dr.")},
                       {"Company", QStringLiteral("Smith & Sons")},
                       {"Address", QStringLiteral("Storgatan 1\r\nBox 7")},
                       {"City", QString::fromUtf8("Malmö")},
                       {"State", QStringLiteral("Skåne")},
                       {"Zip", QStringLiteral("211 22")},
                       {"Comment", QStringLiteral("Says \"hi\" <b>loudly</b>\r\nand means it")},
                       {"Type1", 1},
                       {"Number1", QStringLiteral("+46 40 123 45")},
                       {"Type5", 5},
                       {"Number5", QStringLiteral("zoe@example.org")}});
        nobody =
            contact(QStringLiteral("Nemo Numberless"), 2, 1, -1, {{"Company", QStringLiteral("A<B Corp")}});
        QList<std::pair<const char*, QVariant>> twelve;
        static const char* types[] = {"Type1", "Type2", "Type3", "Type4",  "Type5",  "Type6",
                                      "Type7", "Type8", "Type9", "Type10", "Type11", "Type12"};
        static const char* numbers[] = {"Number1", "Number2", "Number3", "Number4",  "Number5",  "Number6",
                                        "Number7", "Number8", "Number9", "Number10", "Number11", "Number12"};
        many = contact(QStringLiteral("Twelve Numbers"), 9, 1, -1, {{"Title", QStringLiteral("Operator")}});
        for (int i = 0; i < 12; ++i) {
            // The last three numbers have no type.
            set(many, types[i], i < 9 ? QVariant(i + 1) : QVariant());
            set(many, numbers[i], QStringLiteral("555-%1").arg(100 + i));
        }
        photo = contact(QStringLiteral("Pia Photo"), 3, 1, -1, {{"PhotoExt", QStringLiteral("png")}});
        {
            dao::Recordset rs =
                gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(photo));
            rs.Edit();
            rs.AppendChunk(QStringLiteral("Photo"), QByteArray("\x89PNG\r\n\x1a\n-not-a-real-picture-", 28));
            rs.Update();
        }
        quoted = contact(QStringLiteral("O'Brien, \"Pat\""), 2, 1, 1,
                         {{"Comment", QStringLiteral("one, two; three")},
                          {"Type2", 2},
                          {"Number2", QStringLiteral("\"ext\" 12")}});

        AdvancedCategoryMode = true;
        CurrentTreeTab = QStringLiteral("Categories");
        CurrentLetter = QStringLiteral("ALL");
        CurrentNodeKey = QStringLiteral("ID0");
        mTV::Hooks().MenuNoBorrow = [] {};
        mTV::Hooks().UpdateCounters = [] {};
        mLV::Hooks().Hourglass = [](bool) {};
        main = std::make_unique<ListView>();
        mLV::IniList(*main, mLV::lcContacts);
        mLV::FillDriveList(*main, QStringLiteral("ALL"), QStringLiteral("ID0"));
    }
    void TearDown() override {
        main.reset();
        mTV::Hooks() = mTV::ViewHooks();
        mLV::Hooks() = mLV::ListHooks();
        mReport::SetReportClock(m_oldClock);
        mDateTime::SetDisplayLocale(QLocale::system());
        PhonebookTest::TearDown();
    }

    int contact(const QString& name, int idc, int idx, int idb, Fields fields) {
        const int id = addContact(name, idc, idx, idb);
        set(id, "DateScan", QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9)));
        for (const auto& [field, value] : fields)
            set(id, field, value);
        return id;
    }
    void set(int id, const char* field, const QVariant& value) {
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(id));
        rs.Edit();
        rs.SetValue(QLatin1String(field), value);
        rs.Update();
    }

    // The wizard over the main list, with its dialogs answered: the file dialog picks `path`.
    std::unique_ptr<Form15> wizard(bool diskMode = true) {
        auto frm = std::make_unique<Form15>(diskMode, main.get(), nullptr);
        frm->chOpen->setChecked(false);
        return frm;
    }
    // Ticks exactly the columns `tags` (in the list's order), or all of them for an empty list.
    static void checkColumns(Form15& frm, const QStringList& tags) {
        for (ListItem* row : frm.lvDiskColumns->ListItems)
            row->SetChecked(tags.isEmpty() || tags.contains(row->Tag()));
    }
    static QByteArray readAll(const QString& path) {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    std::unique_ptr<ListView> main;
    int zoe = 0, nobody = 0, many = 0, photo = 0, quoted = 0;

  private:
    mReport::ReportClock m_oldClock;
};

// The file dialog answers `path` (or cancels for an empty one) and counts its calls.
class FileDialogAnswer {
  public:
    explicit FileDialogAnswer(QString path) : m_path(std::move(path)) {
        m_old = CFileDialog::SetHandler([this](CFileDialog& dialog, bool) {
            ++shown;
            title = dialog.Title;
            mask = dialog.Mask;
            dialog.FileName = m_path;
            return !m_path.isEmpty();
        });
    }
    ~FileDialogAnswer() { CFileDialog::SetHandler(m_old); }
    int shown = 0;
    QString title, mask;

  private:
    QString m_path;
    CFileDialog::Handler m_old;
};

} // namespace reporttest
