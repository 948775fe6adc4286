#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

class QImage;
class QPrinter;

// Paints the lines of a print job on a printer's pages (a real printer, the
// print preview or a PDF file): one line to a printed line in a fixed-pitch
// font, so that columns padded with blanks line up. A line holding only a
// form feed starts a new page.
namespace ReportPainter {

// "Lucida Console" where it is installed, else the system's fixed-pitch font.
QFont font();
// The font the lines are painted in on this printer: small enough for the
// longest line and the fullest page to fit the sheet.
QFont fittedFont(QPrinter &printer, const QStringList &lines);
// The width of one character of that font, in points.
qreal pitch(QPrinter &printer, const QFont &font);
// Paints every page; the type is made small enough for the longest line and
// the fullest page to fit. False when the printer cannot be painted on.
bool paint(QPrinter &printer, const QStringList &lines);
// The same into a PDF file.
bool writePdf(const QString &path, const QString &title, const QStringList &lines);

// A picture on one page, as large as the page allows, its proportions kept; a
// wide picture turns the page to landscape.
bool paintImage(QPrinter &printer, const QImage &image);
bool writeImagePdf(const QString &path, const QString &title, const QImage &image);

} // namespace ReportPainter
