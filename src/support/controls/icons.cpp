#include "support/controls/icons.h"

#include "core/commandids.h"
#include "support/controls/imagelist.h"

#include <QApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOption>
#include <QtMath>

#include <functional>

namespace mIcons {

namespace {

// Every picture is drawn on a square of 16 units; the engine scales it to the size asked for.
using Draw = std::function<void(QPainter&)>;

class DrawnIconEngine : public QIconEngine {
  public:
    explicit DrawnIconEngine(Draw draw) : m_draw(std::move(draw)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const int side = qMin(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setRenderHint(QPainter::TextAntialiasing);
        painter->translate(rect.x() + (rect.width() - side) / 2.0, rect.y() + (rect.height() - side) / 2.0);
        painter->scale(side / 16.0, side / 16.0);
        m_draw(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pm(size);
        pm.fill(Qt::transparent);
        {
            QPainter p(&pm);
            paint(&p, QRect(QPoint(0, 0), size), QIcon::Normal, state);
        }
        if (mode == QIcon::Disabled && qApp && qApp->style()) {
            QStyleOption opt;
            opt.palette = QApplication::palette();
            return qApp->style()->generatedIconPixmap(mode, pm, &opt);
        }
        return pm;
    }

    QIconEngine* clone() const override { return new DrawnIconEngine(m_draw); }
    QString key() const override { return QStringLiteral("KelvarinDrawn"); }

  private:
    Draw m_draw;
};

QIcon drawn(Draw draw) {
    return QIcon(new DrawnIconEngine(std::move(draw)));
}

// Colours ---------------------------------------------------------------------------------------

const QColor kInk(60, 60, 60);
const QColor kFolder(246, 200, 80), kFolderEdge(180, 130, 20), kFolderBack(226, 172, 50);
const QColor kBox(96, 150, 210), kBoxEdge(40, 85, 140), kBoxTop(140, 185, 235);
const QColor kStar(255, 200, 50), kStarEdge(190, 130, 0);
const QColor kPerson(70, 120, 180), kPersonEdge(35, 70, 120), kFace(250, 215, 175);
const QColor kPaper(255, 255, 255), kPaperEdge(120, 120, 120), kLines(150, 170, 200);
const QColor kRed(215, 50, 45), kGreen(40, 155, 65), kBlue(45, 110, 200), kDb(150, 175, 205),
    kDbEdge(70, 95, 130);

QPen pen(const QColor& c, qreal w = 0.8) {
    QPen p(c, w);
    p.setJoinStyle(Qt::RoundJoin);
    p.setCapStyle(Qt::RoundCap);
    return p;
}

// Shapes ----------------------------------------------------------------------------------------

void folder(QPainter& p, bool open, qreal dx = 0, qreal dy = 0, qreal s = 1) {
    p.save();
    p.translate(dx, dy);
    p.scale(s, s);
    QPainterPath back;
    back.moveTo(1, 3.5);
    back.lineTo(6, 3.5);
    back.lineTo(7.2, 5);
    back.lineTo(15, 5);
    back.lineTo(15, 13.5);
    back.lineTo(1, 13.5);
    back.closeSubpath();
    p.setPen(pen(kFolderEdge));
    p.setBrush(open ? kFolderBack : kFolder);
    p.drawPath(back);
    if (open) {
        p.setBrush(kPaper);
        p.drawRect(QRectF(3, 4, 10, 6));
        QPolygonF flap({{1, 13.5}, {3.5, 7.5}, {15.8, 7.5}, {13.3, 13.5}});
        p.setBrush(kFolder);
        p.drawPolygon(flap);
    } else {
        p.setPen(pen(QColor(255, 235, 160), 0.7));
        p.drawLine(QPointF(1.8, 6.3), QPointF(14.2, 6.3));
    }
    p.restore();
}

void box(QPainter& p, bool open, qreal dx = 0, qreal dy = 0, qreal s = 1) {
    p.save();
    p.translate(dx, dy);
    p.scale(s, s);
    p.setPen(pen(kBoxEdge));
    p.setBrush(kBox);
    p.drawRect(QRectF(2, 6.5, 12, 8));
    p.setBrush(kBoxTop);
    if (open) {
        p.drawPolygon(QPolygonF({{2, 6.5}, {0.5, 3.5}, {6, 3.5}, {7, 6.5}}));
        p.drawPolygon(QPolygonF({{14, 6.5}, {15.5, 3.5}, {10, 3.5}, {9, 6.5}}));
    } else {
        p.drawRect(QRectF(1, 4, 14, 2.5));
    }
    p.setPen(pen(QColor(230, 240, 255), 0.9));
    p.drawLine(QPointF(6, 9.5), QPointF(10, 9.5));
    p.restore();
}

void star(QPainter& p, qreal cx, qreal cy, qreal r, const QColor& fill = kStar) {
    QPolygonF poly;
    for (int i = 0; i < 10; ++i) {
        const qreal a = qDegreesToRadians(-90.0 + i * 36.0);
        const qreal rr = (i % 2) ? r * 0.45 : r;
        poly << QPointF(cx + rr * qCos(a), cy + rr * qSin(a));
    }
    p.setPen(pen(kStarEdge, 0.7));
    p.setBrush(fill);
    p.drawPolygon(poly);
}

void person(QPainter& p, qreal dx = 0, qreal dy = 0, qreal s = 1, const QColor& body = kPerson,
            const QColor& face = kFace, const QColor& edge = kPersonEdge) {
    p.save();
    p.translate(dx, dy);
    p.scale(s, s);
    QPainterPath shoulders;
    shoulders.moveTo(2, 15.5);
    shoulders.cubicTo(2, 10, 5, 9, 8, 9);
    shoulders.cubicTo(11, 9, 14, 10, 14, 15.5);
    shoulders.closeSubpath();
    p.setPen(pen(edge));
    p.setBrush(body);
    p.drawPath(shoulders);
    p.setBrush(face);
    p.drawEllipse(QPointF(8, 5.2), 3.2, 3.4);
    p.restore();
}

void page(QPainter& p, bool lines = true, qreal dx = 0, qreal dy = 0) {
    p.save();
    p.translate(dx, dy);
    QPolygonF sheet({{3, 1}, {10, 1}, {13, 4}, {13, 15}, {3, 15}});
    p.setPen(pen(kPaperEdge));
    p.setBrush(kPaper);
    p.drawPolygon(sheet);
    p.setBrush(QColor(225, 225, 225));
    p.drawPolygon(QPolygonF({{10, 1}, {10, 4}, {13, 4}}));
    if (lines) {
        p.setPen(pen(kLines, 0.9));
        for (qreal y = 6.5; y < 14; y += 2)
            p.drawLine(QPointF(5, y), QPointF(11, y));
    }
    p.restore();
}

void plusBadge(QPainter& p) {
    p.setPen(pen(QColor(20, 110, 40), 0.7));
    p.setBrush(kGreen);
    p.drawEllipse(QPointF(12, 12), 3.7, 3.7);
    p.setPen(pen(Qt::white, 1.5));
    p.drawLine(QPointF(12, 9.8), QPointF(12, 14.2));
    p.drawLine(QPointF(9.8, 12), QPointF(14.2, 12));
}

void cross(QPainter& p, qreal cx, qreal cy, qreal r, qreal w = 2.4) {
    p.setPen(pen(kRed, w));
    p.drawLine(QPointF(cx - r, cy - r), QPointF(cx + r, cy + r));
    p.drawLine(QPointF(cx + r, cy - r), QPointF(cx - r, cy + r));
}

void crossBadge(QPainter& p) {
    p.setPen(pen(QColor(150, 30, 25), 0.7));
    p.setBrush(kRed);
    p.drawEllipse(QPointF(12, 12), 3.7, 3.7);
    p.setPen(pen(Qt::white, 1.3));
    p.drawLine(QPointF(10.5, 10.5), QPointF(13.5, 13.5));
    p.drawLine(QPointF(13.5, 10.5), QPointF(10.5, 13.5));
}

void cylinder(QPainter& p) {
    QPainterPath body;
    body.moveTo(2.5, 3.5);
    body.lineTo(2.5, 12.5);
    body.arcTo(QRectF(2.5, 10.5, 11, 4), 180, 180);
    body.lineTo(13.5, 3.5);
    body.closeSubpath();
    p.setPen(pen(kDbEdge));
    p.setBrush(kDb);
    p.drawPath(body);
    p.setBrush(QColor(200, 215, 235));
    p.drawEllipse(QRectF(2.5, 1.5, 11, 4));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(2.5, 5.5, 11, 4), 180 * 16, 180 * 16);
}

void glyph(QPainter& p, const QRectF& r, const QString& text, const QColor& c, qreal px, bool bold = true) {
    QFont f = QApplication::font();
    f.setPixelSize(100); // drawn large and scaled down, so that small sizes stay sharp
    f.setBold(bold);
    p.save();
    p.translate(r.center());
    p.scale(px / 100.0, px / 100.0);
    p.setPen(c);
    p.setFont(f);
    p.drawText(QRectF(-200, -200, 400, 400), Qt::AlignCenter, text);
    p.restore();
}

void roundel(QPainter& p, const QColor& fill, const QString& text) {
    p.setPen(pen(fill.darker(140)));
    p.setBrush(fill);
    p.drawEllipse(QPointF(8, 8), 7, 7);
    glyph(p, QRectF(1, 1, 14, 14), text, Qt::white, 11);
}

void magnifier(QPainter& p) {
    p.setPen(pen(QColor(90, 60, 30), 2.6));
    p.drawLine(QPointF(10, 10), QPointF(14.5, 14.5));
    p.setPen(pen(kInk, 1.2));
    p.setBrush(QColor(200, 230, 250));
    p.drawEllipse(QPointF(6.5, 6.5), 4.6, 4.6);
    p.setPen(pen(Qt::white, 1));
    p.drawArc(QRectF(3.5, 3.5, 6, 6), 100 * 16, 70 * 16);
}

void barChart(QPainter& p) {
    p.setPen(pen(kInk, 0.8));
    p.drawLine(QPointF(1.5, 14.5), QPointF(14.5, 14.5));
    const QColor fills[] = {kBlue, kGreen, kRed};
    const qreal tops[] = {8, 3, 10};
    for (int i = 0; i < 3; ++i) {
        p.setBrush(fills[i]);
        p.setPen(pen(fills[i].darker(140), 0.7));
        p.drawRect(QRectF(2.5 + i * 4, tops[i], 3, 14.5 - tops[i]));
    }
}

void gear(QPainter& p) {
    p.setPen(pen(QColor(80, 80, 90), 0.7));
    p.setBrush(QColor(150, 155, 165));
    QPainterPath teeth;
    for (int i = 0; i < 8; ++i) {
        QTransform t;
        t.translate(8, 8);
        t.rotate(i * 45);
        teeth.addPolygon(t.map(QPolygonF(QRectF(-1.3, -7.3, 2.6, 3))));
    }
    teeth.addEllipse(QPointF(8, 8), 5.2, 5.2);
    p.drawPath(teeth.simplified());
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(8, 8), 2, 2);
}

void padlock(QPainter& p, bool locked) {
    p.setPen(pen(QColor(110, 110, 120), 1.6));
    p.setBrush(Qt::NoBrush);
    if (locked)
        p.drawArc(QRectF(4.5, 1.5, 7, 8), 0, 180 * 16);
    else
        p.drawArc(QRectF(8.5, 0.5, 7, 8), 0, 180 * 16);
    p.drawLine(QPointF(4.5, 5.5), QPointF(4.5, 7.5));
    p.drawLine(QPointF(locked ? 11.5 : 15.5, 5.5), QPointF(locked ? 11.5 : 15.5, locked ? 7.5 : 6.5));
    p.setPen(pen(QColor(150, 100, 10), 0.8));
    p.setBrush(QColor(235, 185, 50));
    p.drawRoundedRect(QRectF(2.5, 7, 11, 8), 1.2, 1.2);
    p.setPen(pen(QColor(110, 70, 0), 1.4));
    p.drawLine(QPointF(8, 10), QPointF(8, 12.3));
}

void key(QPainter& p) {
    p.setPen(pen(QColor(150, 100, 10), 1.8));
    p.drawLine(QPointF(7, 9), QPointF(14.5, 9));
    p.drawLine(QPointF(12.5, 9), QPointF(12.5, 12));
    p.drawLine(QPointF(14.5, 9), QPointF(14.5, 11.5));
    p.setPen(pen(QColor(150, 100, 10), 0.8));
    p.setBrush(QColor(235, 185, 50));
    p.drawEllipse(QPointF(4.5, 9), 3.5, 3.5);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(3.8, 9), 1, 1);
}

void pencil(QPainter& p) {
    p.save();
    p.translate(8, 8);
    p.rotate(45);
    p.setPen(pen(QColor(120, 80, 20), 0.7));
    p.setBrush(QColor(250, 195, 60));
    p.drawRect(QRectF(-1.8, -7, 3.6, 10));
    p.setBrush(QColor(240, 150, 150));
    p.drawRect(QRectF(-1.8, -8.3, 3.6, 1.3));
    p.setBrush(QColor(240, 220, 180));
    p.drawPolygon(QPolygonF({{-1.8, 3}, {1.8, 3}, {0, 7}}));
    p.restore();
}

void arrowArc(QPainter& p, const QColor& c, bool counterClockwise) {
    p.setPen(pen(c, 2));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(2.5, 2.5, 11, 11), counterClockwise ? 200 * 16 : -20 * 16,
              counterClockwise ? -250 * 16 : 250 * 16);
    p.setPen(pen(c, 0.8));
    p.setBrush(c);
    if (counterClockwise)
        p.drawPolygon(QPolygonF({{0.5, 7.5}, {5, 7.5}, {2.7, 11}}));
    else
        p.drawPolygon(QPolygonF({{11, 7.5}, {15.5, 7.5}, {13.3, 11}}));
}

