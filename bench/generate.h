#pragma once
// Generated phonebook content: nested categories, groups and favorites, and contacts with names,
// companies, three numbers, addresses and some comments, spread over them.

#include "exchange/contactrecord.h"

namespace bench {
// Adds the trees and `contacts` contacts to gDB through the store, in one transaction.
void Generate(int contacts);
// Contact i as a record: a name, company, address, three numbers, a comment for one in four and
// a 10 KB photo for one in ten.
exchange::ContactRecord GeneratedRecord(int i);
} // namespace bench
