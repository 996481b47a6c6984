#include "search/quickfilter.h"

#include "contactlist/listfill.h"
#include "contactlist/listsort.h"
#include "contactlist/listupdate.h"
#include "core/error.h"
#include "core/globals.h"
#include "phonebook/contactquery.h"
#include "search/searchquery.h"
#include "support/controls/listview.h"

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>

namespace mSearch {

namespace {
constexpr qint64 kLeastChunk = 2048;
constexpr qint64 kMostChunk = 1 << 17;
} // namespace

QuickFilter::QuickFilter(ListView& list, QObject* parent)
    : QObject(parent), m_list(list), m_timer(new QTimer(this)) {
    m_timer->setSingleShot(true);
    m_timer->setInterval(0);
    connect(m_timer, &QTimer::timeout, this, [this] { step(); });
}

bool QuickFilter::Start(const QString& text) {
    HUNT_PLACE("mSearch.QuickFilter.Start(text)", text);
    Cancel();
    m_condition = QuickFilterCondition(text);
    if (m_condition.isEmpty()) return false;
    {
        mLV::ListUpdate block(m_list);
        m_list.ListItems.Clear();
    }
    dao::Recordset rs =
        gDB.OpenRecordset(QStringLiteral("SELECT Max(rowid) AS Last FROM CDs"), dao::dbOpenSnapshot);
    m_last = rs.AtEOF() ? 0 : rs.LongAt(0);
    rs.Close();
    m_done = 0;
    m_matches = 0;
    m_running = true;
    m_timer->start();
    return true;
}

void QuickFilter::Cancel() {
    m_running = false;
    m_timer->stop();
}

void QuickFilter::RunToEnd() {
    while (m_running)
        step();
}

void QuickFilter::step() {
    HUNT_PLACE("mSearch.QuickFilter.step");
    if (!m_running) return;
    QElapsedTimer took;
    took.start();
    const qint64 to = m_done + m_chunk;
    const QString sql = mLV::ListQuery() +
                        QStringLiteral("WHERE CDs.rowid > %1 AND CDs.rowid <= %2 AND ").arg(m_done).arg(to) +
                        m_condition;
    {
        // A failure ends the run; the error goes on to the caller.
        struct EndOnError {
            bool& running;
            bool done = false;
            ~EndOnError() {
                if (!done) running = false;
            }
        } guard{m_running};
        mLV::ListUpdate block(m_list);
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        const mLV::ListFields fields(rs);
        for (; !rs.AtEOF(); rs.MoveNext()) {
            mLV::AddDriveRecord(m_list, rs, fields);
            ++m_matches;
        }
        rs.Close();
        guard.done = true;
    }
    m_done = to;
    // Steps of about the same length: the range grows while a step is quick, and shrinks when
    // one took too long.
    const qint64 ms = took.elapsed();
    if (ms < kStepMs / 2)
        m_chunk = std::min(kMostChunk, m_chunk * 2);
    else if (ms > kStepMs * 2)
        m_chunk = std::max(kLeastChunk, m_chunk / 2);

    if (m_done < m_last) {
        m_timer->start();
        return;
    }
    m_running = false;
    // The order in force: the sort turns round the order of the column sorted a second time.
    m_list.SetSortOrder(m_list.SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
    mLV::SwitchSortDisk(m_list, m_list.SortKey(), false);
    emit Finished(m_matches);
}

} // namespace mSearch
