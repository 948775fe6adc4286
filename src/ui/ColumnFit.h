#pragma once

#include <QList>
#include <QObject>

class QTableView;

// Sizes the columns of a grid to what they show and to the room the grid has,
// and keeps the widths the user gives them by dragging a column's edge (per
// grid, by its object name, in the per-user settings, group "Columns").
//
// A Content column is as wide as its widest text. The Share columns take the
// rest of the grid's width, each as wide as its text when there is room;
// when there is not, the widest give way first (never under a minimum). An
// Overflow column takes its text's width after the others when it fits, and
// lies past the right edge (reached by scrolling) when it does not.
class ColumnFit : public QObject
{
    Q_OBJECT
public:
    enum Kind { Content, Share, Overflow };
    struct Column
    {
        Kind kind = Content;
        int minimum = 24;
        int maximum = 400;
        // How much room a share column keeps when texts give way, in percent
        // of the others': 150 keeps a short, telling text (a type) whole longer.
        int weight = 100;
    };

    // Installs itself on the grid (and is deleted with it); the grid keeps
    // its fit as its model changes and as it is resized.
    static ColumnFit *install(QTableView *grid, QList<Column> columns);

    // The widths for a grid of the given room, from each column's widest text
    // and the user's own widths (0 where there is none).
    static QList<int> widths(const QList<Column> &columns, const QList<int> &wanted,
                             const QList<int> &chosen, int room);

    void fit();
    // The widths the user gave, 0 for a column left to the fit.
    QList<int> chosenWidths() const { return m_chosen; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ColumnFit(QTableView *grid, QList<Column> columns);
    QList<int> wantedWidths() const;
    void scheduleFit();
    void saveChosen();

    QTableView *m_grid;
    QList<Column> m_columns;
    QList<int> m_chosen;
    QList<int> m_beforeDrag;
    bool m_fitting = false;
    bool m_scheduled = false;
    bool m_scrolling = false;
    QList<int> m_wanted;
    bool m_measured = false;
};
