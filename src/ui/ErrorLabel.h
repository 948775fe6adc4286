#pragma once

class QLabel;
class Interaction;
class QString;

// ShowEntryError: puts a message into a panel's one-line error label, makes
// it stand out for a moment, and beeps.
void ShowEntryError(QLabel *label, const QString &text, Interaction &interaction);