void refresh(QPainter& p) {
    p.setPen(pen(kGreen, 1.9));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(2.5, 2.5, 11, 11), 30 * 16, 150 * 16);
    p.drawArc(QRectF(2.5, 2.5, 11, 11), 210 * 16, 150 * 16);
    p.setPen(pen(kGreen, 0.6));
    p.setBrush(kGreen);
    p.drawPolygon(QPolygonF({{14.8, 2.5}, {14.8, 7.3}, {10.3, 5.6}}));
    p.drawPolygon(QPolygonF({{1.2, 13.5}, {1.2, 8.7}, {5.7, 10.4}}));
}

void window(QPainter& p, const QRectF& highlight = QRectF(), bool statusBar = false) {
    p.setPen(pen(QColor(70, 90, 120)));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(1, 2, 14, 12));
    p.setBrush(QColor(70, 120, 190));
    p.drawRect(QRectF(1, 2, 14, 2.5));
    if (!highlight.isNull()) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(250, 190, 60));
        p.drawRect(highlight);
    }
    if (statusBar) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(120, 130, 150));
        p.drawRect(QRectF(1.5, 11.5, 13, 2));
    }
}

void balloon(QPainter& p) {
    QPainterPath b;
    b.addRoundedRect(QRectF(1, 2, 14, 9), 2.5, 2.5);
    QPainterPath tail;
    tail.addPolygon(QPolygonF({{4, 10}, {4, 14.5}, {8, 10}}));
    p.setPen(pen(QColor(150, 130, 40)));
    p.setBrush(QColor(255, 245, 180));
    p.drawPath(b.united(tail));
    p.setPen(pen(QColor(150, 130, 40), 0.8));
    p.drawLine(QPointF(4, 5.5), QPointF(12, 5.5));
    p.drawLine(QPointF(4, 7.5), QPointF(10, 7.5));
}

