#pragma once

#include "register/CheckNumbers.h"

#include <QWidget>

#include <cstdint>

class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The check-number prompt of an entry row: its caption ("Enter Starting
// Check #", "Enter Check #" or "Duplicate Number"), the number box and its OK
// button. It settles the number a check carries and writes it into the row's
// type box; while a number is asked for or the offered one is taken, the
// number is pending and the row's Enter only beeps. The register and the
// transfer panel each have one, under their own control names.
class CheckNumberPrompt : public QWidget
{
    Q_OBJECT
public:
    struct Names
    {
        const char *caption;
        const char *box;
        const char *ok;
    };

    CheckNumberPrompt(Interaction &interaction, QComboBox *type, const Names &names,
                      QWidget *parent = nullptr);

    // Where the numbers already used are looked up.
    void setIsTaken(CheckNumbers::IsTaken isTaken) { m_isTaken = std::move(isTaken); }

    // A type was chosen from the list; `lastNumber` is the account's last
    // check number. False when the choice is turned down: the next number
    // would be too large (the type box is emptied after the message) or it is
    // taken (the number stays pending until another type is chosen).
    bool typeChosen(const QString &listEntry, std::int32_t lastNumber);
    // The number typed into the box is confirmed (the OK button or Enter).
    void confirm();
    // Hidden and nothing pending.
    void reset();

    bool pending() const { return m_pending; }

    QLabel *caption() const { return m_caption; }
    QLineEdit *box() const { return m_box; }
    QPushButton *ok() const { return m_ok; }

private:
    void ask(const QString &caption);
    void showDuplicate();
    void setType(const QString &text);

    Interaction &m_interaction;
    QComboBox *m_type;
    CheckNumbers::IsTaken m_isTaken;
    bool m_pending = false;
    QLabel *m_caption;
    QLineEdit *m_box;
    QPushButton *m_ok;
};
