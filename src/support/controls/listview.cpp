#include "support/controls/listview.h"

#include "support/controls/imagelist.h"
#include "support/controls/listmodel.h"
#include "support/controls/textorder.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <algorithm>
#include <numeric>

namespace {

// The header of the list. A column's sort arrow stands at the right end of its section and the
// caption has the rest: a caption too long for it is shortened with "...", never painted under
// the arrow.
//
// A hidden column (width 0) sits on the edge between the visible columns around it. Its side of
// that edge, the grip's width into the next visible column, belongs to it: there the pointer
// stays the arrow, and neither a drag nor a double-click opens or resizes anything. The column
// before keeps its own side of the edge, so it can still be sized there.
class ListHeader : public QHeaderView {
  public:
    explicit ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

    // The logical index of the hidden column whose side of an edge is under x (viewport), -1
    // when there is none. Hidden columns before the first visible one have no edge to drag.
    int HiddenColumnAt(int x) const {
        const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
        const bool rtl = isRightToLeft();
        auto onLeadingEdge = [&](int from, int size) {
            return rtl ? x > from + size - grip && x <= from + size : x >= from && x < from + grip;
        };
        bool seenVisible = false;
        int hidden = -1;
        int lastEnd = 0;
        for (int v = 0; v < count(); ++v) {
            const int l = logicalIndex(v);
            if (isSectionHidden(l) || sectionSize(l) == 0) {
                if (seenVisible) hidden = l;
                continue;
            }
            const int from = sectionViewportPosition(l);
            if (hidden >= 0 && onLeadingEdge(from, sectionSize(l))) return hidden;
            hidden = -1;
            seenVisible = true;
            lastEnd = rtl ? from : from + sectionSize(l);
        }
        // Hidden columns after the last visible one: their edge is where that column ends.
        if (hidden >= 0 && (rtl ? x > lastEnd - grip && x <= lastEnd : x >= lastEnd && x < lastEnd + grip))
            return hidden;
        return -1;
    }

  protected:
    void mousePressEvent(QMouseEvent* e) override {
        m_refused = HiddenColumnAt(e->position().toPoint().x()) >= 0;
        if (m_refused) {
            e->accept();
            return;
        }
        QHeaderView::mousePressEvent(e);
    }
    void mouseDoubleClickEvent(QMouseEvent* e) override {
        m_refused = HiddenColumnAt(e->position().toPoint().x()) >= 0;
        if (m_refused) {
            e->accept();
            return;
        }
        QHeaderView::mouseDoubleClickEvent(e);
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        if (m_refused && e->buttons() != Qt::NoButton) return;
        m_refused = false;
        if (e->buttons() == Qt::NoButton && HiddenColumnAt(e->position().toPoint().x()) >= 0) {
            if (testAttribute(Qt::WA_SetCursor)) unsetCursor();
            return;
        }
        QHeaderView::mouseMoveEvent(e);
    }
    void mouseReleaseEvent(QMouseEvent* e) override {
        if (m_refused) {
            m_refused = e->buttons() != Qt::NoButton;
            e->accept();
            return;
        }
        QHeaderView::mouseReleaseEvent(e);
    }

    void paintSection(QPainter* painter, const QRect& rect, int logical) const override {
        QStyleOptionHeaderV2 opt;
        initStyleOption(&opt);
        initStyleOptionForIndex(&opt, logical);
        const QIcon arrow = opt.icon;
        if (!rect.isValid() || arrow.isNull()) {
            QHeaderView::paintSection(painter, rect, logical);
            return;
        }
        opt.rect = rect;
        opt.icon = QIcon();
        const QPointF origin = painter->brushOrigin();
        painter->setBrushOrigin(rect.topLeft());
        style()->drawControl(QStyle::CE_HeaderSection, &opt, painter, this);
        painter->setBrushOrigin(origin);

        const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, &opt, this);
        const QSize size = arrow.availableSizes().value(0, QSize(9, 9));
        const QRect arrowRect(rect.right() - margin - size.width() + 1, rect.center().y() - size.height() / 2,
                              size.width(), size.height());
        arrow.paint(painter, arrowRect);
        opt.rect = QRect(rect.left() + margin, rect.top(), arrowRect.left() - margin - (rect.left() + margin),
                         rect.height());
        opt.text = opt.fontMetrics.elidedText(opt.text, Qt::ElideRight, std::max(opt.rect.width(), 0));
        if (opt.rect.width() > 0) style()->drawControl(QStyle::CE_HeaderLabel, &opt, painter, this);
    }

  private:
    bool m_refused = false; // a press on a hidden column's edge: its moves and release go nowhere
};

} // namespace

