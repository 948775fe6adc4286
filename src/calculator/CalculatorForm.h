#pragma once

#include "calculator/CalculatorEngine.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <functional>

class Interaction;
class QAbstractButton;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;

// The pop-up tape calculator. The amount box that opens it hands in its value
// with SetStartValue; OK (cmdSave) hands the display back through
// valueSaved() and closes, unless the box could not take the figure.
class CalculatorForm : public QWidget
{
    Q_OBJECT
public:
    explicit CalculatorForm(Interaction &interaction, QWidget *parent = nullptr);

    void SetStartValue(double value);
    // Whether the box that opened the calculator takes amounts below zero.
    void setNegativesAllowed(bool allowed) { m_negativesAllowed = allowed; }

    const CalculatorEngine &engine() const { return m_engine; }

Q_SIGNALS:
    // The figure for the amount box, as text it reads ("12.50", "12").
    void valueSaved(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *buildKeypad();
    QWidget *buildTape();
    using Action = std::function<CalculatorEngine::Outcome()>;
    QPushButton *key(const QString &caption, const QString &name, Action action);
    // Runs one key of the calculator and shows what it did.
    void press(const Action &action);
    void refresh();
    void printTape();
    void save();

    Interaction &m_interaction;
    CalculatorEngine m_engine;
    bool m_negativesAllowed = false;

    QLabel *m_result = nullptr;
    QLabel *m_memory = nullptr;
    QLabel *m_message = nullptr;
    QListWidget *m_tape = nullptr;
    QList<QPushButton *> m_digits;
    QList<QPushButton *> m_operators;
    QList<QPushButton *> m_memoryKeys;
    QList<QRadioButton *> m_places;
    QPushButton *m_decimal = nullptr;
    QPushButton *m_percent = nullptr;
    QPushButton *m_backspace = nullptr;
    QPushButton *m_cancelEntry = nullptr;
    QPushButton *m_close = nullptr;
};
