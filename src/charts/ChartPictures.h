#pragma once

#include "charts/ChartSeries.h"

#include <QColor>
#include <QStringList>

#include <vector>

class QChart;
class QPalette;

// Draws the four charts from their figures, and writes the same figures as
// the rows of their tables. Every bar set and line carries, as the property
// "tips", the figure shown when the pointer rests on each of its bars or
// points; the spending bars carry in "rows" the row of figures.spending each
// bar stands for.
namespace ChartPictures {

// The colours of a chart, taken from the palette of the theme in use.
struct Colours
{
    QColor base, text, grid, primary, secondary, card;
    static Colours from(const QPalette &palette);
};

// The chart's title (also its print job's name) and its table's headings.
QString title(ChartSeries::Chart chart);
QStringList headings(ChartSeries::Chart chart);
std::vector<QStringList> rows(ChartSeries::Chart chart, const ChartSeries::Figures &figures);

// A new chart; one with nothing to draw shows its sentence instead.
QChart *build(ChartSeries::Chart chart, const ChartSeries::Figures &figures,
              const Colours &colours);

} // namespace ChartPictures