void bulb(QPainter& p) {
    p.setPen(pen(QColor(170, 130, 0)));
    p.setBrush(QColor(255, 225, 80));
    QPainterPath glass;
    glass.addEllipse(QPointF(8, 6.2), 4.8, 4.8);
    glass.addRect(QRectF(5.8, 9, 4.4, 2.5));
    p.drawPath(glass.simplified());
    p.setBrush(QColor(160, 160, 170));
    p.setPen(pen(QColor(100, 100, 110), 0.7));
    p.drawRect(QRectF(5.8, 11.5, 4.4, 3));
    p.drawLine(QPointF(5.8, 13), QPointF(10.2, 13));
}

void globe(QPainter& p) {
    p.setPen(pen(QColor(30, 80, 150)));
    p.setBrush(QColor(90, 160, 225));
    p.drawEllipse(QPointF(8, 8), 6.8, 6.8);
    p.setBrush(Qt::NoBrush);
    p.setPen(pen(QColor(225, 240, 255), 0.7));
    p.drawEllipse(QPointF(8, 8), 3, 6.8);
    p.drawLine(QPointF(8, 1.2), QPointF(8, 14.8));
    p.drawLine(QPointF(1.2, 8), QPointF(14.8, 8));
    p.drawLine(QPointF(2.5, 4.5), QPointF(13.5, 4.5));
    p.drawLine(QPointF(2.5, 11.5), QPointF(13.5, 11.5));
}

