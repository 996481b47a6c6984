// Pictures of the tip window, the statistics and the main window in a light and the dark theme,
// for the documentation. Runs only when KELVARIN_SCREENSHOTS names the folder to write them to,
// on a real display (Xvfb serves), for example:
//   KELVARIN_SCREENSHOTS=docs xvfb-run -a -s '-screen 0 1280x860x24'
//       build/test_mainwindow --gtest_filter='Screenshots.*'
#include "app/mmain.h"
#include "app/previnstance.h"
#include "core/globals.h"
#include "mainwindow/form1.h"
#include "mainwindow/form4.h"
#include "mainwindow/form9.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/controls/listview.h"
#include "support/fixture.h"
#include "support/themes/desktopscheme.h"
#include "support/themes/themes.h"

#include "support/fixtureradicale.h"
#include "sync/account.h"
#include "sync/davclient.h"
#include "sync/secrets.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Screenshots : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        m_out = qEnvironmentVariable("KELVARIN_SCREENSHOTS");
        if (m_out.isEmpty() || QGuiApplication::platformName() == u"offscreen"_s)
            GTEST_SKIP() << "KELVARIN_SCREENSHOTS is not set, or there is no display";
        TempDirTest::SetUp();
        m_style = QApplication::style()->name();
        m_palette = QApplication::palette();
        m_book = path(u"people.kvdb"_s);
        ASSERT_EQ(mAccess::CreateDB(m_book, false), 1);
        fillBook();
        mMain::Closing();
    }
    void TearDown() override {
        if (m_out.isEmpty() || QGuiApplication::platformName() == u"offscreen"_s) return;
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList();
        gNotConnected = true;
        mThemes::SetDesktopSchemeReader({});
        QApplication::setStyle(QStyleFactory::create(m_style));
        QApplication::setPalette(m_palette);
        TempDirTest::TearDown();
    }

    // Three dozen people over the default categories, with companies, cities and numbers.
    static void fillBook() {
        const char* people[][4] = {
            {"Ada Lindqvist", "Northwind Shipping", "Gothenburg", "4"},
            {"Alan Brooks", "Brooks & Sons", "Leeds", "7"},
            {"Amelia Hart", "", "Bristol", "10"},
            {"Ana Ferreira", "Atlântico Seguros", "Porto", "4"},
            {"Ben Okafor", "Lagos Textiles", "Lagos", "8"},
            {"Bianca Rossi", "Studio Rossi", "Milan", "10"},
            {"Carla Méndez", "Viñedos del Sur", "Mendoza", "4"},
            {"Chen Wei", "Pearl River Trading", "Guangzhou", "7"},
            {"Clara Novak", "", "Brno", "9"},
            {"Daniel Weiss", "Weiss Optik", "Zurich", "5"},
            {"David Kim", "Han River Labs", "Seoul", "8"},
            {"Elena Popescu", "Carpathia Tours", "Brașov", "4"},
            {"Emil Jensen", "", "Aarhus", "11"},
            {"Fatima Haddad", "Cedar Clinic", "Beirut", "6"},
            {"Felix Braun", "Braun Bau GmbH", "Munich", "7"},
            {"Grace O'Neill", "Harbour Books", "Cork", "10"},
            {"Hannah Schmidt", "", "Hamburg", "12"},
            {"Hugo Laurent", "Laurent Vins", "Bordeaux", "4"},
            {"Ingrid Berg", "Fjord Design", "Bergen", "5"},
            {"Isaac Levy", "Levy & Partners", "Haifa", "8"},
            {"Jana Dvořák", "", "Prague", "9"},
            {"Jonas Petrauskas", "Baltic Amber", "Vilnius", "7"},
            {"Kate Morgan", "Morgan Legal", "Cardiff", "6"},
            {"Lars Nilsson", "", "Malmö", "11"},
            {"Lucía Torres", "Torres Arquitectos", "Seville", "4"},
            {"Maya Patel", "Saffron Kitchen", "Leicester", "10"},
            {"Mikko Virtanen", "Nordic Pine", "Tampere", "7"},
            {"Nora Quinn", "", "Galway", "12"},
            {"Oliver Grant", "Grant Electrical", "Glasgow", "5"},
            {"Paula Costa", "Costa Verde Café", "Lisbon", "4"},
            {"Quentin Moreau", "Moreau Atelier", "Lyon", "8"},
            {"Rosa Jiménez", "", "Valencia", "9"},
            {"Sam Taylor", "Taylor Print", "Manchester", "1"},
            {"Tomasz Nowak", "Wisła Logistics", "Kraków", "7"},
            {"Uma Rao", "Lotus Software", "Pune", "8"},
            {"Victor Hugo Silva", "Silva Transportes", "Recife", "4"},
            {"Yuki Tanaka", "Sakura Tea House", "Kyoto", "10"},
            {"Zoe Adams", "", "Brighton", "2"},
        };
        int id = 0;
        for (const auto& p : people) {
            ++id;
            const QString name = QString::fromUtf8(p[0]);
            dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = -1"_s);
            rs.AddNew();
            rs.SetValue(u"IDCD"_s, id);
            rs.SetValue(u"ContactNumber"_s, id);
            rs.SetValue(u"FullName"_s, name);
            rs.SetValue(u"Label"_s, name.left(1).toUpper());
            if (*p[1]) rs.SetValue(u"Company"_s, QString::fromUtf8(p[1]));
            rs.SetValue(u"City"_s, QString::fromUtf8(p[2]));
            rs.SetValue(u"IDC"_s, QString::fromLatin1(p[3]).toInt());
            rs.SetValue(u"IDX"_s, 1);
            rs.SetValue(u"IDB"_s, id % 5 == 0 ? 1 : -1);
            rs.SetValue(u"Type1"_s, 3);
            rs.SetValue(u"Number1"_s, u"+44 20 7946 %1"_s.arg(1000 + id * 37));
            rs.SetValue(u"Type2"_s, 5);
            rs.SetValue(u"Number2"_s, name.section(u' ', 0, 0).toLower() + u"@example.org"_s);
            rs.Update();
            rs.Close();
        }
    }

    void save(QWidget* w, const char* name) {
        QCoreApplication::processEvents();
        QTest::qWait(100);
        const QString file = QDir(m_out).filePath(QLatin1String(name));
        EXPECT_TRUE(w->grab().save(file)) << file.toStdString();
    }

    Form1& start(int appTheme, mThemes::ColorScheme desktop) {
        mThemes::SetDesktopSchemeReader([desktop] { return desktop; });
        SaveSetting(AppTitle(), u"PreferencesNew"_s, u"AppTheme"_s, appTheme);
        SaveSetting(AppTitle(), u"PreferencesNew"_s, u"TipOfTheDayAtStart"_s, false);
        mMain::SetCommandLine(m_book);
        {
            fixture::ModalRecorder tip([](QDialog*) { return 0; });
            mMain::Main();
        }
        Form1& f = *gForm1;
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&f));
        f.resize(1180, 780);
        QCoreApplication::processEvents();
        // The user clicks the third contact: the card pane shows it.
        ListView& list = *f.ListView2;
        if (list.ListItems.Count() > 3) {
            const QModelIndex third = list.model()->index(2, 0);
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(third).center());
        }
        return f;
    }

    QString m_out, m_book, m_style;
    QPalette m_palette;
};

} // namespace

