#pragma once
// Drives and volumes: the mounted volumes, their kind, label, file system and free space. What
// Linux does not tell (a volume's serial number) is empty.

#include <QString>
#include <QStringList>

namespace mDrive {

// The root folders of the mounted volumes that are ready.
QStringList GetDriveNames();

// The kind of the volume that holds the path `Browse`: "REMOVABLE", "FIXED", "REMOTE", "CDROM",
// "RAMDISK" or "UNKNOWN". With DetectFloppy, a removable volume of at most 1457664 bytes is
// "FLOPPY".
QString uGetDriveType(const QString& Browse, bool DetectFloppy = false);
// The rule behind uGetDriveType, from what the system tells of a volume.
QString DriveKind(const QString& fileSystemType, const QString& device, bool removable, qint64 bytesTotal,
                  bool DetectFloppy);

// Of the volume that holds `strDrive`: iType 1 the serial number ("XXXX-XXXX"; always "" here),
// 2 the volume label, 3 the file system name. "" for anything unknown.
QString GetDriveInfo(const QString& strDrive, int iType);

// Free bytes, for this user, of the volume that holds sPath (or would hold it: a path that does
// not exist yet is measured at its nearest existing folder). "1,536 bytes (1.5 KB)" when
// Detailed, else "1,536 bytes"; "" for an empty path or an unknown volume.
QString GetFreeSpace(const QString& sPath, bool Detailed);

// Releases every CD drive that this program has locked.
void UnlockAllCD();

} // namespace mDrive

namespace mCD {

// Locks or unlocks the tray of a CD drive, given by its device ("/dev/sr0") or by a path on its
// mounted disc. False when the drive cannot be reached.
bool LockCD(const QString& sDrive, bool bLock);

} // namespace mCD

namespace mComputerName {

QString GetComputerName(); // the host name of this machine

} // namespace mComputerName
