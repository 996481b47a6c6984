#include "core/language.h"

#include "support/helpers/values.h"

namespace mLanguageGobals {

QString msgFileFolder;
QString msgFile;
QString msgByte;
QString msgBytes;
QString msgKB;
QString msgMB;
QString msgGB;

QString msgAll;
QString msgFloppyDisk;
QString msgHardDisk;
QString msgNetworkDisk;
QString msgCDOrDVD;
QString msgRemovableDisk;
QString msgRAMDisk;
QString msgFolder;
QString msgUnknown;
QString msgAllDisks;
QString msgFloppyDisks;
QString msgHardDisks;
QString msgNetworkDisks;
QString msgCDsAndDVDs;
QString msgRemovableDisks;
QString msgRAMDisks;
QString msgFolders;
QString msgUnknownDisks;

QString msgOK;
QString msgCancel;

QString msgName;
QString msgSize;
QString msgFiles;
QString msgFoldersColumn;
QString msgComment;
QString msgScanDate;
QString msgDiskLetter;
QString msgLabel;
QString msgDiskType;
QString msgFileSystem;
QString msgComputer;
QString msgFullName;
QString msgTitle;
QString msgCompany;
QString msgFavorites;
QString msgAddress;
QString msgCity;
QString msgStateProv;
QString msgZipPostalCode;
QString msgAdded;

QString msgFullNameColon;
QString msgTitleColon;
QString msgCompanyColon;
QString msgFavoritesColon;
QString msgAddressColon;
QString msgCityColon;
QString msgStateProvColon;
QString msgZipPostalCodeColon;
QString msgCommentColon;
QString msgContactNumberColon;
QString msgAddedColon;

QString msgInfo1;
QString msgInfo2;
QString msgInfo3;
QString msgInfo4;
QString msgInfo5;
QString msgInfo6;
QString msgInfo7;
QString msgInfo8;
QString msgInfo9;
QString msgInfo10;
QString msgInfo11;
QString msgInfo12;

QString msgCannotOpenPhonebookNoSpace;
QString msgCannotCreatePhonebookNoSpace;
QString msgFreeSpace;
QString msgReallyDeleteAllData;
QString msgPhonebookCleared;
QString msgDatabaseInfo;
QString msgClearDatabase;
QString msgCompactDatabase;
QString msgExit;

QString msgEdit;
QString msgAddContact;
QString msgDeleteDisk;
QString msgDiskProperties;
QString msgView;
QString msgRefresh;
QString msgTools;
QString msgSearch;
QString msgStatistics;
QString msgPreferences;
QString msgHelp;
QString msgHelpContents;
QString msgTipOfTheDay;
QString msgWebsite;
QString msgTechnicalSupport;
QString msgOtherContacts;
QString msgAbout;

QString msgLargeIcons;
QString msgSmallIcons;
QString msgList;
QString msgDetails;
QString msgArrangeIcons;
QString msgByName;
QString msgBySize;
QString msgByType;
QString msgByDate;
QString msgAutoArrange;
QString msgSelectAll;
QString msgInvertSelection;
QString msgSearchInThisFolder;
QString msgProperties;
QString msgSearchInThisItem;

QString msgArrangeItems;
QString msgByFiles;
QString msgByFolders;
QString msgByComment;
QString msgByScanDate;
QString msgByDiskLetter;
QString msgByLabel;
QString msgByDiskType;
QString msgByFileSystem;
QString msgByComputer;
QString msgByFullName;
QString msgByTitle;
QString msgByCompany;
QString msgByFavorites;
QString msgByAddress;
QString msgByCity;
QString msgByStateProv;
QString msgByZipPostalCode;
QString msgByNumber;
QString msgByAdded;
QString msgByInfo1;
QString msgByInfo2;
QString msgByInfo3;
QString msgByInfo4;
QString msgByInfo5;
QString msgByInfo6;
QString msgByInfo7;
QString msgByInfo8;
QString msgByInfo9;
QString msgByInfo10;
QString msgByInfo11;
QString msgByInfo12;

QString msgObjects;
QString msgTotalSize;
QString msgType;
QString msgModified;
QString msgDatabaseSize;

QString msgReallyDeleteSelectedContact;
QString msgBrowseForFolderOrDisk;
QString msgChooseAFolderOrDisk;
QString msgNoDiskInTheDrive;
QString msgTheDiskIsEmpty;
QString msgTheFolderIsEmpty;
QString msgScanningTheDisk;
QString msgScanningTheFolder;

QString msgDiskInfoHeading;
QString msgDiskLetterColon;
QString msgLabelColon;
QString msgFileSystemColon;
QString msgTypeColon;
QString msgScanResultsHeading;
QString msgSizeColon;
QString msgFoldersColon;
QString msgFilesColon;
QString msgScanningTheFile;
QString msgScan;
QString msgSimilarDisksDetected;
QString msgCannotSaveDataNoSpace;

QString msgPropertiesTitle;
QString msgGeneral;
QString msgDiskInfo;
QString msgLocationColon;
QString msgContains;
QString msgCreated;
QString msgModifiedColon;
QString msgAccessed;
QString msgAttributesColon;
QString msgReadOnly;
QString msgArchive;
QString msgSystem;
QString msgHidden;
QString msgCompressed;
QString msgComputerColon;
QString msgScanDateColon;
QString msgDisksColon;
QString msgContactsColon;

QString msgNA;
QString msgMultipleTypes;
QString msgAllIn;
QString msgAllOfType;
QString msgVariousFolders;

QString msgStatisticsTitle;
QString msgCount;
QString msgTotal;

QString msgCompactingTheDatabase;
QString msgCompactingMayTakeMinutes;
QString msgCannotCompactNoSpace;
QString msgCompactedDatabaseNotFound;
QString msgDatabaseCompacted;
QString msgDatabaseInfoTitle;
QString msgDiskFreeSpace;

QString msgPreferencesTitle;
QString msgInterfaceElements;
QString msgThemes;
QString msgWindowSettings;
QString msgWarnings;
QString msgMisc;
QString msgApply;
QString msgShow;
QString msgMenuOnly;
QString msgToolbarOnly;
QString msgToolTips;
QString msgStatusBar;
QString msgFlatToolbar;
QString msgSaveWindowPosition;
QString msgSaveWindowSize;
QString msgWarnSimilarDisks;
QString msgWarnContactDeletion;
QString msgOpenCardWithTabs;
QString msgShowTipOfTheDayAtStartup;
QString msgShowDatabaseSizeInTitle;
QString msgShowTheSizeOfFolders;

QString msgSearchTitle;
QString msgDisk;
QString msgLocation;
QString msgItem;
QString msgItemComment;
QString msgDiskComment;
QString msgStop;
QString msgSelectedObjects;
QString msgNoItemsFound;
QString msgSearchFor;
QString msgInName;
QString msgInComment;
QString msgModifiedSearch;
QString msgFrom;
QString msgTo;
QString msgMin;
QString msgMax;
QString msgAttributes;
QString msgAnyOfTheSelected;
QString msgAllOfTheSelected;
QString msgSelectedOnly;
QString msgNameAndLocation;
QString msgAdvanced;
QString msgByDisk;
QString msgByItem;
QString msgByLocation;
QString msgExactMatch;
QString msgSearchSubfolders;
QString msgDisks;
QString msgFoldersSearch;
QString msgFilesSearch;

QString msgTipOfTheDayTitle;
QString msgDidYouKnow;
QString msgNext;
QString msgShowTipsAtStartup;
QString msgAboutKelvarin;
QString msgWebsiteColon;
QString msgTechnicalSupportColon;

QString msgProgramError;
QString msgSorryAnErrorHasOccurred;
QString msgIfTheErrorOccursAgain;
QString msgStep1GoToTheFolder;
QString msgStep2LocateErrorReport;
QString msgOR;
QString msgStep1OpenYourEmailClient;
QString msgStep2CreateANewEmailDocument;
QString msgStep3AttachErrorReport;
QString msgStep1ClickTheLinkBelow;
QString msgStep2AttachErrorReport;
QString msgStep3SendTheMail;
QString msgHintCopyAndPaste;

QString msgThankYouForChoosingKelvarin;
QString msgThankYouForYourInterest;

QString msgAllCategories;
QString msgMusic;
QString msgMovies;
QString msgPhotos;
QString msgSoftware;
QString msgGames;
QString msgOthers;
QString msgAllFavorites;
QString msgAllGroups;
QString msgNewCategory;
QString msgNewGroup;
QString msgNewFavorites;

QString msgCreatePhonebook;
QString msgOpenPhonebook;
QString msgKelvarinFiles;

QString msgNew;
QString msgOpen;
QString msgCategories;
QString msgGroups;
QString msgFavoritesTree;
QString msgQuickAdd;
QString msgAdd;
QString msgRename;
QString msgDelete;
QString msgNormalMode;
QString msgAdvancedMode;
QString msgSortByName;
QString msgSortByContacts;
QString msgContacts;
QString msgLoans;
QString msgRemoveFromFavorites;
QString msgCategory;
QString msgGroup;
QString msgLoan;

QString msgReallyDeleteSelectedFavorites;
QString msgCannotDeleteTheRootItem;
QString msgCannotDeleteThisCategory;
QString msgCannotRenameTheRootItem;
QString msgCannotRenameThisCategory;
QString msgPleaseSelectACategory;

QString msgCategoryColon;
QString msgGroupColon;
QString msgFavoritesColon2;
QString msgLoanType;
QString msgLentTo;
QString msgBorrowedFrom;
QString msgStartDateColon;
QString msgReturnDateColon;
QString msgLoansHistory;
QString msgFavoritesHistory;
QString msgStartDate;
QString msgReturnDate;
QString msgNewLoan;
QString msgCancelLoan;
QString msgReallyDeleteThisRecord;

QString msgBrowseCategories;
QString msgChooseACategory;
QString msgBrowseFavorites;
QString msgChooseAFavorites;
QString msgBrowseGroups;
QString msgChooseAGroup;

QString msgNotADatabaseFileOrCorrupted;
QString msgNameColon;
QString msgPleaseEnterTheDiskName;
QString msgPleaseEnterTheFolderName;

QString msgDiskNumber;
QString msgByCategory;
QString msgByGroup;
QString msgByLoan;
QString msgByDiskNumber;

QString msgColumns;
QString msgReport;
QString msgReportSource;
QString msgReportBasedOnContactList;
QString msgReportBasedOnSelectedContact;
QString msgSelected;
QString msgNotSelected;
QString msgBackArrow;
QString msgNextArrow;
QString msgCreate;
QString msgClose;
QString msgFilesReport;
QString msgReportTitle;
QString msgSortRecordsBy;
QString msgIncludeSubfolders;
QString msgSummaryInfo;
QString msgReportFormat;
QString msgSeparator;
QString msgOpenAfterTheReportIsCreated;
QString msgSaveSettings;
QString msgHTMLFiles;
QString msgCSVFiles;
QString msgCreateReport;

QString msgReportHeading;
QString msgCreatedBy;
QString msgOn;
QString msgContactCard;
QString msgFolderHeading;

QString msgNoDataToReport;
QString msgDatabaseFormatUpdated;
QString msgRecentFiles;
QString msgClearList;
QString msgCannotUpdateFormatNoSpace;

QString msgSearchArchives;
QString msgByItemComment;
QString msgByDiskComment;
QString msgArchives;

QString msgAddCategory;
QString msgThisDiskNumberAlreadyExists;
QString msgContactNumber;
QString msgAddDiskOrFolder;
QString msgScanSubfolders;
QString msgScanFoldersOnly;
QString msgSkipEmptyFilesAndFolders;
QString msgScanArchives;
QString msgCheckDiskDuplicates;

QString msgShowThisDialogAgain;
QString msgPleaseSelectAFolderOrDisk;
QString msgNoWay;
QString msgSendFeedback;
QString msgPleaseSendUsYourFeedback;

QString msgAccessDenied;
QString msgNotEnoughFreeSpace;
QString msgKelvarinSupportsOnly;
QString msgSendFeedbackMenu;
QString msgExecute;
QString msgOpenInExplorer;
QString msgTheFileIsNotFound;

QString msgSettings;
QString msgRestore;
QString msgOpenScanDialogWhenCDIsInserted;
QString msgEjectCD;
QString msgInsertCD;
QString msgKelvarin;
QString msgSelectACDROMDriveTo;
QString msgDrive;
QString msgCloseWindow;
QString msgCloseWindowWithFadeEffect;
QString msgFast;
QString msgSlow;
QString msgTray;
QString msgMinimizeToTray;
QString msgDoubleClickOnFileAction;
QString msgShowProperties;
QString msgAutoscanInsertedCD;
QString msgDisableCDAutoplay;

QString msgPresets;
QString msgSingleDiskScan;
QString msgMultipleDiskScan;
QString msgScanCDsInAutoMode;
QString msgCustomPresets;
QString msgPreScanOptions;
QString msgScanOptions;
QString msgPostScanOptions;

QString msgEditDiskInfo;
QString msgHomePhone;
QString msgWorkPhone;
QString msgMobilePhone;
QString msgEmail;
QString msgInfo;

QString msgCustomizeColumns;
QString msgDefault;
QString msgShowAll;
QString msgShowOne;

QString msgToolbars;
QString msgToolbarSettings;
QString msgCategoriesFavorites;
QString msgAlphabeticalIndex;
QString msgMain;
QString msgLockTheToolbars;
QString msgRestoreDefaults;
QString msgPanes;
QString msgCategoriesFavoritesPane;
QString msgContactCardPane;

QString msgToolbarTheme;
QString msgWindowTheme;
QString msgDefaultTheme;
QString msgOffice2003;
QString msgXPBlue;
QString msgXPOliveGreen;
QString msgXPSilver;
QString msgRoyale;
QString msgOffice2007Aqua;
QString msgOffice2007Blue;
QString msgVistaBasic;

QString msgTheDriveIsNotPresent;
QString msgNoDiskInTheDrive2;
QString msgTheSpecifiedFileWasNotFound;

QString msgKelvarin2;
QString msgAccessMode;
QString msgFullAccess;
QString msgReadOnlyAccess;
QString msgAccessOptions;
QString msgPasswordIsInvalid;
QString msgKelvarin3;
QString msgAccessModeColon;
QString msgPassword;
QString msgPleaseSelectAnAccessMode;
QString msgAccessOptionsTitle;
QString msgCurrentPhonebookAccessOptions;
QString msgDefaultAccessMode;

QString msgDatabase;
QString msgFileSize;
QString msgCreateNewDatabase;
QString msgOpenDatabase;
QString msgMoveDatabaseTo;
QString msgClearDatabaseButton;
QString msgDatabaseNotMovedFileExists;
QString msgDatabaseCannotBeFoundOrDoesNotExist;
QString msgTheDatabaseCannotBeFound;
QString msgCannotMoveDatabaseNoSpace;

QString msgMoveUp;
QString msgMoveDown;
QString msgLayout;
QString msgColumnar;
QString msgTabular;

QString msgThisTypeAlreadyExists;
QString msgAddEditType;
QString msgSave;

QString msgPleaseEnterANameOrACompany;
QString msgQueryIsTooComplex;
QString msgGeneralInfo;
QString msgPhoneFaxEmailSkypeEtc;

QString msgPhoto;
QString msgSelectPhoto;
QString msgAllSupportedFiles;
QString msgBitmapFiles;
QString msgJPEG;
QString msgGIF;
QString msgPNG;
QString msgMaximumFileSize500Kb;

QString msgClear;
QString msgCreateCopy;
QString msgShortGroup;
QString msgShortCategory;
QString msgListAndTreeOptions;
QString msgLargeIconsOption;
QString msgFonts;
QString msgReallyDeleteSelectedCategory;
QString msgCategoryDeleteWarning;
QString msgReallyDeleteSelectedGroup;
QString msgGroupDeleteWarning;
QString msgTodayColon;
QString msgToolbarList;
QString msgLetterAll;
QString msgLetterDigits;
QString msgLetterUnknown;
QString msgIndexColon;
QString msgWordWrap;
QString msgIncrease;
QString msgDecrease;
QString msgClearFavorites;

// Start, File > New and the command line
QString msgPhonebookFileMissing;
QString msgPhonebookFolderMissing;
QString msgPhonebookIsFolder;
QString msgPhonebookNotOpened;
QString msgOpenPhonebookButton;
QString msgNewPhonebookButton;
QString msgNewIsOpenPhonebook;
QString msgReplacePhonebook;
QString msgReplacePhonebookOneContact;
QString msgReplaceFile;
QString msgLoadingContacts;
QString msgUsage;
QString msgUsageDetails;
QString msgUnknownOption;
QString msgNoDisplay;

QList<const QString*> AllTexts() {
    return {&msgFileFolder,
            &msgFile,
            &msgByte,
            &msgBytes,
            &msgKB,
            &msgMB,
            &msgGB,
            &msgAll,
            &msgFloppyDisk,
            &msgHardDisk,
            &msgNetworkDisk,
            &msgCDOrDVD,
            &msgRemovableDisk,
            &msgRAMDisk,
            &msgFolder,
            &msgUnknown,
            &msgAllDisks,
            &msgFloppyDisks,
            &msgHardDisks,
            &msgNetworkDisks,
            &msgCDsAndDVDs,
            &msgRemovableDisks,
            &msgRAMDisks,
            &msgFolders,
            &msgUnknownDisks,
            &msgOK,
            &msgCancel,
            &msgName,
            &msgSize,
            &msgFiles,
            &msgFoldersColumn,
            &msgComment,
            &msgScanDate,
            &msgDiskLetter,
            &msgLabel,
            &msgDiskType,
            &msgFileSystem,
            &msgComputer,
            &msgFullName,
            &msgTitle,
            &msgCompany,
            &msgFavorites,
            &msgAddress,
            &msgCity,
            &msgStateProv,
            &msgZipPostalCode,
            &msgAdded,
            &msgFullNameColon,
            &msgTitleColon,
            &msgCompanyColon,
            &msgFavoritesColon,
            &msgAddressColon,
            &msgCityColon,
            &msgStateProvColon,
            &msgZipPostalCodeColon,
            &msgCommentColon,
            &msgContactNumberColon,
            &msgAddedColon,
            &msgInfo1,
            &msgInfo2,
            &msgInfo3,
            &msgInfo4,
            &msgInfo5,
            &msgInfo6,
            &msgInfo7,
            &msgInfo8,
            &msgInfo9,
            &msgInfo10,
            &msgInfo11,
            &msgInfo12,
            &msgCannotOpenPhonebookNoSpace,
            &msgCannotCreatePhonebookNoSpace,
            &msgFreeSpace,
            &msgReallyDeleteAllData,
            &msgPhonebookCleared,
            &msgDatabaseInfo,
            &msgClearDatabase,
            &msgCompactDatabase,
            &msgExit,
            &msgEdit,
            &msgAddContact,
            &msgDeleteDisk,
            &msgDiskProperties,
            &msgView,
            &msgRefresh,
            &msgTools,
            &msgSearch,
            &msgStatistics,
            &msgPreferences,
            &msgHelp,
            &msgHelpContents,
            &msgTipOfTheDay,
            &msgWebsite,
            &msgTechnicalSupport,
            &msgOtherContacts,
            &msgAbout,
            &msgLargeIcons,
            &msgSmallIcons,
            &msgList,
            &msgDetails,
            &msgArrangeIcons,
            &msgByName,
            &msgBySize,
            &msgByType,
            &msgByDate,
            &msgAutoArrange,
            &msgSelectAll,
            &msgInvertSelection,
            &msgSearchInThisFolder,
            &msgProperties,
            &msgSearchInThisItem,
            &msgArrangeItems,
            &msgByFiles,
            &msgByFolders,
            &msgByComment,
            &msgByScanDate,
            &msgByDiskLetter,
            &msgByLabel,
            &msgByDiskType,
            &msgByFileSystem,
            &msgByComputer,
            &msgByFullName,
            &msgByTitle,
            &msgByCompany,
            &msgByFavorites,
            &msgByAddress,
            &msgByCity,
            &msgByStateProv,
            &msgByZipPostalCode,
            &msgByNumber,
            &msgByAdded,
            &msgByInfo1,
            &msgByInfo2,
            &msgByInfo3,
            &msgByInfo4,
            &msgByInfo5,
            &msgByInfo6,
            &msgByInfo7,
            &msgByInfo8,
            &msgByInfo9,
            &msgByInfo10,
            &msgByInfo11,
            &msgByInfo12,
            &msgObjects,
            &msgTotalSize,
            &msgType,
            &msgModified,
            &msgDatabaseSize,
            &msgReallyDeleteSelectedContact,
            &msgBrowseForFolderOrDisk,
            &msgChooseAFolderOrDisk,
            &msgNoDiskInTheDrive,
            &msgTheDiskIsEmpty,
            &msgTheFolderIsEmpty,
            &msgScanningTheDisk,
            &msgScanningTheFolder,
            &msgDiskInfoHeading,
            &msgDiskLetterColon,
            &msgLabelColon,
            &msgFileSystemColon,
            &msgTypeColon,
            &msgScanResultsHeading,
            &msgSizeColon,
            &msgFoldersColon,
            &msgFilesColon,
            &msgScanningTheFile,
            &msgScan,
            &msgSimilarDisksDetected,
            &msgCannotSaveDataNoSpace,
            &msgPropertiesTitle,
            &msgGeneral,
            &msgDiskInfo,
            &msgLocationColon,
            &msgContains,
            &msgCreated,
            &msgModifiedColon,
            &msgAccessed,
            &msgAttributesColon,
            &msgReadOnly,
            &msgArchive,
            &msgSystem,
            &msgHidden,
            &msgCompressed,
            &msgComputerColon,
            &msgScanDateColon,
            &msgDisksColon,
            &msgContactsColon,
            &msgNA,
            &msgMultipleTypes,
            &msgAllIn,
            &msgAllOfType,
            &msgVariousFolders,
            &msgStatisticsTitle,
            &msgCount,
            &msgTotal,
            &msgCompactingTheDatabase,
            &msgCompactingMayTakeMinutes,
            &msgCannotCompactNoSpace,
            &msgCompactedDatabaseNotFound,
            &msgDatabaseCompacted,
            &msgDatabaseInfoTitle,
            &msgDiskFreeSpace,
            &msgPreferencesTitle,
            &msgInterfaceElements,
            &msgThemes,
            &msgWindowSettings,
            &msgWarnings,
            &msgMisc,
            &msgApply,
            &msgShow,
            &msgMenuOnly,
            &msgToolbarOnly,
            &msgToolTips,
            &msgStatusBar,
            &msgFlatToolbar,
            &msgSaveWindowPosition,
            &msgSaveWindowSize,
            &msgWarnSimilarDisks,
            &msgWarnContactDeletion,
            &msgOpenCardWithTabs,
            &msgShowTipOfTheDayAtStartup,
            &msgShowDatabaseSizeInTitle,
            &msgShowTheSizeOfFolders,
            &msgSearchTitle,
            &msgDisk,
            &msgLocation,
            &msgItem,
            &msgItemComment,
            &msgDiskComment,
            &msgStop,
            &msgSelectedObjects,
            &msgNoItemsFound,
            &msgSearchFor,
            &msgInName,
            &msgInComment,
            &msgModifiedSearch,
            &msgFrom,
            &msgTo,
            &msgMin,
            &msgMax,
            &msgAttributes,
            &msgAnyOfTheSelected,
            &msgAllOfTheSelected,
            &msgSelectedOnly,
            &msgNameAndLocation,
            &msgAdvanced,
            &msgByDisk,
            &msgByItem,
            &msgByLocation,
            &msgExactMatch,
            &msgSearchSubfolders,
            &msgDisks,
            &msgFoldersSearch,
            &msgFilesSearch,
            &msgTipOfTheDayTitle,
            &msgDidYouKnow,
            &msgNext,
            &msgShowTipsAtStartup,
            &msgAboutKelvarin,
            &msgWebsiteColon,
            &msgTechnicalSupportColon,
            &msgProgramError,
            &msgSorryAnErrorHasOccurred,
            &msgIfTheErrorOccursAgain,
            &msgStep1GoToTheFolder,
            &msgStep2LocateErrorReport,
            &msgOR,
            &msgStep1OpenYourEmailClient,
            &msgStep2CreateANewEmailDocument,
            &msgStep3AttachErrorReport,
            &msgStep1ClickTheLinkBelow,
            &msgStep2AttachErrorReport,
            &msgStep3SendTheMail,
            &msgHintCopyAndPaste,
            &msgThankYouForChoosingKelvarin,
            &msgThankYouForYourInterest,
            &msgAllCategories,
            &msgMusic,
            &msgMovies,
            &msgPhotos,
            &msgSoftware,
            &msgGames,
            &msgOthers,
            &msgAllFavorites,
            &msgAllGroups,
            &msgNewCategory,
            &msgNewGroup,
            &msgNewFavorites,
            &msgCreatePhonebook,
            &msgOpenPhonebook,
            &msgKelvarinFiles,
            &msgNew,
            &msgOpen,
            &msgCategories,
            &msgGroups,
            &msgFavoritesTree,
            &msgQuickAdd,
            &msgAdd,
            &msgRename,
            &msgDelete,
            &msgNormalMode,
            &msgAdvancedMode,
            &msgSortByName,
            &msgSortByContacts,
            &msgContacts,
            &msgLoans,
            &msgRemoveFromFavorites,
            &msgCategory,
            &msgGroup,
            &msgLoan,
            &msgReallyDeleteSelectedFavorites,
            &msgCannotDeleteTheRootItem,
            &msgCannotDeleteThisCategory,
            &msgCannotRenameTheRootItem,
            &msgCannotRenameThisCategory,
            &msgPleaseSelectACategory,
            &msgCategoryColon,
            &msgGroupColon,
            &msgFavoritesColon2,
            &msgLoanType,
            &msgLentTo,
            &msgBorrowedFrom,
            &msgStartDateColon,
            &msgReturnDateColon,
            &msgLoansHistory,
            &msgFavoritesHistory,
            &msgStartDate,
            &msgReturnDate,
            &msgNewLoan,
            &msgCancelLoan,
            &msgReallyDeleteThisRecord,
            &msgBrowseCategories,
            &msgChooseACategory,
            &msgBrowseFavorites,
            &msgChooseAFavorites,
            &msgBrowseGroups,
            &msgChooseAGroup,
            &msgNotADatabaseFileOrCorrupted,
            &msgNameColon,
            &msgPleaseEnterTheDiskName,
            &msgPleaseEnterTheFolderName,
            &msgDiskNumber,
            &msgByCategory,
            &msgByGroup,
            &msgByLoan,
            &msgByDiskNumber,
            &msgColumns,
            &msgReport,
            &msgReportSource,
            &msgReportBasedOnContactList,
            &msgReportBasedOnSelectedContact,
            &msgSelected,
            &msgNotSelected,
            &msgBackArrow,
            &msgNextArrow,
            &msgCreate,
            &msgClose,
            &msgFilesReport,
            &msgReportTitle,
            &msgSortRecordsBy,
            &msgIncludeSubfolders,
            &msgSummaryInfo,
            &msgReportFormat,
            &msgSeparator,
            &msgOpenAfterTheReportIsCreated,
            &msgSaveSettings,
            &msgHTMLFiles,
            &msgCSVFiles,
            &msgCreateReport,
            &msgReportHeading,
            &msgCreatedBy,
            &msgOn,
            &msgContactCard,
            &msgFolderHeading,
            &msgNoDataToReport,
            &msgDatabaseFormatUpdated,
            &msgRecentFiles,
            &msgClearList,
            &msgCannotUpdateFormatNoSpace,
            &msgSearchArchives,
            &msgByItemComment,
            &msgByDiskComment,
            &msgArchives,
            &msgAddCategory,
            &msgThisDiskNumberAlreadyExists,
            &msgContactNumber,
            &msgAddDiskOrFolder,
            &msgScanSubfolders,
            &msgScanFoldersOnly,
            &msgSkipEmptyFilesAndFolders,
            &msgScanArchives,
            &msgCheckDiskDuplicates,
            &msgShowThisDialogAgain,
            &msgPleaseSelectAFolderOrDisk,
            &msgNoWay,
            &msgSendFeedback,
            &msgPleaseSendUsYourFeedback,
            &msgAccessDenied,
            &msgNotEnoughFreeSpace,
            &msgKelvarinSupportsOnly,
            &msgSendFeedbackMenu,
            &msgExecute,
            &msgOpenInExplorer,
            &msgTheFileIsNotFound,
            &msgSettings,
            &msgRestore,
            &msgOpenScanDialogWhenCDIsInserted,
            &msgEjectCD,
            &msgInsertCD,
            &msgKelvarin,
            &msgSelectACDROMDriveTo,
            &msgDrive,
            &msgCloseWindow,
            &msgCloseWindowWithFadeEffect,
            &msgFast,
            &msgSlow,
            &msgTray,
            &msgMinimizeToTray,
            &msgDoubleClickOnFileAction,
            &msgShowProperties,
            &msgAutoscanInsertedCD,
            &msgDisableCDAutoplay,
            &msgPresets,
            &msgSingleDiskScan,
            &msgMultipleDiskScan,
            &msgScanCDsInAutoMode,
            &msgCustomPresets,
            &msgPreScanOptions,
            &msgScanOptions,
            &msgPostScanOptions,
            &msgEditDiskInfo,
            &msgHomePhone,
            &msgWorkPhone,
            &msgMobilePhone,
            &msgEmail,
            &msgInfo,
            &msgCustomizeColumns,
            &msgDefault,
            &msgShowAll,
            &msgShowOne,
            &msgToolbars,
            &msgToolbarSettings,
            &msgCategoriesFavorites,
            &msgAlphabeticalIndex,
            &msgMain,
            &msgLockTheToolbars,
            &msgRestoreDefaults,
            &msgPanes,
            &msgCategoriesFavoritesPane,
            &msgContactCardPane,
            &msgToolbarTheme,
            &msgWindowTheme,
            &msgDefaultTheme,
            &msgOffice2003,
            &msgXPBlue,
            &msgXPOliveGreen,
            &msgXPSilver,
            &msgRoyale,
            &msgOffice2007Aqua,
            &msgOffice2007Blue,
            &msgVistaBasic,
            &msgTheDriveIsNotPresent,
            &msgNoDiskInTheDrive2,
            &msgTheSpecifiedFileWasNotFound,
            &msgKelvarin2,
            &msgAccessMode,
            &msgFullAccess,
            &msgReadOnlyAccess,
            &msgAccessOptions,
            &msgPasswordIsInvalid,
            &msgKelvarin3,
            &msgAccessModeColon,
            &msgPassword,
            &msgPleaseSelectAnAccessMode,
            &msgAccessOptionsTitle,
            &msgCurrentPhonebookAccessOptions,
            &msgDefaultAccessMode,
            &msgDatabase,
            &msgFileSize,
            &msgCreateNewDatabase,
            &msgOpenDatabase,
            &msgMoveDatabaseTo,
            &msgClearDatabaseButton,
            &msgDatabaseNotMovedFileExists,
            &msgDatabaseCannotBeFoundOrDoesNotExist,
            &msgTheDatabaseCannotBeFound,
            &msgCannotMoveDatabaseNoSpace,
            &msgMoveUp,
            &msgMoveDown,
            &msgLayout,
            &msgColumnar,
            &msgTabular,
            &msgThisTypeAlreadyExists,
            &msgAddEditType,
            &msgSave,
            &msgPleaseEnterANameOrACompany,
            &msgQueryIsTooComplex,
            &msgGeneralInfo,
            &msgPhoneFaxEmailSkypeEtc,
            &msgPhoto,
            &msgSelectPhoto,
            &msgAllSupportedFiles,
            &msgBitmapFiles,
            &msgJPEG,
            &msgGIF,
            &msgPNG,
            &msgMaximumFileSize500Kb,
            &msgClear,
            &msgCreateCopy,
            &msgShortGroup,
            &msgShortCategory,
            &msgListAndTreeOptions,
            &msgLargeIconsOption,
            &msgFonts,
            &msgReallyDeleteSelectedCategory,
            &msgCategoryDeleteWarning,
            &msgReallyDeleteSelectedGroup,
            &msgGroupDeleteWarning,
            &msgTodayColon,
            &msgToolbarList,
            &msgLetterAll,
            &msgLetterDigits,
            &msgLetterUnknown,
            &msgIndexColon,
            &msgWordWrap,
            &msgIncrease,
            &msgDecrease,
            &msgClearFavorites,
            // Start, File > New and the command line
            &msgPhonebookFileMissing,
            &msgPhonebookFolderMissing,
            &msgPhonebookIsFolder,
            &msgPhonebookNotOpened,
            &msgOpenPhonebookButton,
            &msgNewPhonebookButton,
            &msgNewIsOpenPhonebook,
            &msgReplacePhonebook,
            &msgReplacePhonebookOneContact,
            &msgReplaceFile,
            &msgLoadingContacts,
            &msgUsage,
            &msgUsageDetails,
            &msgUnknownOption,
            &msgNoDisplay};
}

} // namespace mLanguageGobals

