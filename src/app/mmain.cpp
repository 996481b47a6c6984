#include "app/mmain.h"

#include "access/accessmode.h"
#include "app/commandline.h"
#include "app/nophonebook.h"
#include "app/previnstance.h"
#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listsort.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "legacy/jetfile.h"
#include "mainwindow/connection.h"
#include "mainwindow/form1.h"
#include "mainwindow/form7.h"
#include "mainwindow/form9.h"
#include "mainwindow/jetopen.h"
#include "mainwindow/statusbar.h"
#include "mainwindow/tray.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "preferences/regsettings.h"
#include "preferences/settingdefaults.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"
#include "support/controls/listview.h"
#include "trees/viewstate.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

using namespace mLanguageGobals;

namespace mMain {

namespace {
QString gCommandLine;
// Main has finished: a phonebook handed over by a second start may be opened.
bool gStarted = false;
// The last phonebook a second start handed over, while it waits for its turn.
QString gHandedOver;
bool gRetryPlanned = false;
// The window of a start without a phonebook, while it shows.
QPointer<Form7> gNoPhonebookWindow;

// The build runs on the platform it was made for; on any other it says so and stops.
bool PlatformSupported() {
#if defined(Q_OS_LINUX)
    return true;
#else
    return false;
#endif
}

void printLines(std::FILE* to, const QStringList& lines) {
    for (const QString& line : lines)
        std::fprintf(to, "%s\n", line.toLocal8Bit().constData());
    std::fflush(to);
}

// Whether a window could be shown at all: a platform that draws on a display needs one named.
bool displayNamed(const QStringList& arguments) {
    if (arguments.contains(QStringLiteral("-platform"))) return true;
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland")) return true;
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// While the application object connects to the display, the platform's own messages are held:
// a failure to connect ends the program with one line instead of an abort, and the messages of
// a start that went well are passed on afterwards.
QStringList gHeldMessages;
void whileConnecting(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        printLines(stderr, {mLanguageGobals::msgNoDisplay});
        std::_Exit(1);
    }
    gHeldMessages << qFormatLogMessage(type, context, message);
}

// Message boxes that opening the phonebook at start would show are kept for the window that
// says why no phonebook is open, so that the user reads one account of it.
class MessagesKept {
  public:
    explicit MessagesKept(QStringList& kept) {
        m_old = SetMsgBoxHandler([&kept](const QString& text, int buttons, int, const QString&) {
            kept << text;
            return (buttons & 0xF) == vb::vbOKOnly ? int(vb::vbOK) : int(vb::vbCancel);
        });
    }
    ~MessagesKept() { SetMsgBoxHandler(m_old); }

  private:
    MsgBoxHandler m_old;
};

// The wait cursor for as long as it lives.
struct WaitCursor {
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

// The window is drawn now, before the long work that follows, not after it: the status bar says
// what is being done, and the user never sees an empty black frame.
void paintNow(Form1& form, const QString& status) {
    QElapsedTimer waited;
    waited.start();
    const QWindow* window = form.windowHandle();
    while (window && !window->isExposed() && waited.elapsed() < 1000)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 20);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!status.isEmpty()) form.StatusBar1->SetPanelText(1, status);
    form.repaint();
}

// No phonebook could be opened: the preferences open on their Database page, which says which
// file and why, and offers Open and New; they close once a phonebook is open, or when the user
// closes them.
void offerPhonebook(Form1& form, const QStringList& reported) {
    if (!gNotConnected || !gHandedOver.isEmpty()) return;
    Form7 window(&form, true, mMain::WhyNotOpened(gDBPath, reported));
    gNoPhonebookWindow = &window;
    ShowModal(&window, &form);
    gNoPhonebookWindow = nullptr;
}

// A phonebook handed over by a second start opens as File > Open would, once the start is over
// and no modal window is up; until then it waits, and only the newest one is kept.
void deliverHandedOver() {
    if (!gStarted || !gForm1 || gHandedOver.isEmpty()) return; // the end of Main delivers it
    if (QApplication::activeModalWidget()) {
        if (!gRetryPlanned) {
            gRetryPlanned = true;
            QTimer::singleShot(250, [] {
                gRetryPlanned = false;
                deliverHandedOver();
            });
        }
        return;
    }
    const QString path = std::exchange(gHandedOver, QString());
    RunEvent("Form1.OpenPhonebook(path)", [&path] { gForm1->OpenPhonebook(path); });
}

void handOver(const QString& phonebook) {
    if (!phonebook.isEmpty()) {
        gHandedOver = phonebook;
        // The window of a start without a phonebook gives way to the phonebook handed over.
        if (gNoPhonebookWindow) gNoPhonebookWindow->reject();
    }
    if (gStarted && gForm1) mMain::MainFormShow(); // during the start the window comes up anyway
    deliverHandedOver();
}
} // namespace