ListView::ListView(QWidget* parent)
    : QTreeView(parent), ColumnHeaders(this), ListItems(this), m_model(new ListModel(this)),
      m_images(&ImageList::Shared()) {
    setHeader(new ListHeader(this));
    setModel(m_model);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSortingEnabled(false);
    viewport()->setMouseTracking(true);
    QHeaderView* h = header();
    h->setStretchLastSection(false);
    h->setSectionsMovable(true);
    h->setFirstSectionMovable(true);
    h->setSectionsClickable(true);
    h->setSortIndicatorShown(false);
    connect(h, &QHeaderView::sectionClicked, this, [this](int logical) {
        if (ColumnHeader* c = ColumnHeaders.Item(logical + 1)) emit ColumnClick(c);
    });
    connect(h, &QHeaderView::sectionResized, this, &ListView::onSectionResized);
    connect(h, &QHeaderView::sectionMoved, this, &ListView::onSectionMoved);
}

ListView::~ListView() {
    setModel(nullptr);
    delete m_model;
}

// ---- sorting

bool ListView::before(const QString& a, const QString& b) const {
    const int c = TextOrder::Compare(a, b);
    return m_sortOrder == lvwDescending ? c > 0 : c < 0;
}

void ListView::SetSorted(bool sorted) {
    m_sortRule = nullptr;
    m_sorted = sorted;
    if (sorted) sortRows();
}

void ListView::SetSortKey(int column) {
    m_sortRule = nullptr;
    m_sortKey = std::max(column, 0);
    if (m_sorted) sortRows();
}

void ListView::SetSortOrder(int order) {
    m_sortOrder = order == lvwDescending ? lvwDescending : lvwAscending;
    if (m_sorted || m_sortRule) sortRows();
}

QString ListView::ruleText(const ListItem* item) const {
    QString text;
    m_sortRule(*item, text);
    return text;
}

int ListView::sortedPlace(const ListItem* item) const {
    // After the rows it does not sort before, so equal texts keep the order they came in.
    const auto& rows = ListItems.m_rows;
    if (m_sortRule) {
        const QString text = ruleText(item);
        const auto it =
            std::upper_bound(rows.begin(), rows.end(), text,
                             [this](const QString& t, const ListItem* r) { return before(t, ruleText(r)); });
        return int(it - rows.begin());
    }
    const QString text = item->CellText(m_sortKey);
    const auto it =
        std::upper_bound(rows.begin(), rows.end(), text, [this](const QString& t, const ListItem* r) {
            return before(t, r->CellText(m_sortKey));
        });
    return int(it - rows.begin());
}

void ListView::sortRows() {
    if (m_updates > 0)
        m_sortPending = true;
    else
        sortNow(true);
}

void ListView::sortNow(bool tellView) {
    if (ListItems.Count() < 2) return;
    // One collation key per row, then a stable sort of the row numbers by key.
    TextOrder::Keys keys;
    keys.Reserve(size_t(ListItems.Count()));
    if (m_sortRule) {
        QString text; // reused from row to row
        for (const ListItem* r : ListItems) {
            text.truncate(0);
            m_sortRule(*r, text);
            keys.Add(text);
        }
    } else {
        for (const ListItem* r : ListItems)
            keys.Add(r->CellView(m_sortKey));
    }
    sortNow(tellView, keys);
}

void ListView::SortByKeys(const TextOrder::Keys& keys) {
    m_sortRule = nullptr;
    if (keys.Count() != size_t(ListItems.Count())) return;
    sortNow(m_updates == 0, keys);
}

void ListView::SortByRule(SortTextRule rule) {
    m_sortRule = std::move(rule);
    if (m_sortRule) sortNow(m_updates == 0);
}

void ListView::sortNow(bool tellView, const TextOrder::Keys& keys) {
    std::vector<ListItem*>& rows = ListItems.m_rows;
    const size_t n = rows.size();
    if (n < 2) return;
    std::vector<int> order(n);
    std::iota(order.begin(), order.end(), 0);
    const bool desc = m_sortOrder == lvwDescending;
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const int c = keys.Compare(size_t(a), size_t(b));
        return desc ? c > 0 : c < 0;
    });
    bool same = true;
    for (size_t i = 0; i < n && same; ++i)
        same = order[i] == int(i);
    if (same) return;

    if (tellView) m_model->beginReorder();
    std::vector<ListItem*> sorted(n);
    std::vector<int> newRow(n);
    for (size_t i = 0; i < n; ++i) {
        sorted[i] = rows[size_t(order[i])];
        sorted[i]->m_row = int(i);
        newRow[size_t(order[i])] = int(i);
    }
    rows.swap(sorted);
    if (tellView) m_model->endReorder(newRow);
}