TEST_F(Screenshots, MainWindowLight) {
    save(&start(1, mThemes::ColorScheme::Light), "mainwindow-light.png");
}

TEST_F(Screenshots, MainWindowDark) {
    save(&start(0, mThemes::ColorScheme::Dark), "mainwindow-dark.png");
}

TEST_F(Screenshots, TipsAndStatistics) {
    start(1, mThemes::ColorScheme::Light);
    {
        Form9 tips(gForm1);
        tips.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&tips));
        save(&tips, "tip-of-the-day.png");
        tips.bnShowAll->click();
        save(&tips, "tip-of-the-day-one.png");
    }
    Form4 statistics(gForm1);
    statistics.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&statistics));
    save(&statistics, "statistics.png");
}

// A phonebook linked to an address book syncs as it opens; the status bar tells what it did.
TEST_F(Screenshots, MainWindowAfterSync) {
    fixture::RadicaleServer server;
    if (!fixture::RadicaleServer::available()) GTEST_SKIP() << "radicale is not installed";
    ASSERT_TRUE(server.start(path(u"radicale"_s))) << server.log().toStdString();
    const QUrl book = server.createAddressBook(u"contacts"_s);
    // On the server: a contact from the phone, and one of the phonebook's with a title added.
    carddav::DavClient client(book, server.user(), server.password());
    QByteArray etag;
    client.put(book.resolved(QUrl(u"phone-1.vcf"_s)),
               "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:phone-1\r\nFN:Wen Li\r\nN:Li;Wen;;;\r\n"
               "TEL;TYPE=CELL:+86 10 5555 0101\r\nEND:VCARD\r\n",
               QByteArray(), &etag);
    client.put(book.resolved(QUrl(u"phone-2.vcf"_s)),
               "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:phone-2\r\nFN:Ada Lindqvist\r\nN:Lindqvist;Ada;;;\r\n"
               "TITLE:Harbour master\r\nTEL;TYPE=WORK:+44 20 7946 1037\r\nEND:VCARD\r\n",
               QByteArray(), &etag);
    gDBPath = m_book;
    ASSERT_TRUE(mLogin::LoginCnn(false));
    carddav::Account account;
    account.server = server.url().toString();
    account.user = server.user();
    account.book = book;
    account.bookName = u"Contacts"_s;
    account.interval = 15;
    carddav::SaveAccount(account);
    mMain::Closing();
    carddav::SecretStore store;
    store.read = [&](const QString&) { return server.password(); };
    carddav::SetSecretStore(&store);

    Form1& f = start(1, mThemes::ColorScheme::Light);
    auto* status = f.findChild<QLabel*>(u"SyncStatus"_s);
    ASSERT_NE(status, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([status] { return status->text().startsWith(u"Synced"_s); }, 30000))
        << status->text().toStdString();
    save(&f, "sync-mainwindow.png");
    carddav::SetSecretStore(nullptr);
}
