#include "reports/reportwriter.h"

#include "core/desktop.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/store/dao.h"
#include "reports/reportcolumns.h"
#include "support/helpers/dates.h"

#include <QFile>
#include <QIODevice>

#include <vector>

using namespace mLanguageGobals;

namespace mReport {

namespace {

ReportClock& clockHandler() {
    static ReportClock clock;
    return clock;
}

// A column as the rows print it: where its value comes from.
enum class Source { Text, Numbers, Added };

struct PrintColumn {
    Source source = Source::Text;
    QString field; // the field of a plain column
    QString label;
    QString heading;
};

const char* const kFields[][2] = {
    {"FullName", "FullName"}, {"Title", "Title"},       {"Company", "Company"}, {"Address", "Address"},
    {"City", "City"},         {"State", "State"},       {"Zip", "Zip"},         {"Comment", "Comment"},
    {"Category", "Category"}, {"Favorite", "Favorite"}, {"#", "ContactNumber"}, {"Box", "Box"},
};

// The HTML head, one text per line, up to the title and after it.
const char* const kHeadStart[] = {
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">",
    "<html>",
    "<head>",
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">",
};
const char* const kFont1 = "{  font-family: Verdana, Tahoma, Arial, Helvetica, sans-serif;";
const char* const kFont2 = "   font-size: 11px; font-style: normal; text-align: Justify;";
const char* const kLineHeight = "  line-height: normal;";
const char* const kLinkColor = "    color : #fnum551B5;";
const char* const kHeadEnd[] = {
    "<meta name=\"content-language\" content=\"english\">",
    "<style type=\"Text/css\"><!--",
    ".text",
    kFont1,
    kFont2,
    kLineHeight,
    "}",
    ".hreport",
    kFont1,
    kFont2,
    "font-weight: bold;",
    kLineHeight,
    "   background: gray;",
    "  color: #FFFFFF;",
    "}",
    ".htable",
    kFont1,
    kFont2,
    "font-weight: bold;",
    kLineHeight,
    "   background: #0066CC;",
    "  color: #FFFFFF;",
    "}",
    "A:VISITED {",
    kLinkColor,
    "text-decoration : none;",
    "}",
    "A:HOVER {",
    kLinkColor,
    "text-decoration : underline;",
    "}",
    "A:ACTIVE {",
    kLinkColor,
    "text-decoration : none;",
    "}",
    "A:LINK {",
    kLinkColor,
    "text-decoration : none;",
    "}",
    "--></style>",
    "</head>",
    "<body bgcolor=white>",
    "<TABLE border=0 cellPadding=0 cellSpacing=1 WIDTH=\"100%\">",
    "<TR class=\"hreport\">",
};

const QString* const kInfo[12] = {&msgInfo1, &msgInfo2, &msgInfo3, &msgInfo4,  &msgInfo5,  &msgInfo6,
                                  &msgInfo7, &msgInfo8, &msgInfo9, &msgInfo10, &msgInfo11, &msgInfo12};

// Blanks off both ends, and nothing else.
QStringView trimBlanks(QStringView s) {
    qsizetype b = 0, e = s.size();
    while (b < e && s.at(b) == QLatin1Char(' '))
        ++b;
    while (e > b && s.at(e - 1) == QLatin1Char(' '))
        --e;
    return s.mid(b, e - b);
}

} // namespace

QDateTime ReportTime() {
    return clockHandler() ? clockHandler()() : QDateTime::currentDateTime();
}

ReportClock SetReportClock(ReportClock clock) {
    ReportClock old = std::move(clockHandler());
    clockHandler() = std::move(clock);
    return old;
}

struct ReportWriter::Impl {
    QIODevice& out;
    ReportLayout layout;
    bool html = true;
    bool columnar = true;
    std::vector<PrintColumn> columns;
    int span = 0;
    QString cellStart; // TD(n): "<TD COLSPAN=n" or "<TD "
    QString line;      // the line being made
    QString pending;   // lines made and not yet sent
    bool failed = false;

    // Field places, found at the first row.
    const dao::Recordset* fieldsOf = nullptr;
    std::vector<int> fieldIndex; // per column, for plain columns
    int idcd = -1, dateScan = -1;
    int types[12] = {};
    int numbers[12] = {};
    qint32 lastId = 0;
    bool white = true;