void ListView::placeRow(ListItem* item) {
    // A row whose sort text changed while a sort is kept moves to its new place.
    if (m_updates > 0) {
        m_sortPending = true;
        return;
    }
    std::vector<ListItem*>& rows = ListItems.m_rows;
    const int from = item->m_row;
    if (from < 0 || size_t(from) >= rows.size() || rows[size_t(from)] != item) return; // not placed yet
    // Most changes leave the row where it is: between its neighbours it stays.
    const auto sortText = [this](const ListItem* r) {
        return m_sortRule ? ruleText(r) : r->CellText(m_sortKey);
    };
    const QString text = sortText(item);
    if ((from == 0 || !before(text, sortText(rows[size_t(from) - 1]))) &&
        (size_t(from) + 1 == rows.size() || !before(sortText(rows[size_t(from) + 1]), text)))
        return;
    rows.erase(rows.begin() + from);
    const int to = sortedPlace(item);
    rows.insert(rows.begin() + from, item);
    if (to == from) return;
    m_model->beginMoveRow(from, to);
    rows.erase(rows.begin() + from);
    rows.insert(rows.begin() + to, item);
    ListItems.renumber(std::min(from, to));
    m_model->endMoveRow();
}

int ListView::placeOfNewRow(const ListItem* item, int row) {
    if (m_sortRule && m_updates > 0) {
        m_sortPending = true;
        return row;
    }
    return m_sorted || m_sortRule ? sortedPlace(item) : row;
}

void ListView::tagChanged(ListItem* item) {
    if (m_sortRule) placeRow(item);
}

// ---- selection

ListItem* ListView::SelectedItem() const {
    if (m_updates > 0) {
        if (m_heldCurrent && isRowSelected(m_heldCurrent->m_row)) return m_heldCurrent;
        const std::vector<ListItem*> held = SelectedItems();
        return held.empty() ? nullptr : held.front();
    }
    const QItemSelectionModel* sm = selectionModel();
    const QModelIndex cur = sm->currentIndex();
    if (cur.isValid() && sm->isRowSelected(cur.row(), QModelIndex())) return ListItems.At(cur.row());
    const QModelIndexList rows = sm->selectedRows();
    if (rows.isEmpty()) return nullptr;
    int first = rows.first().row();
    for (const QModelIndex& i : rows)
        first = std::min(first, i.row());
    return ListItems.At(first);
}

