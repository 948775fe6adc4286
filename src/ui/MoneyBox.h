#pragma once

class QLineEdit;

// An amount box is never too narrow for the largest amount a user can type:
// "90,000,000,000.00" fits whole, at any window size.
void fitLargestAmount(QLineEdit *box);
