// Any text through the Jet translator: a translation or error 3075, never a fault.
#include "phonebook/store/dao.h"
#include "phonebook/store/jetsql.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    for (int form = 0; form < 2; ++form) {
        try {
            const QString sql =
                form == 0 ? dao::JetSql::Translate(text) : dao::JetSql::TranslateExpression(text);
            (void)sql;
        } catch (const dao::DbError& e) {
            if (e.Number() != dao::errSyntax) std::abort(); // the translator knows no other error
        }
    }
    (void)dao::JetSql::DateLiteral(text);
    return 0;
}
