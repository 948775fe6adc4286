#include "app/ScriptControls.h"

#include "app/ScriptLine.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextEdit>

#include <optional>
#include <set>

namespace {

QString flag(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

// The names a control may carry for what the script wrote: "cmbDate" and
// "cmbDate(0)" are the same control.
std::set<QString> nameVariants(const QString &name)
{
    std::set<QString> names{name};
    static const QRegularExpression indexed(QStringLiteral("^(.*)\\((\\d+)\\)$"));
    const auto m = indexed.match(name);
    if (!m.hasMatch())
        names.insert(name + QStringLiteral("(0)"));
    else if (m.captured(2).toInt() == 0)
        names.insert(m.captured(1));
    return names;
}

// A click moves the keyboard focus to controls that take focus on a click,
// with everything that goes with it (the control that had it may check its
// entry when it loses it).
void takeFocus(QWidget *w, Qt::FocusReason reason)
{
    if (!(w->focusPolicy() & Qt::ClickFocus) && reason == Qt::MouseFocusReason)
        return;
    // The window comes to the front first, as it does under the mouse; the
    // activation arrives as an event.
    QWidget *window = w->window();
    if (!window->isActiveWindow()) {
        window->activateWindow();
        QCoreApplication::processEvents();
    }
    w->setFocus(reason);
}

QAbstractItemView *listView(QWidget *w)
{
    auto *view = qobject_cast<QAbstractItemView *>(w);
    return view && view->model() ? view : nullptr;
}

// Row of a list view whose first column shows the text, -1 when none does.
int rowWithText(const QAbstractItemView *view, const QString &text)
{
    const QAbstractItemModel *model = view->model();
    for (int r = 0; r < model->rowCount(view->rootIndex()); ++r)
        if (model->index(r, 0, view->rootIndex()).data(Qt::DisplayRole).toString() == text)
            return r;
    return -1;
}

// A mouse click on an item, pressed and released on the middle of its cell
// in the view's viewport: the view, and every filter watching it, sees the
// same events as under a real mouse. The item is scrolled into view first.
void clickIndex(QAbstractItemView *view, const QModelIndex &index,
                Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {})
{
    takeFocus(view, Qt::MouseFocusReason);
    view->scrollTo(index);
    const QRect cell = view->visualRect(index);
    QTest::mouseClick(view->viewport(), button, modifiers, cell.center());
}

struct KeyChord
{
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

struct MouseClick
{
    Qt::MouseButton button = Qt::LeftButton;
    Qt::KeyboardModifiers modifiers;
};

std::optional<MouseClick> parseClick(const QString &text)
{
    MouseClick click;
    if (text.isEmpty())
        return click;
    QStringList parts = text.split(QLatin1Char('+'));
    const QString button = parts.takeLast();
    if (button.compare(QStringLiteral("Right"), Qt::CaseInsensitive) == 0)
        click.button = Qt::RightButton;
    else if (button.compare(QStringLiteral("Left"), Qt::CaseInsensitive) != 0)
        return std::nullopt;
    for (const QString &m : parts) {
        if (m.compare(QStringLiteral("Shift"), Qt::CaseInsensitive) == 0)
            click.modifiers |= Qt::ShiftModifier;
        else if (m.compare(QStringLiteral("Ctrl"), Qt::CaseInsensitive) == 0)
            click.modifiers |= Qt::ControlModifier;
        else if (m.compare(QStringLiteral("Alt"), Qt::CaseInsensitive) == 0)
            click.modifiers |= Qt::AltModifier;
        else
            return std::nullopt;
    }
    return click;
}

std::optional<KeyChord> parseKey(const QString &chord)
{
    QString keyName = chord;
    QStringList mods;
    if (chord.size() > 1 && chord.endsWith(QStringLiteral("++"))) {
        keyName = QStringLiteral("+");
        mods = chord.chopped(2).split(QLatin1Char('+'));
    } else if (chord.size() > 1) {
        mods = chord.split(QLatin1Char('+'));
        keyName = mods.takeLast();
    }
    KeyChord k;
    for (const QString &m : mods) {
        if (m.compare(QStringLiteral("Shift"), Qt::CaseInsensitive) == 0)
            k.modifiers |= Qt::ShiftModifier;
        else if (m.compare(QStringLiteral("Ctrl"), Qt::CaseInsensitive) == 0
                 || m.compare(QStringLiteral("Control"), Qt::CaseInsensitive) == 0)
            k.modifiers |= Qt::ControlModifier;
        else if (m.compare(QStringLiteral("Alt"), Qt::CaseInsensitive) == 0)
            k.modifiers |= Qt::AltModifier;
        else
            return std::nullopt;
    }
    struct Named
    {
        const char *name;
        int key;
        const char *text;
    };
    static const Named named[] = {
        {"Enter", Qt::Key_Return, "\r"},
        {"Return", Qt::Key_Return, "\r"},
        {"Escape", Qt::Key_Escape, "\x1b"},
        {"Esc", Qt::Key_Escape, "\x1b"},
        {"Tab", Qt::Key_Tab, "\t"},
        {"Delete", Qt::Key_Delete, "\x7f"},
        {"Del", Qt::Key_Delete, "\x7f"},
        {"Backspace", Qt::Key_Backspace, "\b"},
        {"Space", Qt::Key_Space, " "},
        {"Insert", Qt::Key_Insert, ""},
        {"Up", Qt::Key_Up, ""},
        {"Down", Qt::Key_Down, ""},
        {"Left", Qt::Key_Left, ""},
        {"Right", Qt::Key_Right, ""},
        {"Home", Qt::Key_Home, ""},
        {"End", Qt::Key_End, ""},
        {"PageUp", Qt::Key_PageUp, ""},
        {"PageDown", Qt::Key_PageDown, ""},
    };
    const bool typing = !(k.modifiers & (Qt::ControlModifier | Qt::AltModifier));
    for (const Named &n : named) {
        if (keyName.compare(QLatin1String(n.name), Qt::CaseInsensitive) == 0) {
            k.key = n.key;
            if (typing)
                k.text = QString::fromLatin1(n.text);
            return k;
        }
    }
    static const QRegularExpression function(QStringLiteral("^[Ff]([1-9]|1[0-2])$"));
    if (const auto m = function.match(keyName); m.hasMatch()) {
        k.key = Qt::Key_F1 + m.captured(1).toInt() - 1;
        return k;
    }
    if (keyName.size() != 1)
        return std::nullopt;
    const QChar c = keyName[0];
    k.key = c.toUpper().unicode();
    if (typing)
        k.text = (k.modifiers & Qt::ShiftModifier) ? QString(c.toUpper()) : QString(c);
    return k;
}

} // namespace

QWidget *ScriptControls::find(const QString &name, QString *error)
{
    QString window;
    QString control = name;
    if (const qsizetype dot = name.indexOf(QLatin1Char('.')); dot > 0) {
        window = name.left(dot);
        control = name.mid(dot + 1);
    }
    const std::set<QString> names = nameVariants(control);
    QList<QWidget *> found;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *w : all) {
        if (!names.count(w->objectName()))
            continue;
        if (!window.isEmpty() && w->window()->objectName() != window)
            continue;
        found << w;
    }
    if (found.size() > 1) {
        // Controls of windows that are open win over those of hidden ones.
        QList<QWidget *> open;
        for (QWidget *w : found)
            if (!w->window()->isHidden())
                open << w;
        if (!open.isEmpty())
            found = open;
    }
    if (found.isEmpty()) {
        *error = QStringLiteral("no control named %1").arg(name);
        return nullptr;
    }
    if (found.size() > 1) {
        *error = QStringLiteral("more than one control is named %1; write WINDOW.%1").arg(name);
        return nullptr;
    }
    return found.front();
}

bool ScriptControls::isShown(const QWidget *w)
{
    // The window must be open; inside it, a control shows unless it or one of
    // its parents was hidden. This holds whether or not there is a display.
    for (const QWidget *p = w; p; p = p->parentWidget()) {
        if (p->isWindow())
            return !p->isHidden();
        if (p->isHidden() && p->testAttribute(Qt::WA_WState_ExplicitShowHide))
            return false;
    }
    return false;
}

QString ScriptControls::checkUsable(const QWidget *w, const QString &name)
{
    if (!isShown(w))
        return QStringLiteral("%1 is not visible").arg(name);
    if (!w->isEnabled())
        return QStringLiteral("%1 is disabled").arg(name);
    return QString();
}

QString ScriptControls::setText(QWidget *w, const QString &name, const QString &text)
{
    if (QString problem = checkUsable(w, name); !problem.isEmpty())
        return problem;
    // Typing replaces what the box holds, so its change signals fire as for
    // a user who selects everything and types.
    auto type = [&](QLineEdit *edit) {
        takeFocus(edit, Qt::MouseFocusReason);
        edit->selectAll();
        edit->insert(text);
    };
    if (auto *combo = qobject_cast<QComboBox *>(w)) {
        if (!combo->isEditable() || !combo->lineEdit())
            return QStringLiteral("%1 is a list without an edit field; use choose").arg(name);
        type(combo->lineEdit());
        return QString();
    }
    if (auto *edit = qobject_cast<QLineEdit *>(w)) {
        if (edit->isReadOnly())
            return QStringLiteral("%1 is read-only").arg(name);
        type(edit);
        return QString();
    }
    if (auto *edit = qobject_cast<QTextEdit *>(w)) {
        if (edit->isReadOnly())
            return QStringLiteral("%1 is read-only").arg(name);
        takeFocus(edit, Qt::MouseFocusReason);
        edit->setPlainText(text);
        return QString();
    }
    if (auto *edit = qobject_cast<QPlainTextEdit *>(w)) {
        if (edit->isReadOnly())
            return QStringLiteral("%1 is read-only").arg(name);
        takeFocus(edit, Qt::MouseFocusReason);
        edit->setPlainText(text);
        return QString();
    }
    return QStringLiteral("%1 is not a text box").arg(name);
}

QString ScriptControls::chooseIndex(QWidget *w, const QString &name, int index)
{
    if (QString problem = checkUsable(w, name); !problem.isEmpty())
        return problem;
    if (auto *combo = qobject_cast<QComboBox *>(w)) {
        if (index < -1 || index >= combo->count())
            return QStringLiteral("%1 has no entry #%2 (it has %3)")
                .arg(name)
                .arg(index)
                .arg(combo->count());
        takeFocus(combo, Qt::MouseFocusReason);
        if (index == -1) {
            // No entry of the list is "none": the user empties the choice.
            combo->setCurrentIndex(-1);
            return QString();
        }
        // The list opens, and the entry is clicked in it.
        combo->showPopup();
        QAbstractItemView *popup = combo->view();
        const QModelIndex entry
            = popup->model()->index(index, combo->modelColumn(), popup->rootIndex());
        popup->scrollTo(entry);
        const QPoint middle = popup->visualRect(entry).center();
        QTest::mouseMove(popup->viewport(), middle);
        QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, middle);
        if (combo->view()->isVisible())
            return QStringLiteral("%1 did not take entry #%2").arg(name).arg(index);
        return QString();
    }
    if (QAbstractItemView *view = listView(w); view && !qobject_cast<QTableView *>(w)) {
        const int rows = view->model()->rowCount(view->rootIndex());
        if (index < -1 || index >= rows)
            return QStringLiteral("%1 has no entry #%2 (it has %3)").arg(name).arg(index).arg(rows);
        if (index == -1) {
            view->selectionModel()->clear();
            return QString();
        }
        clickIndex(view, view->model()->index(index, 0, view->rootIndex()));
        return QString();
    }
    return QStringLiteral("%1 is not a list").arg(name);
}

