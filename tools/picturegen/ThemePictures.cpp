#include "ThemePictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QRandomGenerator>

#include <cmath>

namespace ThemePictures {

namespace {

using namespace ThemeCatalogue;

QColor colour(Rgb rgb, double alpha = 1.0)
{
    QColor c = QColor::fromRgb(QRgb(rgb));
    c.setAlphaF(float(alpha));
    return c;
}

// The shapes are tinted with the title's colour at a low strength: they give
// the picture its mood without darkening the text's ground.
constexpr double Tint = 0.07;

void waves(QPainter &p, const QRectF &r, const Theme &t)
{
    for (int band = 0; band < 4; ++band) {
        QPainterPath path;
        const double base = r.height() * (0.55 + 0.1 * band);
        const double amp = r.height() * (0.05 + 0.015 * band);
        path.moveTo(r.left(), r.bottom());
        for (int x = 0; x <= int(r.width()); x += 8)
            path.lineTo(x, base + amp * std::sin(x / r.width() * 6.28 * (1.2 + 0.3 * band) + band));
        path.lineTo(r.right(), r.bottom());
        path.closeSubpath();
        p.fillPath(path, colour(band % 2 ? t.accent : t.title, Tint * 0.8));
    }
}

void burst(QPainter &p, const QRectF &r, const Theme &t)
{
    const QPointF centre(r.width() * 0.85, r.height() * 0.1);
    const double reach = std::hypot(r.width(), r.height());
    for (int ray = 0; ray < 36; ray += 2) {
        QPainterPath path;
        path.moveTo(centre);
        const double a = ray * 3.14159 / 18, b = (ray + 1) * 3.14159 / 18;
        path.lineTo(centre + QPointF(std::cos(a), std::sin(a)) * reach);
        path.lineTo(centre + QPointF(std::cos(b), std::sin(b)) * reach);
        path.closeSubpath();
        p.fillPath(path, colour(t.title, Tint * 0.6));
    }
    QRadialGradient glow(centre, r.width() * 0.5);
    glow.setColorAt(0, QColor(255, 255, 255, 150));
    glow.setColorAt(1, QColor(255, 255, 255, 0));
    p.fillRect(r, glow);
}

void brushed(QPainter &p, const QRectF &r, const Theme &, QRandomGenerator &random)
{
    for (int y = 0; y < int(r.height()); ++y) {
        const int shade = random.bounded(2) ? 255 : 0;
        p.setPen(QColor(shade, shade, shade, 6 + random.bounded(8)));
        p.drawLine(QPointF(r.left(), y + 0.5), QPointF(r.right(), y + 0.5));
    }
}

void rainbow(QPainter &p, const QRectF &r)
{
    QLinearGradient bands(r.topLeft(), r.bottomRight());
    const QList<QColor> hues
        = {QColor(0xE5, 0x39, 0x35), QColor(0xFB, 0x8C, 0x00), QColor(0xFD, 0xD8, 0x35),
           QColor(0x43, 0xA0, 0x47), QColor(0x1E, 0x88, 0xE5), QColor(0x8E, 0x24, 0xAA)};
    for (int i = 0; i < hues.size(); ++i) {
        QColor c = hues[i];
        c.setAlphaF(0.13f);
        bands.setColorAt(double(i) / (hues.size() - 1), c);
    }
    p.fillRect(r, bands);
}

void bubbles(QPainter &p, const QRectF &r, const Theme &t, QRandomGenerator &random)
{
    for (int i = 0; i < 14; ++i) {
        const QPointF c(random.bounded(r.width()), random.bounded(r.height()));
        const double radius = r.width() * (0.05 + random.bounded(0.16));
        QRadialGradient soft(c, radius);
        soft.setColorAt(0, colour(i % 3 ? t.title : t.accent, Tint * 1.4));
        soft.setColorAt(0.7, colour(i % 3 ? t.title : t.accent, Tint * 0.7));
        soft.setColorAt(1, colour(t.title, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(soft);
        p.drawEllipse(c, radius, radius);
    }
}

void diagonal(QPainter &p, const QRectF &r, const Theme &t)
{
    p.setPen(QPen(colour(t.title, Tint * 0.6), 14));
    for (double x = -r.height(); x < r.width(); x += 40)
        p.drawLine(QPointF(x, r.bottom()), QPointF(x + r.height(), r.top()));
}

void dots(QPainter &p, const QRectF &r, const Theme &t)
{
    p.setPen(Qt::NoPen);
    p.setBrush(colour(t.title, Tint * 1.3));
    for (double y = 12; y < r.height(); y += 24)
        for (double x = (int(y / 24) % 2) * 12 + 12; x < r.width(); x += 24)
            p.drawEllipse(QPointF(x, y), 2.2, 2.2);
}

void rings(QPainter &p, const QRectF &r, const Theme &t)
{
    p.setBrush(Qt::NoBrush);
    const QList<QPointF> centres
        = {{r.width() * 0.2, r.height() * 0.8}, {r.width() * 0.9, r.height() * 0.25}};
    for (const QPointF &c : centres)
        for (int i = 1; i < 12; ++i) {
            p.setPen(QPen(colour(t.title, Tint * (1.4 - i * 0.08)), 3));
            p.drawEllipse(c, i * 34.0, i * 34.0);
        }
}

void pattern(QPainter &p, const QRectF &r, const Theme &t, QRandomGenerator &random)
{
    switch (t.pattern) {
    case Pattern::Plain:
        break;
    case Pattern::Waves:
        waves(p, r, t);
        break;
    case Pattern::Burst:
        burst(p, r, t);
        break;
    case Pattern::Brushed:
        brushed(p, r, t, random);
        break;
    case Pattern::Rainbow:
        rainbow(p, r);
        break;
    case Pattern::Bubbles:
        bubbles(p, r, t, random);
        break;
    case Pattern::Diagonal:
        diagonal(p, r, t);
        break;
    case Pattern::Dots:
        dots(p, r, t);
        break;
    case Pattern::Rings:
        rings(p, r, t);
        break;
    }
}

// The check area: the fine interlaced lines of a printed cheque.
void guilloche(QPainter &p, const QRectF &r, const Theme &t)
{
    p.setBrush(Qt::NoBrush);
    for (int line = 0; line < 10; ++line) {
        QPainterPath path;
        const double mid = r.height() * (0.1 + 0.09 * line);
        path.moveTo(r.left(), mid);
        for (int x = 0; x <= int(r.width()); x += 3)
            path.lineTo(x, mid + 9 * std::sin(x / 23.0 + line) * std::cos(x / 71.0));
        p.setPen(QPen(colour(t.accent, 0.08), 1));
        p.drawPath(path);
    }
}

// The register area: faint ruled lines, as in a paper ledger.
void ledger(QPainter &p, const QRectF &r, const Theme &t)
{
    p.setPen(QPen(colour(t.title, 0.05), 1));
    for (double y = 24; y < r.height(); y += 24)
        p.drawLine(QPointF(r.left(), y + 0.5), QPointF(r.right(), y + 0.5));
}

} // namespace

QSize size(Picture picture)
{
    switch (picture) {
    case Picture::FullForm:
        return {1024, 768};
    case Picture::Accounts:
        return {320, 720};
    case Picture::Check:
        return {720, 200};
    case Picture::Transactions:
        return {720, 520};
    }
    return {};
}

QImage draw(const Theme &theme, Picture picture)
{
    QImage image(size(picture), QImage::Format_RGB32);
    const QRectF r(QPointF(0, 0), QSizeF(image.size()));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);

    // The ground: the body's colour, lighter at the top; the panels' pictures
    // start nearer the panels' own colour.
    const Rgb ground
        = picture == Picture::FullForm ? theme.window : mix(theme.window, theme.panel, 0.5);
    QLinearGradient fill(r.topLeft(), r.bottomLeft());
    fill.setColorAt(0, colour(mix(ground, 0xFFFFFF, 0.45)));
    fill.setColorAt(1, colour(mix(ground, theme.title, 0.04)));
    p.fillRect(r, fill);

    QRandomGenerator random(qHash(theme.name) ^ uint(picture));
    pattern(p, r, theme, random);
    if (picture == Picture::Check)
        guilloche(p, r, theme);
    if (picture == Picture::Transactions)
        ledger(p, r, theme);
    return image;
}

} // namespace ThemePictures
