#include "core/errorreport.h"

#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "support/helpers/drives.h"
#include "support/helpers/files.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHash>
#include <QHostInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>
#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>
#include <cstring>

using namespace mLanguageGobals;

namespace HuntERR {

namespace {
constexpr qint64 vbObjectError = -2147221504LL;
constexpr qint64 ERRMAP_APP_FIRST = vbObjectError + 512;

QWidget* loadedForm1() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("Form1")) return w;
    return nullptr;
}

// Fills the %Name% fields of `tpl` in one pass, so that a value which itself contains "%Name%" or
// "%1" is written as it stands.
QString fillTemplate(const QString& tpl, const QHash<QString, QString>& values) {
    QString out;
    qsizetype i = 0;
    while (i < tpl.size()) {
        const qsizetype a = tpl.indexOf(QLatin1Char('%'), i);
        const qsizetype b = a < 0 ? -1 : tpl.indexOf(QLatin1Char('%'), a + 1);
        if (b < 0) {
            out += tpl.mid(i);
            break;
        }
        const auto it = values.constFind(tpl.mid(a + 1, b - a - 1));
        if (it == values.constEnd()) { // not a field: the second '%' may open one
            out += tpl.mid(i, b - i);
            i = b;
            continue;
        }
        out += tpl.mid(i, a - i) + *it;
        i = b + 1;
    }
    return out;
}

} // namespace

QString ErrorText(qint32 number, const QString& source, const QString& description, const QString& method,
                  const QStringList& stack, int systemError) {
    static const QString tpl =
        QStringLiteral("%Descr% %nl%  Time='%Time%' App='%App%:%Ver%' ADO-version='%ADOVersion%' "
                       "Computer='%Comp%' %nl%  Method: %MethodName% %nl%  Number: %ErrNum% = &H%ErrHex% = "
                       "vbObjectError %ErrNumRel1% = ERRMAP_APP_FIRST %ErrNumRel2% %ErrStd%%nl%  Source: "
                       "%Source% %nl%  Description: %Descr%%nl%");
    auto signedRel = [](qint64 v) {
        return (v >= 0 ? QStringLiteral("+ ") : QStringLiteral("- ")) + QString::number(qAbs(v));
    };
    const QHash<QString, QString> values = {
        {QStringLiteral("Time"), QDateTime::currentDateTime().toString(QStringLiteral("MM/dd/yy HH:mm:ss"))},
        {QStringLiteral("App"), QCoreApplication::applicationName()},
        {QStringLiteral("Ver"), QCoreApplication::applicationVersion()},
        {QStringLiteral("ADOVersion"), QString()},
        {QStringLiteral("Comp"), QHostInfo::localHostName()},
        {QStringLiteral("MethodName"), method},
        {QStringLiteral("ErrNum"), QString::number(number)},
        {QStringLiteral("ErrHex"), QString::number(quint32(number), 16).toUpper()},
        {QStringLiteral("ErrNumRel1"), signedRel(number - vbObjectError)},
        {QStringLiteral("ErrNumRel2"), signedRel(number - ERRMAP_APP_FIRST)},
        {QStringLiteral("ErrStd"), QString()},
        {QStringLiteral("Source"), source},
        {QStringLiteral("Descr"), description},
        {QStringLiteral("nl"), QStringLiteral("\n")},
    };
    QString t = fillTemplate(tpl, values);
    t += QStringLiteral("  API Error: (") + QString::number(systemError) + QStringLiteral(") ") +
         QString::fromLocal8Bit(strerror(systemError)) + QLatin1Char('\n');
    t += QStringLiteral("  Call Stack: \n");
    for (const QString& line : stack)
        t += line + QLatin1Char('\n');
    return t;
}

QString ReportFilePath() {
    return PersonalFolder() + QLatin1Char('/') + AppTitle() + QStringLiteral("/ErrorReport.txt");
}

