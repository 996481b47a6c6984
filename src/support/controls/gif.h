#pragma once
// An animated GIF read frame by frame: the header is checked, and each frame is decoded by Qt's
// GIF reader only when asked for, so a long animation costs nothing until it is played.

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

#include <memory>

class QImageReader;

class clsGIF {
  public:
    clsGIF();
    ~clsGIF();
    clsGIF(const clsGIF&) = delete;
    clsGIF& operator=(const clsGIF&) = delete;

    // Reads the whole file; false when it cannot be read (ErrorString says why).
    bool LoadFile(const QString& path);
    // Takes the bytes of a file read elsewhere.
    void LoadData(const QByteArray& data);
    // Back to the first frame. False when the data is not a GIF file (the first six bytes are
    // neither "GIF87a" nor "GIF89a"): then no frame can be read.
    bool Reset();
    // Decodes the next frame: the whole picture as it stands after the frame, and how long it
    // shows in milliseconds. False at the end of the file or when the rest cannot be decoded.
    bool NextFrame(QImage& image, int& delay);
    // Why the last LoadFile, Reset or NextFrame failed; empty when it did not.
    QString ErrorString() const { return m_error; }
    // Frames decoded since the data was loaded, across resets.
    int FramesDecoded() const { return m_decoded; }

  private:
    QByteArray GIFdata;
    QBuffer m_buffer;
    std::unique_ptr<QImageReader> m_reader;
    QString m_error;
    QList<int> m_delays; // as the file stores them, image by image
    int m_frame = 0;     // images read since the last reset
    int m_decoded = 0;
};

// One decoded frame of a GIF: the picture and its delay in milliseconds.
class clsFrame {
  public:
    QImage Image;
    int Delay = 0;
    // Fills the frame from the next frame of `gif`; leaves it empty at the end of the file.
    void LoadNext(clsGIF& gif);
    bool IsEmpty() const { return Image.isNull(); }
};
