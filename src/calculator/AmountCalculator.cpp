#include "calculator/AmountCalculator.h"

#include "calculator/CalculatorForm.h"
#include "records/Currency.h"
#include "ui/DropDownButton.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>

#include <algorithm>

namespace {

// Below the box, its left edges lined up; above it when the screen ends
// first, and always inside the screen.
QPoint placeNextTo(const QLineEdit *box, const QSize &size)
{
    const QPoint below = box->mapToGlobal(QPoint(0, box->height() + 2));
    const QScreen *screen = box->screen() ? box->screen() : QGuiApplication::primaryScreen();
    if (!screen)
        return below;
    const QRect room = screen->availableGeometry();
    QPoint at = below;
    if (at.y() + size.height() > room.bottom())
        at.setY(box->mapToGlobal(QPoint(0, 0)).y() - size.height() - 2);
    at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - size.width())));
    at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - size.height())));
    return at;
}

CalculatorForm *openFor(QLineEdit *box, Interaction &interaction, AmountCalculator::Sign sign)
{
    auto *form = new CalculatorForm(interaction, box->window());
    form->setAttribute(Qt::WA_DeleteOnClose);
    // The box cannot change under the calculator while it is open.
    form->setWindowModality(Qt::ApplicationModal);
    form->setNegativesAllowed(sign == AmountCalculator::Sign::Signed);
    const auto value = Currency::parse(box->text());
    form->SetStartValue(value ? double(value->raw()) / double(Currency::Scale) : 0.0);
    QPointer<QLineEdit> target(box);
    QObject::connect(form, &CalculatorForm::valueSaved, box, [target](const QString &text) {
        if (!target)
            return;
        // Typed in as the user would, so the box's own change handling runs.
        target->setFocus(Qt::OtherFocusReason);
        target->selectAll();
        target->insert(text);
    });
    form->move(placeNextTo(box, form->size()));
    form->show();
    form->activateWindow();
    return form;
}

} // namespace

namespace AmountCalculator {

void attach(QLineEdit *box, Interaction &interaction, Sign sign)
{
    new DropDownButton(
        box, QObject::tr("Calculator (F4)"),
        [&interaction, sign](QLineEdit *b) -> QWidget * { return openFor(b, interaction, sign); });
}

CalculatorForm *open(QLineEdit *box)
{
    DropDownButton *dropDown = DropDownButton::of(box);
    return dropDown ? qobject_cast<CalculatorForm *>(dropDown->drop()) : nullptr;
}

} // namespace AmountCalculator
