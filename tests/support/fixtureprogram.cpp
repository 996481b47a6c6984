#include "support/fixtureprogram.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

namespace fixture {

ProgramRun RunProgram(const QStringList& arguments, const QMap<QString, QString>& env) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS"})
        environment.remove(QLatin1String(name));
    for (auto it = env.constBegin(); it != env.constEnd(); ++it)
        environment.insert(it.key(), it.value());
    QProcess p;
    p.setProcessEnvironment(environment);
    p.start(QCoreApplication::applicationDirPath() + QStringLiteral("/kelvarin"), arguments);
    ProgramRun run;
    if (!p.waitForFinished(60000) || p.exitStatus() != QProcess::NormalExit) {
        p.kill();
        p.waitForFinished();
        ADD_FAILURE() << "the program did not end normally";
        return run;
    }
    run.code = p.exitCode();
    run.out = QString::fromUtf8(p.readAllStandardOutput());
    run.err = QString::fromUtf8(p.readAllStandardError());
    return run;
}

} // namespace fixture
