#pragma once

#include <QComboBox>

// A combo box that shows only the picture of the entry chosen, its names in
// the list that drops down: a chooser that takes little room in a title bar.
class SwatchCombo : public QComboBox
{
    Q_OBJECT
public:
    explicit SwatchCombo(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void showPopup() override;
};
