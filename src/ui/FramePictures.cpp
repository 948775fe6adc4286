#include "ui/FramePictures.h"

#include <QPainter>
#include <QPainterPath>

namespace FramePictures {

namespace {

QString stem(Kind kind)
{
    switch (kind) {
    case Kind::Min:
        return QStringLiteral("Min");
    case Kind::Max:
        return QStringLiteral("Max");
    case Kind::Restore:
        return QStringLiteral("Restore");
    case Kind::Close:
        return QStringLiteral("Close");
    case Kind::Up:
        return QStringLiteral("Up");
    case Kind::Down:
        return QStringLiteral("Down");
    }
    return {};
}

bool isScroll(Kind kind)
{
    return kind == Kind::Up || kind == Kind::Down;
}

// The glyph, drawn in a box of 12 x 12 units centred on the picture.
void drawGlyph(QPainter &p, Kind kind)
{
    switch (kind) {
    case Kind::Min:
        p.drawLine(QPointF(2, 9.5), QPointF(10, 9.5));
        break;
    case Kind::Max:
        p.drawRect(QRectF(2, 2, 8, 8));
        p.drawLine(QPointF(2, 3), QPointF(10, 3));
        break;
    case Kind::Restore:
        p.drawRect(QRectF(1.5, 4.5, 6.5, 6.5));
        p.drawPolyline(QPolygonF({QPointF(4.5, 4.5), QPointF(4.5, 1.5), QPointF(11, 1.5),
                                  QPointF(11, 8), QPointF(8, 8)}));
        break;
    case Kind::Close:
        p.drawLine(QPointF(2.5, 2.5), QPointF(9.5, 9.5));
        p.drawLine(QPointF(9.5, 2.5), QPointF(2.5, 9.5));
        break;
    case Kind::Up:
    case Kind::Down: {
        QPainterPath arrow;
        const bool up = kind == Kind::Up;
        arrow.moveTo(2, up ? 8 : 4);
        arrow.lineTo(6, up ? 4 : 8);
        arrow.lineTo(10, up ? 8 : 4);
        p.drawPath(arrow);
        break;
    }
    }
}

} // namespace

int width(Kind kind)
{
    return isScroll(kind) ? 22 : 28;
}

int height(Kind kind)
{
    return isScroll(kind) ? 18 : 22;
}

QString fileName(Kind kind, bool highlighted, int scale)
{
    return stem(kind) + (highlighted ? QStringLiteral("High") : QStringLiteral("Norm"))
           + (scale > 1 ? QStringLiteral("@%1x").arg(scale) : QString()) + QStringLiteral(".bmp");
}

QImage draw(Kind kind, bool highlighted, int scale)
{
    QImage image(width(kind) * scale, height(kind) * scale, QImage::Format_RGB32);
    image.fill(QColor::fromRgb(KeyColour));
    QPainter p(&image);
    p.scale(scale, scale);

    // A slate tile that reads on a dark title bar and a light one alike; under
    // the mouse it lights up, red for close.
    QColor top(0x5E, 0x6E, 0x80), bottom(0x3B, 0x47, 0x55);
    if (highlighted) {
        top = kind == Kind::Close ? QColor(0xE8, 0x5A, 0x4F) : QColor(0x5A, 0x9B, 0xE0);
        bottom = kind == Kind::Close ? QColor(0xB8, 0x2E, 0x25) : QColor(0x2F, 0x6F, 0xB5);
    }
    const QRectF tile(0.5, 0.5, width(kind) - 1, height(kind) - 1);
    QLinearGradient fill(tile.topLeft(), tile.bottomLeft());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    // Drawn without smoothing: a soft edge pixel would take on the key colour.
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(bottom.darker(140), 1));
    p.setBrush(fill);
    p.drawRoundedRect(tile, 3, 3);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(255, 255, 255, 70), 1));
    p.drawLine(QPointF(3, 1.5), QPointF(width(kind) - 3, 1.5));

    p.translate((width(kind) - 12) / 2.0, (height(kind) - 12) / 2.0);
    p.setPen(QPen(Qt::white, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    drawGlyph(p, kind);
    return image;
}

QImage keyedOut(const QImage &picture)
{
    QImage out = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < out.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x)
            if ((line[x] & 0xFFFFFF) == KeyColour)
                line[x] = 0;
    }
    return out;
}

} // namespace FramePictures
