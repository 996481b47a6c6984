#include "support/helpers/drives.h"

#include "core/error.h"
#include "support/helpers/values.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>
#include <QSysInfo>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// The "removable" flag the kernel keeps for the disk that holds a block device.
bool isRemovableDevice(const QString& device) {
    if (!device.startsWith(QLatin1String("/dev/"))) return false;
    QString dev = QFileInfo(device).canonicalFilePath();
    if (dev.isEmpty()) dev = device;
    QString sys =
        QFileInfo(QStringLiteral("/sys/class/block/") + QFileInfo(dev).fileName()).canonicalFilePath();
    if (sys.isEmpty()) return false;
    if (QFileInfo::exists(sys + QStringLiteral("/partition"))) sys = QFileInfo(sys).path();
    QFile flag(sys + QStringLiteral("/removable"));
    return flag.open(QIODevice::ReadOnly) && flag.readAll().trimmed() == "1";
}

QSet<QString>& lockedDrives() {
    static QSet<QString> s;
    return s;
}

QString cdDevice(const QString& sDrive) {
    if (sDrive.startsWith(QLatin1String("/dev/"))) return sDrive;
    const QStorageInfo info(sDrive);
    return info.isValid() ? QString::fromLocal8Bit(info.device()) : QString();
}

} // namespace

namespace mDrive {

QStringList GetDriveNames() {
    HUNT_PLACE("mDrive.GetDriveNames");
    QStringList roots;
    for (const QStorageInfo& v : QStorageInfo::mountedVolumes()) {
        if (v.isValid() && v.isReady()) roots << v.rootPath();
    }
    return roots;
}

QString DriveKind(const QString& fileSystemType, const QString& device, bool removable, qint64 bytesTotal,
                  bool DetectFloppy) {
    static const QSet<QString> remote{
        QStringLiteral("nfs"),        QStringLiteral("nfs4"),        QStringLiteral("cifs"),
        QStringLiteral("smb3"),       QStringLiteral("smbfs"),       QStringLiteral("ncpfs"),
        QStringLiteral("afs"),        QStringLiteral("9p"),          QStringLiteral("ceph"),
        QStringLiteral("glusterfs"),  QStringLiteral("lustre"),      QStringLiteral("davfs"),
        QStringLiteral("fuse.sshfs"), QStringLiteral("fuse.davfs2"), QStringLiteral("fuse.rclone"),
        QStringLiteral("fuse.s3fs"),  QStringLiteral("sshfs")};
    static const QSet<QString> local{
        QStringLiteral("ext2"),    QStringLiteral("ext3"),     QStringLiteral("ext4"),
        QStringLiteral("xfs"),     QStringLiteral("btrfs"),    QStringLiteral("f2fs"),
        QStringLiteral("jfs"),     QStringLiteral("reiserfs"), QStringLiteral("zfs"),
        QStringLiteral("overlay"), QStringLiteral("vfat"),     QStringLiteral("msdos"),
        QStringLiteral("exfat"),   QStringLiteral("ntfs"),     QStringLiteral("ntfs3"),
        QStringLiteral("fuseblk"), QStringLiteral("hfsplus")};

    const QString fs = fileSystemType.toLower();
    if (fs.isEmpty() && device.isEmpty()) return QStringLiteral("UNKNOWN");
    if (remote.contains(fs) || device.startsWith(QLatin1String("//")) ||
        (!device.startsWith(QLatin1Char('/')) && device.contains(QLatin1String(":/"))))
        return QStringLiteral("REMOTE");
    if (fs == QLatin1String("tmpfs") || fs == QLatin1String("ramfs") ||
        device.startsWith(QLatin1String("/dev/ram")))
        return QStringLiteral("RAMDISK");
    if (fs == QLatin1String("iso9660") || fs == QLatin1String("udf") ||
        device.startsWith(QLatin1String("/dev/sr")) || device.startsWith(QLatin1String("/dev/scd")) ||
        device.startsWith(QLatin1String("/dev/cdrom")))
        return QStringLiteral("CDROM");
    if (removable || device.startsWith(QLatin1String("/dev/fd"))) {
        if (DetectFloppy && bytesTotal <= 1457664) return QStringLiteral("FLOPPY");
        return QStringLiteral("REMOVABLE");
    }
    if (device.startsWith(QLatin1String("/dev/")) || local.contains(fs)) return QStringLiteral("FIXED");
    return QStringLiteral("UNKNOWN");
}

QString uGetDriveType(const QString& Browse, bool DetectFloppy) {
    HUNT_PLACE("mDrive.uGetDriveType(Browse,DetectFloppy)", Browse, DetectFloppy);
    if (Browse.isEmpty()) return QStringLiteral("UNKNOWN");
    const QStorageInfo info(Browse);
    if (!info.isValid()) return QStringLiteral("UNKNOWN");
    const QString device = QString::fromLocal8Bit(info.device());
    return DriveKind(QString::fromLatin1(info.fileSystemType()), device, isRemovableDevice(device),
                     info.bytesTotal(), DetectFloppy);
}

QString GetDriveInfo(const QString& strDrive, int iType) {
    HUNT_PLACE("mDrive.GetDriveInfo(strDrive,iType)", strDrive, iType);
    if (strDrive.isEmpty()) return QString();
    const QStorageInfo info(strDrive);
    if (!info.isValid()) return QString();
    switch (iType) {
    case 2:
        return info.name();
    case 3:
        return QString::fromLatin1(info.fileSystemType());
    default:
        return QString(); // 1, the serial number, is not known on this system
    }
}

QString GetFreeSpace(const QString& sPath, bool Detailed) {
    HUNT_PLACE("mDrive.GetFreeSpace(sPath,Detailed)", sPath, Detailed);
    if (sPath.isEmpty()) return QString();
    QString at = QFileInfo(sPath).absoluteFilePath();
    while (!QFileInfo::exists(at)) {
        const QString parent = QFileInfo(at).path();
        if (parent == at) break;
        at = parent;
    }
    const QStorageInfo info(at);
    if (!info.isValid() || !info.isReady()) return QString();
    const double freeBytes = double(info.bytesAvailable());
    QString text = mCommon::SizeCorrectView(freeBytes, 1);
    if (Detailed) text += QStringLiteral(" (") + mCommon::RoundEx(freeBytes) + QLatin1Char(')');
    return text;
}

void UnlockAllCD() {
    HUNT_PLACE("mDrive.UnlockAllCD");
    const QList<QString> drives = lockedDrives().values();
    for (const QString& d : drives)
        mCD::LockCD(d, false);
}

} // namespace mDrive

namespace mCD {

bool LockCD(const QString& sDrive, bool bLock) {
    HUNT_PLACE("mCD.LockCD(sDrive,bLock)", sDrive, bLock);
    const QString device = cdDevice(sDrive);
    if (device.isEmpty()) return false;
    const int fd = ::open(QFile::encodeName(device).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return false;
    const bool ok = ::ioctl(fd, CDROM_LOCKDOOR, bLock ? 1 : 0) == 0;
    ::close(fd);
    if (ok) {
        if (bLock)
            lockedDrives().insert(device);
        else
            lockedDrives().remove(device);
    }
    return ok;
}

} // namespace mCD

namespace mComputerName {

QString GetComputerName() {
    return QSysInfo::machineHostName();
}

} // namespace mComputerName
