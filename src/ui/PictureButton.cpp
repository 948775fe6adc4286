#include "ui/PictureButton.h"

#include <QDir>
#include <QEvent>
#include <QPainter>

PictureButton::PictureButton(FramePictures::Kind kind, const QString &folder, QWidget *parent)
    : QAbstractButton(parent), m_kind(kind), m_folder(folder)
{
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
}

void PictureButton::setKind(FramePictures::Kind kind)
{
    m_kind = kind;
    m_scale = 0;
    updateGeometry();
    update();
}

QSize PictureButton::sizeHint() const
{
    return {FramePictures::width(m_kind), FramePictures::height(m_kind)};
}

QPixmap PictureButton::load(bool highlighted, int scale) const
{
    QImage image(QDir(m_folder).filePath(FramePictures::fileName(m_kind, highlighted, scale)));
    if (image.isNull())
        image = FramePictures::draw(m_kind, highlighted, scale);
    QPixmap pixmap = QPixmap::fromImage(FramePictures::keyedOut(image));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

void PictureButton::paintEvent(QPaintEvent *)
{
    const int scale = devicePixelRatioF() > 1.0 ? 2 : 1;
    if (scale != m_scale) {
        m_normal = load(false, scale);
        m_highlighted = load(true, scale);
        m_scale = scale;
    }
    const QPixmap &pixmap = isDown() || underMouse() ? m_highlighted : m_normal;
    QPainter painter(this);
    const QSize size = pixmap.deviceIndependentSize().toSize();
    painter.drawPixmap((width() - size.width()) / 2, (height() - size.height()) / 2, pixmap);
}

bool PictureButton::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}
