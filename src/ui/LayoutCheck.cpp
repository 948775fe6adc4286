#include "ui/LayoutCheck.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>

#include <optional>
#include <utility>

namespace {

bool isControl(const QWidget *w)
{
    if (auto *label = qobject_cast<const QLabel *>(w))
        // An empty label draws nothing, so nothing of it can be hidden.
        return !label->text().trimmed().isEmpty() || !label->pixmap().isNull();
    return qobject_cast<const QAbstractButton *>(w) || qobject_cast<const QLineEdit *>(w)
           || qobject_cast<const QComboBox *>(w) || qobject_cast<const QAbstractSpinBox *>(w)
           || qobject_cast<const QAbstractScrollArea *>(w)
           || qobject_cast<const QAbstractSlider *>(w) || qobject_cast<const QTabBar *>(w)
           || qobject_cast<const QProgressBar *>(w);
}

// A widget inside a control (the edit field of a combo box, the headings of a
// grid) is part of it and is not looked at on its own.
bool insideControl(const QWidget *w, const QWidget *window)
{
    for (const QWidget *p = w->parentWidget(); p && p != window; p = p->parentWidget())
        if (isControl(p))
            return true;
    return false;
}

// The part of the control its ancestors leave on screen, in window coordinates.
QRect shownPart(const QWidget *w, const QWidget *window, const QWidget **cutter)
{
    QRect shown(w->mapTo(window, QPoint(0, 0)), w->size());
    for (const QWidget *p = w->parentWidget(); p && p != window; p = p->parentWidget()) {
        const QRect inside(p->mapTo(window, QPoint(0, 0)), p->size());
        if (!inside.contains(shown) && !*cutter)
            *cutter = p;
        shown &= inside;
    }
    return shown;
}

// The width a control's one line of text needs and the room it has for it, or
// nothing for a control whose text may wrap or scroll.
std::optional<std::pair<int, int>> textFit(const QWidget *w)
{
    const QFontMetrics &metrics = w->fontMetrics();
    if (auto *label = qobject_cast<const QLabel *>(w)) {
        const QString text = label->text();
        if (label->wordWrap() || text.contains(QLatin1Char('\n')) || !label->pixmap().isNull()
            || Qt::mightBeRichText(text))
            return std::nullopt;
        const int margin = label->margin() + std::max(0, label->indent());
        return std::pair{metrics.horizontalAdvance(text),
                         label->contentsRect().width() - 2 * margin};
    }
    if (auto *button = qobject_cast<const QPushButton *>(w)) {
        if (button->text().isEmpty())
            return std::nullopt;
        QStyleOptionButton option;
        option.initFrom(button);
        option.features = button->isFlat() ? QStyleOptionButton::Flat : option.features;
        const QRect room = w->style()->subElementRect(QStyle::SE_PushButtonContents, &option, w);
        int needed = metrics.horizontalAdvance(QString(button->text()).remove(QLatin1Char('&')));
        if (!button->icon().isNull())
            needed += button->iconSize().width() + 4;
        return std::pair{needed, room.width()};
    }
    if (auto *combo = qobject_cast<const QComboBox *>(w)) {
        // A list box of its own kind draws its closed face itself (a swatch
        // in place of the name, say): only the plain one shows its text.
        if (combo->isEditable() || combo->currentText().isEmpty()
            || combo->metaObject() != &QComboBox::staticMetaObject)
            return std::nullopt;
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.editable = false;
        const QRect room = w->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                      QStyle::SC_ComboBoxEditField, w);
        int needed = metrics.horizontalAdvance(combo->currentText());
        if (!combo->itemIcon(combo->currentIndex()).isNull())
            needed += combo->iconSize().width() + 4;
        return std::pair{needed, room.width()};
    }
    return std::nullopt;
}

// The height a label that wraps its words needs at its width, or 0.
int wrappedHeight(const QWidget *w)
{
    auto *label = qobject_cast<const QLabel *>(w);
    if (!label || !label->wordWrap() || !label->pixmap().isNull())
        return 0;
    return label->heightForWidth(label->width());
}

} // namespace

QString LayoutCheck::nameOf(const QWidget *control)
{
    if (!control->objectName().isEmpty())
        return control->objectName();
    QString caption;
    if (auto *label = qobject_cast<const QLabel *>(control))
        caption = label->text();
    else if (auto *button = qobject_cast<const QAbstractButton *>(control))
        caption = button->text();
    const QString kind = QString::fromLatin1(control->metaObject()->className());
    return caption.isEmpty() ? kind : QStringLiteral("%1 \"%2\"").arg(kind, caption.simplified());
}

QStringList LayoutCheck::problems(const QWidget *window)
{
    QStringList found;
    struct Placed
    {
        const QWidget *control;
        QRect rect;
    };
    QList<Placed> placed;
    const QRect frame = window->rect();
    for (const QWidget *w : window->findChildren<QWidget *>()) {
        if (w->window() != window || !w->isVisibleTo(window) || !isControl(w)
            || insideControl(w, window) || w->width() <= 0 || w->height() <= 0)
            continue;
        const QRect rect(w->mapTo(window, QPoint(0, 0)), w->size());
        const QWidget *cutter = nullptr;
        const QRect shown = shownPart(w, window, &cutter);
        if (!frame.contains(rect))
            found << QStringLiteral("%1 lies outside the window (%2,%3 %4x%5 in %6x%7)")
                         .arg(nameOf(w))
                         .arg(rect.x())
                         .arg(rect.y())
                         .arg(rect.width())
                         .arg(rect.height())
                         .arg(frame.width())
                         .arg(frame.height());
        else if (cutter)
            found << QStringLiteral("%1 is cut by %2 (%3x%4 of %5x%6 shown)")
                         .arg(nameOf(w), nameOf(cutter))
                         .arg(shown.width())
                         .arg(shown.height())
                         .arg(rect.width())
                         .arg(rect.height());
        else if (const auto tall = wrappedHeight(w); tall > w->height())
            found << QStringLiteral("%1 shows its text cut (%2 of %3 pixels high)")
                         .arg(nameOf(w))
                         .arg(w->height())
                         .arg(tall);
        else if (const auto fit = textFit(w); fit && fit->first > fit->second)
            found << QStringLiteral("%1 shows its text cut (%2 of %3 pixels)")
                         .arg(nameOf(w))
                         .arg(fit->second)
                         .arg(fit->first);
        placed.append({w, shown});
    }
    for (qsizetype i = 0; i < placed.size(); ++i)
        for (qsizetype j = i + 1; j < placed.size(); ++j) {
            const QRect both = placed[i].rect & placed[j].rect;
            if (!both.isEmpty())
                found << QStringLiteral("%1 and %2 overlap (%3x%4 pixels)")
                             .arg(nameOf(placed[i].control), nameOf(placed[j].control))
                             .arg(both.width())
                             .arg(both.height());
        }
    return found;
}
