// The three-way merge of a contact changed on both sides of a sync.
#include "sync/merge.h"

#include <gtest/gtest.h>

using exchange::ContactRecord;
using exchange::NumberRow;

namespace {

const QDateTime kWhen(QDate(2026, 11, 23), QTime(18, 40));

ContactRecord Base() {
    ContactRecord r;
    r.FullName = QStringLiteral("Ana Lima");
    r.Title = QStringLiteral("Engineer");
    r.Company = QStringLiteral("Acme");
    r.City = QStringLiteral("Porto");
    r.Comment = QStringLiteral("Met at the fair");
    r.Numbers = {{QStringLiteral("Mobile phone"), QStringLiteral("+351 900 000 001")},
                 {QStringLiteral("Email"), QStringLiteral("ana@example.org")}};
    r.CategoryPath = {QStringLiteral("Friends")};
    return r;
}

TEST(Merge, EachSideKeepsWhatOnlyItChanged) {
    ContactRecord local = Base(), remote = Base();
    local.Title = QStringLiteral("Lead engineer");
    remote.City = QStringLiteral("Braga");
    remote.Favorite = true;
    const auto m = carddav::MergeContact(Base(), local, remote, kWhen);
    EXPECT_EQ(m.conflicts, 0);
    EXPECT_EQ(m.record.Title, QStringLiteral("Lead engineer"));
    EXPECT_EQ(m.record.City, QStringLiteral("Braga"));
    EXPECT_TRUE(m.record.Favorite);
    EXPECT_EQ(m.record.Comment, Base().Comment);

    // The same change on both sides is no conflict.
    remote.Title = local.Title;
    EXPECT_EQ(carddav::MergeContact(Base(), local, remote, kWhen).conflicts, 0);
    // Nothing changed anywhere: the base comes back unchanged.
    EXPECT_EQ(carddav::MergeContact(Base(), Base(), Base(), kWhen).record, Base());
}

TEST(Merge, BothSidesChangedOneFieldKeepsLocalAndNotesTheServersValue) {
    ContactRecord local = Base(), remote = Base();
    local.Title = QStringLiteral("Lead engineer");
    remote.Title = QStringLiteral("Architect");
    local.Comment = QStringLiteral("Met at the fair; likes jazz");
    remote.Comment = QStringLiteral("Met at the fair\nCall after 6");
    remote.CategoryPath = {QStringLiteral("Work"), QStringLiteral("Porto")};
    local.CategoryPath = {QStringLiteral("Family")};
    const auto m = carddav::MergeContact(Base(), local, remote, kWhen);
    EXPECT_EQ(m.conflicts, 3);
    EXPECT_EQ(m.record.Title, QStringLiteral("Lead engineer"));
    EXPECT_EQ(m.record.CategoryPath, local.CategoryPath);
    EXPECT_EQ(m.record.Comment, QStringLiteral("Met at the fair; likes jazz\n"
                                               "Title on the server, 2026-11-23 18:40: Architect\n"
                                               "Category on the server, 2026-11-23 18:40: Work/Porto\n"
                                               "Comment on the server, 2026-11-23 18:40: Met at the fair\n"
                                               "Call after 6"));
}

TEST(Merge, NumbersMergeAsAListAndNothingIsDropped) {
    ContactRecord local = Base(), remote = Base();
    // Here: the e-mail address edited and a number added; there: the mobile removed, a fax added.
    local.Numbers[1].value = QStringLiteral("ana@lima.example");
    local.Numbers << NumberRow{QStringLiteral("Home phone"), QStringLiteral("22 000 0000")};
    remote.Numbers.removeFirst();
    remote.Numbers << NumberRow{QStringLiteral("Fax"), QStringLiteral("22 111 1111")};
    auto m = carddav::MergeContact(Base(), local, remote, kWhen);
    EXPECT_EQ(m.conflicts, 1);
    EXPECT_EQ(m.record.Numbers,
              (QList<NumberRow>{{QStringLiteral("Email"), QStringLiteral("ana@lima.example")},
                                {QStringLiteral("Home phone"), QStringLiteral("22 000 0000")},
                                {QStringLiteral("Fax"), QStringLiteral("22 111 1111")}}));

    // The same number edited differently on both sides: both values stay.
    local = Base();
    remote = Base();
    local.Numbers[0].value = QStringLiteral("+351 900 000 002");
    remote.Numbers[0].value = QStringLiteral("+351 900 000 003");
    m = carddav::MergeContact(Base(), local, remote, kWhen);
    ASSERT_EQ(m.record.Numbers.size(), 3);
    EXPECT_EQ(m.record.Numbers[0].value, QStringLiteral("+351 900 000 002"));
    EXPECT_EQ(m.record.Numbers[2].value, QStringLiteral("+351 900 000 003"));

    // Only one side changed the list: that side's list, order included.
    remote = Base();
    std::swap(remote.Numbers[0], remote.Numbers[1]);
    EXPECT_EQ(carddav::MergeContact(Base(), Base(), remote, kWhen).record.Numbers, remote.Numbers);
}

TEST(Merge, NumbersPastTwelveGoToTheComment) {
    ContactRecord base, local, remote;
    for (int i = 0; i < 10; ++i)
        base.Numbers << NumberRow{QStringLiteral("Phone"), QString::number(i)};
    local = remote = base;
    local.Numbers << NumberRow{QStringLiteral("Phone"), QStringLiteral("L1")}
                  << NumberRow{QStringLiteral("Phone"), QStringLiteral("L2")};
    remote.Numbers << NumberRow{QStringLiteral("Pager"), QStringLiteral("R1")};
    const auto m = carddav::MergeContact(base, local, remote, kWhen);
    EXPECT_EQ(m.record.Numbers.size(), exchange::kNumberRows);
    EXPECT_EQ(m.record.Comment, QStringLiteral("Pager on the server, 2026-11-23 18:40: R1"));
}

TEST(Merge, FirstMeetingWithoutABaseFillsGapsAndNotesDifferences) {
    // Linked on the first sync by the duplicate rule: no version was ever agreed.
    ContactRecord local, remote;
    local.FullName = remote.FullName = QStringLiteral("Jürgen Weiß");
    local.Company = QStringLiteral("Stadtwerke");
    remote.Title = QStringLiteral("Ingenieur");
    remote.Company = QStringLiteral("Stadtwerke GmbH");
    remote.Photo = QByteArray("\x89PNG....", 8);
    remote.PhotoExt = QStringLiteral("png");
    const auto m = carddav::MergeContact(ContactRecord(), local, remote, kWhen);
    EXPECT_EQ(m.record.Title, QStringLiteral("Ingenieur"));
    EXPECT_EQ(m.record.Company, QStringLiteral("Stadtwerke"));
    EXPECT_EQ(m.record.Photo, remote.Photo);
    EXPECT_EQ(m.conflicts, 1);
    EXPECT_TRUE(m.record.Comment.contains(QStringLiteral("Stadtwerke GmbH")));
}

} // namespace
