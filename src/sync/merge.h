#pragma once
// The three-way merge of a contact changed on both sides of a sync. Each field is compared with
// the version both sides last agreed on: a field changed on one side takes that side's value; a
// field changed on both sides to different values keeps the local value, and the server's value
// is appended to the comment on a dated line, so nothing is lost. Numbers merge as a list: a
// number added or removed on either side is added or removed, and a number edited on both sides
// keeps both values.

#include "exchange/contactrecord.h"

#include <QDateTime>

namespace carddav {

struct MergeResult {
    exchange::ContactRecord record;
    int conflicts = 0; // fields changed on both sides to different values
};

MergeResult MergeContact(const exchange::ContactRecord& base, const exchange::ContactRecord& local,
                         const exchange::ContactRecord& remote, const QDateTime& when);

} // namespace carddav
