#pragma once
// The numeric ids of the main window's commands. Menus, toolbars, pop-ups and key bindings all
// make their controls with these ids, and Form1::CommandBars1_Execute dispatches on them.

namespace cmd {

enum : int {
    // File
    RecentFirst = 1,
    RecentLast = 10,
    FileNew = 100,
    FileOpen = 101,
    FileInfo = 102,
    FileClearDB = 103,
    FileCompactDB = 104,
    FileImport = 110,
    FileExportAll = 111,
    FileExportList = 112,
    FileExportSelected = 113,
    FileExit = 106,
    AccessFull = 107,
    AccessReadOnly = 108,
    AccessOptions = 109,
    RecentClear = 117,
    // Categories
    CategoryAdd = 200,
    CategoryRename = 201,
    CategoryDelete = 202,
    CategorySortByName = 203,
    CategorySortByContacts = 204,
    CategoryQuickAdd = 205,
    CategoryModeNormal = 206,
    CategoryModeAdvanced = 207,
    CategoryProperties = 208,
    // Contacts
    ContactAdd = 300,
    ContactNoFavorite = 302,
    ContactDelete = 303,
    ContactProperties = 304,
    ContactCopy = 305,
    // View
    ViewCategories = 500,
    ViewFavorites = 501,
    ViewRefresh = 511,
    ViewToolTips = 512,
    ViewStatusBar = 513,
    ViewLargeIcons = 514,
    ViewLockToolbars = 515,
    ViewToolbarsDefault = 516,
    ViewPaneCategories = 517,
    ViewPaneContacts = 518,
    ViewPaneCard = 519,
    ViewPanesDefault = 520,
    ViewGroups = 521,
    ViewPanePhoto = 522,
    ToolbarList = 59392,
    // Tools
    ToolsSearch = 600,
    ToolsStatistics = 601,
    ToolsReport = 602,
    ToolsPreferences = 603,
    ToolsReportSelected = 604,
    // Help
    HelpContents = 700,
    HelpTip = 701,
    HelpWebsite = 703,
    HelpSupport = 704,
    HelpFeedback = 705,
    HelpAbout = 706,
    // Pop-up of the contact list
    ListRefresh = 10000,
    ListSortFirst = 10002, // 10002 to 10013: full name to added
    ListSortLast = 10013,
    ListAdd = 10017,
    ListNoFavorite = 10019,
    ListDelete = 10020,
    ListProperties = 10022,
    ListSortByGroup = 10024,
    ListCopy = 10025,
    ListSortInfoFirst = 10026, // 10026 to 10037: Info 1 to Info 12
    ListSortInfoLast = 10037,
    // Toolbars
    TabFavorites = 10401,
    LetterAll = 10402,
    MainAdd = 10411,
    MainDelete = 10412,
    MainProperties = 10413,
    MainSearch = 10414,
    MainStatistics = 10415,
    MainReport = 10416,
    MainPreferences = 10419,
    MainHelp = 10420,
    LetterA = 10425,
    LetterZ = 10450,
    LetterDigits = 10451,
    LetterUnknown = 10452,
    TabGroups = 10453,
    ReportOnList = 10454,
    ReportOnContact = 10455,
    TabCategories = 10499,
    // Column pickers: the detail pane's columns, then the contact list's ("Info 3" onwards
    // follow the entry that customises the columns)
    DetailsColumnName = 10101,
    DetailsColumnSize = 10102,
    DetailsColumnType = 10103,
    DetailsColumnModified = 10104,
    DetailsColumnsCustomize = 10105,
    // Pop-up of a value of the detail pane
    DetailsSendMail = 10106,
    DetailsOpenWeb = 10107,
    DetailsCall = 10108,
    DetailsCopy = 10109,
    ContactColumnFirst = 10200,
    ContactColumnsCustomize = 10215,
    ContactColumnLast = 10225,
    // Pop-up of the tray icon
    TrayRestore = 10300,
    TrayWebsite = 10304,
    TraySupport = 10305,
    TrayFeedback = 10306,
    TrayExit = 10307,
    // Ids that no control of the window carries yet but that stay usable without a phonebook
    // once one does: an entry among the File commands, one among the view commands of the detail
    // pane's pop-up, and the id just below each group of commands.
    FileReserved = 105,
    DetailsViewReserved = 412,
    CategoryReserved = 199,
    ContactReserved = 299,
    DetailsReserved = 399,
    ToolsReserved = 599,
    HelpReserved = 699,
    AfterHelpReserved = 799,
    ContactColumnsReserved = 10199,
    TrayReserved = 10299,
    TabsReserved = 10399,
};

} // namespace cmd
