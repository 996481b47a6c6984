#pragma once
// How a vCard maps onto the fields of a contact, and back. One table says it for both ways, and
// the help shows the same table: each row names a property, what else it must carry (a TYPE
// value, or the scheme of an IMPP address), the field it fills and, for the number rows, the
// name of the number type. The first row that fits a property wins.
//
// Whatever finds no place (a thirteenth number, a birthday, a nickname, a second address, a
// property nobody knows) is appended to the comment as a line "label: value", so nothing of a
// card is lost.

#include "exchange/contactrecord.h"
#include "exchange/vcardreader.h"

#include <QList>

namespace exchange {

enum class VCardTarget {
    FullName, // FN
    Name,     // N, assembled into the full name when there is no FN
    Title,
    Company, // the first ORG component; the others go to the comment
    Address, // the preferred (else the first) ADR to Address, City, State, Zip
    Comment,
    Photo,
    Number,   // a number row of the type the row names
    Category, // a category path
    Group,    // a group path
    Favorite, // a favorite path
    Label,    // a label of a grouped property (item1.X-ABLabel); the number type of its group
    Ignored,  // technical properties with nothing for the user (VERSION, PRODID, UID, ...)
};

struct VCardMapping {
    const char* property;  // upper case
    const char* condition; // a TYPE value the property must have, or an IMPP scheme ("skype:"); "" none
    VCardTarget target;
    const char* typeName; // for numbers: the name of the number type
    const char* writeAs;  // for numbers: TYPE values written for the type ("home,voice"); nullptr:
                          // read only, another row writes it
};

// The table, in the order rows are tried.
const QList<VCardMapping>& VCardMappingTable();

// The number row a property makes, its type and its value; false when it makes none (another
// kind of property, or an empty value). `label` is the custom label of the property's group, if
// it has one: it names the type.
bool NumberOf(const VCardProperty& property, const QString* label, NumberRow* row);

// The contact a card describes.
ContactRecord RecordFromVCard(const VCardContact& card);

// A property no field takes (a birthday, a nickname, a property nobody here knows) and the line
// of the comment that RecordFromVCard makes of it.
struct UnplacedProperty {
    VCardProperty property;
    QString commentLine;
};
// The card's unplaced properties in card order, with the labels of their groups (item1.X-ABLabel)
// among them where they have one.
QList<UnplacedProperty> UnplacedProperties(const VCardContact& card);

// Extension of a picture from its first bytes, else from its media type ("image/png" -> "png");
// empty when neither tells.
QString PictureExtension(const QByteArray& bytes, const QString& mediaType = QString());
// Media type of a picture from its first bytes, else from its extension; empty when unknown or
// when the extension would not make a clean media type.
QString PictureMediaType(const QByteArray& bytes, const QString& extension = QString());
// True when the text is a media type of plain characters ("image/svg+xml").
bool IsMediaType(const QString& text);

} // namespace exchange
