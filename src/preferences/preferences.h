#pragma once
// The user's preferences, read from section "PreferencesNew" at start by
// mRegSettings::IniPreferences and read by the rest of the program from here. Each starts with
// its default, which is what the program runs with when the store holds nothing, or a value
// that cannot be read.
//
// Not kept here, as their owners read them from the store themselves: TipOfTheDayCurrent and
// TipOfTheDayShowAll (tip dialog), CommentWordWrap and IncreasedComment (contact card).

#include <QString>

extern bool TipOfTheDayAtStart;  // show the tip dialog at start
extern bool BDSizeOnTitle;       // phonebook size in the title bar
extern bool DuplicateWarning;    // warn of a duplicate contact
extern bool DeleteDiskWarning;   // ask before a contact is deleted
extern bool SaveWindowLocation;  // windows open where they were closed
extern bool SaveWindowSize;      // main and search windows keep their size, all windows their state
extern bool ContactCardWithTabs; // card with tabs (Form3) or with group boxes (Form2)
extern QString FontName;         // font of lists and trees; empty: the controls' own font
extern bool FontItalic;
extern bool FontBold;
extern bool FontStrikethru;
extern bool FontUnderline;
extern double FontSize;     // points, four decimals; 0: the controls' own size
extern bool LvTvLargeIcons; // large icons in lists and trees
extern int ToolbarTheme;
extern int AppTheme;
extern bool ShowToolTip;
extern bool ShowLargeIcons; // large toolbar icons
extern bool LockToolbar;
extern bool PaneCategories;   // trees pane visible
extern bool PaneDisks;        // contact list pane visible
extern bool PaneDiskContents; // contact card pane visible
extern bool PaneDiskImage;    // photo pane visible
extern bool ShowStatusbar;
extern bool FlatToolbar;
extern bool MinimizeToTray;
extern bool WindowAnimation1;   // dialogs fade out as they close
extern int AnimationSpeed;      // length of that fade in milliseconds
extern bool CategoryNormalMode; // normal, not advanced, mode of the category tree
extern int FileDoubleClick;     // what a double-click on a contact does

// The stored pane layout is older than the present panes and is not to be restored.
extern bool gResetPanes;
