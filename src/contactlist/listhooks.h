#pragma once
// What the contact list procedures ask of the main window beyond the list control: the hourglass,
// the check marks of the arrange entries, the switch of the tree on display and the detail pane.
// The main window fills these when it is made; an empty hook does nothing, so the procedures also
// run without any window. The favorites commands, the counters and the switch of the view go
// through the hooks of the trees (mTV::Hooks()).

#include <QString>
#include <functional>

namespace mLV {

struct ListHooks {
    // The hourglass over the whole program while a list fills: true shows it, false returns to
    // the default pointer.
    std::function<void(bool busy)> Hourglass;
    // Sets the check mark of the command `id` of the main window (the arrange entries of the
    // contact list's pop-up).
    std::function<void(int id, bool checked)> SetCommandChecked;
    // CurrentTreeTab has just been changed: fill the main window's tree for it (CategoryFill) and
    // bring the tree buttons and the pane caption in step.
    std::function<void()> ShowCurrentTree;
    // A row of the contact list was selected: fill the detail pane for it (PreFillTree).
    std::function<void(const QString& Key)> PreFillTree;
};

// The one set of hooks of the process.
ListHooks& Hooks();

} // namespace mLV
