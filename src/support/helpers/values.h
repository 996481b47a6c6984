#pragma once
// Display helpers for database values: Null handling, multi-line texts in one-line cells, and
// file sizes. The Null helpers run once per list cell, so they stay small and allocate only
// when they change the text.

#include <QString>
#include <QVariant>

namespace mCommon {

// `repl` if `val` is Null, else `val`.
QVariant Nz(const QVariant& val, const QVariant& repl);
// `repl` if `val` is Null, else the text of `val` followed by ":".
QVariant NzColon(const QVariant& val, const QVariant& repl);
// `repl` if `val` is an empty text (or Null), else the text of `val` followed by ":".
QVariant strNzColon(const QVariant& val, const QVariant& repl);
// `repl` if `val` is Null; otherwise the first line of the text, followed by " ..." when the
// text had more than one line.
QVariant NzMultiline(const QVariant& val, const QVariant& repl);
// `repl` if `val` is Null; otherwise the text on one line, every line break made ", ".
QVariant NzMultiline2(const QVariant& val, const QVariant& repl);

// A size as a grouped whole number: NumberMode 0 the number alone ("1,536"), 1 with " bytes",
// 2 in kilobytes rounded up ("2 KB" for 1025). Any other mode reads as 0.
QString SizeCorrectView(double Size, int NumberMode);
// A size in the largest unit that leaves at most three digits before the point, cut (not
// rounded) to three significant characters: 1536 is "1.5 KB", 123456 "120 KB". Units stop at
// GB: beyond that the figure stands without a unit.
QString RoundEx(double num);

// The unit words of SizeCorrectView and RoundEx. They default to English; the message catalogue
// hands its own texts over when it loads.
void SetSizeUnitTexts(const QString& bytes, const QString& kb, const QString& mb, const QString& gb);

} // namespace mCommon
