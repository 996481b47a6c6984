#include "support/fixture.h"

#include "core/globals.h"
#include "core/language.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace fixture {

void SetUpProcess() {
    static QTemporaryDir home(QDir::tempPath() + QStringLiteral("/kelvarin-test-home-XXXXXX"));
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/.config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/.local/share")).toUtf8());
    QDir(home.path()).mkpath(QStringLiteral("Documents"));
    QStandardPaths::setTestModeEnabled(true);
    mLanguageEng::lngEng();
    QCoreApplication::setOrganizationName(QStringLiteral("Kelvarin"));
    QCoreApplication::setApplicationName(QStringLiteral("Kelvarin"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       home.path() + QStringLiteral("/.config"));
    // A message box nobody expected fails the test instead of waiting for a person.
    SetMsgBoxHandler([](const QString& text, int, int, const QString&) {
        ADD_FAILURE() << "unexpected message box: " << text.toStdString();
        return int(vb::vbCancel);
    });
    SetModalHandler([](QDialog*, QWidget*) {
        ADD_FAILURE() << "unexpected modal window";
        return 0;
    });
    SetShellHandler([](const QString& target) {
        ADD_FAILURE() << "unexpected shell hand-off: " << target.toStdString();
        return false;
    });
}

MsgBoxRecorder::MsgBoxRecorder(int a) : answer(a) {
    m_old = SetMsgBoxHandler([this](const QString& text, int buttons, int icon, const QString& title) {
        boxes.append(Box{text, buttons, icon, title});
        return answer;
    });
}

MsgBoxRecorder::~MsgBoxRecorder() {
    SetMsgBoxHandler(m_old);
}

QStringList MsgBoxRecorder::texts() const {
    QStringList l;
    for (const Box& b : boxes)
        l << b.text;
    return l;
}

ModalRecorder::ModalRecorder(std::function<int(QDialog*)> act) : m_act(std::move(act)) {
    m_old = SetModalHandler([this](QDialog* form, QWidget*) {
        ++shown;
        return m_act(form);
    });
}

ModalRecorder::~ModalRecorder() {
    SetModalHandler(m_old);
}

void TempDirTest::SetUp() {
    ASSERT_TRUE(m_dir.isValid());
    QSettings().clear();
    // The store of a program that ran before with this version and the tip of the day turned off:
    // a start shows no window that a test did not ask for.
    mRegSettings::SaveVersion();
    SaveSetting(AppTitle(), QStringLiteral("PreferencesNew"), QStringLiteral("TipOfTheDayAtStart"), false);
}

void TempDirTest::TearDown() {
    QSettings().clear();
}

} // namespace fixture

#include "app/mmain.h"
#include "core/globals.h"
#include "phonebook/createdb.h"

namespace fixture {

void PhonebookTest::SetUp() {
    TempDirTest::SetUp();
    m_path = path(QStringLiteral("book.kvdb"));
    ASSERT_EQ(mAccess::CreateDB(m_path, false), 1);
    gDBPath = m_path;
    gNotConnected = false;
}

void PhonebookTest::TearDown() {
    mMain::Closing();
    gNotConnected = true;
    TempDirTest::TearDown();
}

int PhonebookTest::addContact(const QString& fullName, int idc, int idx, int idb, const QString& label) {
    const int id = scalar(QStringLiteral("SELECT IIf(IsNull(Max(IDCD)), 0, Max(IDCD)) + 1 FROM CDs")).toInt();
    const QString letter = label.isEmpty() ? fullName.left(1).toUpper() : label;
    QString name = fullName;
    name.replace(QLatin1Char('\''), QLatin1String("''"));
    gDB.Execute(QStringLiteral("INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, IDB, Label) "
                               "VALUES (%1, %1, '%2', %3, %4, %5, '%6')")
                    .arg(id)
                    .arg(name)
                    .arg(idc)
                    .arg(idx)
                    .arg(idb)
                    .arg(letter));
    return id;
}

QVariant PhonebookTest::scalar(const QString& jetSql) {
    dao::Recordset rs = gDB.OpenRecordset(jetSql, dao::dbOpenSnapshot);
    return rs.AtEOF() ? QVariant() : rs.Value(0);
}

} // namespace fixture
