// What the user does with a contact's values and the lists' columns without opening a card: the
// pop-up of a value of the detail pane (mail, web page, call, copy) and the column pickers of
// the detail pane and the contact list.
#include "contactlist/columns.h"
#include "contactlist/form21.h"
#include "core/commandids.h"
#include "core/desktop.h"
#include "core/errorreport.h"
#include "core/language.h"
#include "core/seams.h"
#include "core/sendmail.h"
#include "mainwindow/form1.h"
#include "support/controls/columnheader.h"
#include "support/controls/commandbars.h"
#include "support/controls/icons.h"
#include "support/controls/listview.h"
#include "trees/treeselect.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>

using namespace mLanguageGobals;

namespace {

constexpr ControlType kPlain = ControlType::Button;
constexpr ControlType kCheck = ControlType::RadioButton;
constexpr int kContactColumns = 25;

// The entries of the detail pane's picker, for its columns in order.
const QString* const kDetailsCaptions[] = {&msgName, &msgSize, &msgType, &msgModified};

// Shows `column` when hidden, hides it when shown; the picker's entry follows.
void flipColumn(ColumnHeader* column, CommandBarAction* entry) {
    if (!column) return;
    if (mLV::HiddenColumn(*column))
        mLV::ShowColumn(*column);
    else
        mLV::HideColumn(*column);
    if (entry) entry->SetChecked(!mLV::HiddenColumn(*column));
}

void showAtCursor(QMenu* menu, bool show) {
    if (show) menu->popup(QCursor::pos());
}

} // namespace

int Form1::ContactColumnCommand(int Index) {
    if (Index < 1 || Index > kContactColumns) return 0;
    // "Customize columns" holds the place after the fifteenth column.
    return Index <= cmd::ContactColumnsCustomize - cmd::ContactColumnFirst
               ? cmd::ContactColumnFirst + Index - 1
               : cmd::ContactColumnFirst + Index;
}

int Form1::ContactColumnIndex(int id) {
    if (id < cmd::ContactColumnFirst || id > cmd::ContactColumnLast || id == cmd::ContactColumnsCustomize)
        return 0;
    return id < cmd::ContactColumnsCustomize ? id - cmd::ContactColumnFirst + 1
                                             : id - cmd::ContactColumnFirst;
}

void Form1::buildQuickActionMenus() {
    CommandBars& cb = *CommandBars1;
    QMenu* hl1 = cb.AddContextMenu(QStringLiteral("PopupHL1"));
    for (int i = 0; i < 4; ++i)
        cb.AddButton(hl1, kCheck, cmd::DetailsColumnName + i, *kDetailsCaptions[i]);
    cb.AddButton(hl1, kPlain, cmd::DetailsColumnsCustomize, msgCustomizeColumns, true);

    // The captions are the columns' own, set each time the picker opens.
    QMenu* hl2 = cb.AddContextMenu(QStringLiteral("PopupHL2"));
    for (int index = 1; index <= kContactColumns; ++index)
        cb.AddButton(hl2, kCheck, ContactColumnCommand(index), QString::number(index));
    cb.AddButton(hl2, kPlain, cmd::ContactColumnsCustomize, msgCustomizeColumns, true);

    QMenu* details = cb.AddContextMenu(QStringLiteral("PopupDetails"));
    const struct {
        int id;
        const QString* caption;
        const char* themeIcon;
        int fallback; // the command whose icon stands in where the desktop's theme has none
    } entries[] = {
        {cmd::DetailsSendMail, &msgSendMail, "mail-message-new", cmd::HelpSupport},
        {cmd::DetailsOpenWeb, &msgOpenWebPage, "internet-web-browser", cmd::HelpWebsite},
        {cmd::DetailsCall, &msgCallNumber, "call-start", cmd::ContactProperties},
        {cmd::DetailsCopy, &msgCopyValue, "edit-copy", cmd::ContactCopy},
    };
    for (const auto& e : entries) {
        CommandBarAction* a = cb.AddButton(details, kPlain, e.id, *e.caption, e.id == cmd::DetailsCopy);
        a->setIcon(QIcon::fromTheme(QLatin1String(e.themeIcon), mIcons::CommandIcon(e.fallback)));
    }

    ListView2->header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ListView2->header(), &QHeaderView::customContextMenuRequested, this,
            [this] { RunEvent("Form1.PopupHL2", [this] { PopupHL2(); }); });
    ListView1->header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ListView1->header(), &QHeaderView::customContextMenuRequested, this,
            [this] { RunEvent("Form1.PopupHL1", [this] { PopupHL1(); }); });
    connect(ListView1, &ListView::ContextMenu, this, [this](const QPoint& pos) {
        RunEvent("Form1.PopupDetails", [this, pos] { PopupDetails(pos); });
    });
}

