#include "preferences/mrumenu.h"

#include "preferences/mru.h"

#include <QAction>
#include <QMenu>

namespace {

// "&3 /home/a&b.kvdb" shows as "3 /home/a&b.kvdb" with 3 underlined: only the number's "&" is a
// mnemonic, any "&" in the path is shown as it is.
QString menuText(const QString& caption) {
    const int blank = caption.indexOf(QLatin1Char(' '));
    if (blank < 0) return caption;
    QString path = caption.mid(blank + 1);
    path.replace(QLatin1Char('&'), QLatin1String("&&"));
    return caption.left(blank + 1) + path;
}

} // namespace

MruMenu::MruMenu(QMenu* menu, QAction* before) : QObject(menu) {
    for (int n = 1; n <= mMru::kMaxEntries; ++n) {
        auto* entry = new QAction(QStringLiteral("-"), this);
        entry->setObjectName(QStringLiteral("mnuFileMRU%1").arg(n));
        entry->setVisible(false);
        connect(entry, &QAction::triggered, this, [this, n]() {
            if (n <= mMru::MRUFiles.size()) emit chosen(n, mMru::MRUFiles.at(n - 1));
        });
        menu->insertAction(before, entry);
        m_entries.append(entry);
    }
    mMru::SetMenuHandler([this](const QStringList& captions) { Show(captions); });
}

MruMenu::~MruMenu() {
    mMru::SetMenuHandler({});
}

QAction* MruMenu::mnuFileMRU(int n) const {
    return n >= 1 && n <= m_entries.size() ? m_entries.at(n - 1) : nullptr;
}

void MruMenu::Show(const QStringList& captions) {
    for (int i = 0; i < m_entries.size(); ++i) {
        const bool used = i < captions.size();
        m_entries[i]->setText(used ? menuText(captions.at(i)) : QStringLiteral("-"));
        m_entries[i]->setVisible(used);
    }
}
