#pragma once
// What the tree procedures ask of the main window beyond the tree control: the contact list, the
// detail pane with the photo, the switch of the view, the counters and the node properties
// dialog. The main window fills these when it is made; an empty hook does nothing, so the
// procedures also run without any window.

#include <QString>
#include <functional>

class ListItem;
namespace dao {
class Recordset;
}

namespace mTV {

struct ViewHooks {
    // Key of the selected row of the contact list, "" when none.
    std::function<QString()> SelectedListKey;
    // Clears the selection of the contact list if it holds rows and one is selected.
    std::function<void()> ClearListSelection;
    // Brings the favorites commands in step with the list selection.
    std::function<void()> MenuNoBorrow;
    // Removes the row with this key from the contact list.
    std::function<void(const QString& key)> RemoveListRow;
    // Node `key` now has the name `name`: the contact rows that show its path take the new name.
    std::function<void(const QString& key, const QString& name)> UpdateCatInList;
    // The row of a child node in the contact list shows the node's new comment.
    std::function<void(ListItem& row, const QString& comment)> SetNodeRowComment;
    // Empties the detail pane and its Tag, shows the no-photo picture, clears the list's Tag.
    std::function<void()> ClearDetailPane;
    // Makes letter tab Key and node CKey the view; ForceUpdate refills even when nothing changed.
    std::function<void(const QString& Key, const QString& CKey, bool ForceUpdate)> CheckTab;
    // Refreshes the counts of the tree on display.
    std::function<void()> UpdateCounters;
    // While the node properties dialog is open: true, with the text of its comment box.
    std::function<bool(QString& comment)> NodeDialogComment;
    // Shows the no-photo picture in the photo pane.
    std::function<void()> SetNoImage;
    // Shows the photo of the contact the recordset stands on (a row of CDs with its photo fields).
    std::function<void(const dao::Recordset& rstWork)> LoadPhotoFromDB;
    // Puts the name of the tree of `mode` on the caption of the tree pane and on its toolbar entry.
    std::function<void(qint16 mode)> CategoryCaption;
};

// The one set of hooks of the process.
ViewHooks& Hooks();

} // namespace mTV
