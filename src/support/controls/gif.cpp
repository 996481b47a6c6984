#include "support/controls/gif.h"

#include <QFile>
#include <QImageReader>

namespace {

// The largest picture the control animates, screen or frame: a million pixels.
constexpr qint64 kMaxPixels = 1000 * 1000;

struct Layout {
    QList<int> delays;  // of each image as stored, in milliseconds
    qint64 largest = 0; // pixels of the logical screen or of the largest image
};

// What the blocks of a GIF file say before any image is decoded: the delay of each image, read
// from the graphic control block that precedes it, and the sizes. Qt's reader lengthens short
// delays to 100 ms, as browsers do; this control shows each frame for the time the file asks, a
// zero delay included. The walk stops quietly at the first block it cannot follow.
Layout readLayout(const QByteArray& data) {
    Layout layout;
    QList<int>& delays = layout.delays;
    const qsizetype n = data.size();
    auto byte = [&](qsizetype at) { return at < n ? int(uchar(data[at])) : -1; };
    auto skipSubBlocks = [&](qsizetype& at) {
        for (int len = byte(at); len > 0; len = byte(at))
            at += len + 1;
        if (at < n) ++at;
    };
    auto skipTable = [&](qsizetype& at, int packed) {
        if (packed & 0x80) at += 3 * (2 << (packed & 7));
    };
    auto size16 = [&](qsizetype at) {
        return at + 1 < n ? qint64(byte(at)) | (qint64(byte(at + 1)) << 8) : 0;
    };
    if (n < 13) return layout;
    layout.largest = size16(6) * size16(8);
    qsizetype at = 13;
    skipTable(at, byte(10));
    int pending = 0;
    while (at < n) {
        const int block = byte(at++);
        if (block == 0x21) {
            const int label = byte(at++);
            if (label == 0xF9 && byte(at) == 4 && at + 4 < n)
                pending = (byte(at + 2) | (byte(at + 3) << 8)) * 10;
            skipSubBlocks(at);
        } else if (block == 0x2C) {
            layout.largest = qMax(layout.largest, size16(at + 4) * size16(at + 6));
            at += 8;
            const int packed = byte(at++);
            if (packed < 0) break;
            skipTable(at, packed);
            ++at; // the code size
            skipSubBlocks(at);
            delays << pending;
            pending = 0;
        } else {
            break;
        }
    }
    return layout;
}

} // namespace

clsGIF::clsGIF() = default;
clsGIF::~clsGIF() = default;

bool clsGIF::LoadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        LoadData(QByteArray());
        m_error = file.errorString();
        return false;
    }
    LoadData(file.readAll());
    return true;
}

void clsGIF::LoadData(const QByteArray& data) {
    m_reader.reset();
    m_buffer.close();
    GIFdata = data;
    m_decoded = 0;
    m_error.clear();
}

bool clsGIF::Reset() {
    m_reader.reset();
    m_buffer.close();
    m_error.clear();
    const QByteArray header = GIFdata.left(6);
    if (header != "GIF87a" && header != "GIF89a") {
        m_error = QStringLiteral("not a GIF file");
        return false;
    }
    const Layout layout = readLayout(GIFdata);
    if (layout.largest > kMaxPixels) {
        m_error = QStringLiteral("the picture is too large to animate");
        return false;
    }
    m_delays = layout.delays;
    m_frame = 0;
    m_buffer.setData(GIFdata);
    m_buffer.open(QIODevice::ReadOnly);
    m_reader = std::make_unique<QImageReader>(&m_buffer, QByteArrayLiteral("gif"));
    // The frames are played as they are stored; never turn them by a stored orientation.
    m_reader->setAutoTransform(false);
    return true;
}

bool clsGIF::NextFrame(QImage& image, int& delay) {
    image = QImage();
    delay = 0;
    if (!m_reader || !m_reader->canRead()) return false;
    image = m_reader->read();
    if (image.isNull()) {
        m_error = m_reader->errorString();
        m_reader.reset();
        return false;
    }
    delay = m_frame < m_delays.size() ? m_delays.at(m_frame) : qMax(0, m_reader->nextImageDelay());
    ++m_frame;
    ++m_decoded;
    return true;
}

void clsFrame::LoadNext(clsGIF& gif) {
    if (!gif.NextFrame(Image, Delay)) {
        Image = QImage();
        Delay = 0;
    }
}