QString ScriptControls::chooseText(QWidget *w, const QString &name, const QString &text)
{
    int index = -1;
    if (auto *combo = qobject_cast<QComboBox *>(w))
        index = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    else if (QAbstractItemView *view = listView(w); view && !qobject_cast<QTableView *>(w))
        index = rowWithText(view, text);
    else
        return QStringLiteral("%1 is not a list").arg(name);
    if (index < 0)
        return QStringLiteral("%1 has no entry %2").arg(name, ScriptLine::quote(text));
    return chooseIndex(w, name, index);
}

QString ScriptControls::click(QWidget *w, const QString &name)
{
    auto *button = qobject_cast<QAbstractButton *>(w);
    if (!button)
        return QStringLiteral("%1 is not a button").arg(name);
    if (QString problem = checkUsable(w, name); !problem.isEmpty())
        return problem;
    takeFocus(button, Qt::MouseFocusReason);
    button->click();
    return QString();
}

// The grid a command names, when a user could reach it; else null and why not.
static QTableView *usableGrid(QWidget *w, const QString &name, QString *problem)
{
    auto *table = qobject_cast<QTableView *>(w);
    if (!table || !table->model()) {
        *problem = QStringLiteral("%1 is not a grid").arg(name);
        return nullptr;
    }
    *problem = ScriptControls::checkUsable(w, name);
    return problem->isEmpty() ? table : nullptr;
}

