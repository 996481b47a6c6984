#pragma once
// A contact's photo as a frame shows it.

#include <QPixmap>
#include <QSize>

namespace mPhoto {
// A photo larger than the frame scaled down with its proportions kept and smooth filtering, a
// smaller one at its own size; transparent parts on white. Null for a null photo or an empty frame.
QPixmap FitPhoto(const QPixmap& photo, const QSize& frame);
} // namespace mPhoto
