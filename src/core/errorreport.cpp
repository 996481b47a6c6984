#include "core/errorreport.h"

#include "core/globals.h"
#include "core/seams.h"
#include "support/helpers/drives.h"
#include "support/helpers/files.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHostInfo>
#include <QPlainTextEdit>
#include <QSysInfo>
#include <QTextStream>
#include <QThread>
#include <QVBoxLayout>
#include <cerrno>
#include <cstring>

namespace HuntERR {

namespace {
constexpr qint64 vbObjectError = -2147221504LL;
constexpr qint64 ERRMAP_APP_FIRST = vbObjectError + 512;

QWidget* loadedForm1() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("Form1")) return w;
    return nullptr;
}
} // namespace

QString ErrorText(qint32 number, const QString& source, const QString& description, const QString& method,
                  const QStringList& stack) {
    QString t = QStringLiteral("%Descr% %nl%  Time='%Time%' App='%App%:%Ver%' ADO-version='%ADOVersion%' "
                               "Computer='%Comp%' %nl%  Method: %MethodName% %nl%  Number: %ErrNum% = &H%ErrHex% = "
                               "vbObjectError %ErrNumRel1% = ERRMAP_APP_FIRST %ErrNumRel2% %ErrStd%%nl%  Source: "
                               "%Source% %nl%  Description: %Descr%%nl%");
    auto signedRel = [](qint64 v) { return (v >= 0 ? QStringLiteral("+ ") : QStringLiteral("- ")) + QString::number(qAbs(v)); };
    t.replace(QLatin1String("%Time%"), QDateTime::currentDateTime().toString(QStringLiteral("MM/dd/yy HH:mm:ss")));
    t.replace(QLatin1String("%App%"), QCoreApplication::applicationName());
    t.replace(QLatin1String("%Ver%"), QCoreApplication::applicationVersion());
    t.replace(QLatin1String("%ADOVersion%"), QString());
    t.replace(QLatin1String("%Comp%"), QHostInfo::localHostName());
    t.replace(QLatin1String("%MethodName%"), method);
    t.replace(QLatin1String("%ErrNum%"), QString::number(number));
    t.replace(QLatin1String("%ErrHex%"), QString::number(quint32(number), 16).toUpper());
    t.replace(QLatin1String("%ErrNumRel1%"), signedRel(number - vbObjectError));
    t.replace(QLatin1String("%ErrNumRel2%"), signedRel(number - ERRMAP_APP_FIRST));
    t.replace(QLatin1String("%ErrStd%"), QString());
    t.replace(QLatin1String("%Source%"), source);
    t.replace(QLatin1String("%Descr%"), description);
    t.replace(QLatin1String("%nl%"), QStringLiteral("\n"));
    const int api = errno;
    t += QStringLiteral("  API Error: (") + QString::number(api) + QStringLiteral(") ") +
         QString::fromLocal8Bit(strerror(api)) + QLatin1Char('\n');
    t += QStringLiteral("  Call Stack: \n");
    for (const QString& line : stack) t += line + QLatin1Char('\n');
    return t;
}

QString ReportFilePath() { return PersonalFolder() + QLatin1Char('/') + AppTitle() + QStringLiteral("/ErrorReport.txt"); }

void WriteReport(const QString& errorText) {
    const QString path = ReportFilePath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    bool open = false;
    for (int i = 0; i < 6 && !(open = f.open(QIODevice::Append | QIODevice::Text)); ++i) QThread::msleep(200);
    if (!open) return; // the window shows the error all the same
    QTextStream out(&f);
    const QString program = QCoreApplication::applicationDirPath();
    out << "Please send this file to " << QStringLiteral("support@kelvarin.example") << '\n';
    out << " \n";
    out << errorText << '\n';
    out << "Program path: " << program << '\n';
    out << "Database path: " << gDBPath << '\n';
    out << "Error report path: " << path << '\n';
    out << "Free space (Program): " << mDrive::GetFreeSpace(program, true) << '\n';
    out << "Free space (Database): " << (gDBPath.isEmpty() ? QString() : mDrive::GetFreeSpace(gDBPath, true)) << '\n';
    out << "Free space (Error): " << mDrive::GetFreeSpace(path, true) << '\n';
    out << "File name : " << QFileInfo(gDBPath).fileName() << '\n';
    out << "File size : " << QString::number(mScanCD::GetFileSize(gDBPath), 'f', 0) << '\n';
    out << "Database size : " << (gDBPath.isEmpty() ? QString() : mScanCD::GetFileDBSize(true, gDBPath)) << '\n';
    out << "SegmentID: " << '\n';
    out << "Manifest: " << (gManifestPresent ? "True" : "False") << '\n';
    out << "VM: " << (gRuntimePresent ? "True" : "False") << '\n';
    out << "MO: " << '\n';
    out << "OS: " << QSysInfo::prettyProductName() << " build " << QSysInfo::kernelVersion() << " ("
        << QSysInfo::currentCpuArchitecture() << ")" << '\n';
    out << '\n';
}

namespace {
void show(const QString& text) {
    frmShowError form(loadedForm1());
    form.ErrorReport(text);
    ShowModal(&form, loadedForm1());
}
} // namespace

void Report(const Error& e, const char* place) {
    AppendPlace(QStringLiteral("    ") + QString::fromUtf8(place));
    const QStringList stack = PendingStack();
    const QString method = stack.isEmpty() ? QString::fromUtf8(place) : stack.first().trimmed();
    const QString text = ErrorText(e.Number(), e.Source(), e.Description(), method, stack);
    ClearPendingStack();
    try {
        WriteReport(text);
    } catch (...) {
    }
    show(text);
}

void ReportForeign(const std::exception& e, const char* place) {
    AppendPlace(QStringLiteral("    ") + QString::fromUtf8(place));
    const QStringList stack = PendingStack();
    const QString text = ErrorText(51, QStringLiteral("Kelvarin"), QString::fromLocal8Bit(e.what()),
                                   stack.isEmpty() ? QString::fromUtf8(place) : stack.first().trimmed(), stack);
    ClearPendingStack();
    try {
        WriteReport(text);
    } catch (...) {
    }
    show(text);
}

} // namespace HuntERR

frmShowError::frmShowError(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShowError"));
    setWindowTitle(QStringLiteral("Program Error"));
    setSizeGripEnabled(true);
    txtError = new QPlainTextEdit(this);
    txtError->setObjectName(QStringLiteral("txtError"));
    txtError->setReadOnly(true);
    txtError->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* layout = new QVBoxLayout(this); // the box follows the size of the window
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(txtError);
    resize(640, 420);
}

void frmShowError::ErrorReport(const QString& text) { txtError->setPlainText(text); }
