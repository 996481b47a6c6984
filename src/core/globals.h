#pragma once
// Process-wide state of the application core: the open phonebook and the session's flags.

#include "phonebook/store/dao.h"

#include <QString>

extern dao::Workspace gWS; // workspace of the open phonebook; every transaction runs on it
extern dao::Database gDB;  // the open phonebook; every SQL statement runs on it
extern bool gWSOpen;
extern bool gDBOpen;
extern QString gDBPath;    // full path of the phonebook that is, or is to be, open
extern bool gFileReadOnly; // the file was opened by the read-only fallback
extern bool gReadOnlyMode; // the session is in Read-only access
extern bool gRestricted;   // either of the two above
extern bool gPasswordAccepted;
extern bool gNotConnected; // no phonebook is open
extern QString gPhotoTempFile;
extern bool gMainFormShown;
extern bool gManifestPresent;
extern bool gRuntimePresent;

// The application title: the settings root and the name of the personal data folder.
QString AppTitle();

// The personal (documents) folder, the default folder under it and the default phonebook there.
QString PersonalFolder();
QString DefaultFolder();
QString DefaultPhonebook();
// "phonebook.kvdb" beside the program.
QString ProgramFolderPhonebook();
