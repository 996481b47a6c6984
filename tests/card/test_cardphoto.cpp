// The photo of a contact in both card layouts: the choice of a file and its limits, what OK
// stores, what a card shows of a stored photo, and that no temporary file stays behind.
#include "cardtest.h"

#include "core/cfiledialog.h"
#include "core/language.h"
#include "phonebook/storedphoto.h"
#include "support/controls/photofit.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Answers the photo chooser with `path` ("" cancels) and records its title and filter.
class ChooseFile {
  public:
    explicit ChooseFile(const QString& path) {
        m_old = CFileDialog::SetHandler([this, path](CFileDialog& dialog, bool) {
            title = dialog.Title;
            filter = dialog.QtFilter();
            dialog.FileName = path;
            return !path.isEmpty();
        });
    }
    ~ChooseFile() { CFileDialog::SetHandler(m_old); }
    QString title, filter;

  private:
    CFileDialog::Handler m_old;
};

QByteArray imageBytes(const QSize& size, const char* format, Qt::GlobalColor colour = Qt::darkCyan) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

// A 2 x 1 GIF; Qt reads GIF but does not write it.
const QByteArray kGif =
    QByteArray::fromHex("47494638396102000100800000ffffff00000021f90400000000002c00000000020001000002"
                        "02440a003b");

} // namespace

