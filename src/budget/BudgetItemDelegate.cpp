#include "budget/BudgetItemDelegate.h"

#include "core/EntryChecks.h"
#include "core/Interaction.h"

#include <QLineEdit>

namespace {

// Set on an editor whose text was refused and wiped, until something new is
// typed: closing it then leaves the cell as it was.
const char *Refused = "quillRefused";

} // namespace

BudgetItemDelegate::BudgetItemDelegate(Interaction &interaction, QObject *parent)
    : QStyledItemDelegate(parent), m_interaction(interaction)
{
}

QLineEdit *BudgetItemDelegate::openEditor() const
{
    return m_open;
}

void BudgetItemDelegate::closeOpenEditor()
{
    if (m_open)
        Q_EMIT closeEditor(m_open, NoHint);
}

QWidget *BudgetItemDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                          const QModelIndex &) const
{
    auto *editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("txtEditor"));
    connect(editor, &QLineEdit::textChanged, this, [this, editor] {
        editor->setProperty(Refused, false);
        Q_EMIT const_cast<BudgetItemDelegate *>(this)->commitData(editor);
    });
    m_open = editor;
    return editor;
}

void BudgetItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *line = static_cast<QLineEdit *>(editor);
    const QSignalBlocker quiet(line);
    line->setText(index.data(Qt::EditRole).toString());
    line->setProperty(Refused, false);
    line->selectAll();
}

void BudgetItemDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                      const QModelIndex &index) const
{
    auto *line = static_cast<QLineEdit *>(editor);
    if (line->property(Refused).toBool())
        return;
    if (model->setData(index, line->text(), Qt::EditRole))
        return;
    m_interaction.message(EntryChecks::MaxAmountText, EntryChecks::MaxAmountTitle);
    const QSignalBlocker quiet(line);
    line->clear();
    line->setProperty(Refused, true);
}

void BudgetItemDelegate::destroyEditor(QWidget *editor, const QModelIndex &) const
{
    // Gone by name at once, so a new editor is the only "txtEditor".
    editor->setObjectName(QString());
    editor->deleteLater();
}
