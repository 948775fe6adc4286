#pragma once

#include "core/Interaction.h"

#include <QStringList>

// Answers every question with OK (frmFund with Continue) and writes down what
// the program said: "title|text" for a message, "beep" for a beep.
class RecordingInteraction : public Interaction
{
public:
    Answer messageBox(const QString &text, const QString &title, Icon, Buttons) override
    {
        said << title + QLatin1Char('|') + text;
        return Answer::OK;
    }
    int fund(const QString &title, const QString &text) override
    {
        said << title + QLatin1Char('|') + text;
        return 0;
    }
    // Other questions are answered with their first button; file dialogs are cancelled.
    QString ask(const QString &window, const QString &text, const QStringList &buttons,
                const QString &) override
    {
        said << window + QLatin1Char('|') + text;
        return buttons.value(0);
    }
    QString fileDialog(FileDialog, const QString &title, const QString &, const QString &) override
    {
        said << QStringLiteral("file|") + title;
        return QString();
    }
    void beep() override { said << QStringLiteral("beep"); }
    void print(const QString &, const QStringList &) override {}
    void setClipboard(const QString &) override {}
    void openUrl(const QString &) override {}
    void windowEvent(const QString &, bool) override {}

    QStringList said;
};
