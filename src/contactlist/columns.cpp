#include "contactlist/columns.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "preferences/settingdefaults.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"
#include "support/controls/listview.h"

#include <QHeaderView>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace mLV {

namespace {

using namespace mLanguageGobals;

const QString kVisible = QStringLiteral("Visible");
const QString kWidth = QStringLiteral("Width");
const QString kPosition = QStringLiteral("Position");

constexpr qint32 errInvalidCall = 5;

// A column as the list adds it: its key and the catalogue text of its header (none for the
// fields list, whose headers are blank).
struct Column {
    const char* key;
    const QString* header;
};

// The contact list, in the order of its cells.
const Column kContacts[] = {
    {"FullName", &msgFullName}, {"Title", &msgTitle},        {"Company", &msgCompany},
    {"Category", &msgCategory}, {"Favorite", &msgFavorites}, {"Address", &msgAddress},
    {"City", &msgCity},         {"State", &msgStateProv},    {"Zip", &msgZipPostalCode},
    {"Comment", &msgComment},   {"ID", &msgContactNumber},   {"Added", &msgAdded},
    {"Box", &msgGroup},         {"Info 1", &msgInfo1},       {"Info 2", &msgInfo2},
    {"Info 3", &msgInfo3},      {"Info 4", &msgInfo4},       {"Info 5", &msgInfo5},
    {"Info 6", &msgInfo6},      {"Info 7", &msgInfo7},       {"Info 8", &msgInfo8},
    {"Info 9", &msgInfo9},      {"Info 10", &msgInfo10},     {"Info 11", &msgInfo11},
    {"Info 12", &msgInfo12},
};

// The search results: the same columns with the numbers right after the company.
const Column kSearch[] = {
    {"FullName", &msgFullName}, {"Title", &msgTitle},        {"Company", &msgCompany},
    {"Info 1", &msgInfo1},      {"Info 2", &msgInfo2},       {"Info 3", &msgInfo3},
    {"Info 4", &msgInfo4},      {"Info 5", &msgInfo5},       {"Info 6", &msgInfo6},
    {"Info 7", &msgInfo7},      {"Info 8", &msgInfo8},       {"Info 9", &msgInfo9},
    {"Info 10", &msgInfo10},    {"Info 11", &msgInfo11},     {"Info 12", &msgInfo12},
    {"Category", &msgCategory}, {"Favorite", &msgFavorites}, {"Address", &msgAddress},
    {"City", &msgCity},         {"State", &msgStateProv},    {"Zip", &msgZipPostalCode},
    {"Comment", &msgComment},   {"ID", &msgContactNumber},   {"Added", &msgAdded},
    {"Box", &msgGroup},
};

// Label and value of the selected contact.
const Column kDetails[] = {{"Name", nullptr}, {"Size", nullptr}};

// Index of the one right-aligned column, the contact number; 0 for none.
int NumberColumn(int ListCode) {
    switch (ListCode) {
    case lcContacts:
        return 11;
    case lcSearch:
        return 23;
    default:
        return 0;
    }
}

// Default widths by ranges of column index.
struct Widths {
    int from;
    int to;
    double width;
};
const Widths kDetailsWidths[] = {{1, 1, 120}, {2, 2, 200}};
const Widths kContactsWidths[] = {{1, 3, 133},   {4, 5, 107},  {6, 8, 133},   {9, 9, 100},
                                  {10, 10, 120}, {11, 11, 67}, {12, 12, 123}, {13, 13, 107}};
const Widths kSearchWidths[] = {{1, 15, 133},  {16, 17, 107}, {18, 20, 133}, {21, 21, 100},
                                {22, 22, 120}, {23, 23, 67},  {24, 24, 123}, {25, 25, 107}};

template <size_t N> double Lookup(const Widths (&ranges)[N], int Index, double Previous) {
    for (const Widths& r : ranges)
        if (Index >= r.from && Index <= r.to) return r.width;
    return Previous;
}

// The default width of column `Index`. An index that no range names keeps `Previous`, the
// default of the column before it: that is how "Info 1" to "Info 12" of the contact list come to
// the width of "Group".
double DefaultWidth(int ListCode, int Index, double Previous) {
    switch (ListCode) {
    case lcDetails:
        return Lookup(kDetailsWidths, Index, Previous);
    case lcContacts:
        return Lookup(kContactsWidths, Index, Previous);
    case lcSearch:
        return Lookup(kSearchWidths, Index, Previous);
    default:
        return Previous;
    }
}

[[noreturn]] void UnknownList(int ListCode) {
    throw HuntERR::Error(errInvalidCall,
                         QStringLiteral("Invalid procedure call or argument: list %1").arg(ListCode));
}

template <size_t N> void AddColumns(ListView& lv, int ListCode, const Column (&columns)[N]) {
    const int number = NumberColumn(ListCode);
    for (size_t i = 0; i < N; ++i) {
        const int index = int(i) + 1;
        const QString header = columns[i].header ? *columns[i].header : QString();
        ColumnHeader* c = lv.ColumnHeaders.Add(QLatin1String(columns[i].key), header);
        c->SetTag(QString());
        c->SetAlignment(index == number ? lvwColumnRight : lvwColumnLeft);
    }
}

} // namespace

