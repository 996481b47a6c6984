#pragma once
// What the contact card asks of the rest of the program beyond the phonebook, the main window's
// list, tree and detail pane, and the node chooser: bringing the trees and the list in step after
// an edit. The program fills these at start; an empty hook does nothing, so the card also runs
// without them.

#include <QString>
#include <functional>

namespace mCard {

struct CardHooks {
    // The card closed after nodes were added to these trees: refill the tree on display when its
    // flag is set, and keep its selection.
    std::function<void(bool AddCat, bool AddBor, bool AddBox)> UpdateMainCatTree;
    // An edited contact: store the new category, favorite and group of contact pIDCD (keys "ID" +
    // number, "" for no favorite), and move its list row, the counters and the letter groups.
    // DType is its letter tab now, OldDType the one before the edit (the same when unchanged).
    std::function<void(const QString& DType, const QString& OldDType, const QString& OldDiskCat,
                       const QString& NewDiskCat, const QString& OldDiskBor, const QString& NewDiskBor,
                       const QString& OldDiskBox, const QString& NewDiskBox, qint32 pIDCD)>
        UpdateGlobalInfo;
};

// The one set of hooks of the process.
CardHooks& Hooks();

} // namespace mCard
