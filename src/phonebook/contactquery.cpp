#include "phonebook/contactquery.h"

namespace mLV {

QString ListQuery() {
    static const QString query = [] {
        QString select = QStringLiteral("SELECT Types.Type AS T1");
        for (int k = 1; k < 12; ++k)
            select += QStringLiteral(", Types_%1.Type AS T%2").arg(k).arg(k + 1);
        select += QStringLiteral(
            ", CDs.*, Categories.Catpath AS Cat, Borrows.Catpath AS Bor, Boxes.Catpath AS Box ");
        QString from = QStringLiteral("FROM ((((((((((((((CDs LEFT JOIN Types ON CDs.Type1 = Types.IDTYPE)");
        for (int k = 1; k < 12; ++k)
            from += QStringLiteral(" LEFT JOIN Types AS Types_%1 ON CDs.Type%2 = Types_%1.IDTYPE)")
                        .arg(k)
                        .arg(k + 1);
        from += QStringLiteral(
            " INNER JOIN Categories ON CDs.IDC = Categories.ID) LEFT JOIN Borrows ON CDs.IDB = "
            "Borrows.ID) INNER JOIN Boxes ON CDs.IDX = Boxes.ID ");
        return select + from;
    }();
    return query;
}

} // namespace mLV
