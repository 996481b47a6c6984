// The animation control on GIF files written here: the header check, lazy decoding with a cache,
// delays, the zero-delay spin and the loop events.
#include "core/error.h"
#include "support/controls/gifctl.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

void put16(QByteArray& out, int v) {
    out.append(char(v & 0xFF));
    out.append(char((v >> 8) & 0xFF));
}

// The image data of a frame filled with colour `index` of a four-colour table. Two-bit codes
// with a clear code before every pair of pixels keep the code length at three bits.
QByteArray frameData(int pixels, int index) {
    QList<int> codes;
    for (int i = 0; i < pixels; ++i) {
        if (i % 2 == 0) codes << 4; // clear
        codes << index;
    }
    codes << 5; // end
    QByteArray bytes;
    quint32 store = 0;
    int bits = 0;
    for (int code : codes) {
        store |= quint32(code) << bits;
        bits += 3;
        while (bits >= 8) {
            bytes.append(char(store & 0xFF));
            store >>= 8;
            bits -= 8;
        }
    }
    if (bits > 0) bytes.append(char(store & 0xFF));
    QByteArray out(1, char(2)); // minimum code size
    for (qsizetype at = 0; at < bytes.size(); at += 255) {
        const QByteArray block = bytes.mid(at, 255);
        out.append(char(block.size()));
        out.append(block);
    }
    out.append(char(0));
    return out;
}

// A GIF of `delays.size()` frames of 8 by 6 pixels, each of another colour, each with its delay
// in hundredths of a second.
QByteArray gifFile(const QList<int>& delays) {
    const int w = 8, h = 6;
    QByteArray out("GIF89a");
    put16(out, w);
    put16(out, h);
    out.append(char(0xF1)); // a global table of four colours
    out.append(char(0));
    out.append(char(0));
    out.append(QByteArray::fromHex("ff0000"
                                   "00ff00"
                                   "0000ff"
                                   "ffffff"));
    out.append(QByteArray::fromHex("21ff0b") + "NETSCAPE2.0" +
               QByteArray::fromHex("03010000"
                                   "00"));
    for (int i = 0; i < delays.size(); ++i) {
        out.append(QByteArray::fromHex("21f904"));
        out.append(char(0));
        put16(out, delays[i]);
        out.append(char(0));
        out.append(char(0));
        out.append(char(0x2C));
        put16(out, 0);
        put16(out, 0);
        put16(out, w);
        put16(out, h);
        out.append(char(0));
        out.append(frameData(w * h, i % 3));
    }
    out.append(char(0x3B));
    return out;
}

class Gif : public ::testing::Test {
  protected:
    QString write(const QByteArray& bytes, const QString& name = QStringLiteral("a.gif")) {
        const QString path = dir.filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return path;
    }
    // Loads `bytes` into a shown control and answers the error number raised, 0 for none.
    int load(const QByteArray& bytes) {
        ctl.show();
        try {
            ctl.LoadFile(write(bytes));
        } catch (const HuntERR::Error& e) {
            message = e.Description();
            return e.Number();
        }
        return 0;
    }
    QTemporaryDir dir;
    GifCtl ctl;
    QString message;
};

TEST_F(Gif, WhatIsNotAGifLoadsNoFrameAndSaysWhy) {
    QByteArray other = gifFile({10, 10});
    other.replace(0, 6, "GIF88a");
    EXPECT_EQ(load(other), 481);
    EXPECT_TRUE(message.contains(QLatin1String("a.gif"))) << message.toStdString();
    EXPECT_EQ(ctl.FrameCount(), 0);
    EXPECT_EQ(ctl.CurrentFrame(), 0);
    EXPECT_TRUE(ctl.Image().isNull());
    EXPECT_FALSE(ctl.Playing());

    // A picture too large to animate.
    QByteArray large = gifFile({10});
    large[6] = char(2000 & 0xFF);
    large[7] = char(2000 >> 8);
    large[8] = char(1000 & 0xFF);
    large[9] = char(1000 >> 8);
    EXPECT_EQ(load(large), 481);
    EXPECT_TRUE(message.contains(QLatin1String("too large"))) << message.toStdString();

    // A true header over broken image data, and a file that is not there.
    EXPECT_EQ(load(QByteArray("GIF89a") + QByteArray(20, '\xff')), 481);
    EXPECT_EQ(ctl.FrameCount(), 0);
    EXPECT_THROW(ctl.LoadFile(dir.filePath(QStringLiteral("missing.gif"))), HuntERR::Error);

    // A good file loads after a bad one.
    EXPECT_EQ(load(gifFile({5})), 0);
    EXPECT_EQ(ctl.FrameCount(), 1);
    EXPECT_EQ(ctl.Image().pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(Gif, ASingleFrameNeverTicksOn) {
    QSignalSpy shown(&ctl, &GifCtl::FrameShown);
    ASSERT_EQ(load(gifFile({2})), 0);
    QTest::qWait(150);
    EXPECT_FALSE(ctl.Playing());
    EXPECT_EQ(ctl.CurrentFrame(), 1);
    EXPECT_EQ(ctl.FramesDecoded(), 1);
    EXPECT_LE(shown.size(), 2);
}

TEST_F(Gif, FramesAreDecodedOnceAndShownForTheirDelays) {
    ctl.SetAutoStart(false);
    ASSERT_EQ(load(gifFile({3, 1, 2})), 0);
    EXPECT_EQ(ctl.FramesDecoded(), 1); // only the first frame until the animation moves on
    QSignalSpy shown(&ctl, &GifCtl::FrameShown);
    QSignalSpy loops(&ctl, &GifCtl::LoopCompleted);
    ctl.Play();
    ASSERT_TRUE(QTest::qWaitFor([&] { return loops.size() >= 3; }, 5000));
    EXPECT_EQ(ctl.FramesDecoded(), 3);
    EXPECT_EQ(ctl.FrameCount(), 3);
    QList<int> delays;
    for (int i = 0; i < 3; ++i)
        delays << shown.at(i).at(1).toInt();
    EXPECT_EQ(delays, (QList<int>{10, 20, 30})); // frames 2, 3, then 1 again
    EXPECT_EQ(ctl.Image().size(), QSize(8, 6));
}

TEST_F(Gif, WithoutAutoLoopTheLastFrameEndsThePlay) {
    ctl.SetAutoLoop(false);
    QSignalSpy loops(&ctl, &GifCtl::LoopCompleted);
    ASSERT_EQ(load(gifFile({1, 1, 1})), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return loops.size() == 1; }, 5000));
    QTest::qWait(100);
    EXPECT_EQ(loops.size(), 1);
    EXPECT_FALSE(ctl.Playing());
    EXPECT_EQ(ctl.CurrentFrame(), 1);
    ctl.Play(); // and plays again on request
    ASSERT_TRUE(QTest::qWaitFor([&] { return loops.size() == 2; }, 5000));
}

TEST_F(Gif, FramesWithoutDelaySpinAndTheWindowStaysResponsive) {
    ctl.SetAutoStart(false);
    ASSERT_EQ(load(gifFile({0, 0, 0})), 0);
    QSignalSpy shown(&ctl, &GifCtl::FrameShown);
    bool otherWorkRan = false;
    QTimer::singleShot(20, &ctl, [&] { otherWorkRan = true; });
    ctl.Play();
    QTest::qWait(100);
    EXPECT_TRUE(otherWorkRan);
    EXPECT_GT(shown.size(), 30);
    EXPECT_TRUE(ctl.Playing());
    EXPECT_EQ(ctl.FramesDecoded(), 3);
    ctl.Stop();
}

} // namespace
