#pragma once

class CalculatorForm;
class Interaction;
class QLineEdit;

// The calculator behind the drop-down arrow of an amount box: it opens next
// to the box with the box's figure and, on OK, types the result into the box,
// which then checks it as it checks anything typed.
namespace AmountCalculator {

enum class Sign { PositiveOnly, Signed };

// Gives the box its drop-down arrow (also F4 and Alt+Down).
void attach(QLineEdit *box, Interaction &interaction, Sign sign = Sign::PositiveOnly);

// Opens the calculator of a box that has one, as its arrow does; null when the
// box has none or cannot be reached (hidden, disabled or read-only).
CalculatorForm *open(QLineEdit *box);

} // namespace AmountCalculator