namespace mLanguageEng {

void lngEng() {
    using namespace mLanguageGobals;
    // Kinds of items and units of size
    msgFileFolder = QStringLiteral("File Folder");
    msgFile = QStringLiteral("File");
    msgByte = QStringLiteral("Byte");
    msgBytes = QStringLiteral("bytes");
    msgKB = QStringLiteral("KB");
    msgMB = QStringLiteral("MB");
    msgGB = QStringLiteral("GB");

    // Drive kinds, singular and plural
    msgAll = QStringLiteral("All");
    msgFloppyDisk = QStringLiteral("Floppy disk");
    msgHardDisk = QStringLiteral("Hard disk");
    msgNetworkDisk = QStringLiteral("Network disk");
    msgCDOrDVD = QStringLiteral("CD or DVD");
    msgRemovableDisk = QStringLiteral("Removable disk");
    msgRAMDisk = QStringLiteral("RAM disk");
    msgFolder = QStringLiteral("Folder");
    msgUnknown = QStringLiteral("Unknown");
    msgAllDisks = QStringLiteral("All disks");
    msgFloppyDisks = QStringLiteral("Floppy disks");
    msgHardDisks = QStringLiteral("Hard disks");
    msgNetworkDisks = QStringLiteral("Network disks");
    msgCDsAndDVDs = QStringLiteral("CDs and DVDs");
    msgRemovableDisks = QStringLiteral("Removable disks");
    msgRAMDisks = QStringLiteral("RAM disks");
    msgFolders = QStringLiteral("Folders");
    msgUnknownDisks = QStringLiteral("Unknown disks");

    // Common buttons
    msgOK = QStringLiteral("OK");
    msgCancel = QStringLiteral("Cancel");

    // Column captions of the lists
    msgName = QStringLiteral("Name");
    msgSize = QStringLiteral("Size");
    msgFiles = QStringLiteral("Files");
    msgFoldersColumn = QStringLiteral("Folders");
    msgComment = QStringLiteral("Comment");
    msgScanDate = QStringLiteral("Scan date");
    msgDiskLetter = QStringLiteral("Disk letter");
    msgLabel = QStringLiteral("Label");
    msgDiskType = QStringLiteral("Disk type");
    msgFileSystem = QStringLiteral("File system");
    msgComputer = QStringLiteral("Computer");
    msgFullName = QStringLiteral("Full Name");
    msgTitle = QStringLiteral("Title");
    msgCompany = QStringLiteral("Company");
    msgFavorites = QStringLiteral("Favorites");
    msgAddress = QStringLiteral("Address");
    msgCity = QStringLiteral("City");
    msgStateProv = QStringLiteral("State/Prov");
    msgZipPostalCode = QStringLiteral("Zip/Postal Code");
    msgAdded = QStringLiteral("Added");

    // Labels of the detail pane
    msgFullNameColon = QStringLiteral("Full Name:");
    msgTitleColon = QStringLiteral("Title:");
    msgCompanyColon = QStringLiteral("Company:");
    msgFavoritesColon = QStringLiteral("Favorites:");
    msgAddressColon = QStringLiteral("Address:");
    msgCityColon = QStringLiteral("City:");
    msgStateProvColon = QStringLiteral("State/Prov:");
    msgZipPostalCodeColon = QStringLiteral("Zip/Postal Code:");
    msgCommentColon = QStringLiteral("Comment:");
    msgContactNumberColon = QStringLiteral("Contact #:");
    msgAddedColon = QStringLiteral("Added:");

    // Captions of the twelve numbers
    msgInfo1 = QStringLiteral("Info 1");
    msgInfo2 = QStringLiteral("Info 2");
    msgInfo3 = QStringLiteral("Info 3");
    msgInfo4 = QStringLiteral("Info 4");
    msgInfo5 = QStringLiteral("Info 5");
    msgInfo6 = QStringLiteral("Info 6");
    msgInfo7 = QStringLiteral("Info 7");
    msgInfo8 = QStringLiteral("Info 8");
    msgInfo9 = QStringLiteral("Info 9");
    msgInfo10 = QStringLiteral("Info 10");
    msgInfo11 = QStringLiteral("Info 11");
    msgInfo12 = QStringLiteral("Info 12");

    // Phonebook messages and File menu entries
    msgCannotOpenPhonebookNoSpace =
        QStringLiteral("Cannot open the phonebook, probably not enough free space on the disk.");
    msgCannotCreatePhonebookNoSpace =
        QStringLiteral("Cannot create a phonebook, probably not enough free space on the disk.");
    msgFreeSpace = QStringLiteral("Free space: ");
    msgReallyDeleteAllData = QStringLiteral("Do you really want to delete all data from the phonebook?");
    msgPhonebookCleared = QStringLiteral("The phonebook has been cleared successfully.");
    msgDatabaseInfo = QStringLiteral("Database info");
    msgClearDatabase = QStringLiteral("Clear database");
    msgCompactDatabase = QStringLiteral("Compact database");
    msgExit = QStringLiteral("Exit");

    // Main menu captions
    msgEdit = QStringLiteral("Edit");
    msgAddContact = QStringLiteral("Add contact");
    msgDeleteDisk = QStringLiteral("Delete disk");
    msgDiskProperties = QStringLiteral("Disk properties");
    msgView = QStringLiteral("View");
    msgRefresh = QStringLiteral("Refresh");
    msgTools = QStringLiteral("Tools");
    msgSearch = QStringLiteral("Search");
    msgStatistics = QStringLiteral("Statistics");
    msgPreferences = QStringLiteral("Preferences");
    msgHelp = QStringLiteral("Help");
    msgHelpContents = QStringLiteral("Help contents");
    msgTipOfTheDay = QStringLiteral("Tip of the day");
    msgWebsite = QStringLiteral("Website");
    msgTechnicalSupport = QStringLiteral("Technical support");
    msgOtherContacts = QStringLiteral("Other contacts");
    msgAbout = QStringLiteral("About");

    // View menu and list pop-up
    msgLargeIcons = QStringLiteral("Large Icons");
    msgSmallIcons = QStringLiteral("Small Icons");
    msgList = QStringLiteral("List");
    msgDetails = QStringLiteral("Details");
    msgArrangeIcons = QStringLiteral("Arrange Icons");
    msgByName = QStringLiteral("by Name");
    msgBySize = QStringLiteral("by Size");
    msgByType = QStringLiteral("by Type");
    msgByDate = QStringLiteral("by Date");
    msgAutoArrange = QStringLiteral("Auto Arrange");
    msgSelectAll = QStringLiteral("Select All");
    msgInvertSelection = QStringLiteral("Invert Selection");
    msgSearchInThisFolder = QStringLiteral("Search in this folder");
    msgProperties = QStringLiteral("Properties");
    msgSearchInThisItem = QStringLiteral("Search in this item");

    // Sort entries of the "Arrange Items" sub-menu
    msgArrangeItems = QStringLiteral("Arrange Items");
    msgByFiles = QStringLiteral("by Files");
    msgByFolders = QStringLiteral("by Folders");
    msgByComment = QStringLiteral("by Comment");
    msgByScanDate = QStringLiteral("by Scan date");
    msgByDiskLetter = QStringLiteral("by Disk letter");
    msgByLabel = QStringLiteral("by Label");
    msgByDiskType = QStringLiteral("by Disk type");
    msgByFileSystem = QStringLiteral("by File system");
    msgByComputer = QStringLiteral("by Computer");
    msgByFullName = QStringLiteral("by Full Name");
    msgByTitle = QStringLiteral("by Title");
    msgByCompany = QStringLiteral("by Company");
    msgByFavorites = QStringLiteral("by Favorites");
    msgByAddress = QStringLiteral("by Address");
    msgByCity = QStringLiteral("by City");
    msgByStateProv = QStringLiteral("by State/Prov");
    msgByZipPostalCode = QStringLiteral("by Zip/Postal Code");
    msgByNumber = QStringLiteral("by #");
    msgByAdded = QStringLiteral("by Added");
    msgByInfo1 = QStringLiteral("by Info 1");
    msgByInfo2 = QStringLiteral("by Info 2");
    msgByInfo3 = QStringLiteral("by Info 3");
    msgByInfo4 = QStringLiteral("by Info 4");
    msgByInfo5 = QStringLiteral("by Info 5 ");
    msgByInfo6 = QStringLiteral("by Info 6 ");
    msgByInfo7 = QStringLiteral("by Info 7");
    msgByInfo8 = QStringLiteral("by Info 8");
    msgByInfo9 = QStringLiteral("by Info 9");
    msgByInfo10 = QStringLiteral("by Info 10");
    msgByInfo11 = QStringLiteral("by Info 11");
    msgByInfo12 = QStringLiteral("by Info 12");

    // Status bar and detail list
    msgObjects = QStringLiteral("Objects: ");
    msgTotalSize = QStringLiteral("Total size: ");
    msgType = QStringLiteral("Type");
    msgModified = QStringLiteral("Modified");
    msgDatabaseSize = QStringLiteral("Database size: ");

    // Delete confirmation, folder browser and scan start
    msgReallyDeleteSelectedContact = QStringLiteral("Do you really want to delete the selected contact?");
    msgBrowseForFolderOrDisk = QStringLiteral("Browse for folder or disk");
    msgChooseAFolderOrDisk = QStringLiteral("Choose a folder or disk:");
    msgNoDiskInTheDrive = QStringLiteral("No disk in the drive.");
    msgTheDiskIsEmpty = QStringLiteral("The disk is empty.");
    msgTheFolderIsEmpty = QStringLiteral("The folder is empty.");
    msgScanningTheDisk = QStringLiteral("Scanning the disk");
    msgScanningTheFolder = QStringLiteral("Scanning the folder");

    // Scan results and progress
    msgDiskInfoHeading = QStringLiteral("DISK INFO");
    msgDiskLetterColon = QStringLiteral("Disk letter:");
    msgLabelColon = QStringLiteral("Label:");
    msgFileSystemColon = QStringLiteral("File system:");
    msgTypeColon = QStringLiteral("Type:");
    msgScanResultsHeading = QStringLiteral("SCAN RESULTS");
    msgSizeColon = QStringLiteral("Size: ");
    msgFoldersColon = QStringLiteral("Folders: ");
    msgFilesColon = QStringLiteral("Files: ");
    msgScanningTheFile = QStringLiteral("Scanning the file:");
    msgScan = QStringLiteral("Scan");
    msgSimilarDisksDetected = QStringLiteral("Similar disks detected:");
    msgCannotSaveDataNoSpace =
        QStringLiteral("Cannot save data to the phonebook, probably not enough free space on the disk.");

    // Properties dialog
    msgPropertiesTitle = QStringLiteral("Properties");
    msgGeneral = QStringLiteral("General");
    msgDiskInfo = QStringLiteral("Disk info");
    msgLocationColon = QStringLiteral("Location:");
    msgContains = QStringLiteral("Contains:");
    msgCreated = QStringLiteral("Created:");
    msgModifiedColon = QStringLiteral("Modified:");
    msgAccessed = QStringLiteral("Accessed:");
    msgAttributesColon = QStringLiteral("Attributes:");
    msgReadOnly = QStringLiteral("Read-Only");
    msgArchive = QStringLiteral("Archive");
    msgSystem = QStringLiteral("System");
    msgHidden = QStringLiteral("Hidden");
    msgCompressed = QStringLiteral("Compressed");
    msgComputerColon = QStringLiteral("Computer:");
    msgScanDateColon = QStringLiteral("Scan date:");
    msgDisksColon = QStringLiteral("Disks: ");
    msgContactsColon = QStringLiteral("Contacts: ");

    // Values shown for several items at once
    msgNA = QStringLiteral("N/A");
    msgMultipleTypes = QStringLiteral("Multiple types");
    msgAllIn = QStringLiteral("All in ");
    msgAllOfType = QStringLiteral("All of type ");
    msgVariousFolders = QStringLiteral("Various folders");

    // Statistics window
    msgStatisticsTitle = QStringLiteral("Statistics");
    msgCount = QStringLiteral("Count");
    msgTotal = QStringLiteral("Total:");

    // Compacting and database information
    msgCompactingTheDatabase = QStringLiteral("Compacting the database");
    msgCompactingMayTakeMinutes =
        QStringLiteral("Compacting the database may take a few minutes, please wait...");
    msgCannotCompactNoSpace =
        QStringLiteral("Cannot compact the database file, probably not enough free space on the disk.");
    msgCompactedDatabaseNotFound = QStringLiteral("The compacted database cannot be found.");
    msgDatabaseCompacted = QStringLiteral("The database has been compacted successfully.");
    msgDatabaseInfoTitle = QStringLiteral("Database info");
    msgDiskFreeSpace = QStringLiteral("Disk free space:");

    // Preferences dialog: pages, options and warnings
    msgPreferencesTitle = QStringLiteral("Preferences");
    msgInterfaceElements = QStringLiteral("Interface elements");
    msgThemes = QStringLiteral("Themes");
    msgWindowSettings = QStringLiteral("Window settings");
    msgWarnings = QStringLiteral("Warnings");
    msgMisc = QStringLiteral("Misc");
    msgApply = QStringLiteral("Apply");
    msgShow = QStringLiteral("Show");
    msgMenuOnly = QStringLiteral("Menu only");
    msgToolbarOnly = QStringLiteral("Toolbar only");
    msgToolTips = QStringLiteral("Tool Tips");
    msgStatusBar = QStringLiteral("Status Bar");
    msgFlatToolbar = QStringLiteral("Flat toolbar");
    msgSaveWindowPosition = QStringLiteral("Save window position");
    msgSaveWindowSize = QStringLiteral("Save window size");
    msgWarnSimilarDisks = QStringLiteral("Warn when similar disks are detected in the database");
    msgWarnContactDeletion = QStringLiteral("Warn when a contact is being deleted");
    msgOpenCardWithTabs = QStringLiteral("Next time open contact card with tabs");
    msgShowTipOfTheDayAtStartup = QStringLiteral("Show tip of the day at startup");
    msgShowDatabaseSizeInTitle = QStringLiteral("Show the database size in the title bar of the main window");
    msgShowTheSizeOfFolders = QStringLiteral("Show the size of folders");

    // Search window
    msgSearchTitle = QStringLiteral("Search");
    msgDisk = QStringLiteral("Disk");
    msgLocation = QStringLiteral("Location");
    msgItem = QStringLiteral("Item");
    msgItemComment = QStringLiteral("Item comment");
    msgDiskComment = QStringLiteral("Disk comment");
    msgStop = QStringLiteral("Stop");
    msgSelectedObjects = QStringLiteral("Selected objects: ");
    msgNoItemsFound = QStringLiteral("No items found");
    msgSearchFor = QStringLiteral("Search for:");
    msgInName = QStringLiteral("In name");
    msgInComment = QStringLiteral("In comment");
    msgModifiedSearch = QStringLiteral("Modified");
    msgFrom = QStringLiteral("From");
    msgTo = QStringLiteral("To");
    msgMin = QStringLiteral("Min");
    msgMax = QStringLiteral("Max");
    msgAttributes = QStringLiteral("Attributes");
    msgAnyOfTheSelected = QStringLiteral("Any of the selected");
    msgAllOfTheSelected = QStringLiteral("All of the selected");
    msgSelectedOnly = QStringLiteral("Selected only");
    msgNameAndLocation = QStringLiteral("Name and Location");
    msgAdvanced = QStringLiteral("Advanced");
    msgByDisk = QStringLiteral("by Disk");
    msgByItem = QStringLiteral("by Item");
    msgByLocation = QStringLiteral("by Location");
    msgExactMatch = QStringLiteral("Exact match");
    msgSearchSubfolders = QStringLiteral("Search subfolders");
    msgDisks = QStringLiteral("Disks");
    msgFoldersSearch = QStringLiteral("Folders");
    msgFilesSearch = QStringLiteral("Files");

    // Tip of the day and about dialog
    msgTipOfTheDayTitle = QStringLiteral("Tip of the Day");
    msgDidYouKnow = QStringLiteral("Did you know...");
    msgNext = QStringLiteral("Next");
    msgShowTipsAtStartup = QStringLiteral("Show tips at startup");
    msgAboutKelvarin = QStringLiteral("About Kelvarin");
    msgWebsiteColon = QStringLiteral("Website:");
    msgTechnicalSupportColon = QStringLiteral("Technical support:");

    // Error window and its directions
    msgProgramError = QStringLiteral("Program Error");
    msgSorryAnErrorHasOccurred = QStringLiteral("Sorry, an error has occurred. Try to restart the program.");
    msgIfTheErrorOccursAgain = QStringLiteral("If the error occurs again, please send a message with an "
                                              "attached ErrorReport.txt file by following these directions:");
    msgStep1GoToTheFolder = QStringLiteral("1) Go to the folder (click to open folder):");
    msgStep2LocateErrorReport = QStringLiteral("2) Locate the ErrorReport.txt file in this folder");
    msgOR = QStringLiteral("OR");
    msgStep1OpenYourEmailClient = QStringLiteral("1) Open your email client");
    msgStep2CreateANewEmailDocument = QStringLiteral("2) Create a new email document");
    msgStep3AttachErrorReport =
        QStringLiteral("3) Attach the ErrorReport.txt file located in the folder (click to open folder):");
    msgStep1ClickTheLinkBelow =
        QStringLiteral("1) Click the link below and your default email client will create a message");
    msgStep2AttachErrorReport =
        QStringLiteral("2) Attach the ErrorReport.txt file located in the folder (click to open folder):");
    msgStep3SendTheMail = QStringLiteral("3) Send the mail");
    msgHintCopyAndPaste = QStringLiteral("Hint: to avoid mistakes, copy and paste data.");

    // Thank-you lines
    msgThankYouForChoosingKelvarin = QStringLiteral("Thank you for choosing Kelvarin!");
    msgThankYouForYourInterest = QStringLiteral("Thank you for your interest in Kelvarin.");

    // Default names of the tree roots and nodes
    msgAllCategories = QStringLiteral("All categories");
    msgMusic = QStringLiteral("Music");
    msgMovies = QStringLiteral("Movies");
    msgPhotos = QStringLiteral("Photos");
    msgSoftware = QStringLiteral("Software");
    msgGames = QStringLiteral("Games");
    msgOthers = QStringLiteral("Others");
    msgAllFavorites = QStringLiteral("All favorites");
    msgAllGroups = QStringLiteral("All groups");
    msgNewCategory = QStringLiteral("New category");
    msgNewGroup = QStringLiteral("New group");
    msgNewFavorites = QStringLiteral("New favorites");

    // Phonebook file dialogs
    msgCreatePhonebook = QStringLiteral("Create Phonebook");
    msgOpenPhonebook = QStringLiteral("Open Phonebook");
    msgKelvarinFiles = QStringLiteral("Kelvarin Files");

    // Tree tabs, tree commands and node kinds
    msgNew = QStringLiteral("New");
    msgOpen = QStringLiteral("Open");
    msgCategories = QStringLiteral("Categories");
    msgGroups = QStringLiteral("Groups");
    msgFavoritesTree = QStringLiteral("Favorites");
    msgQuickAdd = QStringLiteral("Quick add");
    msgAdd = QStringLiteral("Add");
    msgRename = QStringLiteral("Rename");
    msgDelete = QStringLiteral("Delete");
    msgNormalMode = QStringLiteral("Normal mode");
    msgAdvancedMode = QStringLiteral("Advanced mode");
    msgSortByName = QStringLiteral("Sort By Name");
    msgSortByContacts = QStringLiteral("Sort By Contacts");
    msgContacts = QStringLiteral("Contacts");
    msgLoans = QStringLiteral("Loans");
    msgRemoveFromFavorites = QStringLiteral("Remove from Favorites");
    msgCategory = QStringLiteral("Category");
    msgGroup = QStringLiteral("Group");
    msgLoan = QStringLiteral("Loan");

    // Tree messages
    msgReallyDeleteSelectedFavorites = QStringLiteral("Do you really want to delete the selected favorites?");
    msgCannotDeleteTheRootItem = QStringLiteral("Cannot delete the root item.");
    msgCannotDeleteThisCategory = QStringLiteral("Cannot delete this category.");
    msgCannotRenameTheRootItem = QStringLiteral("Cannot rename the root item.");
    msgCannotRenameThisCategory = QStringLiteral("Cannot rename this category.");
    msgPleaseSelectACategory = QStringLiteral("Please select a category.");

    // Node assignment and loans on the contact card
    msgCategoryColon = QStringLiteral("Category:");
    msgGroupColon = QStringLiteral("Group:");
    msgFavoritesColon2 = QStringLiteral("Favorites:");
    msgLoanType = QStringLiteral("Loan type:");
    msgLentTo = QStringLiteral("Lent to");
    msgBorrowedFrom = QStringLiteral("Borrowed from");
    msgStartDateColon = QStringLiteral("Start date:");
    msgReturnDateColon = QStringLiteral("Return date:");
    msgLoansHistory = QStringLiteral("Loans history:");
    msgFavoritesHistory = QStringLiteral("Favorites");
    msgStartDate = QStringLiteral("Start date");
    msgReturnDate = QStringLiteral("Return date");
    msgNewLoan = QStringLiteral("New loan");
    msgCancelLoan = QStringLiteral("Cancel loan");
    msgReallyDeleteThisRecord = QStringLiteral("Do you really want to delete this record?");

    // Node browser dialogs
    msgBrowseCategories = QStringLiteral("Browse categories");
    msgChooseACategory = QStringLiteral("Choose a category:");
    msgBrowseFavorites = QStringLiteral("Browse favorites");
    msgChooseAFavorites = QStringLiteral("Choose a favorites:");
    msgBrowseGroups = QStringLiteral("Browse groups");
    msgChooseAGroup = QStringLiteral("Choose a group:");

    // Open and name prompts
    msgNotADatabaseFileOrCorrupted =
        QStringLiteral("The selected file is not a database file or the database is corrupted.");
    msgNameColon = QStringLiteral("Name:");
    msgPleaseEnterTheDiskName = QStringLiteral("Please enter the disk name.");
    msgPleaseEnterTheFolderName = QStringLiteral("Please enter the folder name.");

    // Number column and sort entries by node and number
    msgDiskNumber = QStringLiteral("Disk #");
    msgByCategory = QStringLiteral("by Category");
    msgByGroup = QStringLiteral("by Group");
    msgByLoan = QStringLiteral("by Loan");
    msgByDiskNumber = QStringLiteral("by Disk #");

    // Columns dialog and report wizard
    msgColumns = QStringLiteral("Columns");
    msgReport = QStringLiteral("Report");
    msgReportSource = QStringLiteral("Report source");
    msgReportBasedOnContactList = QStringLiteral("Report based on contact list");
    msgReportBasedOnSelectedContact = QStringLiteral("Report based on selected contact");
    msgSelected = QStringLiteral("Selected");
    msgNotSelected = QStringLiteral("Not selected");
    msgBackArrow = QStringLiteral("< Back");
    msgNextArrow = QStringLiteral("Next >");
    msgCreate = QStringLiteral("Create");
    msgClose = QStringLiteral("Close");
    msgFilesReport = QStringLiteral("Files");
    msgReportTitle = QStringLiteral("Report Title:");
    msgSortRecordsBy = QStringLiteral("Sort records by");
    msgIncludeSubfolders = QStringLiteral("Include subfolders");
    msgSummaryInfo = QStringLiteral("Summary info");
    msgReportFormat = QStringLiteral("Report format:");
    msgSeparator = QStringLiteral("Separator:");
    msgOpenAfterTheReportIsCreated = QStringLiteral("Open after the report is created");
    msgSaveSettings = QStringLiteral("Save settings");
    msgHTMLFiles = QStringLiteral("HTML files");
    msgCSVFiles = QStringLiteral("CSV files");
    msgCreateReport = QStringLiteral("Create report");

    // Report output
    msgReportHeading = QStringLiteral("REPORT");
    msgCreatedBy = QStringLiteral("Created by");
    msgOn = QStringLiteral("on");
    msgContactCard = QStringLiteral("Contact Card");
    msgFolderHeading = QStringLiteral("FOLDER");

    // Report and upgrade messages, recent files
    msgNoDataToReport = QStringLiteral("There is no data to report. Check the report settings.");
    msgDatabaseFormatUpdated = QStringLiteral("The database format was updated successfully.");
    msgRecentFiles = QStringLiteral("Recent files");
    msgClearList = QStringLiteral("Clear list");
    msgCannotUpdateFormatNoSpace =
        QStringLiteral("Cannot update the database format, probably not enough free space on the disk.");

    // Archives and sort entries
    msgSearchArchives = QStringLiteral("Search archives");
    msgByItemComment = QStringLiteral("by Item comment");
    msgByDiskComment = QStringLiteral("by Disk comment");
    msgArchives = QStringLiteral("Archives");

    // Add dialog and its scan options
    msgAddCategory = QStringLiteral("Add category");
    msgThisDiskNumberAlreadyExists = QStringLiteral("This disk number already exists.");
    msgContactNumber = QStringLiteral("Contact #");
    msgAddDiskOrFolder = QStringLiteral("Add disk or folder");
    msgScanSubfolders = QStringLiteral("Scan subfolders");
    msgScanFoldersOnly = QStringLiteral("Scan folders only");
    msgSkipEmptyFilesAndFolders = QStringLiteral("Skip empty files and folders");
    msgScanArchives = QStringLiteral("Scan archives");
    msgCheckDiskDuplicates = QStringLiteral("Check disk duplicates");

    // Dialog reminders and feedback
    msgShowThisDialogAgain = QStringLiteral("Show this dialog again");
    msgPleaseSelectAFolderOrDisk = QStringLiteral("Please select a folder or disk.");
    msgNoWay = QStringLiteral("No way!");
    msgSendFeedback = QStringLiteral("Send feedback");
    msgPleaseSendUsYourFeedback = QStringLiteral("Please send us your feedback!");

    // Warnings and shell commands
    msgAccessDenied = QStringLiteral("Access Denied");
    msgNotEnoughFreeSpace = QStringLiteral("There is not enough free space on the disk.");
    msgKelvarinSupportsOnly = QStringLiteral("Kelvarin supports only Windows 2000/XP/2003/Vista");
    msgSendFeedbackMenu = QStringLiteral("Send Feedback");
    msgExecute = QStringLiteral("Execute");
    msgOpenInExplorer = QStringLiteral("Open in Explorer");
    msgTheFileIsNotFound = QStringLiteral("The file is not found.");

    // Tray, drive and window behaviour settings
    msgSettings = QStringLiteral("Settings");
    msgRestore = QStringLiteral("Restore");
    msgOpenScanDialogWhenCDIsInserted = QStringLiteral("Open scan dialog when CD is inserted");
    msgEjectCD = QStringLiteral("Eject CD");
    msgInsertCD = QStringLiteral("Insert CD");
    msgKelvarin = QStringLiteral("Kelvarin");
    msgSelectACDROMDriveTo = QStringLiteral("Select a CD-ROM drive to");
    msgDrive = QStringLiteral("Drive");
    msgCloseWindow = QStringLiteral("Close window");
    msgCloseWindowWithFadeEffect = QStringLiteral("Close window with fade effect");
    msgFast = QStringLiteral("Fast");
    msgSlow = QStringLiteral("Slow");
    msgTray = QStringLiteral("Tray");
    msgMinimizeToTray = QStringLiteral("Minimize to tray");
    msgDoubleClickOnFileAction = QStringLiteral("Double-click on file action:");
    msgShowProperties = QStringLiteral("Show properties");
    msgAutoscanInsertedCD = QStringLiteral("Autoscan inserted CD");
    msgDisableCDAutoplay = QStringLiteral("Disable CD autoplay");

    // Scan presets
    msgPresets = QStringLiteral("Presets:");
    msgSingleDiskScan = QStringLiteral("Single disk scan");
    msgMultipleDiskScan = QStringLiteral("Multiple disk scan");
    msgScanCDsInAutoMode = QStringLiteral("Scan CDs in auto mode");
    msgCustomPresets = QStringLiteral("Custom presets");
    msgPreScanOptions = QStringLiteral("Pre-scan options");
    msgScanOptions = QStringLiteral("Scan options");
    msgPostScanOptions = QStringLiteral("Post-scan options");

    // Contact card fields
    msgEditDiskInfo = QStringLiteral("Edit disk info");
    msgHomePhone = QStringLiteral("Home phone:");
    msgWorkPhone = QStringLiteral("Work phone:");
    msgMobilePhone = QStringLiteral("Mobile phone:");
    msgEmail = QStringLiteral("E-mail:");
    msgInfo = QStringLiteral("Info");

    // Customize columns dialog
    msgCustomizeColumns = QStringLiteral("Customize columns");
    msgDefault = QStringLiteral("Default");
    msgShowAll = QStringLiteral("Show All");
    msgShowOne = QStringLiteral("Show One");

    // Toolbars and panes
    msgToolbars = QStringLiteral("Toolbars");
    msgToolbarSettings = QStringLiteral("Toolbar settings");
    msgCategoriesFavorites = QStringLiteral("Categories/Favorites");
    msgAlphabeticalIndex = QStringLiteral("Alphabetical index");
    msgMain = QStringLiteral("Main");
    msgLockTheToolbars = QStringLiteral("Lock the Toolbars");
    msgRestoreDefaults = QStringLiteral("Restore defaults");
    msgPanes = QStringLiteral("Panes");
    msgCategoriesFavoritesPane = QStringLiteral("Categories/Favorites");
    msgContactCardPane = QStringLiteral("Contact card");

    // Themes
    msgToolbarTheme = QStringLiteral("Toolbar theme");
    msgWindowTheme = QStringLiteral("Window theme");
    msgDefaultTheme = QStringLiteral("Default");
    msgOffice2003 = QStringLiteral("Office 2003");
    msgXPBlue = QStringLiteral("XP Blue");
    msgXPOliveGreen = QStringLiteral("XP Olive Green");
    msgXPSilver = QStringLiteral("XP Silver");
    msgRoyale = QStringLiteral("Royale");
    msgOffice2007Aqua = QStringLiteral("Office 2007 Aqua");
    msgOffice2007Blue = QStringLiteral("Office 2007 Blue");
    msgVistaBasic = QStringLiteral("Vista Basic");

    // Drive and file messages
    msgTheDriveIsNotPresent = QStringLiteral("The drive is not present.");
    msgNoDiskInTheDrive2 = QStringLiteral("No disk in the drive.");
    msgTheSpecifiedFileWasNotFound = QStringLiteral("The specified file was not found.");

    // Access mode and password dialogs
    msgKelvarin2 = QStringLiteral("Kelvarin");
    msgAccessMode = QStringLiteral("Access mode");
    msgFullAccess = QStringLiteral("Full access");
    msgReadOnlyAccess = QStringLiteral("Read-only access");
    msgAccessOptions = QStringLiteral("Access options");
    msgPasswordIsInvalid = QStringLiteral("The entered password is invalid. Please try again.");
    msgKelvarin3 = QStringLiteral("Kelvarin");
    msgAccessModeColon = QStringLiteral("Access mode:");
    msgPassword = QStringLiteral("Password:");
    msgPleaseSelectAnAccessMode = QStringLiteral("Please select an access mode.");
    msgAccessOptionsTitle = QStringLiteral("Access options");
    msgCurrentPhonebookAccessOptions = QStringLiteral("Current phonebook access options.");
    msgDefaultAccessMode = QStringLiteral("Default access mode");

    // Database page of the preferences
    msgDatabase = QStringLiteral("Database");
    msgFileSize = QStringLiteral("File size:");
    msgCreateNewDatabase = QStringLiteral("Create new database");
    msgOpenDatabase = QStringLiteral("Open database");
    msgMoveDatabaseTo = QStringLiteral("Move database to...");
    msgClearDatabaseButton = QStringLiteral("Clear database");
    msgDatabaseNotMovedFileExists = QStringLiteral("The database could not be moved, a file with the same "
                                                   "name already exists in the destination folder.");
    msgDatabaseCannotBeFoundOrDoesNotExist =
        QStringLiteral("The database cannot be found or does not exist. Please specify the database location "
                       "or create a new one.");
    msgTheDatabaseCannotBeFound = QStringLiteral("The database cannot be found");
    msgCannotMoveDatabaseNoSpace =
        QStringLiteral("Cannot move the database file, probably not enough free space on selected folder.");

    // Column order and card layout
    msgMoveUp = QStringLiteral("Move Up");
    msgMoveDown = QStringLiteral("Move Down");
    msgLayout = QStringLiteral("Layout:");
    msgColumnar = QStringLiteral("Columnar");
    msgTabular = QStringLiteral("Tabular");

    // Number types
    msgThisTypeAlreadyExists = QStringLiteral("This type already exists.");
    msgAddEditType = QStringLiteral("Add/Edit Type");
    msgSave = QStringLiteral("Save");

    // Contact card messages and pages
    msgPleaseEnterANameOrACompany = QStringLiteral("Please enter a Name or a Company.");
    msgQueryIsTooComplex = QStringLiteral("Query is too complex.");
    msgGeneralInfo = QStringLiteral("General Info");
    msgPhoneFaxEmailSkypeEtc = QStringLiteral("Phone, Fax, Email, Skype, etc.");

    // Photo
    msgPhoto = QStringLiteral("Photo");
    msgSelectPhoto = QStringLiteral("Select photo");
    msgAllSupportedFiles = QStringLiteral("All supported files");
    msgBitmapFiles = QStringLiteral("Bitmap Files");
    msgJPEG = QStringLiteral("JPEG");
    msgGIF = QStringLiteral("GIF");
    msgPNG = QStringLiteral("PNG");
    msgMaximumFileSize500Kb =
        QStringLiteral("Maximum file size is 500Kb. Please reduce the file size or select another one.");

    // Quick actions and list options
    msgClear = QStringLiteral("Clear");
    msgCreateCopy = QStringLiteral("Create copy");
    msgShortGroup = QStringLiteral("Short group");
    msgShortCategory = QStringLiteral("Short category");
    msgListAndTreeOptions = QStringLiteral("List and Tree options");
    msgLargeIconsOption = QStringLiteral("Large icons");
    msgFonts = QStringLiteral("Fonts");

    // Deleting a category or a group
    msgReallyDeleteSelectedCategory = QStringLiteral("Do you really want to delete the selected category?");
    msgCategoryDeleteWarning = QStringLiteral("All contacts in this category and its subcategories will be also deleted.");
    msgReallyDeleteSelectedGroup = QStringLiteral("Do you really want to delete the selected group?");
    msgGroupDeleteWarning = QStringLiteral("All disks in this group will be also deleted.");

    // Status bar, toolbar list and letter tabs
    msgTodayColon = QStringLiteral("Today: ");
    msgToolbarList = QStringLiteral("&Toolbar List");
    msgLetterAll = QStringLiteral("ALL");
    msgLetterDigits = QStringLiteral("0-9");
    msgLetterUnknown = QStringLiteral("?");

    // Contact card labels and buttons
    msgIndexColon = QStringLiteral("Index:");
    msgWordWrap = QStringLiteral("Word Wrap");
    msgIncrease = QStringLiteral("Increase");
    msgDecrease = QStringLiteral("Decrease");
    msgClearFavorites = QStringLiteral("Clear Favorites");

    // Start, File > New and the command line
    msgPhonebookFileMissing = QStringLiteral("The phonebook “%1” could not be opened because the file does not exist.");
    msgPhonebookFolderMissing = QStringLiteral("The phonebook “%1” could not be opened because its folder does not exist.");
    msgPhonebookIsFolder = QStringLiteral("“%1” could not be opened because it is a folder, not a phonebook file.");
    msgPhonebookNotOpened = QStringLiteral("The phonebook “%1” could not be opened.");
    msgOpenPhonebookButton = QStringLiteral("&Open Phonebook...");
    msgNewPhonebookButton = QStringLiteral("&New Phonebook...");
    msgNewIsOpenPhonebook = QStringLiteral("“%1” is the open phonebook. Choose another name for the new phonebook.");
    msgReplacePhonebook = QStringLiteral("The phonebook “%1” already exists and holds %2 contacts. Replace it with a new, empty phonebook? Its contacts will be lost.");
    msgReplacePhonebookOneContact = QStringLiteral("The phonebook “%1” already exists and holds 1 contact. Replace it with a new, empty phonebook? Its contact will be lost.");
    msgReplaceFile = QStringLiteral("“%1” already exists. Replace it with a new, empty phonebook?");
    msgLoadingContacts = QStringLiteral("Loading contacts...");
    msgUsage = QStringLiteral("Usage: kelvarin [--help] [--version] [PHONEBOOK]");
    msgUsageDetails = QStringLiteral("Opens PHONEBOOK, or else the phonebook used last. --help shows this text, --version the version.");
    msgUnknownOption = QStringLiteral("Unknown option: %1");
    msgNoDisplay = QStringLiteral("Kelvarin needs a graphical display, and none could be reached: start it from a desktop session.");

    // The size helpers write their units in the language of the catalogue.
    mCommon::SetSizeUnitTexts(msgBytes, msgKB, msgMB, msgGB);
}

} // namespace mLanguageEng
