// Paths and file names split and trimmed.
#include "support/helpers/paths.h"

#include <gtest/gtest.h>

TEST(Paths, GetPathWithNoSlashDropsOneTrailingSeparator) {
    EXPECT_EQ(mDrive::GetPathWithNoSlash(QStringLiteral("C:\\")), QStringLiteral("C:"));
    EXPECT_EQ(mDrive::GetPathWithNoSlash(QStringLiteral("/home/ann/")), QStringLiteral("/home/ann"));
    EXPECT_EQ(mDrive::GetPathWithNoSlash(QStringLiteral("/a//")), QStringLiteral("/a/"));
    // The root: folder + "/" + name stays a right path.
    EXPECT_EQ(mDrive::GetPathWithNoSlash(QStringLiteral("/")) + QStringLiteral("/book.kvdb"),
              QStringLiteral("/book.kvdb"));
}

TEST(Paths, ParentFolderKeepsTheRoot) {
    EXPECT_EQ(mCommon::SplitingParentFolder(QStringLiteral("/home/ann/phonebook.kvdb")),
              QStringLiteral("/home/ann"));
    EXPECT_EQ(mCommon::SplitingParentFolder(QStringLiteral("/phonebook.kvdb")), QStringLiteral("/"));
    EXPECT_EQ(mCommon::SplitingParentFolder(QStringLiteral("phonebook.kvdb")), QString());
}

TEST(Paths, ElementsCountFromEitherEnd) {
    const QString photo = QStringLiteral("/home/ann/me.at.sea.JPG");
    EXPECT_EQ(mCommon::Spliting2(photo, -1), QStringLiteral("JPG"));
    EXPECT_EQ(mCommon::Spliting2(photo, 0), QStringLiteral("/home/ann/me"));
    EXPECT_EQ(mCommon::Spliting2(photo, 4), QString());
    EXPECT_EQ(mCommon::SplitingFolder(photo, 2), QStringLiteral("ann"));
    EXPECT_EQ(mCommon::SplitingFolder(photo, -1), QStringLiteral("me.at.sea.JPG"));
}
