#include "ui/ReportPainter.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace ReportPainter {

namespace {

const QString PageBreak = QStringLiteral("\f");

QList<QStringList> pagesOf(const QStringList &lines)
{
    QList<QStringList> pages{{}};
    for (const QString &line : lines) {
        if (line == PageBreak)
            pages.append(QStringList());
        else
            pages.last() << line;
    }
    return pages;
}

} // namespace

QFont font()
{
    const QString lucida = QStringLiteral("Lucida Console");
    QFont f = QFontDatabase::families().contains(lucida)
                  ? QFont(lucida)
                  : QFontDatabase::systemFont(QFontDatabase::FixedFont);
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    f.setKerning(false);
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setPointSizeF(10);
    return f;
}

QFont fittedFont(QPrinter &printer, const QStringList &lines)
{
    qsizetype columns = 80, rows = 60;
    for (const QStringList &page : pagesOf(lines)) {
        rows = std::max(rows, page.size());
        for (const QString &line : page)
            columns = std::max(columns, line.size());
    }
    const QRectF area = printer.pageLayout().paintRectPixels(printer.resolution());
    QFont f = font();
    // Smaller type until the widest line and the fullest page fit the sheet.
    for (;;) {
        const QFontMetricsF m(f, &printer);
        const bool fits = m.horizontalAdvance(QString(columns, QLatin1Char('M'))) <= area.width()
                          && m.lineSpacing() * qreal(rows) <= area.height();
        if (fits || f.pointSizeF() <= 5)
            return f;
        f.setPointSizeF(f.pointSizeF() - 0.5);
    }
}

qreal pitch(QPrinter &printer, const QFont &font)
{
    return QFontMetricsF(font, &printer).horizontalAdvance(QLatin1Char('M')) * 72.0
           / printer.resolution();
}

bool paint(QPrinter &printer, const QStringList &lines)
{
    const QList<QStringList> pages = pagesOf(lines);
    const QFont f = fittedFont(printer, lines);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.setFont(f);
    const QFontMetricsF m(f, &printer);
    for (qsizetype p = 0; p < pages.size(); ++p) {
        if (p > 0)
            printer.newPage();
        qreal y = m.ascent();
        for (const QString &line : pages[p]) {
            painter.drawText(QPointF(0, y), line);
            y += m.lineSpacing();
        }
    }
    return painter.end();
}

bool writePdf(const QString &path, const QString &title, const QStringList &lines)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setDocName(title);
    return paint(printer, lines);
}

bool paintImage(QPrinter &printer, const QImage &image)
{
    if (image.isNull())
        return false;
    printer.setPageOrientation(image.width() > image.height() ? QPageLayout::Landscape
                                                              : QPageLayout::Portrait);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QRectF area = printer.pageLayout().paintRectPixels(printer.resolution());
    const QSizeF size = QSizeF(image.size()).scaled(area.size(), Qt::KeepAspectRatio);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(0, 0), size), image);
    return painter.end();
}

bool writeImagePdf(const QString &path, const QString &title, const QImage &image)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setDocName(title);
    return paintImage(printer, image);
}

} // namespace ReportPainter
