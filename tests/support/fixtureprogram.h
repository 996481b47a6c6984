#pragma once
// The built program run as a script runs it: no display, a status and what it printed.

#include <QMap>
#include <QString>
#include <QStringList>

namespace fixture {

struct ProgramRun {
    int code = -1;
    QString out, err;
};

// Runs kelvarin (beside the test program) without a display or session bus, with `env` added to
// the environment. A run that does not end within a minute fails the test.
ProgramRun RunProgram(const QStringList& arguments, const QMap<QString, QString>& env = {});

} // namespace fixture
