#pragma once

#include <QDialog>

class QLabel;

// frmFund: the shared modal warning window with Continue and Cancel.
class FundForm : public QDialog
{
    Q_OBJECT
public:
    FundForm(const QString &title, const QString &text, QWidget *parent = nullptr);

    // 0 for Continue, 1 for Cancel or closing the window.
    static int ask(const QString &title, const QString &text, QWidget *parent = nullptr);

private:
    static constexpr int ContinueCode = 2;
    static constexpr int CancelCode = 3;
    QLabel *m_text;
};
