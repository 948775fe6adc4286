#pragma once

#include "core/Interaction.h"

class QWidget;

// The interaction seam answered by real dialogs and the real desktop.
class DesktopInteraction : public Interaction
{
public:
    explicit DesktopInteraction(QWidget *parentWindow = nullptr) : m_parent(parentWindow) {}
    void setParentWindow(QWidget *w) { m_parent = w; }

    Answer messageBox(const QString &text, const QString &title, Icon icon,
                      Buttons buttons) override;
    int fund(const QString &title, const QString &text) override;
    QString ask(const QString &window, const QString &text, const QStringList &buttons,
                const QString &title = QString()) override;
    QString fileDialog(FileDialog kind, const QString &title, const QString &folder,
                       const QString &filter) override;
    void beep() override;
    void print(const QString &job, const QStringList &lines) override;
    bool printerInstalled() override;
    void printPreview(const QString &job, const QStringList &lines) override;
    void printToPdf(const QString &job, const QStringList &lines, const QString &path) override;
    void printImage(const QString &job, const QImage &image, PrintTarget target,
                    const QString &pdfPath = QString()) override;
    void setClipboard(const QString &text) override;
    QString clipboardText() override;
    void openUrl(const QString &url) override;
    // Nothing to tell on the desktop: the user sees the window.
    void windowEvent(const QString &, bool) override {}

private:
    QWidget *m_parent;
};
