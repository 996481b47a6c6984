// Renders an SVG file to a square PNG of the given side: svgtopng IN.svg OUT.png SIDE.
// Used by the build to make the fixed-size icons of the desktop install from the one drawing.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: svgtopng IN.svg OUT.png SIDE\n");
        return 2;
    }
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    const int side = QByteArray(argv[3]).toInt();
    if (!svg.isValid() || side <= 0) {
        std::fprintf(stderr, "svgtopng: cannot read %s\n", argv[1]);
        return 1;
    }
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        svg.render(&p);
    }
    if (!image.save(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "svgtopng: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
