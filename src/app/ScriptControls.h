#pragma once

#include <QString>
#include <QStringList>

class QWidget;

// What a scenario script does to the controls of the open windows, done the
// way a user's mouse and keyboard would do it, and how it reads them back.
// Each action returns an empty string on success, else what was wrong.
class ScriptControls
{
public:
    // The control with that objectName in any open window. "cmbDate" also
    // finds "cmbDate(0)" and the other way round; "frmTip.cmdOK" looks only
    // in the window named frmTip. Sets *error when there is none or more than one.
    static QWidget *find(const QString &name, QString *error);

    // A control the user can reach: shown (its window included) and enabled.
    static bool isShown(const QWidget *w);
    static QString checkUsable(const QWidget *w, const QString &name);

    static QString setText(QWidget *w, const QString &name, const QString &text);
    static QString chooseText(QWidget *w, const QString &name, const QString &text);
    static QString chooseIndex(QWidget *w, const QString &name, int index);
    static QString click(QWidget *w, const QString &name);
    // The click is "Left" (also when empty) or "Right", with "Shift+", "Ctrl+"
    // or "Alt+" in front for a key held down, as in "Shift+Right".
    static QString clickCell(QWidget *w, const QString &name, int row, int column,
                             const QString &click = QString());
    static QString selectRows(QWidget *w, const QString &name, int first, int last);
    static QString pressKey(QWidget *w, const QString &name, const QString &key);

    // "text=... visible=. enabled=." and, where they apply, index= and checked=.
    static QString describe(const QWidget *w);
    // The grid's rows, header first, each as its cells' texts in quotes. A list
    // box gives an empty heading row and then one row for each entry.
    static QString gridRows(const QWidget *w, const QString &name, QStringList *rows);
    // Saves a picture of the control (or window) as drawn now, to a PNG file.
    static QString saveImage(QWidget *w, const QString &name, const QString &path);
};
