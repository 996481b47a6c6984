#include "trees/treeselect.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/contactquery.h"
#include "support/controls/listview.h"
#include "support/helpers/keys.h"
#include "support/helpers/values.h"
#include "trees/treelabels.h"
#include "trees/viewhooks.h"

#include <QColor>

using namespace mLanguageGobals;

namespace mTV {

namespace {

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

// The contact with its twelve number types as T1 to T12 and the paths of its three nodes.
QString DetailQuery(qint32 IDCD) {
    QString select = QStringLiteral("SELECT Types.Type AS T1");
    for (int k = 1; k < 12; ++k)
        select += QStringLiteral(", Types_%1.Type AS T%2").arg(k).arg(k + 1);
    select += QStringLiteral(", CDs.*, Categories.Catpath AS Category, Borrows.Catpath AS Favorite, "
                             "Boxes.Catpath AS Box ");
    // The joins are those of the contact list.
    const QString list = mLV::ListQuery();
    return select + list.mid(list.indexOf(QLatin1String("FROM ("))) +
           QStringLiteral("WHERE CDs.IDCD=%1").arg(IDCD);
}

// Adds the lines of the detail pane: the label in bold, the value beside it.
class DetailLines {
  public:
    explicit DetailLines(ListView& lv) : m_lv(lv) {}
    void Add(const QString& label, const QString& value, bool link = false) {
        ++m_lines;
        ListItem* item = m_lv.ListItems.Add(QString::number(m_lines) + QLatin1Char('k'), label);
        item->SetBold(true);
        ListSubItem cell = item->ListSubItems.Add(value);
        if (link) {
            cell.SetForeColor(QColor(0, 0, 255));
            cell.SetTag(value);
        }
    }
    int Lines() const { return m_lines; }

  private:
    ListView& m_lv;
    int m_lines = 0;
};

} // namespace

bool IsLinkValue(const QString& value) {
    return value.contains(QLatin1Char('@')) || value.contains(QLatin1String("http"), Qt::CaseInsensitive) ||
           value.contains(QLatin1String("www."), Qt::CaseInsensitive);
}

void SelectNode(ListView& ListView1, const QString& Key) {
    HUNT_PLACE("mTV.SelectNode(Key)", Key);
    const qint32 id = mCommon::GetID1(Key);
    ListView1.BeginUpdate();
    struct EndUpdate {
        ListView& lv;
        ~EndUpdate() { lv.EndUpdate(); }
    } endUpdate{ListView1};

    dao::Recordset rs = gDB.OpenRecordset(DetailQuery(id), dao::dbOpenSnapshot);
    ListView1.ListItems.Clear();
    DetailLines lines(ListView1);
    if (rs.AtEOF()) {
        rs.Close();
        Call(Hooks().SetNoImage);
        return;
    }
    const QVariant empty = QVariant(QString());
    const auto plain = [&](const char* field, const QString& label) {
        const QVariant v = rs[QLatin1String(field)];
        if (!v.isNull()) lines.Add(label, mCommon::Nz(v, empty).toString());
    };
    plain("FullName", msgFullNameColon);
    plain("Title", msgTitleColon);
    plain("Company", msgCompanyColon);
    for (int k = 1; k <= 12; ++k) {
        const QVariant number = rs[QStringLiteral("Number%1").arg(k)];
        if (number.isNull()) continue;
        const QString value = mCommon::Nz(number, empty).toString();
        lines.Add(mCommon::NzColon(rs[QStringLiteral("T%1").arg(k)], empty).toString(), value,
                  IsLinkValue(value));
    }
    if (const QVariant v = rs[QStringLiteral("Address")]; !v.isNull())
        lines.Add(msgAddressColon, mCommon::NzMultiline2(v, empty).toString());
    plain("City", msgCityColon);
    plain("State", msgStateProvColon);
    plain("Zip", msgZipPostalCodeColon);
    if (const QVariant v = rs[QStringLiteral("Comment")]; !v.isNull())
        lines.Add(msgCommentColon, mCommon::NzMultiline(v, empty).toString());
    plain("Category", msgCategoryColon);
    plain("Favorite", msgFavoritesColon);
    plain("Box", msgGroupColon);

    Call(Hooks().LoadPhotoFromDB, rs);
    rs.Close();
    if (lines.Lines() > 0) ListView1.SetSelectedItem(nullptr);
}

void PreFillTree(const MainView& view, const QString& Key) {
    HUNT_PLACE("mTV.PreFillTree(Key)", Key);
    if (Key.isEmpty()) return;
    if (!Key.contains(QLatin1Char('E'))) {
        const qint32 id = mCommon::GetID1(Key);
        // The pane shows this contact already.
        if (id <= 0 || TagCount(view.ListView2.Tag()) == id) return;
        view.ListView1.ListItems.Clear();
        SelectNode(view.ListView1, Key);
        view.ListView2.SetTag(QString::number(id));
        return;
    }
    view.ListView2.SetTag(QString());
    view.ListView1.ListItems.Clear();
    view.ListView1.SetTag(QString());
    Call(Hooks().SetNoImage);
}

void ClearDetailPane(const MainView& view) {
    HUNT_PLACE("mTV.ClearDetailPane");
    view.ListView1.ListItems.Clear();
    view.ListView1.SetTag(QString());
    view.ListView2.SetTag(QString());
    Call(Hooks().SetNoImage);
}

} // namespace mTV
