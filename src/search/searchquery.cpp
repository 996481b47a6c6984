#include "search/searchquery.h"

#include "core/error.h"
#include "support/helpers/like.h"

namespace mSearch {

namespace {

QString nullSafe(const QString& field) {
    return QStringLiteral("iif(isnull(%1),'',%1)").arg(field);
}

// The date of a limit as a Jet literal wants it: month first, two-digit year, whatever the
// locale.
QString jetDate(const QDate& d) {
    return d.toString(QStringLiteral("MM/dd/yy"));
}

} // namespace

QString RowSelect() {
    QString s = QStringLiteral("SELECT Types.Type AS T1");
    for (int k = 1; k < 12; ++k)
        s += QStringLiteral(", Types_%1.Type AS T%2").arg(k).arg(k + 1);
    s += QStringLiteral(
        ", CDs.*, Categories.Catpath AS Category, Borrows.Catpath AS Favorite, Boxes.Catpath AS Box ");
    return s;
}

QString CountSelect() {
    return QStringLiteral("SELECT Count(CDs.IDCD) AS CNT ");
}

QString FromClause() {
    QString s = QStringLiteral("FROM ((((((((((((((CDs LEFT JOIN Types ON CDs.Type1 = Types.IDTYPE)");
    for (int k = 1; k < 12; ++k)
        s +=
            QStringLiteral(" LEFT JOIN Types AS Types_%1 ON CDs.Type%2 = Types_%1.IDTYPE)").arg(k).arg(k + 1);
    s += QStringLiteral(" INNER JOIN Categories ON CDs.IDC = Categories.ID) LEFT JOIN Borrows ON CDs.IDB = "
                        "Borrows.ID) INNER JOIN Boxes ON CDs.IDX = Boxes.ID ");
    return s;
}

QString FieldSeparator() {
    return QStringLiteral(" & '_' & ");
}

QString NumbersFragment() {
    QString s;
    for (int k = 1; k <= 12; ++k) {
        if (k > 1) s += FieldSeparator();
        s += nullSafe(QStringLiteral("Number%1").arg(k));
    }
    return s;
}

QString BuildWhere(const SearchInput& in, QString& strCount) {
    HUNT_PLACE("Form8.GetWhere(strCount)", in.Text);
    const QString base = RowSelect() + FromClause();
    strCount = CountSelect() + FromClause();
    QString where;

    if (!in.Text.trimmed().isEmpty()) {
        QString numbers;
        if (in.Numbers) {
            QString words = in.Text;
            numbers = mCommon::GetLike(words, NumbersFragment(), false);
        }
        // The fields in this order, whatever their order on screen.
        const std::pair<bool, const char*> fields[] = {
            {in.FullName, "FullName"},   {in.Title, "Title"},
            {in.Company, "Company"},     {in.Comment, "CDs.Comment"},
            {in.Address, "CDs.Address"}, {in.City, "City"},
            {in.State, "State"},         {in.Zip, "Zip"},
        };
        QString joined;
        for (const auto& [ticked, field] : fields)
            if (ticked) joined += nullSafe(QLatin1String(field)) + FieldSeparator();
        joined.chop(FieldSeparator().size());

        QString texts;
        if (!joined.isEmpty()) {
            QString words = in.Text;
            texts = mCommon::GetLike(words, joined, false);
        }
        if (!numbers.isEmpty() && !texts.isEmpty())
            where = QStringLiteral("Where (") + numbers + QStringLiteral("OR") + texts + QLatin1Char(')');
        else if (!numbers.isEmpty())
            where = QStringLiteral("Where (") + numbers + QLatin1Char(')');
        else if (!texts.isEmpty())
            where = QStringLiteral("Where (") + texts + QLatin1Char(')');
    }

    QString lower, upper;
    if (in.DateMinOn && in.DateMin.isValid())
        lower = QStringLiteral("DateScan >= #") + jetDate(in.DateMin) + QLatin1Char('#');
    if (in.DateMaxOn && in.DateMax.isValid())
        upper = QStringLiteral("DateScan <= #") + jetDate(in.DateMax) + QStringLiteral(" 23:59:59#");
    for (const QString& limit : {lower, upper}) {
        if (limit.isEmpty()) continue;
        if (where.isEmpty())
            where = QStringLiteral("Where ") + limit;
        else
            where += QStringLiteral(" AND ") + limit;
    }

    if (!where.isEmpty()) {
        strCount += where;
        return base + where;
    }
    const bool anyBox = in.Numbers || in.FullName || in.Title || in.Company || in.Comment || in.Address ||
                        in.City || in.State || in.Zip || in.DateMinOn || in.DateMaxOn;
    return anyBox ? base : QString();
}

QString GetWhereDisk() {
    return QStringLiteral("SELECT IIf(Len([Drive_Folder])>3,'FOLDER',[DriveType]) AS DType, CDs.IDCD, "
                          "CDs.Drive_Folder, CDs.Label, CDs.FolderName, CDs.TotalSize, CDs.ReadOnly, "
                          "CDs.Archive, CDs.Hidden, CDs.System, CDs.Compressed, CDs.CreationTime, "
                          "CDs.LastAccessTime, CDs.LastWriteTime, CDs.Comment, CDs.DiskNumber ") +
           QStringLiteral("FROM CDs ") + QStringLiteral("Where (");
}

QString QuickFilterCondition(const QString& text) {
    HUNT_PLACE("mSearch.QuickFilterCondition(text)", text);
    // Quote marks alone hold no word: no condition rather than an error.
    QString probe = text;
    probe.remove(QLatin1Char('"')).remove(QLatin1Char(':'));
    if (probe.trimmed().isEmpty()) return QString();
    const QString joined = nullSafe(QStringLiteral("FullName")) + FieldSeparator() +
                           nullSafe(QStringLiteral("Company")) + FieldSeparator() + NumbersFragment();
    QString words = text;
    return mCommon::GetLike(words, joined, false);
}

} // namespace mSearch
