#pragma once

#include "accounts/AccountSummary.h"

#include <QAbstractTableModel>

// flxgdBankAcct: "Bank Account|^Balance", at least ten rows with the header.
class AccountListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setSummary(AccountSummary summary);
    // The same when only figures and names may have changed: a list of the
    // same rows is updated in place (selection and scrolling stay).
    void updateSummary(AccountSummary summary);
    const AccountSummary &summary() const { return m_summary; }
    // The account number shown on a row (0 for headings and blank rows).
    int bankNumAt(int row) const;
    int rowOf(int bankNum) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // The heading rows' cell colour value (blue-green-red): red.
    static constexpr int HeadingColour = 255;

private:
    AccountSummary m_summary;
};
