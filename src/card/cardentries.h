#pragma once
// The ways into the contact card: a new contact, the contact selected in the main window's list,
// and the contact selected in the search results. Each opens the layout the preference
// ContactCardWithTabs chooses, modally over the main window, for one edit.

#include <QtGlobal>

class Form2;
class Form3;
class ListView;

// Set to 1 by the command that opens the card for the selected list row; DiskProperties acts only
// when it is not 0, and resets it.
extern qint16 PropertiesMode;
// Set by OK on a new contact; the next mouse-up in the contact list consumes it.
extern bool ListNeedsClickReset;
// The card open at the moment in each layout; null while none is.
extern Form3* gForm3;
extern Form2* gForm2;

namespace mScanCD {

// Opens the card for a new contact.
void AddNewDisk();
// Opens the card for the contact row selected in the main window's list; nothing happens unless
// PropertiesMode is set, the list has rows and a contact row is selected.
void DiskProperties();
// Opens the card for the contact selected in the search results `ListView1`.
void DiskPropertiesSearch(const ListView& ListView1);

} // namespace mScanCD
