#pragma once

#include "core/Interaction.h"
#include "records/Currency.h"

#include <QDate>
#include <QString>

#include <optional>

// The figures of the statement being balanced and what they say: the cleared
// balance and the difference shown after every tick, and the checks made,
// in order, before a statement is confirmed.
namespace StatementFigures {

inline const QString EnterInformation = QStringLiteral("Enter Bank Statement Information");
inline const QString NotBalanced = QStringLiteral(" Statement is not balanced");
inline const QString UnderBy = QStringLiteral("Balance under by");
inline const QString OverBy = QStringLiteral("Balance over by");
inline const QString BadAmountTitle = QStringLiteral("Not a valid amount");

// What the user typed: the statement date, its starting and ending balance.
struct Typed
{
    QString date;
    QString start;
    QString ending;
};

// The figures below the list. An ending balance that is empty or not a
// number counts as zero until it is corrected.
struct Sums
{
    Currency cleared;    // the starting balance plus the ticked items
    Currency difference; // the ending balance minus the cleared balance
    QString caption;     // UnderBy, OverBy, or empty when balanced
    bool balanced() const { return difference.isZero(); }
};
Sums sums(Currency listStart, Currency clearedSum, const QString &endingText);

// Why a confirm stops, in the order the checks are made.
enum class Stop {
    None,         // balanced: the ticked rows can be cleared
    BadDate,      // message box
    Missing,      // a figure is empty: EnterInformation
    BadAmount,    // message box
    StartDiffers, // the bank's starting balance is not the register's
    NotBalanced,  // the difference is not zero
};

struct Check
{
    Stop stop = Stop::None;
    // A message box (BadDate, BadAmount) or the heading (Missing, NotBalanced).
    QString text;
    QString title;
    Interaction::Icon icon = Interaction::Icon::None;
    QDate date;
    Currency start;
    Currency ending;
    // StartDiffers: the statement's starting balance minus the register's.
    Currency startDifference;
    Currency difference;
};

// `expectedStart`: the balance the register expects the statement to start
// from; `listStart`: the one the list counts from (the bank's figure once the
// user chose to use it, which also sets `skipStartTest`).
Check check(const Typed &typed, Currency expectedStart, Currency listStart, Currency clearedSum,
            bool skipStartTest);

// Typed money as the statement boxes take it: nothing for text that is not
// an amount or reaches the largest amount.
std::optional<Currency> amount(const QString &text);

} // namespace StatementFigures
