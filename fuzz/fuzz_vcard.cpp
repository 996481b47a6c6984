// The vCard reader on any bytes. Every card it gives maps onto a contact, and that contact,
// written as vCard 4.0 and 3.0 and read again, must come back field for field from a card with
// no problem: whatever the reader makes of its input, the writer can say. The properties no field
// takes, written back one by one, must read as the same lines of the comment.
#include "core/language.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchange/vcardwriter.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace exchange;

namespace {

void show(const char* what, const ContactRecord& r) {
    std::fprintf(
        stderr, "%s: FullName=[%s] Title=[%s] Company=[%s] Address=[%s|%s|%s|%s] Comment=[%s] Photo=%d .%s\n",
        what, qPrintable(r.FullName), qPrintable(r.Title), qPrintable(r.Company), qPrintable(r.Address),
        qPrintable(r.City), qPrintable(r.State), qPrintable(r.Zip), qPrintable(r.Comment),
        int(r.Photo.size()), qPrintable(r.PhotoExt));
    for (const NumberRow& n : r.Numbers)
        std::fprintf(stderr, "  [%s] [%s] %s\n", qPrintable(n.type), qPrintable(n.value),
                     n.value.toUtf8().toHex().constData());
    std::fprintf(stderr, "  category [%s] group [%s] favorite %d [%s]\n",
                 qPrintable(r.CategoryPath.join('|')), qPrintable(r.GroupPath.join('|')), int(r.Favorite),
                 qPrintable(r.FavoritePath.join('|')));
}

[[noreturn]] void fail(const ContactRecord& contact, const QByteArray& written, const ContactRecord* back) {
    show("read", contact);
    std::fprintf(stderr, "written:\n%s\n", written.constData());
    if (back) show("read again", *back);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = [] {
        mLanguageEng::lngEng();
        return true;
    }();
    (void)ready;
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    QList<VCardProblem> outside;
    const QList<VCardContact> cards = ReadVCards(bytes, &outside);
    for (const VCardProblem& p : outside)
        (void)ProblemText(p);
    for (const VCardContact& card : cards) {
        for (const VCardProblem& p : card.problems)
            (void)ProblemText(p);
        const ContactRecord contact = RecordFromVCard(card);
        // Every input goes through 4.0; one in two through 3.0 as well, to keep the rate up.
        const bool also30 = size > 0 && (data[size - 1] & 1);
        for (const VCardVersion version : {VCardVersion::V40, VCardVersion::V30}) {
            if (version == VCardVersion::V30 && !also30) continue;
            const QByteArray written = FormatVCard(contact, version);
            const QList<VCardContact> again = ReadVCards(written);
            if (again.size() != 1 || !again.first().problems.isEmpty()) fail(contact, written, nullptr);
            ContactRecord back = RecordFromVCard(again.first());
            // 3.0 parameters cannot carry every character of an odd photo extension.
            if (version == VCardVersion::V30) back.PhotoExt = contact.PhotoExt;
            if (back != contact) fail(contact, written, &back);
        }
        // What no field takes, written back as properties, reads as the same comment lines.
        QList<UnplacedProperty> unplaced;
        QByteArray extras = "BEGIN:VCARD\r\nVERSION:3.0\r\n";
        bool wroteLast = false;
        for (const UnplacedProperty& u : UnplacedProperties(card)) {
            const QByteArray line = FormatProperty(u.property, VCardVersion::V30);
            // A name no line can carry is left out, and with it its group's label.
            if (u.commentLine.isEmpty() ? !wroteLast : !(wroteLast = !line.isEmpty())) continue;
            extras += line;
            if (!u.commentLine.isEmpty()) unplaced << u;
        }
        extras += "END:VCARD\r\n";
        const QList<UnplacedProperty> again = UnplacedProperties(ReadVCards(extras).value(0));
        QList<UnplacedProperty> placedAgain;
        for (const UnplacedProperty& u : again)
            if (!u.commentLine.isEmpty()) placedAgain << u;
        bool same = placedAgain.size() == unplaced.size();
        for (qsizetype i = 0; same && i < placedAgain.size(); ++i)
            same = placedAgain[i].commentLine == unplaced[i].commentLine;
        if (!same) {
            for (const UnplacedProperty& u : unplaced)
                std::fprintf(stderr, "unplaced: %s\n", qPrintable(u.commentLine));
            for (const UnplacedProperty& u : again)
                std::fprintf(stderr, "again: %s\n", qPrintable(u.commentLine));
            std::fprintf(stderr, "written:\n%s\n", extras.constData());
            std::abort();
        }
    }
    return 0;
}
