// The window that maps the columns of a CSV file before an import: what it finds in the file,
// and how the user's choices change what is imported.
#include "core/language.h"
#include "exchange/book/bookexchange.h"
#include "exchange/ui/csvmappingdialog.h"
#include "exchangetest.h"
#include "support/fixture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

using exchange::ContactRecord;
using exchange::NumberRow;
using mExchange::CsvMappingDialog;
using namespace mLanguageGobals;

namespace {

const QStringList kTypes = {QStringLiteral("Mobile phone"), QStringLiteral("Home phone"),
                            QStringLiteral("Work phone"), QStringLiteral("Email")};

class CsvMapping : public fixture::TempDirTest {
  protected:
    QString write(const char* name, const QByteArray& bytes) {
        const QString file = path(QLatin1String(name));
        QFile f(file);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return file;
    }
    static QList<ContactRecord> import(const QString& file, const CsvMappingDialog& window) {
        return mExchange::ReadCsvFile(file, window.choice());
    }
};

TEST_F(CsvMapping, ShowsWhatItFoundInTheFileAndImportsWithThePreset) {
    const QString file = write("webmail.csv", exchangetest::DataFile("webmail.csv"));
    CsvMappingDialog window(file, kTypes);
    EXPECT_EQ(window.Separator->currentText(), msgExMapComma);
    EXPECT_EQ(window.Encoding->currentText(), QStringLiteral("UTF-8"));
    EXPECT_EQ(window.Preset->currentText(), QStringLiteral("Web mail (Google-style)"));

    // One row a column: the header, a few values and what it becomes.
    ASSERT_EQ(window.Columns->rowCount(), window.header().size());
    const int company = int(window.header().indexOf(QStringLiteral("Organization Name")));
    const int phone = int(window.header().indexOf(QStringLiteral("Phone 1 - Value")));
    const int nickname = int(window.header().indexOf(QStringLiteral("Nickname")));
    ASSERT_GE(qMin(company, qMin(phone, nickname)), 0);
    EXPECT_EQ(window.Columns->item(company, 0)->text(), QStringLiteral("Organization Name"));
    EXPECT_TRUE(window.Columns->item(company, 1)->text().contains(QStringLiteral("Durand & Fils, SARL")));
    EXPECT_EQ(window.fieldBox(company)->currentText(), msgExFieldCompany);
    EXPECT_EQ(window.fieldBox(nickname)->currentText(), msgExMapKeep);
    // A type the phonebook does not have yet is offered all the same.
    EXPECT_EQ(window.fieldBox(phone)->currentText(), msgExFieldNumber.arg(QStringLiteral("Phone")));

    // Left as they are, the boxes import what the preset alone imports.
    EXPECT_EQ(import(file, window), mExchange::ReadCsvFile(file));

    // Another preset maps every column anew.
    window.Preset->setCurrentIndex(window.Preset->findData(int(exchange::CsvPreset::Generic)));
    EXPECT_EQ(window.fieldBox(company)->currentText(), msgExMapKeep);
}

TEST_F(CsvMapping, AColumnMappedOtherwiseChangesWhatIsImported) {
    const QString file = write("people.csv", "Name,Firm,Cell,Extra,Town,Kind,Value\n"
                                             "Ada Lovelace,Analytical,+44 1,secret,London,Work,+44 2\n"
                                             "Alan Turing,Bletchley,+44 3,,Wilmslow,Home,+44 4\n");
    CsvMappingDialog window(file, kTypes);
    EXPECT_EQ(window.Preset->currentData().toInt(), int(exchange::CsvPreset::Generic));
    EXPECT_EQ(window.fieldBox(1)->currentText(), msgExMapKeep);
    EXPECT_EQ(window.fieldBox(2)->currentText(), msgExFieldNumber.arg(QStringLiteral("Mobile phone")));
    EXPECT_EQ(window.Columns->item(3, 1)->text(), QStringLiteral("secret")); // empty values are not samples

    ContactRecord ada = import(file, window).value(0);
    EXPECT_TRUE(ada.Company.isEmpty());
    EXPECT_TRUE(ada.Comment.contains(QStringLiteral("Firm: Analytical")));
    EXPECT_TRUE(ada.Comment.contains(QStringLiteral("Extra: secret")));

    ASSERT_TRUE(window.mapColumn(1, msgExFieldCompany));
    ASSERT_TRUE(window.mapColumn(2, msgExFieldNumber.arg(QStringLiteral("Home phone"))));
    ASSERT_TRUE(window.mapColumn(3, msgExMapIgnore));
    ASSERT_TRUE(window.mapColumn(4, msgExFieldCity));
    ASSERT_TRUE(window.mapColumn(5, msgExFieldNumberType)); // names the type of "Value"
    ASSERT_TRUE(window.mapColumn(6, msgExFieldNumberOwnType));
    const QList<ContactRecord> records = import(file, window);
    ASSERT_EQ(records.size(), 2);
    ada = records[0];
    EXPECT_EQ(ada.FullName, QStringLiteral("Ada Lovelace"));
    EXPECT_EQ(ada.Company, QStringLiteral("Analytical"));
    EXPECT_EQ(ada.City, QStringLiteral("London"));
    EXPECT_EQ(ada.Numbers, (QList<NumberRow>{{QStringLiteral("Home phone"), QStringLiteral("+44 1")},
                                             {QStringLiteral("Work"), QStringLiteral("+44 2")}}));
    EXPECT_TRUE(ada.Comment.isEmpty()) << ada.Comment.toStdString();
    EXPECT_EQ(records[1].Numbers.value(1), (NumberRow{QStringLiteral("Home"), QStringLiteral("+44 4")}));
}

TEST_F(CsvMapping, ADifferentSeparatorOrEncodingReadsTheFileAgain) {
    // More commas than semicolons in the header line: the file looks comma-separated.
    const QString file = write("semi.csv", "Name (last, first, middle, title);Company;City\n"
                                           "M\xFCller, Hans;Acme;K\xF6ln\n"
                                           "Smith, Jo;Widgets;Leeds\n");
    CsvMappingDialog window(file, kTypes);
    EXPECT_EQ(window.Separator->currentText(), msgExMapComma);
    EXPECT_EQ(window.Encoding->currentText(), QStringLiteral("Windows-1252"));
    EXPECT_EQ(window.Columns->rowCount(), 4);

    window.Separator->setCurrentIndex(window.Separator->findText(msgExMapSemicolon));
    ASSERT_EQ(window.Columns->rowCount(), 3);
    EXPECT_EQ(window.header(), QStringList({QStringLiteral("Name (last, first, middle, title)"),
                                            QStringLiteral("Company"), QStringLiteral("City")}));
    EXPECT_EQ(window.fieldBox(0)->currentText(), msgExMapKeep);
    EXPECT_EQ(window.fieldBox(2)->currentText(), msgExFieldCity);
    ASSERT_TRUE(window.mapColumn(0, msgExFieldFullName));
    EXPECT_EQ(window.Columns->item(0, 1)->text(), QString::fromUtf8("Müller, Hans  |  Smith, Jo"));
    ASSERT_TRUE(window.mapColumn(2, msgExMapIgnore));

    // The same columns in another encoding keep the user's choices and show the values anew.
    window.Encoding->setCurrentIndex(window.Encoding->findText(QStringLiteral("UTF-8")));
    EXPECT_EQ(window.fieldBox(2)->currentText(), msgExMapIgnore);
    EXPECT_TRUE(window.Columns->item(0, 1)->text().contains(QChar(0xFFFD)));
    window.Encoding->setCurrentIndex(window.Encoding->findText(QStringLiteral("Windows-1252")));

    const QList<ContactRecord> records = import(file, window);
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].FullName, QString::fromUtf8("Müller, Hans"));
    EXPECT_EQ(records[0].Company, QStringLiteral("Acme"));
    EXPECT_TRUE(records[0].City.isEmpty());
}

TEST_F(CsvMapping, AnEmptyFileOffersNothingToImport) {
    CsvMappingDialog window(write("empty.csv", ""), kTypes);
    EXPECT_EQ(window.Columns->rowCount(), 0);
    EXPECT_FALSE(window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
}

} // namespace
