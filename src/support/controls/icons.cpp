#include "support/controls/icons.h"

#include "core/commandids.h"
#include "support/controls/imagelist.h"

#include <QPainter>
#include <QSvgRenderer>

// The pictures are SVG files in the program's resources (resources/icons). The resources live in
// a static library, so they are registered by hand before the first picture is made.
static bool registerPictures() {
    Q_INIT_RESOURCE(resources);
    return true;
}

namespace mIcons {

namespace {

QString picture(const char* file) {
    static const bool registered = registerPictures();
    Q_UNUSED(registered);
    return QStringLiteral(":/icons/%1.svg").arg(QLatin1String(file));
}

// One of our drawings. A selected row or a highlighted menu entry shows it as it is, not tinted
// with the highlight colour, so that it looks the same on every desktop.
QIcon drawing(const char* file) {
    QIcon icon(picture(file));
    icon.addFile(picture(file), QSize(), QIcon::Selected);
    return icon;
}

// Each command's picture: the name of the desktop's standard icon where there is one (taken from
// the user's icon theme), and our own drawing, used alone or where the theme lacks the name.
struct CommandPicture {
    int id;
    const char* themeName;
    const char* file;
};

const CommandPicture kCommands[] = {
    {cmd::FileNew, "document-new", "document-new"},
    {cmd::FileOpen, "document-open", "cat-open"},
    {cmd::FileInfo, "document-properties", "phonebook-info"},
    {cmd::FileClearDB, nullptr, "phonebook-clear"},
    {cmd::FileCompactDB, nullptr, "phonebook-compact"},
    {cmd::FileImport, "document-import", "cat-open"},
    {cmd::FileExportAll, "document-export", "document-new"},
    {cmd::FileExportList, "document-export", "document-new"},
    {cmd::FileExportSelected, "document-export", "document-new"},
    {cmd::FileSync, "emblem-synchronizing", "sync"},
    {cmd::FileSyncSettings, nullptr, "sync"},
    {cmd::FileExit, "application-exit", "exit"},
    {cmd::AccessFull, nullptr, "lock-open"},
    {cmd::AccessReadOnly, nullptr, "lock"},
    {cmd::AccessOptions, nullptr, "key"},
    {cmd::RecentClear, "edit-clear", "recent-clear"},

    {cmd::CategoryAdd, "folder-new", "folder-new"},
    {cmd::CategoryRename, nullptr, "rename"},
    {cmd::CategoryDelete, "edit-delete", "delete"},
    {cmd::CategorySortByName, nullptr, "sort-name"},
    {cmd::CategorySortByContacts, nullptr, "sort-contacts"},
    {cmd::CategoryQuickAdd, nullptr, "quick-add"},
    {cmd::CategoryModeNormal, nullptr, "tree-normal"},
    {cmd::CategoryModeAdvanced, nullptr, "tree-advanced"},
    {cmd::CategoryProperties, "document-properties", "properties"},

    {cmd::ContactAdd, "contact-new", "contact-new"},
    {cmd::ContactNoFavorite, nullptr, "favorite-remove"},
    {cmd::ContactDelete, "edit-delete", "delete"},
    {cmd::ContactProperties, "document-properties", "properties"},
    {cmd::ContactCopy, "edit-copy", "copy"},

    {cmd::ViewCategories, nullptr, "cat"},
    {cmd::ViewGroups, nullptr, "box"},
    {cmd::ViewFavorites, nullptr, "star"},
    {cmd::ViewRefresh, "view-refresh", "refresh"},
    {cmd::ViewToolTips, nullptr, "tooltips"},
    {cmd::ViewStatusBar, nullptr, "statusbar"},
    {cmd::ViewLargeIcons, nullptr, "large-icons"},
    {cmd::ViewLockToolbars, nullptr, "lock"},
    {cmd::ViewToolbarsDefault, nullptr, "restore"},
    {cmd::ViewPaneCategories, nullptr, "pane-categories"},
    {cmd::ViewPaneContacts, nullptr, "pane-contacts"},
    {cmd::ViewPaneCard, nullptr, "pane-card"},
    {cmd::ViewPanePhoto, nullptr, "pane-photo"},
    {cmd::ViewPanesDefault, nullptr, "restore"},

    {cmd::ToolsSearch, "edit-find", "search"},
    {cmd::ToolsStatistics, nullptr, "statistics"},
    {cmd::ToolsReport, nullptr, "report"},
    {cmd::ToolsPreferences, "preferences-system", "preferences"},
    {cmd::HelpContents, "help-contents", "help"},
    {cmd::HelpTip, nullptr, "tip"},
    {cmd::HelpWebsite, "internet-web-browser", "website"},
    {cmd::HelpSupport, nullptr, "support"},
    {cmd::HelpFeedback, "mail-message-new", "feedback"},
    {cmd::HelpAbout, "help-about", "about"},

    {cmd::ListRefresh, "view-refresh", "refresh"},
    {cmd::ListAdd, "contact-new", "contact-new"},
    {cmd::ListNoFavorite, nullptr, "favorite-remove"},
    {cmd::ListDelete, "edit-delete", "delete"},
    {cmd::ListProperties, "document-properties", "properties"},
    {cmd::ListCopy, "edit-copy", "copy"},

    {cmd::TabCategories, nullptr, "cat"},
    {cmd::TabGroups, nullptr, "box"},
    {cmd::TabFavorites, nullptr, "star"},
    {cmd::MainAdd, "contact-new", "contact-new"},
    {cmd::MainDelete, "edit-delete", "delete"},
    {cmd::MainProperties, "document-properties", "properties"},
    {cmd::MainSearch, "edit-find", "search"},
    {cmd::MainStatistics, nullptr, "statistics"},
    {cmd::MainReport, nullptr, "report"},
    {cmd::ReportOnList, nullptr, "report"},
    {cmd::ReportOnContact, nullptr, "report-contact"},
    {cmd::MainPreferences, "preferences-system", "preferences"},
    {cmd::MainHelp, "help-contents", "help"},
    {cmd::TrayRestore, nullptr, "restore"},
    {cmd::TrayWebsite, "internet-web-browser", "website"},
    {cmd::TraySupport, nullptr, "support"},
    {cmd::TrayFeedback, "mail-message-new", "feedback"},
    {cmd::TrayExit, "application-exit", "exit"},
};

// The node and row images are ours alone, so that the trees look the same on every desktop.
const std::pair<const char*, const char*> kImages[] = {
    {"CAT", "cat"},          {"CATSEL", "cat-open"}, {"CATS", "cats"},  {"CATSSEL", "cats-open"},
    {"BOX", "box"},          {"BOXSEL", "box-open"}, {"BOXS", "boxes"}, {"BOXSSEL", "boxes-open"},
    {"STAR", "star"},        {"STARS", "stars"},     {"BOR", "person"}, {"Tray16", "kelvarin"},
    {"Tray256", "kelvarin"},
};

} // namespace

QIcon CommandIcon(int id) {
    for (const CommandPicture& c : kCommands)
        if (c.id == id) {
            const QIcon ours = drawing(c.file);
            return c.themeName ? QIcon::fromTheme(QLatin1String(c.themeName), ours) : ours;
        }
    return QIcon();
}

QStringList ImageKeys() {
    QStringList keys;
    for (const auto& image : kImages)
        keys << QLatin1String(image.first);
    keys.sort();
    return keys;
}

QIcon Image(const QString& key) {
    for (const auto& image : kImages)
        if (key == QLatin1String(image.first)) return drawing(image.second);
    return QIcon();
}

void RegisterImages(ImageList& list) {
    for (const QString& key : ImageKeys())
        list.Add(key, Image(key));
}

// The window and the desktop pick the size they need from the usual icon sizes, each one drawn
// at that size.
QIcon AppIcon() {
    const QIcon drawn = drawing("kelvarin");
    QIcon icon;
    for (int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QPixmap pm = drawn.pixmap(QSize(side, side), 1.0);
        icon.addPixmap(pm, QIcon::Normal);
        icon.addPixmap(pm, QIcon::Selected);
    }
    return icon;
}

QPixmap NoPhotoPicture(const QSize& size) {
    QPixmap pm(size);
    pm.fill(QColor(238, 241, 245));
    QSvgRenderer figure(picture("no-photo"));
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal side = qMin(size.width(), size.height()) * 0.7;
    figure.render(&p, QRectF((size.width() - side) / 2.0, (size.height() - side) / 2.0, side, side));
    return pm;
}

} // namespace mIcons
