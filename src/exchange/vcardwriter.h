#pragma once
// Writes contacts as vCard, one card at a time onto a device, so that any number of contacts is
// written in the memory of one. Version 4.0 by default, 3.0 for older phones; UTF-8, lines
// folded at 75 octets (never inside a character), text escaped as the version says. The tree
// places go to CATEGORIES, X-KELVARIN-GROUP and X-KELVARIN-FAVORITE, number types that vCard has
// no word for to a grouped X-ABLabel, so a file read back gives the same contacts.

#include "exchange/contactrecord.h"
#include "exchange/vcardreader.h"

#include <QByteArray>

class QIODevice;

namespace exchange {

enum class VCardVersion { V30, V40 };

class VCardWriter {
  public:
    // Writes onto an open device; the device must outlive the writer.
    explicit VCardWriter(QIODevice* device, VCardVersion version = VCardVersion::V40);
    // Writes one card; false when the device refused the bytes.
    bool write(const ContactRecord& contact);
    int written() const { return m_written; }

  private:
    QIODevice* m_device;
    VCardVersion m_version;
    int m_written = 0;
};

// One card as bytes, CRLF line ends included.
QByteArray FormatVCard(const ContactRecord& contact, VCardVersion version = VCardVersion::V40);

// A property as read from a card, written back as a content line of the version (folded, CRLF).
// Binary values are written as the version writes them (base64 in 3.0, a data: address in 4.0).
// Empty for a property whose name or group is no name a line can carry (letters, digits, "-", and
// together no longer than 60).
QByteArray FormatProperty(const VCardProperty& property, VCardVersion version = VCardVersion::V40);

// A content line folded at 75 octets: continuation lines begin with a space, and no fold falls
// inside a UTF-8 sequence. Each line ends in CRLF.
QByteArray FoldLine(const QByteArray& line);

} // namespace exchange
