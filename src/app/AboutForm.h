#pragma once

#include "records/DataFiles.h"

#include <QDialog>

class Interaction;
class QPlainTextEdit;
class QPushButton;

// frmAbout: the product's name, version and what it is for, and on request
// the system information (which the user can copy for a question to support).
class AboutForm : public QDialog
{
    Q_OBJECT
public:
    AboutForm(Interaction &interaction, QWidget *parent = nullptr);

    // The data set open in the main window, which the system information counts.
    void setDataFiles(const DataFiles &files) { m_files = files; }

private:
    QStringList infoLines() const;
    void showInfo();

    Interaction &m_interaction;
    DataFiles m_files{QString(), false};
    QPlainTextEdit *m_info;
    QPushButton *m_copy;
};