QMenu* Form1::PopupHL1(bool show) {
    HUNT_PLACE("Form1.PopupHL1");
    for (int i = 0; i < 4; ++i) {
        CommandBarAction* entry = CommandBars1->FindAction(cmd::DetailsColumnName + i);
        const ColumnHeader* column = ListView1->ColumnHeaders.Item(i + 1);
        entry->SetVisible(column != nullptr);
        if (column) entry->SetChecked(!mLV::HiddenColumn(*column));
    }
    QMenu* menu = CommandBars1->ContextMenu(QStringLiteral("PopupHL1"));
    showAtCursor(menu, show);
    return menu;
}

QMenu* Form1::PopupHL2(bool show) {
    HUNT_PLACE("Form1.PopupHL2");
    for (int index = 1; index <= kContactColumns; ++index) {
        CommandBarAction* entry = CommandBars1->FindAction(ContactColumnCommand(index));
        const ColumnHeader* column = ListView2->ColumnHeaders.Item(index);
        entry->SetVisible(column != nullptr);
        if (!column) continue;
        entry->SetCaption(mLV::ColumnCaption(*column));
        entry->SetChecked(!mLV::HiddenColumn(*column));
    }
    QMenu* menu = CommandBars1->ContextMenu(QStringLiteral("PopupHL2"));
    showAtCursor(menu, show);
    return menu;
}

void Form1::mnuHL1_Click(int Index) {
    HUNT_PLACE("Form1.mnuHL1_Click(Index)", Index);
    flipColumn(ListView1->ColumnHeaders.Item(Index),
               CommandBars1->FindAction(cmd::DetailsColumnName + Index - 1));
}

void Form1::mnuHL2_Click(int Index) {
    HUNT_PLACE("Form1.mnuHL2_Click(Index)", Index);
    flipColumn(ListView2->ColumnHeaders.Item(Index), CommandBars1->FindAction(ContactColumnCommand(Index)));
}

void Form1::mnuHL1Customize_Click() {
    HUNT_PLACE("Form1.mnuHL1Customize_Click");
    Form21 frm(*ListView1, 1, this);
    ShowModal(&frm, this);
}

void Form1::mnuHL2Customize_Click() {
    HUNT_PLACE("Form1.mnuHL2Customize_Click");
    Form21 frm(*ListView2, 2, this);
    ShowModal(&frm, this);
}

QMenu* Form1::PopupDetails(const QPoint& pos, bool show) {
    HUNT_PLACE("Form1.PopupDetails");
    int subItem = 0;
    const ListItem* row = ListView1->HitTest(pos, &subItem);
    const QString value = row ? row->CellText(1).trimmed() : QString();
    if (value.isEmpty()) return PopupHL1(show);
    m_popupValue = value;
    // A link carries its value in the Tag; the action is chosen by that value, as a click does.
    const QString link = row->CellTag(1);
    const bool mail = !link.isEmpty() && link.contains(QLatin1Char('@'));
    CommandBars1->FindAction(cmd::DetailsSendMail)->SetVisible(mail);
    CommandBars1->FindAction(cmd::DetailsOpenWeb)->SetVisible(!link.isEmpty() && !mail);
    CommandBars1->FindAction(cmd::DetailsCall)
        ->SetVisible(link.isEmpty() && !mCommon::TelAddress(value).isEmpty());
    if (!link.isEmpty()) m_popupValue = link;
    QMenu* menu = CommandBars1->ContextMenu(QStringLiteral("PopupDetails"));
    if (show) menu->popup(ListView1->viewport()->mapToGlobal(pos));
    return menu;
}

void Form1::runQuickAction(int id) {
    HUNT_PLACE("Form1.runQuickAction(id)", id);
    if (m_popupValue.isEmpty()) return;
    switch (id) {
    case cmd::DetailsSendMail:
        mCommon::SendMail(m_popupValue, QString(), QString(), QString(), QString(), QString());
        break;
    case cmd::DetailsOpenWeb:
        mCommon::OpenLink(m_popupValue);
        break;
    case cmd::DetailsCall:
        mCommon::CallNumber(m_popupValue);
        break;
    case cmd::DetailsCopy:
        QGuiApplication::clipboard()->setText(m_popupValue);
        break;
    default:
        break;
    }
}
