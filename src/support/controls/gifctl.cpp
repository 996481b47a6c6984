#include "support/controls/gifctl.h"

#include "core/error.h"
#include "core/language.h"

#include <QPainter>

namespace {
const QImage kNoImage;
constexpr qint32 kInvalidPicture = 481;
} // namespace

GifCtl::GifCtl(QWidget* parent) : QWidget(parent) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { tmrFrame_Timer(); });
}

void GifCtl::LoadFile(const QString& path) {
    HUNT_PLACE("GifCtl.LoadFile(path)", path);
    Stop();
    m_frames.clear();
    m_current = 0;
    m_allDecoded = false;
    update();
    QString reason;
    if (!m_gif.LoadFile(path) || !m_gif.Reset()) {
        reason = m_gif.ErrorString();
    } else {
        clsFrame first;
        first.LoadNext(m_gif);
        if (first.IsEmpty()) {
            reason = m_gif.ErrorString();
        } else {
            m_frames.append(first);
            m_current = 1;
        }
    }
    if (m_current == 0)
        throw HuntERR::Error(kInvalidPicture, mLanguageGobals::msgGifCannotBeRead.arg(path, reason),
                             QStringLiteral("GifCtl"));
    updateGeometry();
    update();
    emit FrameShown(m_current, m_frames.first().Delay);
    if (m_autoStart && isVisible()) Play();
}

void GifCtl::SetBackColor(const QColor& color) {
    m_backColor = color;
    update();
}

void GifCtl::Play() {
    if (m_frames.isEmpty() || m_timer.isActive()) return;
    scheduleNext();
}

void GifCtl::Stop() {
    m_timer.stop();
}

const QImage& GifCtl::Image() const {
    return m_current > 0 ? m_frames.at(m_current - 1).Image : kNoImage;
}

QSize GifCtl::sizeHint() const {
    return m_frames.isEmpty() ? QSize(32, 32) : m_frames.first().Image.size();
}

void GifCtl::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_autoStart) Play();
}

void GifCtl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), m_backColor);
    if (m_current > 0) p.drawImage(0, 0, Image());
}

// The frame on view has shown for its delay: on to the next one, decoding it on first reach.
void GifCtl::tmrFrame_Timer() {
    m_timer.stop();
    if (m_frames.isEmpty()) return;
    int next = m_current + 1;
    if (next > m_frames.size() && !m_allDecoded) {
        clsFrame frame;
        frame.LoadNext(m_gif);
        if (frame.IsEmpty())
            m_allDecoded = true;
        else
            m_frames.append(frame);
    }
    if (next > m_frames.size()) {
        m_current = 1;
        emit LoopCompleted();
        if (!m_autoLoop) return;
        next = 1;
    }
    m_current = next;
    update();
    emit FrameShown(m_current, m_frames.at(m_current - 1).Delay);
    scheduleNext();
}

// A single frame never moves on; a frame without delay among several passes on at once.
void GifCtl::scheduleNext() {
    if (m_allDecoded && m_frames.size() == 1) return;
    const int delay = m_frames.at(m_current - 1).Delay;
    if (delay > 0)
        m_timer.start(delay);
    else
        m_timer.start(0);
}
