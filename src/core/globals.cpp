#include "core/globals.h"

dao::Workspace gWS;
dao::Database gDB;
bool gWSOpen = false;
bool gDBOpen = false;
QString gDBPath;
bool gFileReadOnly = false;
bool gReadOnlyMode = false;
bool gRestricted = false;
bool gPasswordAccepted = false;
bool gNotConnected = true;
QString gPhotoTempFile;
bool gMainFormShown = false;
bool gManifestPresent = false;
bool gRuntimePresent = false;

QString AppTitle() {
    return QStringLiteral("Kelvarin");
}

#include <QCoreApplication>
#include <QStandardPaths>

QString PersonalFolder() {
    QString p = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (p.isEmpty()) p = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
    return p;
}

QString DefaultFolder() {
    return PersonalFolder() + QLatin1Char('/') + AppTitle();
}

QString DefaultPhonebook() {
    return DefaultFolder() + QStringLiteral("/phonebook.kvdb");
}

QString ProgramFolderPhonebook() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/phonebook.kvdb");
}