void envelope(QPainter& p) {
    p.setPen(pen(QColor(110, 110, 120)));
    p.setBrush(QColor(250, 250, 240));
    p.drawRect(QRectF(1, 3.5, 14, 9.5));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(QPolygonF({{1, 3.5}, {8, 9.5}, {15, 3.5}}));
}

void lifebuoy(QPainter& p) {
    p.setPen(pen(QColor(150, 30, 30)));
    p.setBrush(kRed);
    QPainterPath ring;
    ring.addEllipse(QPointF(8, 8), 6.8, 6.8);
    ring.addEllipse(QPointF(8, 8), 3.2, 3.2);
    p.drawPath(ring);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    for (int i = 0; i < 4; ++i) {
        QPainterPath wedge;
        wedge.moveTo(8, 8);
        wedge.arcTo(QRectF(1.6, 1.6, 12.8, 12.8), 25 + i * 90, 40);
        wedge.closeSubpath();
        QPainterPath hole;
        hole.addEllipse(QPointF(8, 8), 3.4, 3.4);
        p.drawPath(wedge.subtracted(hole));
    }
}

void door(QPainter& p) {
    p.setPen(pen(QColor(100, 60, 30)));
    p.setBrush(QColor(190, 130, 70));
    p.drawRect(QRectF(2, 1.5, 8, 13));
    p.setBrush(QColor(250, 220, 120));
    p.drawEllipse(QPointF(8.2, 8.5), 0.8, 0.8);
    p.setPen(pen(kRed, 1.8));
    p.drawLine(QPointF(8.5, 8), QPointF(14.5, 8));
    p.setPen(pen(kRed, 0.6));
    p.setBrush(kRed);
    p.drawPolygon(QPolygonF({{15.5, 8}, {12.3, 5.2}, {12.3, 10.8}}));
}