QString ScriptControls::clickCell(QWidget *w, const QString &name, int row, int column,
                                  const QString &clickText)
{
    const auto click = parseClick(clickText);
    if (!click)
        return QStringLiteral("unknown click %1 (Left or Right, with Shift+, Ctrl+ or Alt+)")
            .arg(clickText);
    QString problem;
    QTableView *table = usableGrid(w, name, &problem);
    if (!table)
        return problem;
    const QAbstractItemModel *model = table->model();
    if (column < 0 || column >= model->columnCount() || table->isColumnHidden(column))
        return QStringLiteral("%1 has no column %2 to click").arg(name).arg(column);
    if (row == 0) {
        QHeaderView *header = table->horizontalHeader();
        if (header->isHidden())
            return QStringLiteral("%1 shows no header row").arg(name);
        takeFocus(table, Qt::MouseFocusReason);
        const QPoint middle(header->sectionViewportPosition(column)
                                + header->sectionSize(column) / 2,
                            header->viewport()->height() / 2);
        QTest::mouseClick(header->viewport(), click->button, click->modifiers, middle);
        return QString();
    }
    if (row < 0 || row > model->rowCount() || table->isRowHidden(row - 1))
        return QStringLiteral("%1 has no row %2 to click").arg(name).arg(row);
    clickIndex(table, model->index(row - 1, column), click->button, click->modifiers);
    return QString();
}