    Impl(QIODevice& o, const ReportLayout& l) : out(o), layout(l) {
        html = l.Kind == ReportKind::HtmlColumnar || l.Kind == ReportKind::HtmlTabular;
        columnar = l.Kind == ReportKind::HtmlColumnar || l.Kind == ReportKind::TextColumnar;
        for (const QString& tag : l.Columns) {
            const ReportColumn* c = FindReportColumn(tag);
            if (!c) continue;
            PrintColumn p;
            p.label = c->label;
            p.heading = c->heading;
            if (tag == QLatin1String("Numbers")) {
                p.source = Source::Numbers;
            } else if (tag == QLatin1String("Added")) {
                p.source = Source::Added;
            } else {
                for (const auto& f : kFields)
                    if (tag == QLatin1String(f[0])) p.field = QLatin1String(f[1]);
            }
            columns.push_back(p);
        }
        span = int(columns.size());
        cellStart = span >= 2 ? QStringLiteral("<TD COLSPAN=%1").arg(span) : QStringLiteral("<TD ");
    }

    // Ends the line being made and sends it on.
    void endLine() {
        pending += line;
        pending += QLatin1String("\r\n");
        line.truncate(0);
        if (pending.size() >= 1 << 15) flush();
    }
    void put(const char* text) {
        line += QLatin1String(text);
        endLine();
    }
    void put(const QString& text) {
        line += text;
        endLine();
    }
    bool flush() {
        if (!pending.isEmpty()) {
            const QByteArray bytes = pending.toUtf8();
            if (out.write(bytes) != bytes.size()) failed = true;
        }
        pending.truncate(0); // keeps its room for the next lines
        return !failed;
    }

    // A value as it goes into the file.
    void value(QStringView v) {
        if (html) {
            for (QChar c : v) {
                switch (c.unicode()) {
                case '&':
                    line += QLatin1String("&amp;");
                    break;
                case '<':
                    line += QLatin1String("&lt;");
                    break;
                case '>':
                    line += QLatin1String("&gt;");
                    break;
                case '"':
                    line += QLatin1String("&quot;");
                    break;
                default:
                    line += c;
                }
            }
        } else {
            for (QChar c : v) {
                if (c == QLatin1Char('"')) line += QLatin1Char('"');
                line += c;
            }
        }
    }
    void quoted(QStringView v) {
        line += QLatin1Char('"');
        value(v);
        line += QLatin1Char('"');
    }

    void findFields(const dao::Recordset& rs) {
        if (fieldsOf == &rs) return;
        fieldsOf = &rs;
        auto need = [&rs](const QString& name) {
            const int i = rs.FieldIndex(name);
            if (i < 0)
                throw dao::DbError(dao::errItemNotFound,
                                   QStringLiteral("Item not found in this collection."));
            return i;
        };
        fieldIndex.clear();
        for (const PrintColumn& c : columns)
            fieldIndex.push_back(c.source == Source::Text ? need(c.field) : -1);
        idcd = need(QStringLiteral("IDCD"));
        dateScan = need(QStringLiteral("DateScan"));
        for (int i = 0; i < 12; ++i) {
            types[i] = need(QStringLiteral("T%1").arg(i + 1));
            numbers[i] = need(QStringLiteral("Number%1").arg(i + 1));
        }
    }

