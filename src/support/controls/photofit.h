#pragma once
// A contact's photo as a frame shows it, and the decoding of a picture file.

#include <QPixmap>
#include <QSize>
#include <QString>

namespace mPhoto {
// The size at which an image of ImageWidth x ImageHeight is drawn into DestWidth x DestHeight:
// scaled down to the width when wider, then to the height when still taller, each time by one
// single-precision ratio and rounded; never enlarged.
void AdjustImageDimensions(int& ImageWidth, int& ImageHeight, int DestWidth, int DestHeight);
// A photo larger than the frame scaled down with its proportions kept and smooth filtering, a
// smaller one at its own size; transparent parts on white. Null for a null photo or an empty frame.
QPixmap FitPhoto(const QPixmap& photo, const QSize& frame);
// Decodes the picture file at `path` by its content (BMP, JPEG, GIF, PNG and whatever else Qt's
// readers know); bytes after the picture's own end are ignored. False, with `picture` untouched,
// when the file cannot be read or decoded.
bool LoadPicture(const QString& path, QPixmap& picture);
} // namespace mPhoto
