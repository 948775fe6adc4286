#include "reconcile/TickPictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int Side = 14;
}

TickPictures::TickPictures(const QString &folder)
{
    const QDir dir(folder.isEmpty() ? defaultFolder() : folder);
    m_ticked.load(dir.filePath(TickedFile));
    m_unticked.load(dir.filePath(UntickedFile));
    m_fromFiles = !m_ticked.isNull() && !m_unticked.isNull();
    if (m_ticked.isNull())
        m_ticked = drawn(true);
    if (m_unticked.isNull())
        m_unticked = drawn(false);
}

QString TickPictures::defaultFolder()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(FolderName);
}

QPixmap TickPictures::drawn(bool ticked)
{
    QPixmap p(Side, Side);
    p.fill(Qt::white);
    QPainter painter(&p);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x5b, 0x6b, 0x7b), 1));
    painter.drawRect(0, 0, Side - 1, Side - 1);
    if (ticked) {
        QPainterPath mark;
        mark.moveTo(3, 7);
        mark.lineTo(6, 10);
        mark.lineTo(11, 3);
        painter.setPen(QPen(QColor(0x1e, 0x84, 0x49), 2));
        painter.drawPath(mark);
    }
    return p;
}