int Run(int argc, char** argv) {
    // The catalogue first: the answers to the command line come from it too.
    mLanguageEng::lngEng();
    QStringList raw;
    for (int i = 1; i < argc; ++i)
        raw << QString::fromLocal8Bit(argv[i]);
    // Help and version need no window, so they are answered before a display is looked for.
    const CommandLine asked = ReadCommandLine(raw);
    if (asked.action == CommandLine::Help) {
        printLines(stdout, UsageLines());
        return 0;
    }
    if (asked.action == CommandLine::Version) {
        printLines(stdout, {AppTitle() + QLatin1Char(' ') + mRegSettings::ProgramVersion()});
        return 0;
    }
    if (asked.action == CommandLine::Convert) {
        // No window: the documents folder and the catalogue are all a conversion needs.
        QCoreApplication app(argc, argv);
        QCoreApplication::setOrganizationName(AppTitle());
        QCoreApplication::setApplicationName(AppTitle());
        return RunConvert(asked);
    }
    if (asked.action == CommandLine::Exchange) {
        // No window: a photo too large for the card is scaled with the image classes alone.
        QCoreApplication app(argc, argv);
        QCoreApplication::setOrganizationName(AppTitle());
        QCoreApplication::setApplicationName(AppTitle());
        return RunExchange(asked);
    }
    if (asked.action == CommandLine::Sync) {
        QCoreApplication app(argc, argv);
        QCoreApplication::setOrganizationName(AppTitle());
        QCoreApplication::setApplicationName(AppTitle());
        return RunSync(asked);
    }
    if (!displayNamed(raw)) {
        printLines(stderr, {mLanguageGobals::msgNoDisplay});
        return 1;
    }
    const QtMessageHandler previous = qInstallMessageHandler(whileConnecting);
    QApplication app(argc, argv);
    qInstallMessageHandler(previous);
    printLines(stderr, std::exchange(gHeldMessages, {}));
    QCoreApplication::setOrganizationName(AppTitle());
    QCoreApplication::setApplicationName(AppTitle());
    QCoreApplication::setApplicationVersion(mRegSettings::ProgramVersion());
    QStringList args = QCoreApplication::arguments();
    args.removeFirst();
    const CommandLine line = ReadCommandLine(args);
    if (line.action == CommandLine::UnknownOption) {
        printLines(stderr, QStringList{mLanguageGobals::msgUnknownOption.arg(line.option)} + UsageLines());
        return 2;
    }
    gCommandLine = line.phonebook;
    Main();
    if (!gMainFormShown) return 0;
    const int rc = app.exec();
    delete gForm1;
    return rc;
}

void SetCommandLine(const QString& commandLine) {
    gCommandLine = commandLine;
}

