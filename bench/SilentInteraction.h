#pragma once

#include "core/Interaction.h"

#include <QString>
#include <QStringList>

// Answers every message box with OK, never shows anything, and remembers the
// last message so that an unexpected one can be reported.
class SilentInteraction : public Interaction
{
public:
    Answer messageBox(const QString &text, const QString &, Icon, Buttons) override
    {
        ++messages;
        lastMessage = text;
        return Answer::OK;
    }
    int fund(const QString &, const QString &text) override
    {
        ++messages;
        lastMessage = text;
        return 1;
    }
    QString ask(const QString &, const QString &text, const QStringList &, const QString &) override
    {
        ++messages;
        lastMessage = text;
        return QString();
    }
    QString fileDialog(FileDialog, const QString &, const QString &, const QString &) override
    {
        return QString();
    }
    void beep() override { ++beeps; }
    void print(const QString &, const QStringList &) override {}
    void setClipboard(const QString &) override {}
    void openUrl(const QString &) override {}
    void windowEvent(const QString &, bool) override {}

    int messages = 0;
    int beeps = 0;
    QString lastMessage;
};
