// The quick filter field of the main toolbar: the contact list follows what is typed, over the
// whole phonebook, while the tree and the letter tabs stand aside; Esc or an empty field brings
// the view of the tree back, and Enter hands the text to the search window.
#include "search/quickfilter.h"
#include "contactlist/checktab.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "search/form8.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/treeselect.h"
#include "trees/viewstate.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolBar>

using namespace mLanguageGobals;

namespace {

// Esc in the field: a key that QLineEdit does not act on itself.
class EscapeKey : public QObject {
  public:
    EscapeKey(Form1* form, QObject* parent) : QObject(parent), m_form(form) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            RunEvent("Form1.txtQuickFilter_KeyPress", [this] { m_form->txtQuickFilter_KeyPress(27); });
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Form1* m_form;
};

} // namespace

void Form1::buildQuickFilter(QToolBar* bar) {
    txtQuickFilter = new QLineEdit(bar);
    txtQuickFilter->setObjectName(QStringLiteral("txtQuickFilter"));
    txtQuickFilter->setPlaceholderText(msgQuickFilterPlaceholder);
    txtQuickFilter->setToolTip(msgQuickFilterTip);
    txtQuickFilter->setClearButtonEnabled(true);
    txtQuickFilter->setMaximumWidth(220);
    bar->addSeparator();
    bar->addWidget(txtQuickFilter);
    txtQuickFilter->installEventFilter(new EscapeKey(this, txtQuickFilter));

    // The status bar's count of the contacts in the list is the count of the matches.
    QuickFilter1 = new mSearch::QuickFilter(*ListView2, this);
    connect(txtQuickFilter, &QLineEdit::textChanged, this,
            [this] { RunEvent("Form1.txtQuickFilter_Change", [this] { txtQuickFilter_Change(); }); });
    connect(txtQuickFilter, &QLineEdit::returnPressed, this,
            [this] { RunEvent("Form1.txtQuickFilter_KeyPress", [this] { txtQuickFilter_KeyPress(13); }); });
}

bool Form1::QuickFilterHolds() const {
    return txtQuickFilter && !txtQuickFilter->text().isEmpty();
}

void Form1::setViewControlsEnabled(bool enabled) {
    CatTree->setEnabled(enabled);
    for (const char* name : {"CategoriesFavorites", "AlphabeticalIndex"})
        if (auto* bar = findChild<QToolBar*>(QLatin1String(name))) bar->setEnabled(enabled);
}

void Form1::txtQuickFilter_Change() {
    HUNT_PLACE("Form1.txtQuickFilter_Change");
    if (gNotConnected) return;
    const QString text = txtQuickFilter->text();
    if (!text.trimmed().isEmpty()) {
        setViewControlsEnabled(false);
        if (ListItem* row = ListView2->SelectedItem()) row->SetSelected(false);
        mTV::ClearDetailPane(View());
        if (QuickFilter1->Start(text)) return;
    }
    // No word: the view of the tree.
    ClearQuickFilter(!text.isEmpty() || QuickFilter1->Running() || !CatTree->isEnabled());
    if (!text.isEmpty()) {
        const QSignalBlocker quiet(txtQuickFilter);
        txtQuickFilter->setText(text);
    }
}

void Form1::txtQuickFilter_KeyPress(int KeyAscii) {
    HUNT_PLACE("Form1.txtQuickFilter_KeyPress(KeyAscii)", KeyAscii);
    if (KeyAscii == 27) {
        if (QuickFilterHolds()) ClearQuickFilter(true);
    } else if (KeyAscii == 13 && !gNotConnected) {
        mCommon::Search(txtQuickFilter->text().trimmed());
    }
}

void Form1::ClearQuickFilter(bool refill) {
    HUNT_PLACE("Form1.ClearQuickFilter(refill)", refill);
    if (!txtQuickFilter) return;
    QuickFilter1->Cancel();
    {
        const QSignalBlocker quiet(txtQuickFilter);
        txtQuickFilter->clear();
    }
    setViewControlsEnabled(true);
    if (refill && !gNotConnected) mToolBar::CheckTab(View(), CurrentLetter, CurrentNodeKey, true);
}
