#include "register/CopyRows.h"

#include "core/Interaction.h"
#include "register/RegisterModel.h"

#include <QItemSelectionModel>
#include <QTableView>

#include <algorithm>

void copySelectedTransactions(Interaction &interaction, const QTableView &grid,
                              const RegisterModel &model)
{
    QList<int> rows;
    for (const QModelIndex &index : grid.selectionModel()->selectedRows())
        if (const int n = index.data(RegisterModel::RecordNumberRole).toInt())
            rows << model.rowOfRecord(n);
    if (rows.isEmpty()) {
        interaction.beep();
        return;
    }
    std::sort(rows.begin(), rows.end());
    const auto answer
        = interaction.messageBox(QStringLiteral("Copy the ") + QString::number(rows.size())
                                     + QStringLiteral(" selected Transaction(s) to Clipboard."),
                                 QStringLiteral("Copy Selected Transactions to Clipboard"),
                                 Interaction::Icon::Question, Interaction::Buttons::OKCancel);
    if (answer == Interaction::Answer::OK)
        interaction.setClipboard(model.tabSeparated(rows));
}