QString ScriptControls::selectRows(QWidget *w, const QString &name, int first, int last)
{
    QString problem;
    QTableView *table = usableGrid(w, name, &problem);
    if (!table)
        return problem;
    const QAbstractItemModel *model = table->model();
    if (first < 1 || last < first || last > model->rowCount())
        return QStringLiteral("%1 has no rows %2 to %3 (it has %4)")
            .arg(name)
            .arg(first)
            .arg(last)
            .arg(model->rowCount());
    const auto mode = table->selectionMode();
    if (mode == QAbstractItemView::NoSelection)
        return QStringLiteral("%1 does not let rows be selected").arg(name);
    if (first != last && mode == QAbstractItemView::SingleSelection)
        return QStringLiteral("%1 lets only one row be selected").arg(name);
    takeFocus(table, Qt::MouseFocusReason);
    QItemSelectionModel *selection = table->selectionModel();
    selection->setCurrentIndex(model->index(last - 1, 0), QItemSelectionModel::NoUpdate);
    selection->select(QItemSelection(model->index(first - 1, 0),
                                     model->index(last - 1, model->columnCount() - 1)),
                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return QString();
}

QString ScriptControls::pressKey(QWidget *w, const QString &name, const QString &keyName)
{
    const auto key = parseKey(keyName);
    if (!key)
        return QStringLiteral("unknown key %1").arg(keyName);
    if (QString problem = checkUsable(w, name); !problem.isEmpty())
        return problem;
    takeFocus(w, Qt::OtherFocusReason);
    // Pressed and released as on a keyboard: the window's shortcuts see the
    // press first, then the control and the filters watching it.
    // A key nothing takes is normal here, not worth the test library's warning.
    static QtMessageHandler previous = nullptr;
    previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            if (message != QLatin1String("Keyboard event not accepted by receiving widget"))
                previous(type, context, message);
        });
    const QPointer<QWidget> target(w);
    QTest::simulateEvent(w, true, key->key, key->modifiers, key->text, false, 0);
    if (target)
        QTest::simulateEvent(w, false, key->key, key->modifiers, key->text, false, 0);
    qInstallMessageHandler(previous);
    return QString();
}

