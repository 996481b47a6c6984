#include "contactlist/listsort.h"

#include "contactlist/listhooks.h"
#include "contactlist/listsortkeys.h"
#include "contactlist/listupdate.h"
#include "core/commandids.h"
#include "core/error.h"
#include "support/controls/listview.h"

#include <algorithm>
#include <memory>

namespace mLV {

namespace {

// How a column's cells are rewritten for a sort.
enum class Rule {
    Name,   // the kind letter before the text: the first column, the name
    Date,   // the kind letter, the date as yyyyMMddHHmmss, the row's text
    Number, // the kind letter, the number with 30 + 30 digits, the row's text
    Text,   // the kind letter, the text padded with blanks to the longest, the row's text
};

// The column keys (upper case) that choose the date and number rules of a list. The name rule
// belongs to the first column, which is "FullName" in the contact lists and "Name" in the
// detail pane.
struct RuleWords {
    QLatin1String date;
    QLatin1String number;
};

const RuleWords kContactWords{QLatin1String("ADDED"), QLatin1String("ID")};
const RuleWords kDetailWords{QLatin1String("DATE"), QLatin1String("SIZE")};

// The arrange entries of the contact list's pop-up, by column: cmd::ListSortFirst onwards for
// columns 0 to 11, cmd::ListSortByGroup for 12, cmd::ListSortInfoFirst onwards for 13 to 24.
constexpr int kColumns = 25;

Rule ruleOf(const ColumnHeader* column, int cell, const RuleWords& words) {
    // The first column holds the row's own text, which every other rule appends.
    if (cell == 0) return Rule::Name;
    QString word = column ? column->Key() : QString();
    if (word.isEmpty() && column) word = column->Tag(); // the report preview keys its columns by Tag
    word = word.toUpper();
    if (word == words.date) return Rule::Date;
    if (word == words.number) return Rule::Number;
    return Rule::Text;
}

bool isBlank(QStringView s) {
    for (QChar c : s)
        if (c != QLatin1Char(' ')) return false;
    return true;
}

class PointerBlock {
  public:
    explicit PointerBlock(ListView& list) : m_list(list), m_saved(list.MousePointer()) {
        m_list.SetMousePointer(ccHourglass);
    }
    ~PointerBlock() { m_list.SetMousePointer(m_saved); }
    PointerBlock(const PointerBlock&) = delete;
    PointerBlock& operator=(const PointerBlock&) = delete;

  private:
    ListView& m_list;
    int m_saved;
};

// The sort text of a row: the row's kind letter (its Tag, "a" for a node before "b" for a
// contact), the cell in a form whose text order is the wanted order, then the row's own text, so
// that ties fall to the name. The list keeps its rows in this order until it is filled afresh, so
// that a row added or changed later goes to its place.
ListView::SortTextRule sortRule(const ListView& list, int cell, Rule rule) {
    if (rule == Rule::Name) {
        return [](const ListItem& item, QString& out) {
            out += item.Tag();
            out += item.CellView(0);
        };
    }
    if (rule == Rule::Text) {
        // Padded with blanks to the longest text of the column, so that the comparison of two
        // rows ends with the column before it reaches their names.
        qsizetype longest = 0;
        for (const ListItem* item : list.ListItems)
            longest = std::max(longest, item->CellView(cell).size());
        return [cell, longest](const ListItem& item, QString& out) {
            // A row without this cell sorts as a blank one, by its kind and its text.
            const QStringView text = item.CellView(cell);
            out += item.Tag();
            out += text;
            if (text.size() < longest) out.resize(out.size() + (longest - text.size()), QLatin1Char(' '));
            out += item.CellView(0);
        };
    }
    // Neighbouring rows often share their date: the reader keeps the last one.
    auto dates = std::make_shared<DateSortText>();
    return [cell, rule, dates](const ListItem& item, QString& out) {
        const QStringView text = item.CellView(cell);
        const qsizetype start = out.size();
        out += item.Tag();
        // A blank stays a blank, which sorts before every date and number.
        if (isBlank(text)) {
            out += QLatin1Char(' ');
        } else if (!(rule == Rule::Date ? dates->Append(text, out) : AppendNumberSortText(text, out))) {
            // A text that is no date or number sorts as it stands.
            out.truncate(start);
            out += text;
            return;
        }
        out += item.CellView(0);
    };
}

// Sorts `list` by column Sort: the same column again reverses the order, another column starts
// ascending.
void SortRekey(ListView& list, int Sort, const RuleWords& words, bool EnsVis) {
    list.SetSorted(false);
    if (Sort == list.SortKey())
        list.SetSortOrder(list.SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
    else {
        list.SetSortKey(Sort);
        list.SetSortOrder(lvwAscending);
    }
    const int cell = list.SortKey();
    const bool descending = list.SortOrder() == lvwDescending;
    for (ColumnHeader* column : list.ColumnHeaders)
        column->SetIcon(column->SubItemIndex() == cell ? (descending ? 1 : 2) : 0);

    PointerBlock hourglass(list);
    const Rule rule = ruleOf(list.ColumnHeaders.Item(cell + 1), cell, words);
    {
        ListUpdate block(list);
        list.SortByRule(sortRule(list, cell, rule));
    }
    if (EnsVis) {
        if (ListItem* selected = list.SelectedItem()) selected->EnsureVisible();
    }
}

} // namespace

int ArrangeCommandId(int Sort) {
    if (Sort >= 0 && Sort <= 11) return cmd::ListSortFirst + Sort;
    if (Sort == 12) return cmd::ListSortByGroup;
    if (Sort >= 13 && Sort < kColumns) return cmd::ListSortInfoFirst + Sort - 13;
    return 0;
}

void SwitchSortDisk(ListView& ListView2, int Sort, bool EnsVis) {
    HUNT_PLACE("mLV.SwitchSortDisk(Sort,EnsVis)", Sort, EnsVis);
    SortRekey(ListView2, Sort, kContactWords, EnsVis);
    if (const auto& check = Hooks().SetCommandChecked) {
        const int checked = ArrangeCommandId(ListView2.SortKey());
        for (int column = 0; column < kColumns; ++column) {
            const int id = ArrangeCommandId(column);
            check(id, id == checked);
        }
    }
}

void SwitchSort(ListView& ListView1, int Sort) {
    HUNT_PLACE("mLV.SwitchSort(Sort)", Sort);
    SortRekey(ListView1, Sort, kDetailWords, false);
}

void SwitchSortSearch(ListView& ListView1, int Sort) {
    HUNT_PLACE("mLV.SwitchSortSearch(Sort)", Sort);
    SortRekey(ListView1, Sort, kContactWords, false);
}

void SwitchSortReport(ListView& lvReport, int Sort) {
    HUNT_PLACE("mLV.SwitchSortReport(Sort)", Sort);
    SortRekey(lvReport, Sort, kContactWords, false);
}

} // namespace mLV
