#include "ui/DesktopInteraction.h"

#include "ui/FundForm.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPainter>
#include <QPrinter>
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

void DesktopInteraction::beep()
{
    QApplication::beep();
}

void DesktopInteraction::print(const QString &job, const QStringList &lines)
{
    QPrinter printer;
    printer.setDocName(job);
    QTextDocument doc;
    doc.setPlainText(lines.join(QLatin1Char('\n')));
    doc.print(&printer);
}

void DesktopInteraction::setClipboard(const QString &text)
{
    QApplication::clipboard()->setText(text);
}

void DesktopInteraction::openUrl(const QString &url)
{
    QDesktopServices::openUrl(QUrl(url));
}
