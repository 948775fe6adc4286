#pragma once

#include "reconcile/StatementList.h"

#include <QAbstractTableModel>
#include <QPixmap>

// The balancing list as a grid: the tick, "Type", "Date", "Payee",
// "Category", "Memo", "Deposit", "Withdrawal" and the hidden "recnum". The tick
// column reads "[x]" or "[ ]" and shows the tick pictures.
class StatementModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Tick, Type, Date, Payee, Category, Memo, Deposit, Withdrawal, RecNum, Columns };
    enum Role { RecordNumberRole = Qt::UserRole + 1, HeadingRole, TickedRole };

    explicit StatementModel(QObject *parent = nullptr);

    void setPictures(const QPixmap &ticked, const QPixmap &unticked);
    // The open transactions of the statement in progress, and a prior
    // statement; the grid shows one of them.
    StatementList &list() { return m_open; }
    const StatementList &list() const { return m_open; }
    StatementList &prior() { return m_prior; }
    void showPrior(bool prior);
    bool showsPrior() const { return m_showPrior; }
    const StatementList &shown() const { return m_showPrior ? m_prior : m_open; }
    // The list changed as a whole (filled, reset) or in one row.
    void reload();
    void rowChanged(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    inline static const QString TickedText = QStringLiteral("[x]");
    inline static const QString UntickedText = QStringLiteral("[ ]");

private:
    StatementList m_open;
    StatementList m_prior;
    bool m_showPrior = false;
    QPixmap m_ticked;
    QPixmap m_unticked;
};
