#pragma once
// One contact as the exchange formats see it: the fields of a phonebook contact as plain values.
// Number types are named, not numbered, and the three tree places are paths of node names below
// the root, so that a record can be made without a phonebook and matched to one later.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace exchange {

// A contact has at most this many number rows (Type1/Number1 to Type12/Number12).
constexpr int kNumberRows = 12;

struct NumberRow {
    QString type;  // name of the number type ("Mobile phone", "Email", ...)
    QString value; // the number, address or handle
    bool operator==(const NumberRow& o) const { return type == o.type && value == o.value; }
};

struct ContactRecord {
    QString FullName;
    QString Title;
    QString Company;
    QString Address;
    QString City;
    QString State;
    QString Zip;
    QString Comment;
    QByteArray Photo;         // the picture's bytes as its file holds them; empty: no photo
    QString PhotoExt;         // its extension without the point ("jpg")
    QList<NumberRow> Numbers; // at most kNumberRows, in slot order
    QStringList CategoryPath; // names below the root; empty: none given
    QStringList GroupPath;
    bool Favorite = false; // assigned to a favorite; FavoritePath empty means the root
    QStringList FavoritePath;

    bool operator==(const ContactRecord& o) const;
    bool operator!=(const ContactRecord& o) const { return !(*this == o); }
};

} // namespace exchange