void Main() {
    RunEvent("mMain.Main", [] {
        // Every later message comes from the catalogue.
        mLanguageEng::lngEng();
        // The platform.
        if (!PlatformSupported()) {
            MsgBox(msgKelvarinSupportsOnly, vb::vbOKOnly, vb::vbExclamation);
            return;
        }
        // A running first instance is brought forward and this one ends; a phonebook named on
        // this one's command line is opened there.
        if (mPrevInstance::PrevInstance()) {
            mPrevInstance::ShowPrevInstance(PhonebookFromCommandLine(gCommandLine));
            return;
        }
        gStarted = false;
        gHandedOver.clear();
        mPrevInstance::SetRequestHandler(handOver);
        // Recorded only.
        gManifestPresent =
            QFile::exists(QCoreApplication::applicationDirPath() + QStringLiteral("/Kelvarin.exe.manifest"));
        gRuntimePresent = QFile::exists(QStringLiteral("msvbvm60.dll"));
        // The file through which photos pass.
        gPhotoTempFile = QDir::tempPath() + QStringLiteral("/kvdb_photo");
        // Preferences; the version is saved last, after the two steps that compare with it.
        // A stored value that cannot be read is reported, and the start goes on with defaults.
        RunEvent("mRegSettings.CorrectingPreferencesFormat",
                 [] { mRegSettings::CorrectingPreferencesFormat(); });
        RunEvent("mRegSettings.IniPreferences", [] { mRegSettings::IniPreferences(); });
        RunEvent("mRegSettings.ForceShowTipOfDay", [] { mRegSettings::ForceShowTipOfDay(); });
        RunEvent("mRegSettings.ResetPanesLayout", [] { mRegSettings::ResetPanesLayout(); });
        RunEvent("mRegSettings.SaveVersion", [] { mRegSettings::SaveVersion(); });
        // Which phonebook. Its path is kept absolute, so that the caption and the recent list
        // still name it when the program later starts from another folder.
        if (!gCommandLine.isEmpty()) {
            gDBPath = PhonebookFromCommandLine(gCommandLine);
        } else {
            // One level normally; on Linux the documents folder itself may be missing in a fresh home.
            if (!QDir(DefaultFolder()).exists()) QDir().mkpath(DefaultFolder());
            const QString recent = GetSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"));
            if (recent.isEmpty())
                gDBPath =
                    QFile::exists(ProgramFolderPhonebook()) ? ProgramFolderPhonebook() : DefaultPhonebook();
            else
                gDBPath = QFileInfo(recent).isRelative() ? QFileInfo(recent).absoluteFilePath() : recent;
        }
        mMru::LoadMRUList();
        // Open, or create, and upgrade. A folder is no phonebook: there is nothing to open.
        QStringList reported;
        bool connected = false;
        // A phonebook of the Windows version is offered for conversion, and the converted one opens.
        bool unconverted = false;
        if (mLegacy::IsJetFile(gDBPath)) {
            const QString converted = mConvert::OfferConversion(gDBPath, nullptr);
            unconverted = converted.isEmpty();
            if (unconverted)
                reported << msgJetNotConverted;
            else
                gDBPath = converted;
        }
        if (!QFileInfo(gDBPath).isDir() && !unconverted) {
            MessagesKept kept(reported);
            connected = mLogin::LoginCnn(true);
        }
        if (connected) { // nothing to explain: anything said goes out as it would have
            for (const QString& text : reported)
                MsgBox(text, vb::vbOKOnly, vb::vbCritical);
            reported.clear();
        }
        // A phonebook with a password for its default mode asks for it before any window shows;
        // Cancel ends the program.
        if (connected && !mAccess::LoginPassword(nullptr)) {
            mMain::Closing();
            return;
        }
        // The main window; loading it restores its layout, place and recent files. It is
        // drawn before the phonebook fills it.
        auto* form = new Form1();
        form->show();
        MainFormVisible = true;
        form->SetNoImage();
        form->ROSwitch();
        paintNow(*form, connected ? msgLoadingContacts : QString());
        std::unique_ptr<WaitCursor> busy(connected ? new WaitCursor : nullptr);
        gNotConnected = !connected;
        // A file given to the program enters the recent list at once.
        if (connected) {
            mCommon::EditCaption();
            mCommon::NotConnected(false);
            form->IniToolBar2();
            if (!gCommandLine.isEmpty()) mMru::AddToMRUList(gDBPath);
        } else {
            mCommon::NotConnected(true);
            mCommon::EditCaption();
        }
        form->MenuUpdate();
        // The list columns, and the sort the list had when it was last closed.
        mLV::IniList(*form->ListView1, mLV::lcDetails);
        mLV::IniList(*form->ListView2, mLV::lcContacts);
        form->ListView2->SetSortKey(int(mRegSettings::SettingNumber(
            mRegSettings::ReadSetting(QStringLiteral("ColumnHeaders12\\Other"), QStringLiteral("SortKey")))));
        // The order is set the other way round: the sort of the same column turns it back to the
        // stored one. The list of the whole phonebook is filled once, now that it has its columns.
        form->ListView2->SetSortOrder(
            mRegSettings::SettingBool(mRegSettings::ReadSetting(QStringLiteral("ColumnHeaders12\\Other"),
                                                                QStringLiteral("SortOrder")))
                ? 0
                : 1);
        if (connected) mLV::FillDriveList(*form->ListView2, CurrentLetter, CurrentNodeKey);
        mLV::SwitchSortDisk(*form->ListView2, form->ListView2->SortKey(), true);
        busy.reset();
        form->Timer1_Timer(); // the status bar shows the date again
        RunEvent("mTips.StartupTip", [form] { mTips::StartupTip(false, form); });
        // Without a phonebook, the preferences' Database page says why and offers Open and New.
        if (!connected)
            offerPhonebook(*form, reported);
        else
            mAccess::AddTableCombo(form);
        if (connected) form->SyncAtOpen();
        // A phonebook handed over by a second start during the start opens now.
        gMainFormShown = true;
        gStarted = true;
        deliverHandedOver();
    });
}

} // namespace mMain
