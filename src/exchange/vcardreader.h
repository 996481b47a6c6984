#pragma once
// A tolerant reader of vCard files, versions 2.1, 3.0 and 4.0, as phones, web mail and desktop
// address books write them. It reads one card at a time from a device, so a file of any length
// is read in little memory. Lines may end in CRLF or LF and be folded (a line that begins with a
// space or a tab continues the one before; in 2.1 a quoted-printable value also continues after
// a "=" at the end of a line); a byte-order mark is skipped, UTF-16 files are read too.
//
// A card is a list of properties, each with its group, name, parameters and decoded value. What
// cannot be read is reported with its line, and the rest of the card and of the file is still
// read: a card without END, a photo whose base64 is broken, lines that are not vCard at all.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

class QIODevice;

namespace exchange {

struct VCardParameter {
    QString name;       // upper case: TYPE, ENCODING, CHARSET, PREF, VALUE, ...
    QStringList values; // a parameter given twice (TYPE=cell;TYPE=voice) is one with both values
};

struct VCardProperty {
    int line = 0;  // where the property begins, from 1
    QString group; // "item1" of "item1.TEL", as written
    QString name;  // upper case: "TEL", "X-ABLABEL"
    QList<VCardParameter> parameters;
    // The value, decoded and unescaped. Structured properties (N, ADR, ORG, GENDER) have one entry
    // a component; list properties (CATEGORIES, NICKNAME) one entry an item; others one entry.
    QStringList values;
    QByteArray data;   // the bytes of a binary value (base64 or a data: URI), else empty
    QString mediaType; // of a binary value, lower case ("image/jpeg"), when it says so

    // The values of a parameter, empty when absent.
    QStringList parameter(const QString& name) const;
    // True when TYPE holds this value, in any spelling ("cell" matches TYPE=CELL, bare 2.1 CELL).
    bool hasType(const QString& type) const;
    // True when the property is marked preferred (TYPE=pref, PREF=1, bare 2.1 PREF).
    bool preferred() const;
    // The value as one text: the components joined by ";" (empty ones at the end left out).
    QString text() const;
    bool isBinary() const { return !data.isEmpty(); }
};

struct VCardProblem {
    enum Kind {
        MissingEnd,     // the card ended (next BEGIN or end of file) without END:VCARD
        BadBase64,      // a binary value that is not base64; the property is left out
        BadDataUri,     // a data: URI that cannot be read; the property is left out
        UnknownCharset, // a CHARSET Qt does not know; the value is read as UTF-8 or Windows-1252
        NotVCard,       // lines that are not vCard (outside a card, or not a property); skipped
        EmptyCard,      // a card with no property at all
    };
    Kind kind = NotVCard;
    int line = 0;     // first line concerned, from 1
    int lastLine = 0; // last line concerned (equal to line for one line)
    QString detail;   // the property name, the charset, ...
};

struct VCardContact {
    QString version; // "2.1", "3.0", "4.0" as the card says; empty when it says nothing
    int line = 0;    // line of BEGIN:VCARD
    QList<VCardProperty> properties;
    QList<VCardProblem> problems;

    // The properties of that name (upper case), in file order.
    QList<const VCardProperty*> all(const QString& name) const;
    // The first property of that name, nullptr when there is none.
    const VCardProperty* first(const QString& name) const;
};

class VCardReader {
  public:
    // Reads from an open device; the device must outlive the reader.
    explicit VCardReader(QIODevice* device);
    ~VCardReader();
    VCardReader(const VCardReader&) = delete;
    VCardReader& operator=(const VCardReader&) = delete;

    // The next card, false at the end of the file. Problems outside cards (text before the first
    // BEGIN or between cards) are reported by problems() as they are met.
    bool next(VCardContact& card);
    const QList<VCardProblem>& problems() const;
    // The last line read, from 1 (for progress).
    int line() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// Every card of a file held in memory, and the problems outside cards.
QList<VCardContact> ReadVCards(const QByteArray& file, QList<VCardProblem>* problems = nullptr);

// A problem as a line for the user: "Line 12: ...".
QString ProblemText(const VCardProblem& problem);

} // namespace exchange
