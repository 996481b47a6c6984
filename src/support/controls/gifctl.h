#pragma once
// A control that plays an animated GIF. Frames are decoded when the animation first reaches them
// and kept from then on; each shows for its own delay. A frame with no delay in a file of several
// frames is passed at once, without waiting for the next tick of the clock, though the window
// stays responsive.

#include "support/controls/gif.h"

#include <QColor>
#include <QList>
#include <QTimer>
#include <QWidget>

class GifCtl : public QWidget {
    Q_OBJECT
  public:
    explicit GifCtl(QWidget* parent = nullptr);

    // Clears the frames, loads the file and shows its first frame; plays it when AutoStart is on.
    // A file that cannot be read, is not a GIF file that can be decoded, or has a picture of more
    // than a million pixels, loads no frame and raises error 481 with the reason.
    void LoadFile(const QString& path);

    bool AutoStart() const { return m_autoStart; }
    void SetAutoStart(bool on) { m_autoStart = on; }
    // Plays the animation again from its first frame after the last one.
    bool AutoLoop() const { return m_autoLoop; }
    void SetAutoLoop(bool on) { m_autoLoop = on; }
    QColor BackColor() const { return m_backColor; }
    void SetBackColor(const QColor& color);

    void Play();
    void Stop();
    bool Playing() const { return m_timer.isActive(); }

    // The frames decoded so far, and the one on view (one-based; 0 with no frame).
    int FrameCount() const { return int(m_frames.size()); }
    int CurrentFrame() const { return m_current; }
    const QImage& Image() const;
    // How many frames the decoder has decoded since the file was loaded: each frame once.
    int FramesDecoded() const { return m_gif.FramesDecoded(); }

    QSize sizeHint() const override;

  signals:
    // A frame was put on view.
    void FrameShown(int index, int delay);
    // The last frame was passed; `index` is back to 1.
    void LoopCompleted();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void tmrFrame_Timer();
    void scheduleNext();

    clsGIF m_gif;
    QList<clsFrame> m_frames;
    bool m_allDecoded = false;
    int m_current = 0;
    bool m_autoStart = true;
    bool m_autoLoop = true;
    QColor m_backColor = Qt::white;
    QTimer m_timer;
};