    // The value of column k of the row, as text.
    QString text(const dao::Recordset& rs, size_t k) const {
        const PrintColumn& c = columns[k];
        if (c.source == Source::Added) return mCommon::TimeCorrectView(rs.Value(dateScan));
        return rs.Text(fieldIndex[k]);
    }
    // NzColon(T<i>, "").
    QString typeColon(const dao::Recordset& rs, int i) const {
        return rs.IsNull(types[i]) ? QString() : rs.Text(types[i]) + QLatin1Char(':');
    }
};

ReportWriter::ReportWriter(QIODevice& out, const ReportLayout& layout)
    : d(std::make_unique<Impl>(out, layout)) {}

ReportWriter::~ReportWriter() = default;

bool ReportWriter::Flush() {
    return d->flush();
}

void ReportWriter::Head() {
    Impl& w = *d;
    const QString& title = w.layout.Title;
    const QString& comment = w.layout.Comment;
    if (!w.html) {
        if (!title.isEmpty()) w.put(title);
        if (!comment.isEmpty()) w.put(comment);
        if (!title.isEmpty() || !comment.isEmpty()) w.endLine();
        if (w.columnar) return;
        for (const PrintColumn& c : w.columns) {
            if (c.source == Source::Numbers) {
                for (const QString* info : kInfo) {
                    w.quoted(*info);
                    w.line += w.layout.Separator;
                }
            } else {
                w.quoted(c.heading);
                w.line += w.layout.Separator;
            }
        }
        w.line.chop(1);
        w.endLine();
        return;
    }
    for (const char* l : kHeadStart)
        w.put(l);
    w.line += QLatin1String("<title>");
    w.value(title.isEmpty() ? msgReportHeading : title);
    w.put("</title>");
    for (const char* l : kHeadEnd)
        w.put(l);
    // The title cell.
    w.line += w.cellStart;
    if (!title.isEmpty()) {
        w.line += QLatin1Char('>');
        w.value(title);
        w.put("</TD>");
    } else if (w.columnar) {
        w.put(">&nbsp;</TD>");
    } else {
        w.line += QLatin1Char('>');
        w.value(msgReportHeading);
        w.put("</TD>");
    }
    w.put("</TR>");
    if (!comment.isEmpty()) {
        w.put("<TR class=\"text\">");
        w.line += w.cellStart + QLatin1Char('>');
        w.value(comment);
        w.put("</TD>");
        w.put("</TR>");
        if (w.columnar) w.put("<TR><TD >&nbsp;</TD></TR>");
    }
    if (w.columnar) return;
    w.put("<TR  class=\"htable\">");
    for (const PrintColumn& c : w.columns) {
        if (c.source == Source::Numbers) {
            for (const QString* info : kInfo) {
                w.line += QLatin1String("<TD>");
                w.value(*info);
                w.put("</TD>");
            }
        } else {
            w.line += QLatin1String("<TD>");
            w.value(c.heading);
            w.put("</TD>");
        }
    }
    w.put("</TR>");
}

void ReportWriter::Row(const dao::Recordset& rs) {
    Impl& w = *d;
    w.findFields(rs);
    if (w.columnar) {
        const qint32 id = qint32(rs.LongAt(w.idcd));
        if (id == w.lastId) return;
        w.lastId = id;
    }
    const QString& S = w.layout.Separator;
    switch (w.layout.Kind) {
    case ReportKind::HtmlColumnar:
        w.put("<TR class=\"htable\">");
        w.put(w.cellStart + QLatin1String(">&nbsp;</TD>"));
        w.put("</TR>");
        w.put("<TR><TD >&nbsp;</TD></TR>");
        w.put("<TR>");
        w.put(w.cellStart + QLatin1Char('>'));
        w.put("<TABLE border=0 cellPadding=0 cellSpacing=0 WIDTH=\"100%\">");
        for (size_t k = 0; k < w.columns.size(); ++k) {
            const PrintColumn& c = w.columns[k];
            if (c.source == Source::Numbers) {
                for (int i = 0; i < 12; ++i) {
                    if (rs.IsNull(w.numbers[i])) continue;
                    w.put("<TR class=\"text\">");
                    w.line += QLatin1String("<TD width = \"200\" bgcolor=\"#DDF3FF\"><b>");
                    w.value(w.typeColon(rs, i));
                    w.put("</b></TD>");
                    w.line += QLatin1String("<TD  bgcolor=\"#DDF3FF\">");
                    w.value(rs.Text(w.numbers[i]));
                    w.put("</TD>");
                    w.put("</TR>");
                }
                continue;
            }
            w.put("<TR class=\"text\">");
            w.line += QLatin1String("<TD width = \"200\"><b>");
            w.value(c.label);
            w.put("</b></TD>");
            w.line += QLatin1String("<TD >");
            w.value(w.text(rs, k));
            w.put("</TD>");
            w.put("</TR>");
        }
        w.put("</table>");
        w.put("<TR><TD >&nbsp;</TD></TR>");
        w.put("</TD>");
        w.put("</TR>");
        break;
    case ReportKind::HtmlTabular: {
        const QString cell = QStringLiteral("<TD bgcolor = ") +
                             (w.white ? QStringLiteral("white") : QStringLiteral("#E6E6E6")) +
                             QLatin1Char('>');
        w.white = !w.white;
        w.put("<TR class=\"text\">");
        for (size_t k = 0; k < w.columns.size(); ++k) {
            if (w.columns[k].source == Source::Numbers) {
                for (int i = 0; i < 12; ++i) {
                    QString typed;
                    if (!rs.IsNull(w.types[i])) {
                        w.line = QString();
                        w.value(w.typeColon(rs, i));
                        typed = w.line;
                    }
                    w.line = QString();
                    w.value(rs.Text(w.numbers[i]));
                    const QString number = w.line;
                    w.line = cell + trimBlanks(QString(typed + QLatin1String("<br>") + number)).toString();
                    w.put("</TD>");
                }
                continue;
            }
            w.line += cell;
            w.value(w.text(rs, k));
            w.put("</TD>");
        }
        w.put("</TR>");
        break;
    }
    case ReportKind::TextColumnar: {
        w.endLine();
        for (size_t k = 0; k < w.columns.size(); ++k) {
            const PrintColumn& c = w.columns[k];
            if (c.source == Source::Numbers) {
                for (int i = 0; i < 12; ++i) {
                    if (rs.IsNull(w.numbers[i])) continue;
                    w.quoted(w.typeColon(rs, i));
                    w.line += S;
                    w.quoted(rs.Text(w.numbers[i]));
                    w.line += QLatin1String("\r\n");
                }
                continue;
            }
            w.quoted(c.label);
            w.line += S;
            w.quoted(w.text(rs, k));
            w.line += QLatin1String("\r\n");
        }
        w.line.chop(1);
        w.endLine();
        break;
    }
    case ReportKind::TextTabular:
        for (size_t k = 0; k < w.columns.size(); ++k) {
            if (w.columns[k].source == Source::Numbers) {
                for (int i = 0; i < 12; ++i) {
                    w.quoted(
                        trimBlanks(QString(w.typeColon(rs, i) + QLatin1Char(' ') + rs.Text(w.numbers[i]))));
                    w.line += S;
                }
                continue;
            }
            w.quoted(w.text(rs, k));
            w.line += S;
        }
        w.line.chop(1);
        w.endLine();
        break;
    }
}

void ReportWriter::Tail() {
    Impl& w = *d;
    if (!w.html) return;
    w.put("</TD>");
    w.put("</TR>");
    w.put("</table>");
    w.line += QLatin1String("<p>") + msgCreatedBy + QLatin1String(" <a href=\"") + mCommon::ProductWebSite() +
              QLatin1String("\">Kelvarin</a> ") + msgOn + QLatin1Char(' ');
    w.value(mCommon::TimeCorrectView(w.layout.Created));
    w.put("</p>");
    w.put("</body>");
    w.put("</html>");
}

bool WriteReportFile(const ReportLayout& layout, const QString& path, const QString& rowSql, qint32 count,
                     const ReportRun& run) {
    HUNT_PLACE("mReport.WriteReportFile(path,count)", path, count);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw HuntERR::Error(75, QStringLiteral("Path/File access error: %1").arg(file.errorString()),
                             QStringLiteral("mReport.WriteReportFile"));
    auto fail = [&file, &path] {
        const QString why = file.errorString();
        file.close();
        QFile::remove(path);
        throw HuntERR::Error(75, QStringLiteral("Path/File access error: %1").arg(why),
                             QStringLiteral("mReport.WriteReportFile"));
    };
    ReportWriter writer(file, layout);
    writer.Head();
    const qint32 step = qMax<qint32>(1, (count + 999) / 1000);
    dao::Recordset rs = gDB.OpenRecordset(rowSql, dao::dbOpenSnapshot);
    qint32 position = 0;
    while (!rs.AtEOF()) {
        if (run.Cancelled && run.Cancelled()) {
            rs.Close();
            file.close();
            QFile::remove(path);
            return false;
        }
        if ((position + 1) % step == 0 && run.Progress) run.Progress(position + 1);
        writer.Row(rs);
        rs.MoveNext();
        ++position;
    }
    rs.Close();
    writer.Tail();
    if (!writer.Flush()) fail();
    file.close();
    if (file.error() != QFileDevice::NoError) fail();
    return true;
}

} // namespace mReport
