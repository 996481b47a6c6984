#include "legacy/jetschema.h"

#include "phonebook/schema.h"

#include <QSet>

namespace mLegacy {

namespace {

// The tables every phonebook has, back to the oldest format.
const QStringList& requiredTables() {
    static const QStringList names = {QStringLiteral("CDs"),        QStringLiteral("Types"),
                                      QStringLiteral("Paths"),      QStringLiteral("Elements"),
                                      QStringLiteral("SearchWhat"), QStringLiteral("SearchWhere")};
    return names;
}

// Fields that an older phonebook may lack: those the upgrade adds, and those that tables created
// by the upgrade never had.
bool mayBeMissing(const QString& table, const QString& field) {
    static const QSet<QString> cds = {
        QStringLiteral("IDC"),       QStringLiteral("IDB"),         QStringLiteral("IsLend"),
        QStringLiteral("LoanStart"), QStringLiteral("LoanComment"), QStringLiteral("IDX"),
        QStringLiteral("Photo"),     QStringLiteral("PhotoExt"),    QStringLiteral("PhotoSize")};
    static const QSet<QString> trees = {QStringLiteral("Comment"), QStringLiteral("Catpath")};
    static const QSet<QString> borrows = {QStringLiteral("Comment"),     QStringLiteral("Address"),
                                          QStringLiteral("PhoneHome"),   QStringLiteral("PhoneWork"),
                                          QStringLiteral("PhoneMobile"), QStringLiteral("Email"),
                                          QStringLiteral("Woman"),       QStringLiteral("Catpath")};
    if (table == QLatin1String("CDs")) return cds.contains(field);
    if (table == QLatin1String("Categories")) return trees.contains(field);
    if (table == QLatin1String("Borrows")) return borrows.contains(field);
    return false;
}

JetType jetTypeOf(dao::FieldType type) {
    switch (type) {
    case dao::dbBoolean:
        return JetType::Boolean;
    case dao::dbLong:
        return JetType::Long;
    case dao::dbDouble:
        return JetType::Double;
    case dao::dbDate:
        return JetType::Date;
    case dao::dbText:
        return JetType::Text;
    case dao::dbMemo:
        return JetType::Memo;
    case dao::dbLongBinary:
        return JetType::LongBinary;
    }
    return JetType::Other;
}

[[noreturn]] void otherSchema(const QString& why) {
    throw ConversionError(ConversionError::OtherSchema, dao::errItemNotFound, why);
}

} // namespace

ConversionPlan PlanConversion(const JetFile& jet) {
    HUNT_PLACE("mLegacy.PlanConversion");
    ConversionPlan plan;
    const std::vector<dao::TableDef> schema = mSchema::All();
    // Every table of the file must be one of a phonebook.
    for (const QString& name : jet.Tables()) {
        const bool known = std::any_of(schema.begin(), schema.end(), [&](const dao::TableDef& t) {
            return t.Name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (!known) otherSchema(QStringLiteral("The table %1 is no part of a phonebook.").arg(name));
    }
    for (const QString& name : requiredTables())
        if (!jet.HasTable(name))
            otherSchema(QStringLiteral("The table %1 of a phonebook is missing.").arg(name));

    plan.Current = true;
    for (const dao::TableDef& model : schema) {
        if (!jet.HasTable(model.Name)) {
            plan.Current = false;
            continue;
        }
        TablePlan table;
        table.Def = dao::TableDef(model.Name);
        QSet<QString> present;
        for (const JetColumn& col : jet.Columns(model.Name)) {
            if (!model.HasField(col.Name))
                otherSchema(
                    QStringLiteral("The field %1.%2 is no part of a phonebook.").arg(model.Name, col.Name));
            dao::Field field = model.FieldByName(col.Name);
            if (jetTypeOf(field.Type) != col.Type)
                otherSchema(QStringLiteral("The field %1.%2 is not of the type a phonebook gives it.")
                                .arg(model.Name, col.Name));
            if (field.Type == dao::dbText && col.Size > field.Size)
                otherSchema(QStringLiteral("The field %1.%2 is longer than a phonebook allows.")
                                .arg(model.Name, col.Name));
            present.insert(field.Name);
            table.Def.Fields.push_back(field);
        }
        for (const dao::Field& field : model.Fields) {
            if (present.contains(field.Name)) continue;
            if (!mayBeMissing(model.Name, field.Name))
                otherSchema(
                    QStringLiteral("The field %1.%2 of a phonebook is missing.").arg(model.Name, field.Name));
            plan.Current = false;
        }
        // Indexes whose fields are all there.
        for (const dao::Index& ix : model.Indexes) {
            const bool whole = std::all_of(ix.Fields.begin(), ix.Fields.end(),
                                           [&](const QString& f) { return present.contains(f); });
            if (whole) table.Def.Indexes.push_back(ix);
        }
        table.Rows = jet.RowCount(model.Name);
        plan.Rows += table.Rows;
        plan.Tables.push_back(std::move(table));
    }
    return plan;
}

} // namespace mLegacy
