#pragma once
// What a restricted session (gRestricted) disables, form by form. A form joins with one row of
// kRestrictionTable in rorestrictions.cpp: its object name (the form's Name, as FormDialog sets
// it) and the object names of the controls that change data. A modal form needs nothing more,
// since ShowModal applies the rules; a form that is not modal also calls
// mCommon::RORestrictions(this) (core/restrictions.h) at the end of its Form_Load.
//
// The main window is the one form whose rules are commands: they are enabled again when the
// session is no longer restricted; on every other form the controls are only ever disabled.

#include <QString>
#include <QStringList>
#include <vector>

class QWidget;

namespace mAccess {

struct RestrictionRow {
    QString form;
    QStringList items;
};

// Every form with its controls, the main window excluded.
const std::vector<RestrictionRow>& RestrictionTable();

// The commands of the main window the rules govern: those with no other condition, and those that
// need a selected row of the contact list.
const std::vector<int>& MainWindowCommands();
const std::vector<int>& MainWindowSelectionCommands();

// Applies the rules to one form, by its object name; a form not in the table is left alone.
void ApplyRORestrictions(QWidget* frm);

// Makes ApplyRORestrictions the rules of mCommon::RORestrictions.
void InstallRORestrictions();

} // namespace mAccess
