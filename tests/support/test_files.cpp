// Files, folders and volumes on this machine.
#include "support/fixture.h"
#include "support/helpers/drives.h"
#include "support/helpers/files.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {
class FilesOnDisk : public fixture::TempDirTest {
  protected:
    QString writeFile(const QString& name, int bytes) {
        QFile f(path(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(bytes, 'x'));
        return f.fileName();
    }
};
} // namespace

TEST_F(FilesOnDisk, ExistenceAndSize) {
    const QString book = writeFile(QStringLiteral("book.kvdb"), 1536);
    const QString folder = m_dir.path();
    EXPECT_TRUE(mScanCD::FileExist(book));
    EXPECT_TRUE(mScanCD::FileExist(folder));
    EXPECT_FALSE(mScanCD::FolderExist(book));
    EXPECT_TRUE(mScanCD::FolderExist(folder));
    EXPECT_TRUE(mScanCD::FolderExist(QStringLiteral("/")));
    EXPECT_EQ(mScanCD::GetFileSize(book), 1536.0);
    EXPECT_EQ(mScanCD::GetFileSize(folder), 0.0);

    const QString missing = path(QStringLiteral("gone/book.kvdb"));
    EXPECT_FALSE(mScanCD::FileExist(missing));
    EXPECT_FALSE(mScanCD::FolderExist(path(QStringLiteral("gone"))));
}

TEST_F(FilesOnDisk, PhonebookSizeForDisplay) {
    const QString book = writeFile(QStringLiteral("book.kvdb"), 1536);
    EXPECT_EQ(mScanCD::GetFileDBSize(true, book), QStringLiteral("1,536 bytes (1.5 KB)"));
    EXPECT_EQ(mScanCD::GetFileDBSize(false, book), QStringLiteral("1,536 bytes"));
    EXPECT_EQ(mScanCD::FileSizeWFD(0, -1), 4294967295.0);
    EXPECT_EQ(mScanCD::FileSizeWFD(1, 1536), 4294967296.0 + 1536.0);
}

TEST_F(FilesOnDisk, FreeSpaceOfAFileNotYetMade) {
    const QString future = path(QStringLiteral("not/yet/book.kvdb"));
    const QString detailed = mDrive::GetFreeSpace(future, true);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9,]+ bytes \\(.+\\)$")).match(detailed).hasMatch())
        << detailed.toStdString();
    // The short form is the detailed one without its rounded part (free space moves between calls,
    // so only the shape is compared).
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9,]+ bytes$"))
                    .match(mDrive::GetFreeSpace(future, false))
                    .hasMatch());
    EXPECT_EQ(mDrive::GetFreeSpace(QString(), true), QString());
}

TEST_F(FilesOnDisk, TheVolumeOfAFolder) {
    const QString folder = m_dir.path();
    const QStringList kinds{"REMOVABLE", "FIXED", "REMOTE", "CDROM", "RAMDISK"};
    EXPECT_TRUE(kinds.contains(mDrive::uGetDriveType(folder))) << mDrive::uGetDriveType(folder).toStdString();
    EXPECT_EQ(mDrive::uGetDriveType(path(QStringLiteral("gone"))), QStringLiteral("UNKNOWN"));
    EXPECT_FALSE(mDrive::GetDriveInfo(folder, 3).isEmpty());
    EXPECT_EQ(mDrive::GetDriveInfo(folder, 1), QString()); // no serial numbers on this system
}

TEST(DriveKinds, WhatTheSystemTellsOfAVolume) {
    using mDrive::DriveKind;
    EXPECT_EQ(DriveKind("ext4", "/dev/nvme0n1p2", false, 500000000000LL, false), "FIXED");
    EXPECT_EQ(DriveKind("vfat", "/dev/sdb1", true, 16000000000LL, true), "REMOVABLE");
    EXPECT_EQ(DriveKind("vfat", "/dev/fd0", false, 1457664, false), "REMOVABLE");
    EXPECT_EQ(DriveKind("vfat", "/dev/fd0", false, 1457664, true), "FLOPPY");
    EXPECT_EQ(DriveKind("iso9660", "/dev/sr0", true, 700000000, true), "CDROM");
    EXPECT_EQ(DriveKind("nfs4", "server:/export", false, 1000000000000LL, false), "REMOTE");
    EXPECT_EQ(DriveKind("tmpfs", "tmpfs", false, 1000000000, false), "RAMDISK");
    EXPECT_EQ(DriveKind("proc", "proc", false, 0, false), "UNKNOWN");
}