QString ScriptControls::describe(const QWidget *w)
{
    QString text;
    QString extra;
    if (w->isWindow()) {
        text = w->windowTitle();
    } else if (auto *l = qobject_cast<const QLabel *>(w)) {
        text = l->text();
    } else if (auto *b = qobject_cast<const QAbstractButton *>(w)) {
        text = b->text();
        if (b->isCheckable())
            extra = QStringLiteral(" checked=") + flag(b->isChecked());
    } else if (auto *e = qobject_cast<const QLineEdit *>(w)) {
        text = e->text();
    } else if (auto *t = qobject_cast<const QTextEdit *>(w)) {
        text = t->toPlainText();
    } else if (auto *p = qobject_cast<const QPlainTextEdit *>(w)) {
        text = p->toPlainText();
    } else if (auto *c = qobject_cast<const QComboBox *>(w)) {
        text = c->currentText();
        extra = QStringLiteral(" index=%1").arg(c->currentIndex());
    } else if (auto *g = qobject_cast<const QGroupBox *>(w)) {
        text = g->title();
        if (g->isCheckable())
            extra = QStringLiteral(" checked=") + flag(g->isChecked());
    } else if (auto *s = qobject_cast<const QAbstractSpinBox *>(w)) {
        text = s->text();
    } else if (auto *tabs = qobject_cast<const QTabWidget *>(w)) {
        text = tabs->tabText(tabs->currentIndex());
        extra = QStringLiteral(" index=%1").arg(tabs->currentIndex());
    } else if (auto *stack = qobject_cast<const QStackedWidget *>(w)) {
        extra = QStringLiteral(" index=%1").arg(stack->currentIndex());
    } else if (auto *view = qobject_cast<const QAbstractItemView *>(w);
               view && !qobject_cast<const QTableView *>(w)) {
        const QModelIndex current = view->currentIndex();
        text = current.data(Qt::DisplayRole).toString();
        extra = QStringLiteral(" index=%1").arg(current.isValid() ? current.row() : -1);
    }
    return QStringLiteral("text=%1 visible=%2 enabled=%3%4")
        .arg(ScriptLine::quote(text), flag(isShown(w)), flag(w->isEnabled()), extra);
}

QString ScriptControls::gridRows(const QWidget *w, const QString &name, QStringList *rows)
{
    auto *table = qobject_cast<const QTableView *>(w);
    if (auto *list = qobject_cast<const QAbstractItemView *>(w); list && !table && list->model()) {
        // A list box reads like a grid of one column without a heading.
        const QAbstractItemModel *model = list->model();
        rows->append(QStringLiteral("0 \"\""));
        for (int r = 0; r < model->rowCount(list->rootIndex()); ++r)
            rows->append(
                QString::number(r + 1) + QLatin1Char(' ')
                + ScriptLine::quote(
                    model->index(r, 0, list->rootIndex()).data(Qt::DisplayRole).toString()));
        return QString();
    }
    if (!table || !table->model())
        return QStringLiteral("%1 is not a grid").arg(name);
    const QAbstractItemModel *model = table->model();
    const int columns = model->columnCount();
    QString header = QStringLiteral("0");
    for (int c = 0; c < columns; ++c)
        header += QLatin1Char(' ')
                  + ScriptLine::quote(
                      model->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString());
    rows->append(header);
    for (int r = 0; r < model->rowCount(); ++r) {
        QString line = QString::number(r + 1);
        for (int c = 0; c < columns; ++c)
            line += QLatin1Char(' ')
                    + ScriptLine::quote(model->index(r, c).data(Qt::DisplayRole).toString());
        rows->append(line);
    }
    return QString();
}

QString ScriptControls::saveImage(QWidget *w, const QString &name, const QString &path)
{
    if (!w->isVisible())
        return QStringLiteral("%1 is not shown").arg(name);
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!w->grab().save(path))
        return QStringLiteral("cannot write the picture %1").arg(path);
    return QString();
}
