#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

class Interaction;
class QLineEdit;

// The in-cell editor of the budget's item grid (txtEditor). What is typed
// goes into the cell as it is typed; a text the cell refuses (an amount of
// 90,000,000,000 or more) is answered with "Maximum Number Exceeded" and
// wiped from the editor, and the cell keeps what it had.
class BudgetItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit BudgetItemDelegate(Interaction &interaction, QObject *parent = nullptr);

    // The editor that is open, if any.
    QLineEdit *openEditor() const;
    // Closes the open editor; what it holds is already in its cell.
    void closeOpenEditor();

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;

private:
    Interaction &m_interaction;
    mutable QPointer<QLineEdit> m_open;
};
