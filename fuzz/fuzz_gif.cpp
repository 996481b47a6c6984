// GIF files of any content through the animation's reader: the header check, the walk over the
// blocks for the stored delays and the frame-by-frame decoding must end, for any input, with
// frames or with an error.
#include "support/controls/gif.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    clsGIF gif;
    gif.LoadData(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!gif.Reset()) return 0;
    QImage image;
    int delay = 0;
    for (int frames = 0; frames < 64 && gif.NextFrame(image, delay); ++frames)
        if (image.isNull() || delay < 0) __builtin_trap();
    // A second pass from the start reads the same first frame.
    if (gif.FramesDecoded() > 0) {
        if (!gif.Reset() || !gif.NextFrame(image, delay) || image.isNull()) __builtin_trap();
    }
    return 0;
}
