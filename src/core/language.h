#pragma once
// The catalogue of every text the user sees. One variable per text; a text that serves two
// purposes has two variables. The variables are empty until a language procedure fills them,
// so mLanguageEng::lngEng() must run before anything is shown. A further language is one more
// procedure of the same shape that assigns every variable listed here.

#include <QList>
#include <QString>

namespace mLanguageGobals {
// Kinds of items and units of size
extern QString msgFileFolder;
extern QString msgFile;
extern QString msgByte;
extern QString msgBytes;
extern QString msgKB;
extern QString msgMB;
extern QString msgGB;

// Drive kinds, singular and plural
extern QString msgAll;
extern QString msgFloppyDisk;
extern QString msgHardDisk;
extern QString msgNetworkDisk;
extern QString msgCDOrDVD;
extern QString msgRemovableDisk;
extern QString msgRAMDisk;
extern QString msgFolder;
extern QString msgUnknown;
extern QString msgAllDisks;
extern QString msgFloppyDisks;
extern QString msgHardDisks;
extern QString msgNetworkDisks;
extern QString msgCDsAndDVDs;
extern QString msgRemovableDisks;
extern QString msgRAMDisks;
extern QString msgFolders;
extern QString msgUnknownDisks;

// Common buttons
extern QString msgOK;
extern QString msgCancel;

// Column captions of the lists
extern QString msgName;
extern QString msgSize;
extern QString msgFiles;
extern QString msgFoldersColumn;
extern QString msgComment;
extern QString msgScanDate;
extern QString msgDiskLetter;
extern QString msgLabel;
extern QString msgDiskType;
extern QString msgFileSystem;
extern QString msgComputer;
extern QString msgFullName;
extern QString msgTitle;
extern QString msgCompany;
extern QString msgFavorites;
extern QString msgAddress;
extern QString msgCity;
extern QString msgStateProv;
extern QString msgZipPostalCode;
extern QString msgAdded;

// Labels of the detail pane
extern QString msgFullNameColon;
extern QString msgTitleColon;
extern QString msgCompanyColon;
extern QString msgFavoritesColon;
extern QString msgAddressColon;
extern QString msgCityColon;
extern QString msgStateProvColon;
extern QString msgZipPostalCodeColon;
extern QString msgCommentColon;
extern QString msgContactNumberColon;
extern QString msgAddedColon;

// Captions of the twelve numbers
extern QString msgInfo1;
extern QString msgInfo2;
extern QString msgInfo3;
extern QString msgInfo4;
extern QString msgInfo5;
extern QString msgInfo6;
extern QString msgInfo7;
extern QString msgInfo8;
extern QString msgInfo9;
extern QString msgInfo10;
extern QString msgInfo11;
extern QString msgInfo12;

// Phonebook messages and File menu entries
extern QString msgCannotOpenPhonebookNoSpace;
extern QString msgCannotCreatePhonebookNoSpace;
extern QString msgFreeSpace;
extern QString msgReallyDeleteAllData;
extern QString msgPhonebookCleared;
extern QString msgDatabaseInfo;
extern QString msgClearDatabase;
extern QString msgCompactDatabase;
extern QString msgExit;

// Main menu captions
extern QString msgEdit;
extern QString msgAddContact;
extern QString msgDeleteDisk;
extern QString msgDiskProperties;
extern QString msgView;
extern QString msgRefresh;
extern QString msgTools;
extern QString msgSearch;
extern QString msgStatistics;
extern QString msgPreferences;
extern QString msgHelp;
extern QString msgHelpContents;
extern QString msgTipOfTheDay;
extern QString msgWebsite;
extern QString msgTechnicalSupport;
extern QString msgOtherContacts;
extern QString msgAbout;

// View menu and list pop-up
extern QString msgLargeIcons;
extern QString msgSmallIcons;
extern QString msgList;
extern QString msgDetails;
extern QString msgArrangeIcons;
extern QString msgByName;
extern QString msgBySize;
extern QString msgByType;
extern QString msgByDate;
extern QString msgAutoArrange;
extern QString msgSelectAll;
extern QString msgInvertSelection;
extern QString msgSearchInThisFolder;
extern QString msgProperties;
extern QString msgSearchInThisItem;

// Sort entries of the "Arrange Items" sub-menu
extern QString msgArrangeItems;
extern QString msgByFiles;
extern QString msgByFolders;
extern QString msgByComment;
extern QString msgByScanDate;
extern QString msgByDiskLetter;
extern QString msgByLabel;
extern QString msgByDiskType;
extern QString msgByFileSystem;
extern QString msgByComputer;
extern QString msgByFullName;
extern QString msgByTitle;
extern QString msgByCompany;
extern QString msgByFavorites;
extern QString msgByAddress;
extern QString msgByCity;
extern QString msgByStateProv;
extern QString msgByZipPostalCode;
extern QString msgByNumber;
extern QString msgByAdded;
extern QString msgByInfo1;
extern QString msgByInfo2;
extern QString msgByInfo3;
extern QString msgByInfo4;
extern QString msgByInfo5;
extern QString msgByInfo6;
extern QString msgByInfo7;
extern QString msgByInfo8;
extern QString msgByInfo9;
extern QString msgByInfo10;
extern QString msgByInfo11;
extern QString msgByInfo12;

// Status bar and detail list
extern QString msgObjects;
extern QString msgTotalSize;
extern QString msgType;
extern QString msgModified;
extern QString msgDatabaseSize;

// Delete confirmation, folder browser and scan start
extern QString msgReallyDeleteSelectedContact;
extern QString msgBrowseForFolderOrDisk;
extern QString msgChooseAFolderOrDisk;
extern QString msgNoDiskInTheDrive;
extern QString msgTheDiskIsEmpty;
extern QString msgTheFolderIsEmpty;
extern QString msgScanningTheDisk;
extern QString msgScanningTheFolder;

// Scan results and progress
extern QString msgDiskInfoHeading;
extern QString msgDiskLetterColon;
extern QString msgLabelColon;
extern QString msgFileSystemColon;
extern QString msgTypeColon;
extern QString msgScanResultsHeading;
extern QString msgSizeColon;
extern QString msgFoldersColon;
extern QString msgFilesColon;
extern QString msgScanningTheFile;
extern QString msgScan;
extern QString msgSimilarDisksDetected;
extern QString msgCannotSaveDataNoSpace;

// Properties dialog
extern QString msgPropertiesTitle;
extern QString msgGeneral;
extern QString msgDiskInfo;
extern QString msgLocationColon;
extern QString msgContains;
extern QString msgCreated;
extern QString msgModifiedColon;
extern QString msgAccessed;
extern QString msgAttributesColon;
extern QString msgReadOnly;
extern QString msgArchive;
extern QString msgSystem;
extern QString msgHidden;
extern QString msgCompressed;
extern QString msgComputerColon;
extern QString msgScanDateColon;
extern QString msgDisksColon;
extern QString msgContactsColon;

// Values shown for several items at once
extern QString msgNA;
extern QString msgMultipleTypes;
extern QString msgAllIn;
extern QString msgAllOfType;
extern QString msgVariousFolders;

// Statistics window
extern QString msgStatisticsTitle;
extern QString msgCount;
extern QString msgTotal;

// Compacting and database information
extern QString msgCompactingTheDatabase;
extern QString msgCompactingMayTakeMinutes;
extern QString msgCannotCompactNoSpace;
extern QString msgCompactedDatabaseNotFound;
extern QString msgDatabaseCompacted;
extern QString msgDatabaseInfoTitle;
extern QString msgDiskFreeSpace;

// Preferences dialog: pages, options and warnings
extern QString msgPreferencesTitle;
extern QString msgInterfaceElements;
extern QString msgThemes;
extern QString msgWindowSettings;
extern QString msgWarnings;
extern QString msgMisc;
extern QString msgApply;
extern QString msgShow;
extern QString msgMenuOnly;
extern QString msgToolbarOnly;
extern QString msgToolTips;
extern QString msgStatusBar;
extern QString msgFlatToolbar;
extern QString msgSaveWindowPosition;
extern QString msgSaveWindowSize;
extern QString msgWarnSimilarDisks;
extern QString msgWarnContactDeletion;
extern QString msgOpenCardWithTabs;
extern QString msgShowTipOfTheDayAtStartup;
extern QString msgShowDatabaseSizeInTitle;
extern QString msgShowTheSizeOfFolders;

// Search window
extern QString msgSearchTitle;
extern QString msgDisk;
extern QString msgLocation;
extern QString msgItem;
extern QString msgItemComment;
extern QString msgDiskComment;
extern QString msgStop;
extern QString msgSelectedObjects;
extern QString msgNoItemsFound;
extern QString msgSearchFor;
extern QString msgInName;
extern QString msgInComment;
extern QString msgModifiedSearch;
extern QString msgFrom;
extern QString msgTo;
extern QString msgMin;
extern QString msgMax;
extern QString msgAttributes;
extern QString msgAnyOfTheSelected;
extern QString msgAllOfTheSelected;
extern QString msgSelectedOnly;
extern QString msgNameAndLocation;
extern QString msgAdvanced;
extern QString msgByDisk;
extern QString msgByItem;
extern QString msgByLocation;
extern QString msgExactMatch;
extern QString msgSearchSubfolders;
extern QString msgDisks;
extern QString msgFoldersSearch;
extern QString msgFilesSearch;

// Tip of the day and about dialog
extern QString msgTipOfTheDayTitle;
extern QString msgDidYouKnow;
extern QString msgNext;
extern QString msgShowTipsAtStartup;
extern QString msgAboutKelvarin;
extern QString msgWebsiteColon;
extern QString msgTechnicalSupportColon;

// Error window and its directions
extern QString msgProgramError;
extern QString msgSorryAnErrorHasOccurred;
extern QString msgIfTheErrorOccursAgain;
extern QString msgStep1GoToTheFolder;
extern QString msgStep2LocateErrorReport;
extern QString msgOR;
extern QString msgStep1OpenYourEmailClient;
extern QString msgStep2CreateANewEmailDocument;
extern QString msgStep3AttachErrorReport;
extern QString msgStep1ClickTheLinkBelow;
extern QString msgStep2AttachErrorReport;
extern QString msgStep3SendTheMail;
extern QString msgHintCopyAndPaste;

// Thank-you lines
extern QString msgThankYouForChoosingKelvarin;
extern QString msgThankYouForYourInterest;

// Default names of the tree roots and nodes
extern QString msgAllCategories;
extern QString msgMusic;
extern QString msgMovies;
extern QString msgPhotos;
extern QString msgSoftware;
extern QString msgGames;
extern QString msgOthers;
extern QString msgAllFavorites;
extern QString msgAllGroups;
extern QString msgNewCategory;
extern QString msgNewGroup;
extern QString msgNewFavorites;

// Phonebook file dialogs
extern QString msgCreatePhonebook;
extern QString msgOpenPhonebook;
extern QString msgKelvarinFiles;

// Tree tabs, tree commands and node kinds
extern QString msgNew;
extern QString msgOpen;
extern QString msgCategories;
extern QString msgGroups;
extern QString msgFavoritesTree;
extern QString msgQuickAdd;
extern QString msgAdd;
extern QString msgRename;
extern QString msgDelete;
extern QString msgNormalMode;
extern QString msgAdvancedMode;
extern QString msgSortByName;
extern QString msgSortByContacts;
extern QString msgContacts;
extern QString msgLoans;
extern QString msgRemoveFromFavorites;
extern QString msgCategory;
extern QString msgGroup;
extern QString msgLoan;

// Tree messages
extern QString msgReallyDeleteSelectedFavorites;
extern QString msgCannotDeleteTheRootItem;
extern QString msgCannotDeleteThisCategory;
extern QString msgCannotRenameTheRootItem;
extern QString msgCannotRenameThisCategory;
extern QString msgPleaseSelectACategory;

// Node assignment and loans on the contact card
extern QString msgCategoryColon;
extern QString msgGroupColon;
extern QString msgFavoritesColon2;
extern QString msgLoanType;
extern QString msgLentTo;
extern QString msgBorrowedFrom;
extern QString msgStartDateColon;
extern QString msgReturnDateColon;
extern QString msgLoansHistory;
extern QString msgFavoritesHistory;
extern QString msgStartDate;
extern QString msgReturnDate;
extern QString msgNewLoan;
extern QString msgCancelLoan;
extern QString msgReallyDeleteThisRecord;

// Node browser dialogs
extern QString msgBrowseCategories;
extern QString msgChooseACategory;
extern QString msgBrowseFavorites;
extern QString msgChooseAFavorites;
extern QString msgBrowseGroups;
extern QString msgChooseAGroup;

// Open and name prompts
extern QString msgNotADatabaseFileOrCorrupted;
extern QString msgNameColon;
extern QString msgPleaseEnterTheDiskName;
extern QString msgPleaseEnterTheFolderName;

// Number column and sort entries by node and number
extern QString msgDiskNumber;
extern QString msgByCategory;
extern QString msgByGroup;
extern QString msgByLoan;
extern QString msgByDiskNumber;

// Columns dialog and report wizard
extern QString msgColumns;
extern QString msgReport;
extern QString msgReportSource;
extern QString msgReportBasedOnContactList;
extern QString msgReportBasedOnSelectedContact;
extern QString msgSelected;
extern QString msgNotSelected;
extern QString msgBackArrow;
extern QString msgNextArrow;
extern QString msgCreate;
extern QString msgClose;
extern QString msgFilesReport;
extern QString msgReportTitle;
extern QString msgSortRecordsBy;
extern QString msgIncludeSubfolders;
extern QString msgSummaryInfo;
extern QString msgReportFormat;
extern QString msgSeparator;
extern QString msgOpenAfterTheReportIsCreated;
extern QString msgSaveSettings;
extern QString msgHTMLFiles;
extern QString msgCSVFiles;
extern QString msgCreateReport;

// Report output
extern QString msgReportHeading;
extern QString msgCreatedBy;
extern QString msgOn;
extern QString msgContactCard;
extern QString msgFolderHeading;

// Report and upgrade messages, recent files
extern QString msgNoDataToReport;
extern QString msgDatabaseFormatUpdated;
extern QString msgRecentFiles;
extern QString msgClearList;
extern QString msgCannotUpdateFormatNoSpace;

// Archives and sort entries
extern QString msgSearchArchives;
extern QString msgByItemComment;
extern QString msgByDiskComment;
extern QString msgArchives;

// Add dialog and its scan options
extern QString msgAddCategory;
extern QString msgThisDiskNumberAlreadyExists;
extern QString msgContactNumber;
extern QString msgAddDiskOrFolder;
extern QString msgScanSubfolders;
extern QString msgScanFoldersOnly;
extern QString msgSkipEmptyFilesAndFolders;
extern QString msgScanArchives;
extern QString msgCheckDiskDuplicates;

// Dialog reminders and feedback
extern QString msgShowThisDialogAgain;
extern QString msgPleaseSelectAFolderOrDisk;
extern QString msgNoWay;
extern QString msgSendFeedback;
extern QString msgPleaseSendUsYourFeedback;

// Warnings and shell commands
extern QString msgAccessDenied;
extern QString msgNotEnoughFreeSpace;
extern QString msgKelvarinSupportsOnly;
extern QString msgSendFeedbackMenu;
extern QString msgExecute;
extern QString msgOpenInExplorer;
extern QString msgTheFileIsNotFound;

// Tray, drive and window behaviour settings
extern QString msgSettings;
extern QString msgRestore;
extern QString msgOpenScanDialogWhenCDIsInserted;
extern QString msgEjectCD;
extern QString msgInsertCD;
extern QString msgKelvarin;
extern QString msgSelectACDROMDriveTo;
extern QString msgDrive;
extern QString msgCloseWindow;
extern QString msgCloseWindowWithFadeEffect;
extern QString msgFast;
extern QString msgSlow;
extern QString msgTray;
extern QString msgMinimizeToTray;
extern QString msgDoubleClickOnFileAction;
extern QString msgShowProperties;
extern QString msgAutoscanInsertedCD;
extern QString msgDisableCDAutoplay;

// Scan presets
extern QString msgPresets;
extern QString msgSingleDiskScan;
extern QString msgMultipleDiskScan;
extern QString msgScanCDsInAutoMode;
extern QString msgCustomPresets;
extern QString msgPreScanOptions;
extern QString msgScanOptions;
extern QString msgPostScanOptions;

// Contact card fields
extern QString msgEditDiskInfo;
extern QString msgHomePhone;
extern QString msgWorkPhone;
extern QString msgMobilePhone;
extern QString msgEmail;
extern QString msgInfo;

// Customize columns dialog
extern QString msgCustomizeColumns;
extern QString msgDefault;
extern QString msgShowAll;
extern QString msgShowOne;

// Toolbars and panes
extern QString msgToolbars;
extern QString msgToolbarSettings;
extern QString msgCategoriesFavorites;
extern QString msgAlphabeticalIndex;
extern QString msgMain;
extern QString msgLockTheToolbars;
extern QString msgRestoreDefaults;
extern QString msgPanes;
extern QString msgCategoriesFavoritesPane;
extern QString msgContactCardPane;

// Themes
extern QString msgToolbarTheme;
extern QString msgWindowTheme;
extern QString msgDefaultTheme;
extern QString msgOffice2003;
extern QString msgXPBlue;
extern QString msgXPOliveGreen;
extern QString msgXPSilver;
extern QString msgRoyale;
extern QString msgOffice2007Aqua;
extern QString msgOffice2007Blue;
extern QString msgVistaBasic;

// Drive and file messages
extern QString msgTheDriveIsNotPresent;
extern QString msgNoDiskInTheDrive2;
extern QString msgTheSpecifiedFileWasNotFound;

// Access mode and password dialogs
extern QString msgKelvarin2;
extern QString msgAccessMode;
extern QString msgFullAccess;
extern QString msgReadOnlyAccess;
extern QString msgAccessOptions;
extern QString msgPasswordIsInvalid;
extern QString msgKelvarin3;
extern QString msgAccessModeColon;
extern QString msgPassword;
extern QString msgPleaseSelectAnAccessMode;
extern QString msgAccessOptionsTitle;
extern QString msgCurrentPhonebookAccessOptions;
extern QString msgDefaultAccessMode;

// Database page of the preferences
extern QString msgDatabase;
extern QString msgFileSize;
extern QString msgCreateNewDatabase;
extern QString msgOpenDatabase;
extern QString msgMoveDatabaseTo;
extern QString msgClearDatabaseButton;
extern QString msgDatabaseNotMovedFileExists;
extern QString msgDatabaseCannotBeFoundOrDoesNotExist;
extern QString msgTheDatabaseCannotBeFound;
extern QString msgCannotMoveDatabaseNoSpace;

// Column order and card layout
extern QString msgMoveUp;
extern QString msgMoveDown;
extern QString msgLayout;
extern QString msgColumnar;
extern QString msgTabular;

// Number types
extern QString msgThisTypeAlreadyExists;
extern QString msgAddEditType;
extern QString msgSave;

// Contact card messages and pages
extern QString msgPleaseEnterANameOrACompany;
extern QString msgQueryIsTooComplex;
extern QString msgGeneralInfo;
extern QString msgPhoneFaxEmailSkypeEtc;

// Photo
extern QString msgPhoto;
extern QString msgSelectPhoto;
extern QString msgAllSupportedFiles;
extern QString msgBitmapFiles;
extern QString msgJPEG;
extern QString msgGIF;
extern QString msgPNG;
extern QString msgMaximumFileSize500Kb;

// Quick actions and list options
extern QString msgClear;
extern QString msgCreateCopy;
extern QString msgShortGroup;
extern QString msgShortCategory;
extern QString msgListAndTreeOptions;
extern QString msgLargeIconsOption;
extern QString msgFonts;

// Deleting a category or a group
extern QString msgReallyDeleteSelectedCategory;
extern QString msgCategoryDeleteWarning;
extern QString msgReallyDeleteSelectedGroup;
extern QString msgGroupDeleteWarning;

// Status bar, toolbar list and letter tabs
extern QString msgTodayColon;
extern QString msgToolbarList;
extern QString msgLetterAll;
extern QString msgLetterDigits;
extern QString msgLetterUnknown;

// Contact card labels and buttons
extern QString msgIndexColon;
extern QString msgWordWrap;
extern QString msgIncrease;
extern QString msgDecrease;
extern QString msgClearFavorites;

// Start, File > New and the command line (added as one block; %1, %2 are filled where used)
extern QString msgPhonebookFileMissing;
extern QString msgPhonebookFolderMissing;
extern QString msgPhonebookIsFolder;
extern QString msgPhonebookNotOpened;
extern QString msgOpenPhonebookButton;
extern QString msgNewPhonebookButton;
extern QString msgNewIsOpenPhonebook;
extern QString msgReplacePhonebook;
extern QString msgReplacePhonebookOneContact;
extern QString msgReplaceFile;
extern QString msgLoadingContacts;
extern QString msgUsage;
extern QString msgUsageDetails;
extern QString msgUnknownOption;
extern QString msgNoDisplay;

// Every variable above, in the order a language procedure assigns them.
QList<const QString*> AllTexts();

} // namespace mLanguageGobals

namespace mLanguageEng {
// Fills the catalogue with the English texts.
void lngEng();
} // namespace mLanguageEng
