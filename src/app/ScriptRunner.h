#pragma once

#include "StartForm.h"

// Runs a scenario script against the real main window (stub until the runner lands).
class ScriptRunner
{
public:
    explicit ScriptRunner(StartForm::Options options) : m_options(std::move(options)) {}
    int run(const QString &scriptPath);

private:
    StartForm::Options m_options;
};
