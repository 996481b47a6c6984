#include "trees/deletecd.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"

#include <QCursor>
#include <QGuiApplication>

namespace mAccess {

namespace {

// The wait cursor for the length of a block, where there is a screen to show it on.
class Hourglass {
  public:
    Hourglass() : m_on(qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr) {
        if (m_on) QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    }
    ~Hourglass() {
        if (m_on) QGuiApplication::restoreOverrideCursor();
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    bool m_on;
};

} // namespace

void DeleteCD(qint32 IDCD, qint16 mode) {
    HUNT_PLACE("mAccess.DeleteCD(IDCD,mode)", IDCD, mode);
    Hourglass wait;
    if (mode == -1 && IDCD == -1) {
        gDB.Execute(QStringLiteral("DELETE * FROM Elements"));
        gDB.Execute(QStringLiteral("Delete * From Paths"));
        gDB.Execute(QStringLiteral("Delete * From SearchWhere"));
        gDB.Execute(QStringLiteral("Delete * From LoanHistory"));
        gDB.Execute(QStringLiteral("Delete * From CDs"));
        return;
    }

    // The contacts concerned; the statements run in this order so that the last one, on CDs,
    // still finds them for the others.
    QString in;
    if (mode == -1) {
        in = QStringLiteral("= %1").arg(IDCD);
    } else {
        const QString table = mTV::TreeTable(mode);
        in = QStringLiteral(
                 "In (SELECT CDs.IDCD FROM CDs INNER JOIN %1 ON CDs.%2 = %1.ID WHERE %1.Pedigree Like "
                 "'*ID%3E*')")
                 .arg(table, mTV::TreeField(mode))
                 .arg(IDCD);
    }
    const QString where = QStringLiteral("WHERE IDCD ") + in;
    gDB.Execute(QStringLiteral("DELETE Elements.* FROM Elements INNER JOIN Paths ON Elements.IDPATH = "
                               "Paths.IDPATH ") +
                (mode == -1 ? where : QStringLiteral("WHERE Paths.IDCD ") + in));
    gDB.Execute(QStringLiteral("Delete Paths.IDCD From Paths ") + where);
    gDB.Execute(QStringLiteral("Delete IDCD From SearchWhere ") + where);
    gDB.Execute(QStringLiteral("Delete IDCD From LoanHistory ") + where);
    gDB.Execute(QStringLiteral("Delete CDs.IDCD From CDs ") + where);
}

} // namespace mAccess
