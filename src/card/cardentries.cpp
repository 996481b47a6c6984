#include "card/cardentries.h"

#include "card/form2.h"
#include "card/form3.h"
#include "core/errorreport.h"
#include "core/seams.h"
#include "preferences/preferences.h"
#include "support/controls/listview.h"
#include "support/helpers/keys.h"
#include "trees/mainview.h"

qint16 PropertiesMode = 0;
bool ListNeedsClickReset = false;
Form3* gForm3 = nullptr;
Form2* gForm2 = nullptr;

namespace {

// Keeps a card in its global slot while it is open.
template <class F> class Slot {
  public:
    Slot(F*& slot, F* card) : m_slot(slot) { m_slot = card; }
    ~Slot() { m_slot = nullptr; }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

  private:
    F*& m_slot;
};

template <class F> void showCard(F*& slot, const char* loadPlace, const QString& key) {
    QWidget* owner = mTV::MainWindowOwner();
    F card(owner);
    Slot<F> open(slot, &card);
    card.CardKey = key;
    RunEvent(loadPlace, [&card] { card.Form_Load(); });
    ShowModal(&card, owner);
}

void openCard(const QString& key) {
    if (ContactCardWithTabs)
        showCard(gForm3, "Form3.Form_Load", key);
    else
        showCard(gForm2, "Form2.Form_Load", key);
}

// The contact of the selected row, "" when no contact row is selected.
QString selectedContact(const ListView& list) {
    if (list.ListItems.Count() == 0) return QString();
    const ListItem* item = list.SelectedItem();
    if (!item || item->Key().contains(QLatin1Char('E'))) return QString();
    return QString::number(mCommon::GetID1(item->Key()));
}

} // namespace

namespace mScanCD {

void AddNewDisk() {
    HUNT_PLACE("mScanCD.AddNewDisk");
    openCard(QStringLiteral("0"));
}

void DiskProperties() {
    HUNT_PLACE("mScanCD.DiskProperties", PropertiesMode);
    const auto view = mTV::MainWindowView();
    if (PropertiesMode == 0 || !view) return;
    const QString key = selectedContact(view->ListView2);
    if (key.isEmpty()) return;
    PropertiesMode = 0;
    openCard(key);
}

void DiskPropertiesSearch(const ListView& ListView1) {
    HUNT_PLACE("mScanCD.DiskPropertiesSearch");
    const QString key = selectedContact(ListView1);
    if (!key.isEmpty()) openCard(key);
}

} // namespace mScanCD