void card(QPainter& p) {
    p.setPen(pen(QColor(90, 110, 140)));
    p.setBrush(QColor(245, 248, 255));
    p.drawRoundedRect(QRectF(0.8, 2.5, 14.4, 11), 1.5, 1.5);
    person(p, 1.5, 4.2, 0.55);
    p.setPen(pen(kLines, 1));
    p.drawLine(QPointF(8.5, 6), QPointF(13.5, 6));
    p.drawLine(QPointF(8.5, 8.5), QPointF(13.5, 8.5));
    p.drawLine(QPointF(8.5, 11), QPointF(12, 11));
}

void addressBook(QPainter& p) {
    p.setPen(pen(QColor(25, 60, 120)));
    p.setBrush(QColor(50, 105, 185));
    p.drawRoundedRect(QRectF(2.5, 1, 11.5, 14), 1.2, 1.2);
    p.setBrush(QColor(230, 230, 230));
    p.setPen(pen(QColor(120, 120, 120), 0.6));
    for (qreal y = 3; y < 14; y += 2.5)
        p.drawRect(QRectF(1, y, 2.5, 1));
    person(p, 4.6, 3.2, 0.58, QColor(255, 255, 255), QColor(255, 255, 255));
}

void arrowDown(QPainter& p, qreal x) {
    p.setPen(pen(kInk, 1.2));
    p.drawLine(QPointF(x, 2), QPointF(x, 13));
    p.setBrush(kInk);
    p.drawPolygon(QPolygonF({{x - 2.2, 11}, {x + 2.2, 11}, {x, 14.5}}));
}