QString ColumnSection(int ListCode, int Index) {
    return QStringLiteral("ColumnHeaders%1\\%2").arg(ListCode).arg(Index);
}

QString SortSection(int ListCode) {
    return QStringLiteral("ColumnHeaders%1\\Other").arg(ListCode);
}

bool HiddenColumn(const ColumnHeader& Column) {
    return !Column.Tag().isEmpty();
}

void HideColumn(ColumnHeader& Column) {
    if (HiddenColumn(Column)) return;
    Column.SetTag(QString::number(Column.Width()));
    Column.SetWidth(0);
}

void ShowColumn(ColumnHeader& Column) {
    HUNT_PLACE("mLV.ShowColumn(Column)", Column.Key());
    if (!HiddenColumn(Column)) return;
    Column.SetWidth(mRegSettings::SettingNumber(Column.Tag()));
    Column.SetTag(QString());
}

QString ColumnCaption(const ColumnHeader& Column) {
    if (!Column.Text().isEmpty()) return Column.Text();
    if (Column.Key() == QLatin1String("Name")) return msgName;
    if (Column.Key() == QLatin1String("Size")) return msgSize;
    return Column.Key();
}

void IniList(ListView& lv, int ListCode) {
    HUNT_PLACE("mLV.IniList(lv, ListCode)", lv.objectName(), ListCode);
    if (ListCode == lcDetails) {
        AddColumns(lv, ListCode, kDetails);
        // Labels and values need no captions; the values take what width the pane has.
        lv.setHeaderHidden(true);
        lv.header()->setStretchLastSection(true);
    } else if (ListCode == lcContacts)
        AddColumns(lv, ListCode, kContacts);
    else
        UnknownList(ListCode);
    GetColumnSize(lv, ListCode);
}

void IniSearchListMain(ListView& lv) {
    HUNT_PLACE("mLV.IniSearchListMain(lv)", lv.objectName());
    AddColumns(lv, lcSearch, kSearch);
    GetColumnSize(lv, lcSearch);
}

void GetColumnSize(ListView& lv, int ListCode) {
    HUNT_PLACE("mLV.GetColumnSize(lv, ListCode)", lv.objectName(), ListCode);
    if (ListCode != lcDetails && ListCode != lcContacts && ListCode != lcSearch) UnknownList(ListCode);
    double width = 0;
    std::vector<std::pair<int, ColumnHeader*>> places;
    for (ColumnHeader* c : lv.ColumnHeaders) {
        const int index = c->Index();
        const QString section = ColumnSection(ListCode, index);
        width = DefaultWidth(ListCode, index, width);
        const QString stored = GetSetting(AppTitle(), section, kWidth, QString::number(width));
        if (mRegSettings::SettingNumber(mRegSettings::ReadSetting(section, kVisible)) == 1) {
            c->SetTag(QString());
            c->SetWidth(mRegSettings::SettingNumber(stored));
        } else {
            c->SetTag(stored);
            c->SetWidth(0);
        }
        places.emplace_back(
            mRegSettings::SettingInt(GetSetting(AppTitle(), section, kPosition, QString::number(index))), c);
    }
    // Laid out from the first place to the last, each move leaves the columns already placed
    // where they are. Of columns that claim the same place the later one gets it, as it would
    // if it were moved there last.
    std::sort(places.begin(), places.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first : a.second->Index() > b.second->Index();
    });
    for (size_t i = 0; i < places.size(); ++i)
        places[i].second->SetPosition(int(i) + 1);
}

void SaveColumnSize(ListView& lv, int ListCode) {
    HUNT_PLACE("mLV.SaveColumnSize(lv, ListCode)", lv.objectName(), ListCode);
    if (ListCode != lcDetails && ListCode != lcContacts && ListCode != lcSearch) UnknownList(ListCode);
    if (ListCode != lcDetails) {
        SaveSetting(AppTitle(), SortSection(ListCode), QStringLiteral("SortKey"), lv.SortKey());
        SaveSetting(AppTitle(), SortSection(ListCode), QStringLiteral("SortOrder"), lv.SortOrder());
    }
    for (const ColumnHeader* c : lv.ColumnHeaders) {
        const QString section = ColumnSection(ListCode, c->Index());
        if (HiddenColumn(*c)) {
            SaveSetting(AppTitle(), section, kWidth, c->Tag());
            SaveSetting(AppTitle(), section, kVisible, int(0));
        } else {
            SaveSetting(AppTitle(), section, kWidth, qint64(std::trunc(c->Width())));
            SaveSetting(AppTitle(), section, kVisible, int(1));
        }
        SaveSetting(AppTitle(), section, kPosition, c->Position());
    }
}

} // namespace mLV
