#include "mainwindow/form1.h"

#include "core/cfiledialog.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/mmain.h"
#include "core/seams.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"

#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>

using namespace mLanguageGobals;

Form1* gForm1 = nullptr;

namespace {
const QString kMask = QStringLiteral("Kelvarin Files (*.kvdb)|*.kvdb");

// Every ".kvdb" is taken out and one is put at the end: "a.kvdb.old" becomes "a.old.kvdb".
QString withOneExtension(QString path) {
    path.remove(QStringLiteral(".kvdb"));
    return path + QStringLiteral(".kvdb");
}

qint64 count(const QString& sql) {
    dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
    return rs.AtEOF() ? 0 : rs.Value(0).toLongLong();
}
} // namespace

Form1::Form1(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("Form1"));
    setMinimumSize(780, 540);
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    lblPath = new QLabel(central);
    lblPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblCounts = new QLabel(central);
    layout->addWidget(lblPath);
    layout->addWidget(lblCounts);
    layout->addStretch();
    setCentralWidget(central);
    buildMenus();
    gForm1 = this;
}

Form1::~Form1() {
    mMru::SetMenuHandler({});
    if (gForm1 == this) gForm1 = nullptr;
}

void Form1::buildMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    auto add = [&](QMenu* m, int id, const QString& caption) {
        QAction* a = m->addAction(caption);
        Actions.insert(id, a);
        connect(a, &QAction::triggered, this, [this, id] { CommandBars1_Execute(id); });
        return a;
    };
    add(file, 100, msgNew);
    add(file, 101, msgOpen);
    file->addSeparator();
    m_recent = file->addMenu(msgRecentFiles);
    for (int i = 1; i <= mMru::kMaxEntries; ++i) add(m_recent, i, QString())->setVisible(false);
    m_recent->addSeparator();
    add(m_recent, 117, msgClearList);
    file->addSeparator();
    add(file, 106, msgExit);
    mMru::SetMenuHandler([this](const QStringList& captions) {
        for (int i = 1; i <= mMru::kMaxEntries; ++i) {
            QAction* a = Actions.value(i);
            a->setVisible(i <= captions.size());
            if (i <= captions.size()) a->setText(captions[i - 1]);
        }
    });
}

void Form1::CommandBars1_Execute(int id) {
    RunEvent("Form1.CommandBars1_Execute(Control)", [&] {
        if (id >= 1 && id <= mMru::kMaxEntries) mnuFileMRU_Click(id);
        else if (id == 100) mnuFileNew_Click();
        else if (id == 101) mnuFileOpen_Click();
        else if (id == 106) close();
        else if (id == 117) mnuFileClear_Click();
    });
}

void Form1::RefreshSummary() {
    if (gNotConnected || !gDBOpen) {
        lblPath->setText(QString());
        lblCounts->setText(QString());
        return;
    }
    lblPath->setText(gDBPath);
    lblCounts->setText(QStringLiteral("%1%2\n%3: %4\n%5: %6\n%7: %8")
                           .arg(msgContactsColon)
                           .arg(count(QStringLiteral("SELECT Count(*) FROM CDs")))
                           .arg(msgCategories)
                           .arg(count(QStringLiteral("SELECT Count(*) FROM Categories WHERE ID > 0")))
                           .arg(msgGroups)
                           .arg(count(QStringLiteral("SELECT Count(*) FROM Boxes WHERE ID > 0")))
                           .arg(msgFavoritesTree)
                           .arg(count(QStringLiteral("SELECT Count(*) FROM Borrows WHERE ID > 0"))));
}

void Form1::mnuFileNew_Click() {
    HUNT_PLACE("Form1.mnuFileNew_Click");
    CFileDialog dlg;
    dlg.Owner = this;
    dlg.Extension = QStringLiteral("kvdb");
    dlg.Mask = kMask;
    dlg.Title = msgCreatePhonebook;
    const QString recent = GetSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"));
    dlg.InitDir = QFileInfo(recent.isEmpty() ? DefaultPhonebook() : recent).absolutePath();
    dlg.FileName = QFileInfo(DefaultPhonebook()).fileName();
    if (!dlg.Show(true) || dlg.FileName.isEmpty()) return;
    const QString path = withOneExtension(dlg.FileName);
    mMru::AddToMRUList(path);
    gDBPath = path;
    mCommon::Disconnect();
    mCommon::NotConnected(true);
    mCommon::EditCaption();
    if (QFile::exists(path)) QFile::remove(path); // the save dialog has already asked
    if (mLogin::LoginCnn(false)) {
        mCommon::EditCaption();
        ROSwitch();
        mCommon::NotConnected(false);
        MenuUpdate();
    } else {
        mCommon::NotConnected(true);
        mCommon::EditCaption();
    }
    RefreshSummary();
}

void Form1::mnuFileOpen_Click() {
    HUNT_PLACE("Form1.mnuFileOpen_Click");
    CFileDialog dlg;
    dlg.Owner = this;
    dlg.Extension = QStringLiteral("kvdb");
    dlg.Mask = kMask;
    dlg.Title = msgOpenPhonebook;
    const QString recent = GetSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"));
    dlg.InitDir = QFileInfo(recent.isEmpty() ? DefaultPhonebook() : recent).absolutePath();
    if (!dlg.Show(false) || dlg.FileName.isEmpty() || dlg.FileName == gDBPath) return;
    mMru::AddToMRUList(dlg.FileName);
    openChosen(dlg.FileName);
}

void Form1::mnuFileMRU_Click(int Index) {
    HUNT_PLACE("Form1.mnuFileMRU_Click(Index)", Index);
    const QString path = mMru::MRUFiles.value(Index - 1);
    if (path.isEmpty()) return;
    mMru::AddToMRUList(path);
    if (path == gDBPath && !gNotConnected) return;
    openChosen(path);
}

void Form1::mnuFileClear_Click() {
    HUNT_PLACE("Form1.mnuFileClear_Click");
    mMru::ClearMRUListKeepCurrent();
}

// The common road of Open and Recent once the path is known.
void Form1::openChosen(const QString& path) {
    gDBPath = path;
    mCommon::Disconnect();
    if (mLogin::LoginCnn(false)) {
        ROSwitch();
        mCommon::EditCaption();
        mCommon::NotConnected(false);
        MenuUpdate();
    } else {
        mCommon::NotConnected(true);
        mCommon::EditCaption();
    }
    RefreshSummary();
}

void Form1::closeEvent(QCloseEvent* e) {
    RunEvent("Form1.Form_Unload", [&] {
        mRegSettings::SaveWindowConfig(this, QStringLiteral("Form1"));
        mMain::Closing();
    });
    e->accept();
}