void treeMode(QPainter& p, bool advanced) {
    folder(p, false, 0, -1, 0.6);
    p.setPen(pen(kInk, 0.8));
    p.drawLine(QPointF(3, 7.5), QPointF(3, 13));
    p.drawLine(QPointF(3, 13), QPointF(7, 13));
    folder(p, false, 6.5, 7.5, 0.55);
    if (advanced) {
        p.drawLine(QPointF(3, 9.5), QPointF(7, 9.5));
        folder(p, false, 6.5, 4.5, 0.55);
    }
}

// Node and row images ----------------------------------------------------------------------------

const QHash<QString, Draw>& images() {
    static const QHash<QString, Draw> table = {
        {QStringLiteral("CAT"), [](QPainter& p) { folder(p, false); }},
        {QStringLiteral("CATSEL"), [](QPainter& p) { folder(p, true); }},
        {QStringLiteral("CATS"),
         [](QPainter& p) {
             folder(p, false, 3, -1.5, 0.8);
             folder(p, false, 0, 2.5, 0.85);
         }},
        {QStringLiteral("CATSSEL"),
         [](QPainter& p) {
             folder(p, false, 3, -1.5, 0.8);
             folder(p, true, 0, 2.5, 0.85);
         }},
        {QStringLiteral("BOX"), [](QPainter& p) { box(p, false); }},
        {QStringLiteral("BOXSEL"), [](QPainter& p) { box(p, true); }},
        {QStringLiteral("BOXS"),
         [](QPainter& p) {
             box(p, false, 5, -1, 0.68);
             box(p, false, 0, 4, 0.72);
         }},
        {QStringLiteral("BOXSSEL"),
         [](QPainter& p) {
             box(p, false, 5, -1, 0.68);
             box(p, true, 0, 4, 0.72);
         }},
        {QStringLiteral("STAR"), [](QPainter& p) { star(p, 8, 8.5, 7.3); }},
        {QStringLiteral("STARS"),
         [](QPainter& p) {
             star(p, 4.5, 5, 4);
             star(p, 11.5, 5, 4);
             star(p, 8, 11, 4.6);
         }},
        {QStringLiteral("BOR"), [](QPainter& p) { person(p); }},
        {QStringLiteral("Tray16"), [](QPainter& p) { addressBook(p); }},
        {QStringLiteral("Tray256"), [](QPainter& p) { addressBook(p); }},
    };
    return table;
}

// Command icons ---------------------------------------------------------------------------------

Draw withBadge(Draw base, void (*badge)(QPainter&)) {
    return [base, badge](QPainter& p) {
        base(p);
        badge(p);
    };
}

