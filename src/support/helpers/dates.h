#pragma once
// Dates and times for display: the patterns of the system's locale, written with plain ASCII
// digits. The time shows hours, minutes and seconds without a time zone.

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QVariant>

namespace mDateTime {

// The time of day of a date/time value in the locale's long time pattern, less its time zone.
QString FormatTime(const QVariant& pTime);
// The date of a date/time value in the locale's short date pattern.
QString FormatDate(const QVariant& pDate);

// Reads a date/time value as the phonebook and the program hand it over: a QDateTime or QDate
// (at midnight), or a text such as "2024-03-05 14:07:09" or in the locale's short pattern.
// Invalid for Null and for text that is no date.
QDateTime ToDateTime(const QVariant& value);

// The locale whose patterns are used; QLocale::system() until set.
void SetDisplayLocale(const QLocale& locale);

} // namespace mDateTime

namespace mCommon {

// "Added" and like cells: the short date, a blank, and the time with seconds. Null gives "";
// a text that is no date is shown as it stands.
QString TimeCorrectView(const QVariant& strTime);

} // namespace mCommon
