#pragma once
// How a node of the main window's tree shows its count: the label is the name, a blank and the
// count in brackets, "Family (5)", and the Tag holds the count as twelve digits, "000000000005".
// A name is taken back out of a label by cutting at its last blank, so a name with blanks of its
// own survives; a label without its count (one being edited) must not go through that cut.

#include <QString>

namespace mTV {

// "Name (count)".
QString NodeLabel(const QString& name, qint64 count);
// The count as twelve digits.
QString CountTag(qint64 count);
// The number at the start of a Tag or text, 0 when there is none ("000000000012" is 12).
qint64 TagCount(const QString& tag);
// The name in a label "Name (count)": everything before the last blank.
QString NodeName(const QString& label);

// The pattern a contact's Label is matched against for the letter tab `letter`: "*" for "ALL",
// otherwise the tab's key itself.
QString LetterPattern(const QString& letter);

// Images of the nodes of a tree kind (0 categories, 1 groups, 2 favorites), and of its root.
QString NodeImage(qint16 mode);         // "CAT", "BOX", "STAR"
QString NodeSelectedImage(qint16 mode); // "CATSEL", "BOXSEL", "STAR"
QString RootImage(qint16 mode);         // "CATS", "BOXS", "STARS"
QString RootSelectedImage(qint16 mode); // "CATSSEL", "BOXSSEL", "STARS"

} // namespace mTV
