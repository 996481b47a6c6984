#pragma once
// Sort texts for the date and number cells of the lists: a date as it is shown becomes
// "yyyyMMddHHmmss", a number becomes thirty digits, a point and thirty decimals, so that the text
// order of the list control is the order of the values.

#include "contactlist/listdates.h"

#include <QString>
#include <QStringView>

namespace mLV {

// Reads the dates that the lists show: by the learnt shape where it fits, else by the full date
// reader.
class DateSortText {
  public:
    // Appends the fourteen digits of the date in `text` to `out`; false, with `out` unchanged,
    // when the text is no date.
    bool Append(QStringView text, QString& out);

  private:
    ShownDate m_shape;
    QString m_lastText; // neighbouring rows often share their date
    QString m_lastKey;
};

// Appends the number in `text` as thirty digits, a point and thirty decimals (a minus sign first
// when negative); false, with `out` unchanged, when the text is no number.
bool AppendNumberSortText(QStringView text, QString& out);

} // namespace mLV