const QHash<int, Draw>& commands() {
    static const QHash<int, Draw> table = [] {
        QHash<int, Draw> t;
        const Draw newPage = [](QPainter& p) {
            page(p, false);
            star(p, 12, 4, 3.2, QColor(255, 230, 90));
        };
        const Draw openFolder = [](QPainter& p) { folder(p, true); };
        const Draw addContact = withBadge([](QPainter& p) { person(p, -1.5, -0.5, 0.9); }, plusBadge);
        const Draw remove = [](QPainter& p) { cross(p, 8, 8, 5); };
        const Draw properties = [](QPainter& p) { card(p); };
        const Draw copy = [](QPainter& p) {
            p.save();
            p.scale(0.8, 0.8);
            page(p, true, -2, 0);
            page(p, true, 4, 4);
            p.restore();
        };
        const Draw noFavorite = withBadge([](QPainter& p) { star(p, 7, 7.5, 6.5); }, crossBadge);
        const Draw search = [](QPainter& p) { magnifier(p); };
        const Draw stats = [](QPainter& p) { barChart(p); };
        const Draw report = [](QPainter& p) { page(p); };
        const Draw prefs = [](QPainter& p) { gear(p); };
        const Draw help = [](QPainter& p) { roundel(p, kBlue, QStringLiteral("?")); };
        const Draw restore = [](QPainter& p) { arrowArc(p, kBlue, true); };

        t.insert(cmd::FileNew, newPage);
        t.insert(cmd::FileOpen, openFolder);
        t.insert(cmd::FileInfo, withBadge(cylinder, [](QPainter& p) {
                     p.setPen(pen(kBlue.darker(130), 0.7));
                     p.setBrush(kBlue);
                     p.drawEllipse(QPointF(12, 12), 3.7, 3.7);
                     glyph(p, QRectF(8.3, 8.3, 7.4, 7.4), QStringLiteral("i"), Qt::white, 6.5);
                 }));
        t.insert(cmd::FileClearDB, withBadge(cylinder, crossBadge));
        t.insert(cmd::FileCompactDB, [](QPainter& p) {
            cylinder(p);
            p.setPen(pen(kGreen, 1.5));
            p.drawLine(QPointF(8, 6.5), QPointF(8, 12));
            p.setBrush(kGreen);
            p.setPen(pen(kGreen, 0.6));
            p.drawPolygon(QPolygonF({{5.5, 10.5}, {10.5, 10.5}, {8, 13.5}}));
        });
        t.insert(cmd::FileExit, door);
        t.insert(cmd::AccessFull, [](QPainter& p) { padlock(p, false); });
        t.insert(cmd::AccessReadOnly, [](QPainter& p) { padlock(p, true); });
        t.insert(cmd::AccessOptions, key);
        t.insert(cmd::RecentClear, withBadge([](QPainter& p) { page(p); }, crossBadge));

        t.insert(cmd::CategoryAdd, withBadge([](QPainter& p) { folder(p, false); }, plusBadge));
        t.insert(cmd::CategoryRename, pencil);
        t.insert(cmd::CategoryDelete, remove);
        t.insert(cmd::CategorySortByName, [](QPainter& p) {
            glyph(p, QRectF(0, 0, 9, 8), QStringLiteral("A"), kBlue, 8);
            glyph(p, QRectF(0, 8, 9, 8), QStringLiteral("Z"), kRed, 8);
            arrowDown(p, 12.5);
        });
        t.insert(cmd::CategorySortByContacts, [](QPainter& p) {
            person(p, -1, 0, 0.7);
            person(p, -1, 5, 0.7, kGreen);
            arrowDown(p, 13);
        });
        t.insert(cmd::CategoryQuickAdd, [](QPainter& p) {
            folder(p, false);
            p.setPen(pen(QColor(200, 110, 0), 0.7));
            p.setBrush(QColor(255, 170, 30));
            p.drawPolygon(
                QPolygonF({{12, 6}, {8.5, 11.5}, {11, 11.5}, {10, 15.5}, {14.5, 9.5}, {12, 9.5}, {13.5, 6}}));
        });
        t.insert(cmd::CategoryModeNormal, [](QPainter& p) { treeMode(p, false); });
        t.insert(cmd::CategoryModeAdvanced, [](QPainter& p) { treeMode(p, true); });
        t.insert(cmd::CategoryProperties, properties);

        t.insert(cmd::ContactAdd, addContact);
        t.insert(cmd::ContactNoFavorite, noFavorite);
        t.insert(cmd::ContactDelete, remove);
        t.insert(cmd::ContactProperties, properties);
        t.insert(cmd::ContactCopy, copy);

        t.insert(cmd::ViewCategories, images().value(QStringLiteral("CAT")));
        t.insert(cmd::ViewGroups, images().value(QStringLiteral("BOX")));
        t.insert(cmd::ViewFavorites, images().value(QStringLiteral("STAR")));
        t.insert(cmd::ViewRefresh, refresh);
        t.insert(cmd::ViewToolTips, balloon);
        t.insert(cmd::ViewStatusBar, [](QPainter& p) { window(p, QRectF(), true); });
        t.insert(cmd::ViewLargeIcons, [](QPainter& p) {
            p.setPen(pen(kBoxEdge));
            p.setBrush(kBoxTop);
            p.drawRect(QRectF(1, 1, 9, 9));
            p.drawRect(QRectF(11, 1, 4, 4));
            p.drawRect(QRectF(11, 6, 4, 4));
            p.drawRect(QRectF(1, 11, 4, 4));
            p.drawRect(QRectF(6, 11, 4, 4));
            p.drawRect(QRectF(11, 11, 4, 4));
        });
        t.insert(cmd::ViewLockToolbars, [](QPainter& p) { padlock(p, true); });
        t.insert(cmd::ViewToolbarsDefault, restore);
        t.insert(cmd::ViewPaneCategories, [](QPainter& p) { window(p, QRectF(1.5, 5, 4, 8.5)); });
        t.insert(cmd::ViewPaneContacts, [](QPainter& p) { window(p, QRectF(6, 5, 8.5, 4.3)); });
        t.insert(cmd::ViewPaneCard, [](QPainter& p) { window(p, QRectF(6, 9.8, 4.5, 3.7)); });
        t.insert(cmd::ViewPanePhoto, [](QPainter& p) { window(p, QRectF(11, 9.8, 3.5, 3.7)); });
        t.insert(cmd::ViewPanesDefault, restore);

        t.insert(cmd::ToolsSearch, search);
        t.insert(cmd::ToolsStatistics, stats);
        t.insert(cmd::ToolsReport, report);
        t.insert(cmd::ToolsPreferences, prefs);
        t.insert(cmd::HelpContents, help);
        t.insert(cmd::HelpTip, bulb);
        t.insert(cmd::HelpWebsite, globe);
        t.insert(cmd::HelpSupport, lifebuoy);
        t.insert(cmd::HelpFeedback, envelope);
        t.insert(cmd::HelpAbout, [](QPainter& p) { roundel(p, QColor(60, 140, 90), QStringLiteral("i")); });

        t.insert(cmd::ListRefresh, refresh);
        t.insert(cmd::ListAdd, addContact);
        t.insert(cmd::ListNoFavorite, noFavorite);
        t.insert(cmd::ListDelete, remove);
        t.insert(cmd::ListProperties, properties);
        t.insert(cmd::ListCopy, copy);

        t.insert(cmd::TabCategories, images().value(QStringLiteral("CAT")));
        t.insert(cmd::TabGroups, images().value(QStringLiteral("BOX")));
        t.insert(cmd::TabFavorites, images().value(QStringLiteral("STAR")));
        t.insert(cmd::MainAdd, addContact);
        t.insert(cmd::MainDelete, remove);
        t.insert(cmd::MainProperties, properties);
        t.insert(cmd::MainSearch, search);
        t.insert(cmd::MainStatistics, stats);
        t.insert(cmd::MainReport, report);
        t.insert(cmd::ReportOnList, report);
        t.insert(cmd::ReportOnContact, withBadge(report, [](QPainter& p) { person(p, 7, 7, 0.55); }));
        t.insert(cmd::MainPreferences, prefs);
        t.insert(cmd::MainHelp, help);

        t.insert(cmd::TrayRestore, restore);
        t.insert(cmd::TrayWebsite, globe);
        t.insert(cmd::TraySupport, lifebuoy);
        t.insert(cmd::TrayFeedback, envelope);
        t.insert(cmd::TrayExit, door);
        return t;
    }();
    return table;
}

} // namespace

