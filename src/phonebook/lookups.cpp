#include "phonebook/lookups.h"

#include "core/error.h"
#include "core/globals.h"
#include "support/helpers/keys.h"

namespace mCommon {

QString GetDiskPath(const QString& Key) {
    HUNT_PLACE("mCommon.GetDiskPath(Key)", Key);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT Drive_Folder From CDs WHERE IDCD = ") +
                                              QString::number(GetID1(Key)),
                                          dao::dbOpenSnapshot);
    const QString path = rs.AtEOF() ? QString() : rs.Text(0);
    rs.Close();
    return path;
}

QString GetElementPath(const QString& Key, bool& InsideArchive) {
    HUNT_PLACE("mCommon.GetElementPath(Key,InsideArchive)", Key, InsideArchive);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral(
            "SELECT Paths.Path, Elements.ElementName, Paths.IsArchive FROM Paths INNER JOIN Elements ON "
            "Paths.IDPATH = Elements.IDPATH WHERE Elements.ID = ") +
            QString::number(GetID1(Key)),
        dao::dbOpenSnapshot);
    QString path;
    InsideArchive = false;
    if (!rs.AtEOF()) {
        path = rs.Text(0);
        const QString name = rs.Text(1);
        if (!path.isEmpty() && !name.isEmpty() && !path.endsWith(QLatin1Char('/')) &&
            !path.endsWith(QLatin1Char('\\')))
            path += QLatin1Char('/');
        path += name;
        InsideArchive = rs.Value(2).toBool();
    }
    rs.Close();
    return path;
}

QString GetMaxNumber() {
    HUNT_PLACE("mCommon.GetMaxNumber");
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT Max(ContactNumber) AS maxN FROM CDs"), dao::dbOpenSnapshot);
    const QVariant maxN = rs.AtEOF() ? QVariant() : rs.Value(0);
    rs.Close();
    return QString::number((maxN.isNull() ? 0 : maxN.toLongLong()) + 1);
}

} // namespace mCommon
