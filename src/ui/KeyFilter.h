#pragma once

#include <QObject>

#include <functional>

class QAbstractButton;
class QLineEdit;

// Lets only the keys a rule accepts into a line edit (the editing and
// movement keys always pass); Enter presses the button that confirms it.
class KeyFilter : public QObject
{
    Q_OBJECT
public:
    using Rule = std::function<bool(int key, const QString &text)>;

    KeyFilter(QLineEdit *box, QAbstractButton *confirm, Rule rule);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractButton *m_confirm;
    Rule m_rule;
};
