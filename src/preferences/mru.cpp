#include "preferences/mru.h"

#include "core/error.h"
#include "core/globals.h"
#include "preferences/settings.h"

#include <QStandardPaths>

namespace mMru {

QStringList MRUFiles;

namespace {

const QString kRecent = QStringLiteral("Recent");

bool& loaded() {
    static bool l = false;
    return l;
}

MenuHandler& menu() {
    static MenuHandler h;
    return h;
}

// The store holds exactly the list: keys beyond it, left behind a gap, go.
void storeList() {
    for (int n = 1; n <= MRUFiles.size(); ++n)
        SaveSetting(AppTitle(), kRecent, QString::number(n), MRUFiles.at(n - 1));
    const auto stored = GetAllSettings(AppTitle(), kRecent);
    for (const auto& entry : stored) {
        bool isNumber = false;
        const int n = entry.first.toInt(&isNumber);
        if (!isNumber || n < 1 || n > MRUFiles.size()) DeleteSetting(AppTitle(), kRecent, entry.first);
    }
}

} // namespace

QString MRUCaption(int n, const QString& path) {
    return QLatin1Char('&') + QString::number(n) + QLatin1Char(' ') + path;
}

MenuHandler SetMenuHandler(MenuHandler handler) {
    MenuHandler old = std::move(menu());
    menu() = std::move(handler);
    return old;
}

void LoadMRUList() {
    HUNT_PLACE("mMru.LoadMRUList");
    MRUFiles.clear();
    for (int n = 1; n <= kMaxEntries; ++n) {
        const QString path = GetSetting(AppTitle(), kRecent, QString::number(n), QString());
        if (path.isEmpty()) break;
        MRUFiles.append(path);
    }
    loaded() = true;
}

void AddToMRUList(const QString& file_name) {
    HUNT_PLACE("mMru.AddToMRUList(file_name)", file_name);
    if (file_name.isEmpty()) return;
    // Writing the whole list back must not wipe a list that was never read.
    if (!loaded()) LoadMRUList();
    MRUFiles.prepend(file_name);
    for (int i = MRUFiles.size() - 1; i >= 1; --i)
        if (MRUFiles.at(i) == file_name) MRUFiles.removeAt(i);
    while (MRUFiles.size() > kMaxEntries)
        MRUFiles.removeLast();
    storeList();
    ShowMRUList();
}

QStringList ShowMRUList() {
    HUNT_PLACE("mMru.ShowMRUList");
    QStringList captions;
    for (int n = 1; n <= MRUFiles.size(); ++n)
        captions.append(MRUCaption(n, MRUFiles.at(n - 1)));
    if (menu()) menu()(captions);
    return captions;
}

void ClearMRUList() {
    HUNT_PLACE("mMru.ClearMRUList");
    for (int n = MRUFiles.size(); n >= 1; --n) {
        DeleteSetting(AppTitle(), kRecent, QString::number(n));
        MRUFiles.removeAt(n - 1);
    }
    loaded() = true;
    if (menu()) menu()(QStringList());
}

void ClearMRUListKeepCurrent() {
    HUNT_PLACE("mMru.ClearMRUListKeepCurrent");
    ClearMRUList();
    if (gDBPath != DefaultPhonebook()) AddToMRUList(gDBPath);
}

} // namespace mMru