void ListView::SetSelectedItem(ListItem* item) {
    if (item && item->m_view != this) return;
    if (m_updates > 0) {
        m_heldSelection.clear();
        m_heldCurrent = item;
        if (item) m_heldSelection.push_back(item);
        return;
    }
    if (!item) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(m_model->index(item->m_row, 0),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<ListItem*> ListView::SelectedItems() const {
    std::vector<ListItem*> out;
    if (m_updates > 0) {
        out = m_heldSelection;
    } else {
        for (const QModelIndex& i : selectionModel()->selectedRows())
            out.push_back(ListItems.At(i.row()));
    }
    std::sort(out.begin(), out.end(),
              [](const ListItem* a, const ListItem* b) { return a->m_row < b->m_row; });
    return out;
}

bool ListView::MultiSelect() const {
    return selectionMode() == QAbstractItemView::ExtendedSelection;
}

void ListView::SetMultiSelect(bool multi) {
    setSelectionMode(multi ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
}

bool ListView::isRowSelected(int row) const {
    if (m_updates > 0) {
        const ListItem* item = ListItems.At(row);
        return std::find(m_heldSelection.begin(), m_heldSelection.end(), item) != m_heldSelection.end();
    }
    return selectionModel()->isRowSelected(row, QModelIndex());
}

void ListView::selectRow(int row, bool selected) {
    ListItem* item = ListItems.At(row);
    if (!item) return;
    if (m_updates > 0) {
        auto it = std::find(m_heldSelection.begin(), m_heldSelection.end(), item);
        if (selected && it == m_heldSelection.end()) {
            if (!MultiSelect()) m_heldSelection.clear();
            m_heldSelection.push_back(item);
            m_heldCurrent = item;
        } else if (!selected && it != m_heldSelection.end()) {
            m_heldSelection.erase(it);
        }
        return;
    }
    QItemSelectionModel* sm = selectionModel();
    const QModelIndex index = m_model->index(row, 0);
    if (!selected) {
        sm->select(index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    } else if (MultiSelect()) {
        sm->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
        sm->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    } else {
        sm->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void ListView::showRow(int row) {
    if (m_updates == 0) scrollTo(m_model->index(row, 0));
}

void ListView::SetCheckboxes(bool on) {
    if (m_checkboxes == on) return;
    m_checkboxes = on;
    if (m_updates == 0 && ListItems.Count() > 0) m_model->cellChanged(-1, -1);
}

// ---- bulk updates

void ListView::BeginUpdate() {
    if (m_updates++ > 0) return;
    m_heldSelection.clear();
    m_heldCurrent = nullptr;
    for (const QModelIndex& i : selectionModel()->selectedRows())
        m_heldSelection.push_back(ListItems.At(i.row()));
    const QModelIndex cur = selectionModel()->currentIndex();
    if (cur.isValid()) m_heldCurrent = ListItems.At(cur.row());
    m_sortPending = false;
    m_model->beginReset();
}

void ListView::EndUpdate() {
    if (m_updates == 0 || --m_updates > 0) return;
    if (m_sortPending) {
        m_sortPending = false;
        sortNow(false); // no view to tell: the reset below covers it
    }
    m_model->endReset();
    QItemSelectionModel* sm = selectionModel();
    // Back as ranges of neighbouring rows, so that a selection of every row stays one range.
    std::vector<int> held;
    held.reserve(m_heldSelection.size());
    for (const ListItem* item : m_heldSelection)
        held.push_back(item->m_row);
    std::sort(held.begin(), held.end());
    QItemSelection sel;
    for (size_t i = 0; i < held.size();) {
        size_t j = i;
        while (j + 1 < held.size() && held[j + 1] == held[j] + 1)
            ++j;
        sel.select(m_model->index(held[i], 0), m_model->index(held[j], 0));
        i = j + 1;
    }
    if (!sel.isEmpty()) sm->select(sel, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    if (m_heldCurrent)
        sm->setCurrentIndex(m_model->index(m_heldCurrent->m_row, 0), QItemSelectionModel::NoUpdate);
    m_heldSelection.clear();
    m_heldCurrent = nullptr;
}

// ---- told by rows and columns

void ListView::itemChanged(ListItem* item, int column) {
    if (m_updates == 0) m_model->cellChanged(item->m_row, column);
    if (m_sortRule || (m_sorted && (column == m_sortKey || column < 0))) placeRow(item);
}

void ListView::rowsInserting(int row) {
    if (m_updates == 0) m_model->beginInsertRow(row);
}

void ListView::rowsInserted() {
    if (m_updates == 0) m_model->endInsertRow();
}

void ListView::rowsRemoving(int row) {
    if (m_updates == 0) m_model->beginRemoveRow(row);
}

void ListView::rowsRemoved(ListItem* item) {
    itemGone(item);
    if (m_updates == 0) m_model->endRemoveRow();
}

void ListView::itemGone(ListItem* item) {
    if (m_updates == 0) return;
    m_heldSelection.erase(std::remove(m_heldSelection.begin(), m_heldSelection.end(), item),
                          m_heldSelection.end());
    if (m_heldCurrent == item) m_heldCurrent = nullptr;
}

void ListView::resetting(bool begin) {
    if (begin) m_sortRule = nullptr; // a list filled afresh is sorted afresh
    if (m_updates > 0) return;
    if (begin)
        m_model->beginReset();
    else
        m_model->endReset();
}

void ListView::columnInserting(int column) {
    m_model->beginInsertColumn(column);
}

void ListView::columnInserted(ColumnHeader* column) {
    m_model->endInsertColumn();
    applyWidth(column);
}

void ListView::columnsClearing() {
    m_model->beginReset();
}

void ListView::columnsCleared() {
    m_model->endReset();
}

void ListView::headerChanged(ColumnHeader* column) {
    m_model->headerChanged(column->m_index);
    if (m_updates == 0 && ListItems.Count() > 0) viewport()->update();
}

void ListView::applyWidth(ColumnHeader* column) {
    m_headerByCode = true;
    QHeaderView* h = header();
    if (column->m_width <= 0) {
        h->setSectionHidden(column->m_index, true);
    } else {
        h->setSectionHidden(column->m_index, false);
        h->resizeSection(column->m_index, qRound(column->m_width));
    }
    m_headerByCode = false;
}

int ListView::visualPosition(const ColumnHeader* column) const {
    return header()->visualIndex(column->m_index) + 1;
}

void ListView::moveToPosition(ColumnHeader* column, int position) {
    const int to = std::clamp(position, 1, ColumnHeaders.Count()) - 1;
    m_headerByCode = true;
    header()->moveSection(header()->visualIndex(column->m_index), to);
    m_headerByCode = false;
}

void ListView::onSectionResized(int logical, int, int newSize) {
    ColumnHeader* c = ColumnHeaders.Item(logical + 1);
    if (m_headerByCode || !c) return;
    c->m_width = newSize;
    emit ColumnResize(c);
}

void ListView::onSectionMoved(int logical, int, int) {
    ColumnHeader* c = ColumnHeaders.Item(logical + 1);
    if (!m_headerByCode && c) emit ColumnMove(c);
}

// ---- look

void ListView::SetPicture(const QString& text) {
    m_picture = text;
    viewport()->update();
}

void ListView::SetMousePointer(int pointer) {
    m_mousePointer = pointer;
    switch (pointer) {
    case ccArrow:
        viewport()->setCursor(Qt::ArrowCursor);
        break;
    case ccHourglass:
        viewport()->setCursor(Qt::WaitCursor);
        break;
    case ccArrowHourglass:
        viewport()->setCursor(Qt::BusyCursor);
        break;
    case ccCustom:
        viewport()->setCursor(Qt::PointingHandCursor);
        break;
    default:
        viewport()->unsetCursor();
        break;
    }
}

void ListView::SetImageList(ImageList* images) {
    m_images = images ? images : &ImageList::Shared();
    viewport()->update();
}

void ListView::SetCellColorRule(CellColorRule rule) {
    m_cellColor = std::move(rule);
    viewport()->update();
}

ListItem* ListView::HitTest(const QPoint& viewportPos, int* subItem) const {
    const QModelIndex i = indexAt(viewportPos);
    if (subItem) *subItem = i.isValid() ? i.column() : -1;
    return i.isValid() ? ListItems.At(i.row()) : nullptr;
}

bool ListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    // A cell too narrow for its text shows the whole text when the pointer rests on it.
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = index.isValid() ? m_model->data(index, Qt::DisplayRole).toString() : QString();
    if (!text.isEmpty() && cellTextCut(index))
        QToolTip::showText(help->globalPos(), text, viewport(), visualRect(index));
    else
        QToolTip::hideText();
    return true;
}

bool ListView::cellTextCut(const QModelIndex& index) const {
    QStyleOptionViewItem opt;
    initViewItemOption(&opt);
    opt.rect = visualRect(index);
    const QSize needed = itemDelegateForIndex(index)->sizeHint(opt, index);
    return needed.width() > opt.rect.width();
}

void ListView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (ListItems.Count() > 0 || m_picture.isEmpty()) return;
    // The text stands one line below the top, in bold, as a note on the empty list.
    QPainter p(viewport());
    QFont f = font();
    f.setBold(true);
    p.setFont(f);
    p.setPen(palette().color(QPalette::Text));
    const int line = QFontMetrics(f).height();
    p.drawText(QRect(4, line, viewport()->width() - 8, line * 2), Qt::AlignLeft | Qt::AlignTop, m_picture);
}

// ---- events

void ListView::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
    const QPoint pos = event->position().toPoint();
    if (ListItem* item = HitTest(pos)) {
        m_lastButton = event->button();
        emit ItemClick(item);
    }
    emit MouseDown(event->button(), event->modifiers(), pos);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    emit MouseUp(event->button(), event->modifiers(), event->position().toPoint());
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    QTreeView::mouseMoveEvent(event);
    emit MouseMove(event->buttons(), event->modifiers(), event->position().toPoint());
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeView::mouseDoubleClickEvent(event);
    emit DblClick();
}

void ListView::keyPressEvent(QKeyEvent* event) {
    emit KeyDown(event->key(), event->modifiers());
    int ascii = 0;
    switch (event->key()) {
    case Qt::Key_Backspace:
        ascii = 8;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        ascii = 13;
        break;
    case Qt::Key_Escape:
        ascii = 27;
        break;
    default:
        if (!event->text().isEmpty() && event->text().at(0).isPrint()) ascii = event->text().at(0).unicode();
    }
    if (ascii) {
        emit KeyPress(ascii);
        if (ascii == 0) {
            event->accept();
            return;
        }
    }
    const QModelIndex before = currentIndex();
    QTreeView::keyPressEvent(event);
    const QModelIndex after = currentIndex();
    if (after.isValid() && after.row() != before.row()) {
        m_lastButton = Qt::NoButton;
        if (ListItem* item = ListItems.At(after.row())) emit ItemClick(item);
    }
}

void ListView::keyReleaseEvent(QKeyEvent* event) {
    emit KeyUp(event->key(), event->modifiers());
    QTreeView::keyReleaseEvent(event);
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    emit ContextMenu(event->pos());
    event->accept();
}
