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
    void beep() override { said << QStringLiteral("beep"); }
    void print(const QString &, const QStringList &) override {}
    void setClipboard(const QString &) override {}
    void openUrl(const QString &) override {}
    void windowEvent(const QString &, bool) override {}

    QStringList said;
};