class CardPhoto : public CardTest {
  protected:
    void SetUp() override {
        CardTest::SetUp();
        gPhotoTempFile = path(u"kvdb_photo"_s);
    }
    void TearDown() override {
        gPhotoTempFile.clear();
        CardTest::TearDown();
    }
    // A picture file of exactly `length` bytes: a PNG padded at its end.
    QString file(const QString& name, const QByteArray& bytes, qint64 length = -1) {
        QByteArray content = bytes;
        if (length >= 0) content.append(QByteArray(length - content.size(), '\0'));
        QFile f(path(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
        return f.fileName();
    }
    QString png(const char* name, qint64 length = -1, const QSize& size = QSize(40, 50)) {
        return file(QString::fromLatin1(name), imageBytes(size, "PNG"), length);
    }
    // The error report of a failed handler, "" when none was shown.
    template <class F> QString reportOf(F act) {
        QString report;
        fixture::ModalRecorder windows([&](QDialog* form) {
            if (auto* text = form->findChild<QPlainTextEdit*>(u"txtError"_s)) report = text->toPlainText();
            return 0;
        });
        act();
        return report;
    }
    bool tempFileLeft() const { return QFile::exists(gPhotoTempFile); }
};

INSTANTIATE_TEST_SUITE_P(Layouts, CardPhoto, ::testing::Values(true, false),
                         [](const auto& info) { return info.param ? "Tabs" : "Wide"; });

TEST_P(CardPhoto, TheLimitIs512000BytesInclusive) {
    CardForm& c = open();
    const QString fits = png("fits.png", 512000);
    const QString over = png("over.png", 512001);
    {
        ChooseFile choose(fits);
        c.bnSelectPhoto->click();
        EXPECT_EQ(choose.title, "Select photo");
        // The three formats of old, and what Linux users have besides.
        for (const char* mask : {"*.bmp", "*.jpg", "*.jpeg", "*.gif", "*.png"})
            EXPECT_TRUE(choose.filter.contains(QLatin1String(mask))) << mask;
    }
    EXPECT_EQ(c.PhotoState, 1);
    EXPECT_EQ(c.PhotoPath, fits);
    EXPECT_EQ(c.picImage.size(), QSize(40, 50));
    {
        fixture::MsgBoxRecorder boxes;
        ChooseFile choose(over);
        c.bnSelectPhoto->click();
        EXPECT_EQ(boxes.texts(), QStringList{mLanguageGobals::msgMaximumFileSize500Kb});
    }
    // The earlier choice stands, and is what OK stores.
    EXPECT_EQ(c.PhotoState, 1);
    EXPECT_EQ(c.PhotoPath, fits);
    c.fdFullName->setText(u"Ann"_s);
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(scalar(u"SELECT PhotoSize FROM CDs"_s).toInt(), 512000);
    EXPECT_EQ(scalar(u"SELECT Length(Photo) FROM CDs"_s).toInt(), 512016);
}

TEST_P(CardPhoto, AFileOfOneBlockIsStoredWithTwoFillerBytesAndShownAgainOnTheNextOpening) {
    CardForm& c = open();
    const QByteArray bytes = imageBytes(QSize(30, 20), "PNG");
    const QString chosen = file(u"portrait.PNG"_s, bytes, 32768);
    {
        ChooseFile choose(chosen);
        c.bnSelectPhoto_Click();
    }
    c.fdFullName->setText(u"Ann"_s);
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    const QByteArray stored = scalar(u"SELECT Photo FROM CDs"_s).toByteArray();
    ASSERT_EQ(stored.size(), 32770);
    QFile original(chosen);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(stored.left(32768), original.readAll());
    EXPECT_EQ(scalar(u"SELECT PhotoExt FROM CDs"_s).toString(), "PNG");
    EXPECT_EQ(scalar(u"SELECT PhotoSize FROM CDs"_s).toInt(), 32768);

    // Opened again, the card shows the stored photo and leaves no temporary file.
    CardForm& again = open(u"1"_s);
    EXPECT_EQ(again.PhotoState, 2);
    EXPECT_EQ(again.picImage.size(), QSize(30, 20));
    EXPECT_FALSE(tempFileLeft());
    // An unchanged photo is not written again; Clear stores three Nulls.
    again.fdTitle->setText(u"Dr"_s);
    again.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(scalar(u"SELECT Photo FROM CDs"_s).toByteArray(), stored);
    CardForm& cleared = open(u"1"_s);
    cleared.bnDeletePhoto->click();
    EXPECT_EQ(cleared.PhotoState, 0);
    EXPECT_EQ(cleared.picImage.size(), cleared.imNoImage.size());
    cleared.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(
        scalar(u"SELECT Count(*) FROM CDs WHERE Photo Is Null AND PhotoExt Is Null AND PhotoSize Is Null"_s)
            .toInt(),
        1);
}

TEST_P(CardPhoto, ACancelledChooserKeepsThePictureButOKThenFailsAndStoresNothing) {
    CardForm& c = open();
    c.fdFullName->setText(u"Ann"_s);
    {
        ChooseFile choose(png("first.png"));
        c.bnSelectPhoto_Click();
    }
    const QImage shown = c.picImage.toImage();
    {
        ChooseFile cancel{QString()};
        c.bnSelectPhoto_Click();
    }
    EXPECT_EQ(c.PhotoState, 1);
    EXPECT_TRUE(c.PhotoPath.isEmpty());
    EXPECT_EQ(c.picImage.toImage(), shown);
    const QString report = reportOf([&] { c.bnOK_Click(); });
    EXPECT_TRUE(report.contains(u"SavePhotoToDB"_s)) << report.toStdString();
    EXPECT_NE(c.result(), QDialog::Accepted);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 0);
    EXPECT_EQ(main->ListView2->ListItems.Count(), 0);
}

TEST_P(CardPhoto, AFileThatCannotBeDecodedLeavesTheCardAsItWas) {
    CardForm& c = open();
    const QString good = png("good.png");
    {
        ChooseFile choose(good);
        c.bnSelectPhoto_Click();
    }
    const QString broken = file(u"broken.jpg"_s, "this is no picture at all");
    QString report;
    {
        ChooseFile choose(broken);
        report = reportOf([&] { c.bnSelectPhoto->click(); });
    }
    EXPECT_TRUE(report.contains(u"bnSelectPhoto_Click"_s)) << report.toStdString();
    EXPECT_EQ(c.PhotoState, 1);
    EXPECT_EQ(c.PhotoPath, good);
    EXPECT_EQ(c.picImage.size(), QSize(40, 50));
}

TEST_P(CardPhoto, AContactWithoutAPhotoSavesThreeNullsAndShowsTheFallback) {
    CardForm& c = open();
    EXPECT_EQ(c.PhotoState, 0);
    EXPECT_EQ(c.picImage.toImage(), c.imNoImage.toImage());
    c.fdFullName->setText(u"Ann"_s);
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(
        scalar(u"SELECT Count(*) FROM CDs WHERE Photo Is Null AND PhotoExt Is Null AND PhotoSize Is Null"_s)
            .toInt(),
        1);
    CardForm& again = open(u"1"_s);
    EXPECT_EQ(again.PhotoState, 0);
    EXPECT_FALSE(tempFileLeft());
}

TEST_P(CardPhoto, EveryOfferedFormatComesBackFromItsStoredForm) {
    struct Format {
        const char* name;
        QByteArray bytes;
        QSize size;
    };
    const Format formats[] = {{"a.bmp", imageBytes(QSize(9, 7), "BMP"), QSize(9, 7)},
                              {"b.jpg", imageBytes(QSize(16, 8), "JPEG"), QSize(16, 8)},
                              {"c.gif", kGif, QSize(2, 1)},
                              {"d.jpeg", imageBytes(QSize(5, 5), "JPEG"), QSize(5, 5)}};
    int id = 0;
    for (const Format& f : formats) {
        CardForm& c = open();
        c.fdFullName->setText(QString::fromLatin1(f.name));
        ChooseFile choose(file(QString::fromLatin1(f.name), f.bytes));
        c.bnSelectPhoto_Click();
        ASSERT_EQ(c.PhotoState, 1) << f.name;
        c.bnOK_Click();
        ASSERT_TRUE(closedWithOK()) << f.name;
        CardForm& again = open(QString::number(++id));
        EXPECT_EQ(again.PhotoState, 2) << f.name;
        EXPECT_EQ(again.picImage.size(), f.size) << f.name;
    }
    EXPECT_FALSE(tempFileLeft());
}

TEST_P(CardPhoto, ASmallPhotoKeepsItsSizeCentredInItsFrameAndALargeOneShrinksToFit) {
    CardForm& c = open();
    c.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&c));
    if (auto* tabs = dynamic_cast<Form3*>(&c)) tabs->TabControl1->setCurrentIndex(2);
    QCoreApplication::processEvents();
    {
        ChooseFile choose(png("small.png", -1, QSize(20, 10)));
        c.bnSelectPhoto_Click();
    }
    const QRect frame = c.GroupBox1->contentsRect();
    ASSERT_GT(frame.width(), 40);
    EXPECT_EQ(c.picBox->size(), QSize(20, 10));
    // Centred, to the pixel that an odd margin leaves.
    EXPECT_EQ(c.picBox->x() - frame.x(), (frame.width() - 20) / 2);
    EXPECT_EQ(c.picBox->y() - frame.y(), (frame.height() - 10) / 2);
    {
        ChooseFile choose(png("large.png", -1, QSize(frame.width() * 4, frame.width() * 2)));
        c.bnSelectPhoto_Click();
    }
    // Shrunk to the frame's width, proportions kept.
    EXPECT_EQ(c.picBox->width(), frame.width());
    EXPECT_NEAR(c.picBox->height(), frame.width() / 2, 1);
    EXPECT_TRUE(frame.contains(c.picBox->geometry()));
    c.hide();
}

TEST(PhotoFit, DimensionsShrinkByWidthThenByHeightAndNeverGrow) {
    struct Case {
        int w, h, dw, dh, ew, eh;
    };
    for (const Case& k : {Case{50, 40, 100, 100, 50, 40}, Case{200, 100, 100, 100, 100, 50},
                          Case{100, 300, 100, 150, 50, 150}, Case{400, 300, 100, 50, 67, 50},
                          Case{100, 100, 100, 100, 100, 100}}) {
        int w = k.w, h = k.h;
        mPhoto::AdjustImageDimensions(w, h, k.dw, k.dh);
        EXPECT_EQ(QSize(w, h), QSize(k.ew, k.eh)) << k.w << "x" << k.h;
    }
    // Transparent parts stand on white.
    QPixmap clear(4, 4);
    clear.fill(Qt::transparent);
    EXPECT_EQ(mPhoto::FitPhoto(clear, QSize(10, 10)).toImage().pixelColor(1, 1), QColor(Qt::white));
}
