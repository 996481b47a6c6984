// The text helpers of the data library on any text: the first byte picks the helper and its
// options, the rest is the text (and, for the sizes, the bytes of a number).
#include "core/error.h"
#include "phonebook/store/dao.h"
#include "phonebook/store/jetsql.h"
#include "support/helpers/dates.h"
#include "support/helpers/drives.h"
#include "support/helpers/files.h"
#include "support/helpers/keys.h"
#include "support/helpers/like.h"
#include "support/helpers/paths.h"
#include "support/helpers/values.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

double numberOf(const uint8_t* data, size_t size) {
    double d = 0;
    std::memcpy(&d, data, std::min(size, sizeof d));
    return d;
}

void run(uint8_t choice, const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const QVariant value = (choice & 0x80) ? QVariant() : QVariant(text);
    const int option = (choice >> 4) & 7;
    switch (choice & 15) {
    case 0: {
        QString words = text;
        const QString condition = mCommon::GetLike(words, QStringLiteral("CDs.FullName"), option & 1);
        try { // whatever the user typed, the condition is sound SQL
            (void)dao::JetSql::Translate(QStringLiteral("SELECT IDCD FROM CDs WHERE ") + condition);
        } catch (const dao::DbError&) {
            std::abort();
        }
        break;
    }
    case 1:
        (void)mCommon::GetID1(text);
        break;
    case 2: {
        QString key = text;
        (void)mCommon::GetID2(key);
        (void)mCommon::GetID1(QStringLiteral("ID") + key);
        break;
    }
    case 3:
        (void)mDrive::GetLetterTabID(text);
        break;
    case 4:
        (void)mCommon::Nz(value, QStringLiteral("-"));
        (void)mCommon::NzColon(value, QString());
        (void)mCommon::strNzColon(value, QString());
        break;
    case 5:
        (void)mCommon::NzMultiline(value, QString());
        (void)mCommon::NzMultiline2(value, QString());
        break;
    case 6:
        (void)mCommon::SizeCorrectView(numberOf(data, size), option % 4);
        (void)mCommon::RoundEx(numberOf(data, size));
        break;
    case 7:
        (void)mDrive::GetPathWithNoSlash(text);
        break;
    case 8:
        (void)mCommon::Spliting2(text, option - 4);
        (void)mCommon::SplitingFolder(text, option - 4);
        (void)mCommon::SplitingParentFolder(text);
        break;
    case 9:
        (void)mDateTime::ToDateTime(value);
        (void)mCommon::TimeCorrectView(value);
        break;
    case 10:
        (void)mDateTime::FormatDate(value);
        (void)mDateTime::FormatTime(value);
        break;
    case 11: {
        const qsizetype half = text.size() / 2;
        qint64 bytes = 0;
        std::memcpy(&bytes, data, std::min(size, sizeof bytes));
        (void)mDrive::DriveKind(text.left(half), text.mid(half), option & 1, bytes, option & 2);
        break;
    }
    case 12: {
        qint32 halves[2] = {0, 0};
        std::memcpy(halves, data, std::min(size, sizeof halves));
        (void)mScanCD::FileSizeWFD(halves[0], halves[1]);
        break;
    }
    default:
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    try {
        run(data[0], data + 1, size - 1);
    } catch (const HuntERR::Error&) {
        // Errors the helpers raise by design (5, 6, 13): their places pile up unless cleared.
    }
    HuntERR::ClearPendingStack();
    return 0;
}
