// The message catalogue: the English procedure fills every text, in order, exactly as written.
#include "core/language.h"

#include <QSet>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace mLanguageGobals;

namespace {

class LanguageTest : public ::testing::Test {
  protected:
    void SetUp() override { mLanguageEng::lngEng(); }
};

int IndexOf(const QString* text) {
    return AllTexts().indexOf(text);
}

} // namespace

TEST_F(LanguageTest, EveryTextIsFilledOnceAndOnOneLine) {
    const QList<const QString*> all = AllTexts();
    // The 514 texts of the catalogue's own list, then those the windows quote where they use them.
    ASSERT_EQ(all.size(), 543);

    // No variable is listed twice, so the count is a count of distinct texts.
    QSet<const QString*> distinct(all.begin(), all.end());
    EXPECT_EQ(distinct.size(), all.size());

    for (int i = 0; i < all.size(); ++i) {
        const QString& text = *all[i];
        EXPECT_FALSE(text.isEmpty()) << "text " << i << " is empty";
        EXPECT_FALSE(text.contains(QLatin1Char('\r')) || text.contains(QLatin1Char('\n')))
            << "text " << i << " has a line break: " << text.toStdString();
    }
}

TEST_F(LanguageTest, TextsAreExactIncludingTrailingBlanksAndColons) {
    const std::vector<std::pair<const QString*, const char*>> samples = {
        // sizes and drive kinds
        {&msgFileFolder, "File Folder"},
        {&msgBytes, "bytes"},
        {&msgCDsAndDVDs, "CDs and DVDs"},
        // the same words as a caption and as a label
        {&msgFullName, "Full Name"},
        {&msgFullNameColon, "Full Name:"},
        {&msgContactNumberColon, "Contact #:"},
        {&msgContactNumber, "Contact #"},
        // texts that are joined with a value where they are used
        {&msgFreeSpace, "Free space: "},
        {&msgObjects, "Objects: "},
        {&msgTotalSize, "Total size: "},
        {&msgSizeColon, "Size: "},
        {&msgAllIn, "All in "},
        {&msgAllOfType, "All of type "},
        {&msgSelectedObjects, "Selected objects: "},
        {&msgByInfo5, "by Info 5 "},
        {&msgByInfo6, "by Info 6 "},
        {&msgByInfo7, "by Info 7"},
        // menus, headings and wizard buttons
        {&msgByNumber, "by #"},
        {&msgDiskInfoHeading, "DISK INFO"},
        {&msgDiskInfo, "Disk info"},
        {&msgBackArrow, "< Back"},
        {&msgNextArrow, "Next >"},
        {&msgNext, "Next"},
        {&msgMoveDatabaseTo, "Move database to..."},
        // texts that differ only in case are separate
        {&msgTipOfTheDay, "Tip of the day"},
        {&msgTipOfTheDayTitle, "Tip of the Day"},
        {&msgLargeIcons, "Large Icons"},
        {&msgLargeIconsOption, "Large icons"},
        {&msgSendFeedback, "Send feedback"},
        {&msgSendFeedbackMenu, "Send Feedback"},
        // sentences with inner punctuation
        {&msgCannotOpenPhonebookNoSpace,
         "Cannot open the phonebook, probably not enough free space on the disk."},
        {&msgIfTheErrorOccursAgain, "If the error occurs again, please send a message with an attached "
                                    "ErrorReport.txt file by following these directions:"},
        {&msgStep2AttachErrorReport,
         "2) Attach the ErrorReport.txt file located in the folder (click to open folder):"},
        {&msgPhoneFaxEmailSkypeEtc, "Phone, Fax, Email, Skype, etc."},
        {&msgKelvarinSupportsOnly, "Kelvarin supports only Windows 2000/XP/2003/Vista"},
        // default tree names, access and the last text
        {&msgAllCategories, "All categories"},
        {&msgAccessDenied, "Access Denied"},
        {&msgReadOnlyAccess, "Read-only access"},
        {&msgFonts, "Fonts"},
    };
    for (const auto& [text, expected] : samples)
        EXPECT_EQ(*text, QString::fromUtf8(expected)) << "position " << IndexOf(text);
}

TEST_F(LanguageTest, RepeatedTextsAreSeparateVariables) {
    const std::vector<std::vector<const QString*>> repeated = {
        {&msgFolders, &msgFoldersColumn, &msgFoldersSearch},
        {&msgFiles, &msgFilesSearch, &msgFilesReport},
        {&msgFavorites, &msgFavoritesTree, &msgFavoritesHistory},
        {&msgKelvarin, &msgKelvarin2, &msgKelvarin3},
        {&msgFavoritesColon, &msgFavoritesColon2},
        {&msgDatabaseInfo, &msgDatabaseInfoTitle},
        {&msgClearDatabase, &msgClearDatabaseButton},
        {&msgSearch, &msgSearchTitle},
        {&msgStatistics, &msgStatisticsTitle},
        {&msgPreferences, &msgPreferencesTitle},
        {&msgProperties, &msgPropertiesTitle},
        {&msgModified, &msgModifiedSearch},
        {&msgNoDiskInTheDrive, &msgNoDiskInTheDrive2},
        {&msgDefault, &msgDefaultTheme},
        {&msgCategoriesFavorites, &msgCategoriesFavoritesPane},
        {&msgAccessOptions, &msgAccessOptionsTitle},
    };
    for (const auto& uses : repeated) {
        const QString* first = uses.front();
        for (const QString* other : uses) {
            if (other == first) continue;
            EXPECT_EQ(*other, *first);
            // Each use has its own place in the catalogue, after the first.
            EXPECT_GT(IndexOf(other), IndexOf(first)) << first->toStdString();
        }
    }
}

TEST_F(LanguageTest, TextsAreListedInOrderOfAssignment) {
    // Landmarks across the catalogue: first and last text, and the start of several groups.
    EXPECT_EQ(IndexOf(&msgFileFolder), 0);
    EXPECT_EQ(IndexOf(&msgFreeSpace), 72);
    EXPECT_EQ(IndexOf(&msgEdit), 79);
    EXPECT_EQ(IndexOf(&msgObjects), 143);
    EXPECT_EQ(IndexOf(&msgCompactingMayTakeMinutes), 196);
    EXPECT_EQ(IndexOf(&msgThankYouForYourInterest), 275);
    EXPECT_EQ(IndexOf(&msgAccessDenied), 397);
    EXPECT_EQ(IndexOf(&msgTabular), 491);
    EXPECT_EQ(IndexOf(&msgFonts), 513);
}
