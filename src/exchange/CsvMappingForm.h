#pragma once

#include "exchange/CsvReader.h"

#include <QDialog>

#include <optional>

class Interaction;
class QCheckBox;
class QComboBox;

// The mapping step of a CSV import (frmCsvMapping): which column holds what,
// the delimiter, the heading line, the date order and the decimal comma,
// starting from the mapping saved for the account or guessed from the file.
class CsvMappingForm : public QDialog
{
    Q_OBJECT

public:
    inline static const QString Name = QStringLiteral("frmCsvMapping");

    // Nothing when the user cancels. A script answers the window's question
    // ("OK" or "Cancel") and takes the mapping it starts with.
    static std::optional<CsvReader::Mapping> ask(Interaction &interaction, const QStringList &lines,
                                                 const CsvReader::Mapping &start, QWidget *parent);

    // The mapping in words, as the script's transcript shows it.
    static QString describe(const CsvReader::Mapping &mapping, const QStringList &titles);

private:
    CsvMappingForm(const QStringList &lines, const CsvReader::Mapping &start, QWidget *parent);
    void fillColumns();
    CsvReader::Mapping mapping() const;

    QStringList m_lines;
    CsvReader::Mapping m_start;
    QComboBox *m_delimiter = nullptr;
    QCheckBox *m_header = nullptr;
    QCheckBox *m_decimalComma = nullptr;
    QComboBox *m_dateOrder = nullptr;
    QList<QComboBox *> m_columns; // date, payee, memo, amount, debit, credit, number
};
