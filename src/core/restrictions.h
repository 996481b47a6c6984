#pragma once
// The enabling rules of a restricted session (a phonebook that may not be changed), applied to one
// window at a time. The access layer installs the rules; before that the call does nothing.
// Every modal window gets them from ShowModal before it shows; a window that is not modal calls
// mCommon::RORestrictions(this) at the end of its Form_Load.

#include <functional>

class QWidget;

namespace mCommon {
void RORestrictions(QWidget* frm);
using RestrictionRules = std::function<void(QWidget* frm)>;
// Installs the rules; answers those in force before.
RestrictionRules SetRORestrictionRules(RestrictionRules rules);
} // namespace mCommon
