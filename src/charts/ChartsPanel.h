#pragma once

#include "charts/ChartPictures.h"
#include "charts/ChartSeries.h"
#include "core/DataChange.h"
#include "core/DataSnapshot.h"
#include "core/Interaction.h"

#include <QWidget>

#include <array>

class ChartTableModel;
class QChartView;
class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QTableView;

// The charts panel: a period and an account, and four charts of them, each
// with its figures in a table beneath (flxgdSpending, flxgdIncomeSpending,
// flxgdBalanceOverTime, flxgdBudgetActual). The figures are worked out when
// the panel is shown, and again when the data or a choice changes while it is.
class ChartsPanel : public QWidget
{
    Q_OBJECT
public:
    explicit ChartsPanel(Interaction &interaction, QWidget *parent = nullptr);

    void setData(const DataSnapshot &data);
    void follow(const DataChange &change, const DataSnapshot &data);

    // The chart shown, drawn for print at a fixed size.
    QImage picture() const;

Q_SIGNALS:
    // A spending bar (or its row) was clicked: its category over the period,
    // dates as "mm/dd/yyyy"; the category is "na" for entries without one.
    void categoryChosen(int bankNum, const QString &category, const QString &from,
                        const QString &to);

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    static constexpr int ChartCount = 4;

    void onPeriodChosen();
    void recompute();
    void redraw();
    void showNote();
    void connectTips(QChartView *view, bool spending);
    void chooseCategory(int row);
    ChartSeries::Chart shownChart() const;
    void print(Interaction::PrintTarget target);
    void savePng();
    QString saveFolder() const;

    Interaction &m_interaction;
    DataSnapshot m_data;
    ChartSeries::Figures m_figures;
    bool m_stale = true;
    QStringList m_notes; // about the period and the registers read

    QComboBox *m_period;
    QComboBox *m_dateFrom;
    QComboBox *m_dateTo;
    QComboBox *m_account;
    QPushButton *m_print;
    QPushButton *m_png;
    QPushButton *m_pdf;
    QLabel *m_note;
    QTabWidget *m_tabs;
    std::array<QChartView *, ChartCount> m_views{};
    std::array<ChartTableModel *, ChartCount> m_models{};
    std::array<QTableView *, ChartCount> m_tables{};
};
