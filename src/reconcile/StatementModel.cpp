#include "reconcile/StatementModel.h"

#include "core/TransactionText.h"

StatementModel::StatementModel(QObject *parent) : QAbstractTableModel(parent) {}

void StatementModel::setPictures(const QPixmap &ticked, const QPixmap &unticked)
{
    m_ticked = ticked;
    m_unticked = unticked;
}

void StatementModel::showPrior(bool prior)
{
    beginResetModel();
    m_showPrior = prior;
    endResetModel();
}

void StatementModel::reload()
{
    beginResetModel();
    endResetModel();
}

void StatementModel::rowChanged(int row)
{
    if (row >= 0 && row < rowCount())
        Q_EMIT dataChanged(index(row, 0), index(row, Columns - 1));
}

int StatementModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : shown().size();
}

int StatementModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant StatementModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= shown().size())
        return {};
    const StatementList::Row &r = shown().row(index.row());
    switch (role) {
    case RecordNumberRole:
        return r.recordNumber;
    case HeadingRole:
        return r.isHeading();
    case TickedRole:
        return r.ticked;
    case Qt::DecorationRole:
        if (index.column() == Tick && !r.isHeading())
            return r.ticked ? m_ticked : m_unticked;
        return {};
    case Qt::TextAlignmentRole:
        if (index.column() == Deposit || index.column() == Withdrawal)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    case Qt::DisplayRole:
        break;
    default:
        return {};
    }
    if (r.isHeading()) {
        if (index.column() != Type)
            return QString();
        switch (r.group) {
        case StatementList::Group::Deposits:
            return StatementList::DepositsHeading;
        case StatementList::Group::Withdrawals:
            return StatementList::WithdrawalsHeading;
        case StatementList::Group::New:
            return StatementList::NewHeading;
        }
        return QString();
    }
    using F = TransactionText::Field;
    switch (index.column()) {
    case Tick:
        return r.ticked ? TickedText : UntickedText;
    case Type:
        return TransactionText::field(r.record, F::Type);
    case Date:
        return TransactionText::field(r.record, F::Date);
    case Payee:
        return TransactionText::field(r.record, F::Payee);
    case Category:
        return TransactionText::field(r.record, F::Category);
    case Memo:
        return TransactionText::field(r.record, F::Memo);
    case Deposit:
        return TransactionText::field(r.record, F::Deposit);
    case Withdrawal:
        return TransactionText::field(r.record, F::Withdrawal);
    case RecNum:
        return QString::number(r.recordNumber);
    }
    return {};
}

QVariant StatementModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titles = {QString(),
                                       QStringLiteral("Type"),
                                       QStringLiteral("Date"),
                                       QStringLiteral("Payee"),
                                       QStringLiteral("Category"),
                                       QStringLiteral("Memo"),
                                       QStringLiteral("Deposit"),
                                       QStringLiteral("Withdrawal"),
                                       QStringLiteral("recnum")};
    return section >= 0 && section < titles.size() ? titles[section] : QVariant();
}

Qt::ItemFlags StatementModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
