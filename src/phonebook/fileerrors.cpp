#include "phonebook/fileerrors.h"

#include "core/language.h"
#include "core/seams.h"
#include "support/helpers/drives.h"

using namespace mLanguageGobals;

namespace mAccess {

FileErrorFamily FileErrorFamilyOf(qint32 number) {
    switch (number) {
    case 3343:
        return FileErrorFamily::NotDatabase;
    case 75:
    case 70:
    case 3051:
    case 3356:
        return FileErrorFamily::AccessDenied;
    case 61:
    case 3799:
    case 3026:
        return FileErrorFamily::NoSpace;
    default:
        return FileErrorFamily::None;
    }
}

void ShowFileError(FileErrorFamily family, const QString& noSpaceText, const QString& path) {
    switch (family) {
    case FileErrorFamily::NotDatabase:
        MsgBox(msgNotADatabaseFileOrCorrupted, vb::vbOKOnly, vb::vbCritical);
        break;
    case FileErrorFamily::AccessDenied:
        MsgBox(msgAccessDenied, vb::vbOKOnly, vb::vbCritical);
        break;
    case FileErrorFamily::NoSpace:
        MsgBox(noSpaceText + QLatin1Char('\n') + msgFreeSpace + mDrive::GetFreeSpace(path, true),
               vb::vbOKOnly, vb::vbCritical);
        break;
    case FileErrorFamily::None:
        break;
    }
}

} // namespace mAccess
