#pragma once
// The entries of the recent list in a menu: ten actions mnuFileMRU(1) to mnuFileMRU(10) that
// show the list's captions, visible as far as the list goes. While it lives, it is the menu that
// mMru shows the list in.

#include <QList>
#include <QObject>
#include <QStringList>

class QAction;
class QMenu;

class MruMenu : public QObject {
    Q_OBJECT
  public:
    // Inserts the hidden entries into `menu` before `before`, or at its end when that is null.
    explicit MruMenu(QMenu* menu, QAction* before = nullptr);
    ~MruMenu() override;

    // Entry n, from 1.
    QAction* mnuFileMRU(int n) const;
    // Shows one entry per caption and hides the rest, with the caption "-".
    void Show(const QStringList& captions);

  signals:
    // Entry `index` (from 1) was chosen; `path` is that entry of the list.
    void chosen(int index, const QString& path);

  private:
    QList<QAction*> m_entries;
};