QIcon CommandIcon(int id) {
    const auto it = commands().constFind(id);
    return it == commands().constEnd() ? QIcon() : drawn(it.value());
}

QStringList ImageKeys() {
    QStringList keys = images().keys();
    keys.sort();
    return keys;
}

QIcon Image(const QString& key) {
    const auto it = images().constFind(key);
    return it == images().constEnd() ? QIcon() : drawn(it.value());
}

void RegisterImages(ImageList& list) {
    for (const QString& key : ImageKeys())
        list.Add(key, Image(key));
}

// The window and the desktop pick the size they need from the usual icon sizes, each one drawn
// at that size.
QIcon AppIcon() {
    const Draw draw = images().value(QStringLiteral("Tray256"));
    DrawnIconEngine engine(draw);
    QIcon icon;
    for (int side : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(engine.pixmap(QSize(side, side), QIcon::Normal, QIcon::Off));
    return icon;
}

QPixmap NoPhotoPicture(const QSize& size) {
    QPixmap pm(size);
    pm.fill(QColor(238, 241, 245));
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal side = qMin(size.width(), size.height()) * 0.7;
    p.translate((size.width() - side) / 2.0, (size.height() - side) / 2.0);
    p.scale(side / 16.0, side / 16.0);
    person(p, 0, 0, 1, QColor(200, 207, 218), QColor(212, 218, 228), QColor(170, 180, 195));
    p.end();
    return pm;
}

} // namespace mIcons
