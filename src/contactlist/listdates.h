#pragma once
// The shape of the dates that the lists show (mCommon::TimeCorrectView: the short date, a blank,
// the time with seconds, in the display locale), learnt once by showing known dates: which number
// is which field and how wide, and the text around the numbers (separators, month names, the
// day-half marks of a twelve-hour clock) for each month and each half of the day.
//
// With the shape a fill writes a list's date cells without the locale's formatter, and a sort
// reads them back by their digits. The shape is checked against TimeCorrectView when it is learnt;
// a locale whose dates it cannot reproduce leaves it unusable, and the callers fall back to the
// full date helpers.

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <vector>

namespace mLV {

class ShownDate {
  public:
    ShownDate();
    bool Usable() const { return m_fields > 0; }

    // Appends the date as TimeCorrectView shows it; false when the shape is unusable.
    bool Append(QDate date, QTime time, QString& out) const;
    // Reads a text of the shape into year, month, day, hour, minute and second; false for any
    // other text.
    bool Read(QStringView text, int v[6]) const;

  private:
    enum Field { Year, Month, Day, Hour, Minute, Second };
    // The text between the numbers, for one month and one half of the day.
    struct Frame {
        std::vector<QString> pieces; // one more than there are numbers
        int month;                   // the month when the frame names it, else 0
        bool afternoon;
    };
    bool learn();
    bool reproduces(const QDateTime& sample) const;
    const Frame& frame(int month, bool afternoon) const {
        return m_frames[size_t((m_namedMonth ? month - 1 : 0) * 2 + (afternoon ? 1 : 0))];
    }

    Field m_order[6];
    int m_width[6] = {}; // the least number of digits of each field
    int m_fields = 0;    // 0: unusable
    bool m_twelveHour = false;
    bool m_namedMonth = false;
    std::vector<Frame> m_frames; // by month (when named) and half of the day
    mutable int m_lastFrame = 0; // the frame of the last text read
};

} // namespace mLV
