// What the program hands to the desktop: the mailto: address of a new message, links of a
// contact's values, files opened or shown in the file manager, telephone numbers, and the
// messages when the desktop cannot help.
#include "core/desktop.h"
#include "core/language.h"
#include "core/seams.h"
#include "core/sendmail.h"
#include "support/fixture.h"

#include <QDir>
#include <QFile>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// Records what is handed to the desktop; `answer` is what the desktop says.
class Handed {
  public:
    explicit Handed(bool answer = true) {
        m_old = SetShellHandler([this, answer](const QString& target) {
            targets << target;
            return answer;
        });
    }
    ~Handed() { SetShellHandler(m_old); }
    QStringList targets;

  private:
    ShellHandler m_old;
};

QString mailto(const QString& address, const QString& subject, const QString& body, const QString& cc = {},
               const QString& bcc = {}, const QString& attachment = {}) {
    return mCommon::MailtoAddress(address, subject, body, cc, bcc, attachment);
}

} // namespace

TEST(SendMail, OnlyTheAmpersandBlanksAndLineBreaksAreEncoded) {
    // "?", "=", "#", "%" and "+" stay as typed; "&" alone of the reserved characters is encoded.
    EXPECT_EQ(mailto(u"ann@zeta.example"_s, u"Q&A: 50% off? a=b #1 +x"_s, QString()),
              u"mailto:ann@zeta.example?Subject=Q%26A:%2050%%20off?%20a=b%20#1%20+x"_s);
    // Each kind of line break once, in the order they are replaced; the body ends in one more.
    EXPECT_EQ(mailto(u"a@b"_s, QString(), u"one\r\ntwo\rthree\nfour"_s),
              u"mailto:a@b?Body=one%0D%0Atwo%0Dthree%0Afour%0D%0A"_s);
    EXPECT_EQ(mailto(u"a@b"_s, QString(), u"x"_s), u"mailto:a@b?Body=x%0D%0A"_s);
    // Copies, blind copies and the attachment go as they are, in this order.
    EXPECT_EQ(mailto(u"a@b"_s, u"Hi"_s, QString(), u"c d@e"_s, u"f&g@h"_s, u"/tmp/r 1.txt"_s),
              u"mailto:a@b?Subject=Hi&CC=c d@e&BCC=f&g@h&Attacth=\"/tmp/r 1.txt\""_s);
}

TEST(SendMail, AnEmptyAddressStillOpensANewMessage) {
    EXPECT_EQ(mailto(QString(), QString(), QString()), u"mailto:"_s);
    EXPECT_EQ(mailto(QString(), u"Hello there"_s, u"Body"_s),
              u"mailto:?Subject=Hello%20there&Body=Body%0D%0A"_s);
    Handed handed;
    mCommon::SendMail(QString(), QString(), QString(), QString(), QString(), QString());
    EXPECT_EQ(handed.targets, QStringList{u"mailto:"_s});
}

TEST(Links, MailWinsOverWebAndAWebAddressGoesAsItStands) {
    Handed handed;
    EXPECT_TRUE(mCommon::OpenLink(u"http-desk@zeta.example"_s));
    EXPECT_TRUE(mCommon::OpenLink(u"www.zeta.example/contact"_s));
    EXPECT_TRUE(mCommon::OpenLink(u"HTTPS://Zeta.example"_s));
    EXPECT_FALSE(mCommon::OpenLink(u"555 0101"_s));
    EXPECT_EQ(handed.targets, QStringList({u"mailto:http-desk@zeta.example"_s, u"www.zeta.example/contact"_s,
                                           u"HTTPS://Zeta.example"_s}));
}