namespace {

// The block of one report as the file receives it, gathered when the report is made.
QString reportBlock(const QString& errorText, const QString& path) {
    QString block;
    QTextStream out(&block);
    const QString program = QCoreApplication::applicationDirPath();
    out << "Please send this file to " << QStringLiteral("support@kelvarin.example") << '\n';
    out << " \n";
    out << errorText << '\n';
    out << "Program path: " << program << '\n';
    out << "Database path: " << gDBPath << '\n';
    out << "Error report path: " << path << '\n';
    out << "Free space (Program): " << mDrive::GetFreeSpace(program, true) << '\n';
    out << "Free space (Database): " << (gDBPath.isEmpty() ? QString() : mDrive::GetFreeSpace(gDBPath, true))
        << '\n';
    out << "Free space (Error): " << mDrive::GetFreeSpace(path, true) << '\n';
    out << "File name : " << QFileInfo(gDBPath).fileName() << '\n';
    out << "File size : " << QString::number(mScanCD::GetFileSize(gDBPath), 'f', 0) << '\n';
    out << "Database size : " << (gDBPath.isEmpty() ? QString() : mScanCD::GetFileDBSize(true, gDBPath))
        << '\n';
    out << "SegmentID: " << '\n';
    out << "Manifest: " << (gManifestPresent ? "True" : "False") << '\n';
    out << "VM: " << (gRuntimePresent ? "True" : "False") << '\n';
    out << "MO: " << '\n';
    out << "OS: " << QSysInfo::prettyProductName() << " build " << QSysInfo::kernelVersion() << " ("
        << QSysInfo::currentCpuArchitecture() << ")" << '\n';
    out << '\n';
    out.flush();
    return block;
}

// Blocks waiting for the file, oldest first. A report made while another waits (from a timer, say)
// queues behind it; whichever report gets the file open writes every queued block in order.
struct Queued {
    quint64 seq;
    QByteArray bytes;
};
QList<Queued> queued;
quint64 lastQueued = 0;
QHash<quint64, bool> written; // written blocks, by whether the write went through

void flushQueue(const QString& path) {
    if (queued.isEmpty()) return;
    QFile f(path);
    if (!f.open(QIODevice::Append | QIODevice::Text)) return;
    for (const Queued& q : std::as_const(queued))
        written.insert(q.seq, f.write(q.bytes) == q.bytes.size());
    if (!f.flush())
        for (const Queued& q : std::as_const(queued))
            written.insert(q.seq, false);
    queued.clear();
}

// Lets timers and painting go on while waiting; what the user types waits for the window.
void pause(int ms) {
    if (!QCoreApplication::instance()) {
        QThread::msleep(ms);
        return;
    }
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

bool WriteReport(const QString& errorText) {
    const QString path = ReportFilePath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    const quint64 mine = ++lastQueued;
    queued.append({mine, reportBlock(errorText, path).toUtf8()});
    for (int attempt = 0;; ++attempt) {
        flushQueue(path);
        if (written.contains(mine)) return written.take(mine);
        if (attempt == 5) break; // the first try and five more, 200 ms apart
        pause(200);
    }
    // Given up: this block leaves the queue; those of the reports still waiting below stay.
    queued.removeIf([mine](const Queued& q) { return q.seq == mine; });
    return false;
}

namespace {

QString laterText(const QList<LaterError>& later, const QString& reportPlace) {
    QString t;
    for (const LaterError& l : later) {
        const QStringList stack = l.stack.isEmpty() ? QStringList{reportPlace} : l.stack;
        t += QStringLiteral("  Raised while the error above was on its way: \n");
        t += ErrorText(l.number, l.source, l.description, stack.first().trimmed(), stack, l.systemError);
    }
    return t;
}

QString summary(const QString& description, bool saved) {
    const QString& sentence = saved ? msgErrorReportSaved : msgErrorReportNotSaved;
    if (sentence.isEmpty()) return QString();
    QString what = description.trimmed();
    if (what.endsWith(QLatin1Char('.'))) what.chop(1);
    return sentence.arg(what, QDir::toNativeSeparators(ReportFilePath()));
}

void deliver(const QString& text, const QString& description) {
    bool saved = false;
    try {
        saved = WriteReport(text);
    } catch (...) {
    }
    QWidget* owner = loadedForm1();
    frmShowError form(owner);
    form.ErrorReport(text);
    form.SetSummary(summary(description, saved));
    ShowModal(&form, owner);
}

} // namespace

void Report(const Error& e, const char* place) {
    const QString at = QStringLiteral("    ") + QString::fromUtf8(place);
    const QStringList stack = e.Stack() + QStringList{at};
    const QString text =
        ErrorText(e.Number(), e.Source(), e.Description(), stack.first().trimmed(), stack, e.SystemError()) +
        laterText(e.LaterErrors(), at);
    deliver(text, e.Description());
}

void ReportForeign(const std::exception& e, const char* place) {
    const ForeignTrail trail = TakeForeignTrail();
    const QString at = QStringLiteral("    ") + QString::fromUtf8(place);
    const QStringList stack = trail.stack + QStringList{at};
    const QString description = QString::fromLocal8Bit(e.what());
    const QString text = ErrorText(51, QStringLiteral("Kelvarin"), description, stack.first().trimmed(),
                                   stack, trail.systemError) +
                         laterText(trail.later, at);
    deliver(text, description);
}

} // namespace HuntERR

frmShowError::frmShowError(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShowError"));
    setWindowTitle(msgProgramError);
    setSizeGripEnabled(true);

    auto* icon = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical, nullptr, this).pixmap(side, side));
    icon->setAlignment(Qt::AlignTop);
    lblSummary = new QLabel(this);
    lblSummary->setObjectName(QStringLiteral("lblSummary"));
    lblSummary->setWordWrap(true);
    lblSummary->setTextFormat(Qt::PlainText);
    lblSummary->setTextInteractionFlags(Qt::TextSelectableByMouse); // the path can be copied
    lblSummary->hide();
    auto* top = new QHBoxLayout;
    top->setSpacing(12);
    top->addWidget(icon);
    top->addWidget(lblSummary, 1);

    txtError = new QPlainTextEdit(this);
    txtError->setObjectName(QStringLiteral("txtError"));
    txtError->setReadOnly(true);
    txtError->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtError->setTabChangesFocus(true);
    txtError->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    bnClose = new QPushButton(msgClose, this);
    bnClose->setObjectName(QStringLiteral("bnClose"));
    bnClose->setDefault(true); // Enter anywhere in the window; Esc closes a dialog anyway
    connect(bnClose, &QPushButton::clicked, this, &QDialog::reject);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(bnClose);

    auto* layout = new QVBoxLayout(this); // the box follows the size of the window
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addLayout(top);
    layout->addWidget(txtError, 1);
    layout->addLayout(bottom);

    // Room for the widest lines of a report, within the screen.
    const QFontMetrics fm(txtError->font());
    QSize size(fm.horizontalAdvance(QString(96, QLatin1Char('0'))) + 60, fm.lineSpacing() * 24 + 140);
    if (const QScreen* screen = this->screen()) size = size.boundedTo(screen->availableSize() * 9 / 10);
    resize(size);
    bnClose->setFocus();
}

void frmShowError::ErrorReport(const QString& text) {
    txtError->setPlainText(text);
}

void frmShowError::SetSummary(const QString& sentence) {
    lblSummary->setText(sentence);
    lblSummary->setVisible(!sentence.isEmpty());
}
