// The recent phonebooks list: its order and length in memory, in the store and in the menu.
#include "core/globals.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/fixture.h"

#include <QAction>
#include <QMap>
#include <QMenu>
#include <QSignalSpy>
#include <QStandardPaths>

using namespace mMru;

namespace {

class RecentList : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        LoadMRUList();
    }
    static QStringList Stored() {
        QMap<int, QString> byNumber;
        for (const auto& entry : GetAllSettings(AppTitle(), "Recent"))
            byNumber.insert(entry.first.toInt(), entry.second);
        return byNumber.values();
    }
};

} // namespace

TEST_F(RecentList, NewestFirstWithoutDuplicatesAndAtMostTen) {
    for (const char* p : {"/a.kvdb", "/b.kvdb", "/c.kvdb", "/c.kvdb"})
        AddToMRUList(p);
    EXPECT_EQ(MRUFiles, QStringList({"/c.kvdb", "/b.kvdb", "/a.kvdb"}));
    AddToMRUList("/a.kvdb");
    AddToMRUList("/A.kvdb"); // names compare exactly
    EXPECT_EQ(MRUFiles, QStringList({"/A.kvdb", "/a.kvdb", "/c.kvdb", "/b.kvdb"}));
    EXPECT_EQ(Stored(), MRUFiles);

    ClearMRUList();
    for (int i = 1; i <= 11; ++i)
        AddToMRUList(QString("/f%1.kvdb").arg(i));
    ASSERT_EQ(MRUFiles.size(), 10);
    EXPECT_EQ(MRUFiles.first(), "/f11.kvdb");
    EXPECT_EQ(MRUFiles.last(), "/f2.kvdb");
    const QStringList before = MRUFiles;
    LoadMRUList();
    EXPECT_EQ(MRUFiles, before);
}

TEST_F(RecentList, AGapHidesEverythingBehindIt) {
    SaveSetting(AppTitle(), "Recent", "1", "/one.kvdb");
    SaveSetting(AppTitle(), "Recent", "2", "/two.kvdb");
    SaveSetting(AppTitle(), "Recent", "4", "/four.kvdb");
    LoadMRUList();
    EXPECT_EQ(MRUFiles, QStringList({"/one.kvdb", "/two.kvdb"}));
    // The next change stores the list as shown, so the hidden entry cannot come back later.
    AddToMRUList("/new.kvdb");
    EXPECT_EQ(Stored(), QStringList({"/new.kvdb", "/one.kvdb", "/two.kvdb"}));
}

TEST_F(RecentList, TheMenuIsToldTheCaptionsOfEveryChange) {
    QList<QStringList> told;
    const MenuHandler old = SetMenuHandler([&](const QStringList& captions) { told << captions; });
    AddToMRUList("/home/me/work.kvdb");
    AddToMRUList("/home/me/R&D.kvdb");
    EXPECT_EQ(ShowMRUList(), QStringList({"&1 /home/me/R&D.kvdb", "&2 /home/me/work.kvdb"}));
    ASSERT_FALSE(told.isEmpty());
    EXPECT_EQ(told.last(), QStringList({"&1 /home/me/R&D.kvdb", "&2 /home/me/work.kvdb"}));
    ClearMRUList();
    EXPECT_TRUE(MRUFiles.isEmpty() && Stored().isEmpty());
    EXPECT_TRUE(told.last().isEmpty()); // an empty list hides every entry
    SetMenuHandler(old);
}

TEST_F(RecentList, ClearingKeepsTheOpenPhonebookUnlessItIsTheDefault) {
    const QString saved = gDBPath;
    AddToMRUList("/x.kvdb");
    AddToMRUList("/y.kvdb");
    gDBPath = "/x.kvdb";
    ClearMRUListKeepCurrent();
    EXPECT_EQ(Stored(), QStringList({"/x.kvdb"}));

    gDBPath =
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Kelvarin/phonebook.kvdb";
    ClearMRUListKeepCurrent();
    EXPECT_TRUE(Stored().isEmpty());
    gDBPath = saved;
}
