#pragma once
// Generated phonebook content: nested categories, groups and favorites, and contacts with names,
// companies, three numbers, addresses and some comments, spread over them.

namespace bench {
// Adds the trees and `contacts` contacts to gDB through the store, in one transaction.
void Generate(int contacts);
} // namespace bench
