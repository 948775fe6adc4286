#include "ui/DesktopInteraction.h"

#include "ui/FundForm.h"
#include "ui/ReportPainter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>
#include <QUrl>

Interaction::Answer DesktopInteraction::messageBox(const QString &text, const QString &title,
                                                   Icon icon, Buttons buttons)
{
    QMessageBox box(m_parent);
    box.setWindowTitle(title);
    box.setText(text);
    switch (icon) {
    case Icon::None:
        box.setIcon(QMessageBox::NoIcon);
        break;
    case Icon::Information:
        box.setIcon(QMessageBox::Information);
        break;
    case Icon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case Icon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case Icon::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    }
    switch (buttons) {
    case Buttons::OK:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case Buttons::OKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case Buttons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case Buttons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return buttons == Buttons::OK || buttons == Buttons::OKCancel ? Answer::OK : Answer::Cancel;
    }
}

int DesktopInteraction::fund(const QString &title, const QString &text)
{
    return FundForm::ask(title, text, m_parent);
}

QString DesktopInteraction::ask(const QString &window, const QString &text,
                                const QStringList &buttons, const QString &title)
{
    QMessageBox box(m_parent);
    box.setObjectName(window);
    box.setWindowTitle(title.isEmpty() ? QApplication::applicationDisplayName() : title);
    box.setText(text);
    box.setIcon(QMessageBox::Question);
    for (const QString &caption : buttons)
        box.addButton(caption, QMessageBox::AcceptRole);
    box.exec();
    QAbstractButton *chosen = box.clickedButton();
    return chosen && box.buttonRole(chosen) == QMessageBox::AcceptRole ? chosen->text() : QString();
}

QString DesktopInteraction::fileDialog(FileDialog kind, const QString &title, const QString &folder,
                                       const QString &filter)
{
    return kind == FileDialog::Open ? QFileDialog::getOpenFileName(m_parent, title, folder, filter)
                                    : QFileDialog::getSaveFileName(m_parent, title, folder, filter);
}

void DesktopInteraction::beep()
{
    QApplication::beep();
}

void DesktopInteraction::print(const QString &job, const QStringList &lines)
{
    if (QPrinterInfo::defaultPrinter().isNull()) {
        message(QStringLiteral("No Printer Installed"), QApplication::applicationDisplayName(),
                Icon::Exclamation);
        return;
    }
    // The system's default printer (CUPS on Linux).
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer.setDocName(job);
    ReportPainter::paint(printer, lines);
}

bool DesktopInteraction::printerInstalled()
{
    return !QPrinterInfo::defaultPrinter().isNull();
}

void DesktopInteraction::printPreview(const QString &job, const QStringList &lines)
{
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer.setDocName(job);
    QPrintPreviewDialog dialog(&printer, m_parent);
    dialog.setWindowTitle(job);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&lines](QPrinter *p) { ReportPainter::paint(*p, lines); });
    dialog.exec();
}

void DesktopInteraction::printToPdf(const QString &job, const QStringList &lines,
                                    const QString &path)
{
    if (!ReportPainter::writePdf(path, job, lines))
        QMessageBox::warning(m_parent, job, QStringLiteral("Could not write ") + path);
}

void DesktopInteraction::printImage(const QString &job, const QImage &image, PrintTarget target,
                                    const QString &pdfPath)
{
    if (target == PrintTarget::Pdf) {
        if (!ReportPainter::writeImagePdf(pdfPath, job, image))
            QMessageBox::warning(m_parent, job, QStringLiteral("Could not write ") + pdfPath);
        return;
    }
    if (target == PrintTarget::Printer && QPrinterInfo::defaultPrinter().isNull()) {
        message(QStringLiteral("No Printer Installed"), QApplication::applicationDisplayName(),
                Icon::Exclamation);
        return;
    }
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer.setDocName(job);
    if (target == PrintTarget::Printer) {
        ReportPainter::paintImage(printer, image);
        return;
    }
    QPrintPreviewDialog dialog(&printer, m_parent);
    dialog.setWindowTitle(job);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&image](QPrinter *p) { ReportPainter::paintImage(*p, image); });
    dialog.exec();
}

void DesktopInteraction::setClipboard(const QString &text)
{
    QApplication::clipboard()->setText(text);
}

QString DesktopInteraction::clipboardText()
{
    return QApplication::clipboard()->text();
}

void DesktopInteraction::openUrl(const QString &url)
{
    QDesktopServices::openUrl(QUrl(url));
}
