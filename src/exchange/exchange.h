#pragma once
// Exchange: reading and writing contacts in the files other address books use.
//
// vCard files (versions 2.1, 3.0 and 4.0) are read tolerantly into neutral cards, property by
// property, and problems are reported with their line instead of stopping the read. A card is
// then mapped onto a ContactRecord, which holds the fields of a contact of the phonebook as plain
// values (names of number types, paths of the trees); whatever has no field of its own is kept
// as readable lines of the comment. The writer goes the other way, one card at a time onto a
// device. CSV files are read with their separator and encoding detected, mapped column by column
// (with presets for the common mail programs' exports), and written quoted as RFC 4180 says.
//
// This folder uses Qt Core only: it never opens a phonebook and never shows a window.

#include "exchange/contactrecord.h"
#include "exchange/csvmap.h"
#include "exchange/csvreader.h"
#include "exchange/csvwriter.h"
#include "exchange/vcardmap.h"
#include "exchange/vcardreader.h"
#include "exchange/vcardwriter.h"
