#pragma once

#include <QWidget>

class QAbstractItemView;

// The picture buttons that scroll a grid a page up or down (`cmdScrollUp`,
// `cmdScrollDown`), repeating while held.
class GridScrollButtons : public QWidget
{
    Q_OBJECT
public:
    GridScrollButtons(QAbstractItemView *grid, const QString &pictures, QWidget *parent = nullptr);
};
