#pragma once

#include "core/DataChange.h"
#include "exchange/ImportPlan.h"

#include <QWidget>

#include <memory>

class Interaction;
class ImportModel;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

// The import preview (frmImport): what a bank download would enter into the
// current account, row by row, with the rows the register holds already
// unticked. OK enters the ticked rows at once; Cancel enters nothing.
class ImportForm : public QWidget
{
    Q_OBJECT

public:
    inline static const QString Name = QStringLiteral("frmImport");
    inline static const QString Title = QStringLiteral("Import");

    // The whole command: the file dialog, reading the file (with the CSV
    // mapping step or the question of the date order when needed), then the
    // preview window. Nothing (and no window) when the user cancels or the
    // file is refused, which a message box has said.
    static ImportForm *start(Interaction &interaction, const DataFiles &files,
                             const BankAcctRecord &account, QWidget *parent);

    // Reads a file for an account as the command does, for the command and for
    // tests: the ImportFile (with its error) and the questions asked on the way.
    static ImportFile readFile(Interaction &interaction, const QString &path,
                               const BankAcctRecord &account, QWidget *parent, bool *cancelled);

Q_SIGNALS:
    void dataChanged(const DataChange &change);

private:
    ImportForm(Interaction &interaction, std::unique_ptr<ImportPlan> plan, const QString &path,
               QWidget *parent);
    void showSummary();
    void enter();

    Interaction &m_interaction;
    std::unique_ptr<ImportPlan> m_plan;
    ImportModel *m_model = nullptr;
    QTableView *m_grid = nullptr;
    QLabel *m_summary = nullptr;
    QProgressBar *m_progress = nullptr;
    QPushButton *m_ok = nullptr;
};
