#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;

// The tip of the day, shown at start while "Show Tips at Startup" is on.
class TipForm : public QDialog
{
    Q_OBJECT
public:
    explicit TipForm(QWidget *parent = nullptr);

    static QStringList tips();
    // The per-user setting ("Options", "Show Tips at Startup"), default 1.
    static int showTipsSetting();
    static void setShowTipsSetting(int value);
    // The file that keeps the per-user settings.
    static QString settingsFile();

private:
    void showTip(int index);

    QLabel *m_tip;
    QCheckBox *m_showAtStart;
    int m_index = 0;
};
