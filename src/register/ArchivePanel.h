#pragma once

#include "records/DataFiles.h"

#include <QWidget>

class Interaction;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTableView;
class QVBoxLayout;
class RegisterModel;

// The account archive: taking an account out of the list (archived or
// deleted) and reading the registers of archived accounts, read-only, with
// the register's columns and running balance.
class ArchivePanel : public QWidget
{
    Q_OBJECT
public:
    ArchivePanel(Interaction &interaction, QWidget *parent = nullptr);

    void setDataFiles(const DataFiles &files);
    // Refills both lists from the files (after any change of the accounts).
    void reload();

    QTableView *grid() const { return m_grid; }

Q_SIGNALS:
    // An account left the account list: everything showing accounts is rebuilt.
    void accountRemoved();
    // cmdCloseArch: the work area goes back to the register.
    void closeRequested();

private:
    void showSide(int side);
    void onArchive();
    void onDelete();
    void onArchiveChosen();
    void onDeleteArchive();
    void onClose();
    void onCopy();
    void notComplete(const QString &prompt);
    void clearGrid();

    Interaction &m_interaction;
    DataFiles m_files;
    QRadioButton *m_optRemove = nullptr;
    QRadioButton *m_optView = nullptr;
    QLabel *m_prompt = nullptr;
    QStackedWidget *m_sides = nullptr;
    QComboBox *m_accounts = nullptr;
    QPushButton *m_archive = nullptr;
    QPushButton *m_delete = nullptr;
    QComboBox *m_archived = nullptr;
    QPushButton *m_deleteArchived = nullptr;
    QPushButton *m_close = nullptr;
    QLabel *m_status = nullptr;
    RegisterModel *m_model = nullptr;
    QTableView *m_grid = nullptr;
    QVBoxLayout *m_layout = nullptr;
};
