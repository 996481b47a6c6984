// The help page on import and export shows the vCard mapping as the program's own table has it.
// Run with KELVARIN_UPDATE_HELP=1 to write the table made from the code into the page.
#include "exchange/vcardmap.h"

#include <QFile>
#include <gtest/gtest.h>

using exchange::VCardMapping;
using exchange::VCardTarget;

namespace {

const QString kPage = QStringLiteral(KELVARIN_SOURCE_DIR "/resources/help/exchange.html");
const QString kBegin = QStringLiteral("<!-- vcard-table-begin -->\n");
const QString kEnd = QStringLiteral("<!-- vcard-table-end -->");

QString Code(const QString& text) {
    return QStringLiteral("<code>%1</code>").arg(text.toHtmlEscaped());
}

QString FieldOf(VCardTarget target) {
    switch (target) {
    case VCardTarget::FullName:
        return QStringLiteral("Full name");
    case VCardTarget::Name:
        return QStringLiteral("Full name, when the card has no <code>FN</code>");
    case VCardTarget::Title:
        return QStringLiteral("Title");
    case VCardTarget::Company:
        return QStringLiteral("Company (the first part; the others go to the comment)");
    case VCardTarget::Address:
        return QStringLiteral("Address (street and extended), City, State, Zip");
    case VCardTarget::Comment:
        return QStringLiteral("Comment");
    case VCardTarget::Photo:
        return QStringLiteral("Photo");
    case VCardTarget::Number:
        return QStringLiteral("the next number row");
    case VCardTarget::Category:
        return QStringLiteral("Category (a path, made when missing)");
    case VCardTarget::Group:
        return QStringLiteral("Group (a path, made when missing)");
    case VCardTarget::Favorite:
        return QStringLiteral("Favorite (a path, made when missing)");
    case VCardTarget::Label:
        return QStringLiteral("the number type of the property in the same group");
    case VCardTarget::Ignored:
        return QStringLiteral("nothing (technical)");
    }
    return QString();
}

QString Condition(const VCardMapping& row) {
    const QString c = QString::fromLatin1(row.condition);
    if (c.isEmpty()) return QString();
    if (c.endsWith(QLatin1Char(':'))) return QStringLiteral("the value begins with ") + Code(c);
    return QStringLiteral("TYPE includes ") + Code(c);
}

QString Export(const VCardMapping& row) {
    if (row.target != VCardTarget::Number) return QString();
    if (!row.writeAs) return QStringLiteral("read only");
    const QString type = QString::fromLatin1(row.writeAs);
    const QString scheme = QString::fromLatin1(row.condition);
    QString written = Code(QString::fromLatin1(row.property) +
                           (type.isEmpty() ? QString() : QStringLiteral(";TYPE=") + type));
    if (scheme.endsWith(QLatin1Char(':'))) written += QStringLiteral(", the value after ") + Code(scheme);
    return written;
}

// The table as the page shows it.
QString RenderedTable() {
    QString html =
        QStringLiteral("<table id=\"vcard-mapping\">\n<tr><th>Property</th><th>When</th><th>Field of "
                       "the contact</th><th>Number type</th><th>Numbers of the type are "
                       "written as</th></tr>\n");
    for (const VCardMapping& row : exchange::VCardMappingTable())
        html += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td><td>%5</td></tr>\n")
                    .arg(Code(QString::fromLatin1(row.property)), Condition(row), FieldOf(row.target),
                         QString::fromUtf8(row.typeName).toHtmlEscaped(), Export(row));
    return html + QStringLiteral("</table>\n");
}

QString ReadPage() {
    QFile f(kPage);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

} // namespace

TEST(HelpPage, TheVCardTableIsTheProgramsOwn) {
    QString page = ReadPage();
    const qsizetype begin = page.indexOf(kBegin);
    const qsizetype end = page.indexOf(kEnd);
    ASSERT_GE(begin, 0) << "the page lacks the mark where the table begins";
    ASSERT_GT(end, begin) << "the page lacks the mark where the table ends";
    const qsizetype from = begin + kBegin.size();
    const QString shown = page.mid(from, end - from);
    const QString made = RenderedTable();
    if (shown != made && qEnvironmentVariableIsSet("KELVARIN_UPDATE_HELP")) {
        page.replace(from, end - from, made);
        QFile f(kPage);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(page.toUtf8());
        return;
    }
    EXPECT_EQ(shown.toStdString(), made.toStdString())
        << "the vCard table of resources/help/exchange.html differs from VCardMappingTable(); run this test "
           "with KELVARIN_UPDATE_HELP=1 to write it anew";
}

TEST(HelpPage, TheContentsLinkToIt) {
    QFile index(QStringLiteral(KELVARIN_SOURCE_DIR "/resources/help/index.html"));
    ASSERT_TRUE(index.open(QIODevice::ReadOnly));
    EXPECT_TRUE(index.readAll().contains("href=\"exchange.html\""));
}