TEST(Links, ATelephoneNumberBecomesATelAddress) {
    EXPECT_EQ(mCommon::TelAddress(u" +49 (30) 123-45.6/7 "_s), u"tel:+49301234567"_s);
    EXPECT_EQ(mCommon::TelAddress(u"555 0101"_s), u"tel:5550101"_s);
    for (const QString& notNumber : {u"12"_s, u"ann@zeta.example"_s, u"ext. 12345"_s, u"1+2345"_s, QString()})
        EXPECT_TRUE(mCommon::TelAddress(notNumber).isEmpty()) << notNumber.toStdString();
    Handed handed;
    EXPECT_TRUE(mCommon::CallNumber(u"555 0101"_s));
    EXPECT_FALSE(mCommon::CallNumber(u"Skype: ann.archer"_s));
    EXPECT_EQ(handed.targets, QStringList{u"tel:5550101"_s});
}

TEST(Links, TheProductsAddressesComeFromOnePlace) {
    Handed handed;
    mCommon::OpenWebSite();
    mCommon::MailSupport(u"3.5.2"_s);
    mCommon::OpenFeedback(u"3.5.2"_s);
    ASSERT_EQ(handed.targets.size(), 3);
    EXPECT_EQ(handed.targets[0], mCommon::ProductWebSite());
    EXPECT_EQ(handed.targets[1],
              u"mailto:"_s + mCommon::SupportMailAddress() + u"?Subject=Kelvarin%20v3.5"_s);
    EXPECT_TRUE(handed.targets[2].startsWith(mCommon::ProductWebSite()));
    EXPECT_TRUE(handed.targets[2].contains(u"3.5.2"_s));
    EXPECT_TRUE(QUrl(handed.targets[2]).isValid());
}

class Files : public fixture::TempDirTest {};

TEST_F(Files, AFileOpensWithItsProgramOrSaysWhyNot) {
    const QString file = path(u"notes 1.txt"_s);
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    fixture::MsgBoxRecorder boxes;
    {
        Handed handed;
        mCommon::ExecuteFile(nullptr, file);
        mCommon::ExecuteFile(nullptr, path(u"gone.txt"_s));
        mCommon::ExecuteFile(nullptr, path(u"no folder/gone.txt"_s));
        EXPECT_EQ(handed.targets, QStringList{file});
    }
    {
        Handed refused(false); // the desktop has no program for it
        mCommon::ExecuteFile(nullptr, file);
    }
    using namespace mLanguageGobals;
    EXPECT_EQ(boxes.texts(),
              QStringList({msgTheSpecifiedFileWasNotFound, msgShellPathNotFound, msgShellNoAssociation}));
    for (const auto& box : boxes.boxes)
        EXPECT_EQ(box.icon, vb::vbExclamation);
}

TEST_F(Files, AFileIsShownInTheFileManagerElseItsFolderOpens) {
    const QString file = path(u"report.html"_s);
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    QStringList shown;
    bool answers = true;
    const auto old = mCommon::SetFileManagerHandler([&](const QString& uri) {
        shown << uri;
        return answers;
    });
    Handed handed;
    mCommon::OpenInExplorerList(nullptr, file);
    EXPECT_EQ(shown, QStringList{QUrl::fromLocalFile(file).toString()});
    EXPECT_TRUE(handed.targets.isEmpty());
    answers = false; // no file manager on the bus
    mCommon::OpenInExplorerList(nullptr, file);
    EXPECT_EQ(handed.targets, QStringList{QDir(m_dir.path()).absolutePath()});
    mCommon::SetFileManagerHandler(old);
}

TEST(ShellErrors, EachKnownCodeHasItsTextAndOthersShowNothing) {
    for (int code : {0, 2, 3, 5, 8, 11, 26, 27, 31})
        EXPECT_FALSE(mCommon::ShellErrorText(code).isEmpty()) << code;
    fixture::MsgBoxRecorder boxes;
    mCommon::ShellErrorMessage(1);
    mCommon::ShellErrorMessage(32);
    EXPECT_TRUE(boxes.boxes.isEmpty());
    mCommon::ShellErrorMessage(5);
    EXPECT_EQ(boxes.texts(), QStringList{mLanguageGobals::msgShellAccessDenied});
}
