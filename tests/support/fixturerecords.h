#pragma once
// Contacts for tests that move them between formats and places: a generated contact with every
// field, and records printed field by field when a test fails.

#include "exchange/contactrecord.h"

#include <ostream>

namespace fixture {

// A contact with every field filled, different for each n: twelve numbers of many types,
// non-Latin names, comments with line breaks, separators and backslashes, a photo.
exchange::ContactRecord FullContact(int n);

} // namespace fixture

namespace exchange {
// Readable failures: gtest prints records field by field.
void PrintTo(const ContactRecord& r, std::ostream* os);
inline void PrintTo(const NumberRow& n, std::ostream* os) {
    *os << "[" << n.type.toStdString() << ": " << n.value.toStdString() << "]";
}
} // namespace exchange
