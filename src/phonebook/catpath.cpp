#include "phonebook/catpath.h"

#include "core/error.h"
#include "core/globals.h"

#include <QStringList>

namespace mTV {

QString TreeTable(qint16 mode) {
    switch (mode) {
    case 0:
        return QStringLiteral("Categories");
    case 1:
        return QStringLiteral("Boxes");
    default:
        return QStringLiteral("Borrows");
    }
}

QString TreeField(qint16 mode) {
    switch (mode) {
    case 0:
        return QStringLiteral("IDC");
    case 1:
        return QStringLiteral("IDX");
    default:
        return QStringLiteral("IDB");
    }
}

} // namespace mTV

namespace mLV {

QString GetCatNameByID(qint32 ID, qint16 mode) {
    HUNT_PLACE("mLV.GetCatNameByID(ID,mode)", ID, mode);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT Name FROM %1 WHERE ID = %2").arg(mTV::TreeTable(mode)).arg(ID),
        dao::dbOpenSnapshot);
    QString name;
    if (!rs.AtEOF()) name = rs.Text(0);
    rs.Close();
    return name;
}

QString UpdateCatPath(const QString& Pedigree, qint16 mode) {
    HUNT_PLACE("mLV.UpdateCatPath(Pedigree,mode)", Pedigree, mode);
    if (Pedigree == QLatin1String("ID0E")) return QString();
    QString keys = Pedigree;
    keys.remove(QLatin1Char('E'));
    const QStringList parts = keys.split(QStringLiteral("ID"));
    QString path;
    // The first element is empty and the second is the root's "0": both are skipped.
    for (int i = 2; i < parts.size(); ++i)
        path += GetCatNameByID(parts[i].toInt(), mode) + QLatin1Char('/');
    path.chop(1);
    return path;
}

namespace {
// Gives every row of `rs` the Catpath its Pedigree spells.
void rewriteCatpaths(dao::Recordset& rs, qint16 mode) {
    for (; !rs.AtEOF(); rs.MoveNext()) {
        rs.Edit();
        rs.SetValue(QStringLiteral("Catpath"),
                    UpdateCatPath(rs[QStringLiteral("Pedigree")].toString(), mode));
        rs.Update();
    }
    rs.Close();
}
} // namespace

void UpdateCatPaths(const QString& pThis, qint16 mode) {
    HUNT_PLACE("mLV.UpdateCatPaths(pThis,mode)", pThis, mode);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT * FROM %1 WHERE Pedigree Like '*%2*'").arg(mTV::TreeTable(mode), pThis));
    rewriteCatpaths(rs, mode);
}

void UpdateCatPathAll() {
    HUNT_PLACE("mLV.UpdateCatPathAll");
    for (qint16 mode : {qint16(0), qint16(1), qint16(2)}) {
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * FROM %1").arg(mTV::TreeTable(mode)));
        rewriteCatpaths(rs, mode);
    }
}

} // namespace mLV
