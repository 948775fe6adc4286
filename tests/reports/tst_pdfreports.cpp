// The three reports printed through the same painting code as on paper, into
// a PDF, and read back as text: lines, padding and page headers must survive.

#include "ReportsFixture.h"

#include "records/BudgetRecord.h"
#include "reports/PrintedReports.h"
#include "reports/ReportPages.h"
#include "ui/ReportPainter.h"

#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

namespace {

const QDate Printed(2026, 11, 21);

QStringList rightTrimmed(QStringList lines)
{
    for (QString &l : lines)
        while (l.endsWith(QLatin1Char(' ')))
            l.chop(1);
    return lines;
}

// The report's lines as they should read back: page breaks become form feeds
// at the start of the next page's first line, as pdftotext writes them.
QStringList expectedText(const QStringList &lines)
{
    QStringList out;
    bool breakNext = false;
    for (const QString &l : lines) {
        if (l == ReportPages::PageBreak) {
            breakNext = true;
            continue;
        }
        out << (breakNext ? QStringLiteral("\f") + l : l);
        breakNext = false;
    }
    return rightTrimmed(out);
}

} // namespace

class TestPdfReports : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QStringList roundTrip(const QString &name, const QStringList &lines)
    {
        const QString pdf = m_dir.filePath(name + QStringLiteral(".pdf"));
        if (!ReportPainter::writePdf(pdf, name, lines))
            return {QStringLiteral("(not written)")};
        // pdftotext is told the character pitch the painter chose, so that it
        // reads blanks back as columns rather than guessing them.
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        const qreal pitch
            = ReportPainter::pitch(printer, ReportPainter::fittedFont(printer, lines));
        QProcess p;
        p.start(QStringLiteral("pdftotext"),
                {QStringLiteral("-layout"), QStringLiteral("-fixed"),
                 QString::number(pitch, 'f', 3), pdf, QStringLiteral("-")});
        p.waitForFinished(30000);
        QStringList text = QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\n'));
        // The final form feed ends the last page.
        while (!text.isEmpty() && (text.last().isEmpty() || text.last() == QStringLiteral("\f")))
            text.removeLast();
        // The sheet's left margin reads as blanks before every line.
        qsizetype margin = 1000;
        for (const QString &l : text) {
            const QString line = l.startsWith(QLatin1Char('\f')) ? l.mid(1) : l;
            qsizetype indent = 0;
            while (indent < line.size() && line[indent] == QLatin1Char(' '))
                ++indent;
            if (indent < line.size())
                margin = std::min(margin, indent);
        }
        for (QString &l : text) {
            const bool feed = l.startsWith(QLatin1Char('\f'));
            l = (feed ? QStringLiteral("\f") : QString()) + l.mid(feed ? 1 + margin : margin);
        }
        return rightTrimmed(text);
    }

    // pdftotext leaves blank lines out at the end of a page and keeps them
    // inside; compare the lines that hold text, in order and exactly.
    static QStringList withText(const QStringList &lines)
    {
        QStringList out;
        for (const QString &l : lines)
            if (!l.trimmed().isEmpty())
                out << l;
        return out;
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
    }

    void threeReportsSurviveRendering()
    {
        ReportsFixture fx;
        fx.addAccount(QStringLiteral("Main Checking"), QStringLiteral("CH"), 123456);
        fx.addAccount(QStringLiteral("Visa"), QStringLiteral("CC"), -2500);
        BudgetRecord food;
        food.BudNum = 1;
        food.BudName = QStringLiteral("Groceries");
        food.AmountText = QStringLiteral(" 400");
        food.Balance = Currency::fromCents(12550);
        BudgetRecord card = food;
        card.BudNum = 2;
        card.BudName = QStringLiteral("Visa");
        card.CCBankRecnum = 2;

        std::vector<TransRecord> records;
        for (int i = 0; i < 130; ++i) {
            TransRecord r = ReportsFixture::record(
                QStringLiteral("04/%1/2026").arg(i % 30 + 1, 2, 10, QLatin1Char('0')),
                i % 3 ? QStringLiteral("Debit Card") : QStringLiteral("%1").arg(1000 + i),
                QStringLiteral("Payee number %1").arg(i + 1), i % 2 ? -1234 : 250000,
                i % 4 ? QStringLiteral("OP") : QStringLiteral("CL"));
            if (i % 7 == 0)
                r.Memo = QStringLiteral("memo for %1").arg(i + 1);
            records.push_back(r);
        }
        const QStringList reg = PrintedReports::registerLines(
            QStringLiteral("Main Checking"), records, 1, int(records.size()), Printed,
            PrintedReports::LinesPerPage);
        QVERIFY(reg.count(ReportPages::PageBreak) >= 2); // three pages or more

        const QList<std::pair<QString, QStringList>> reports = {
            {QStringLiteral("accounts"), PrintedReports::accountsReport(fx.accounts, Printed)},
            {QStringLiteral("budget"),
             PrintedReports::budgetReport({food, card}, fx.accounts, Printed)},
            {QStringLiteral("register"), reg},
        };
        for (const auto &[name, lines] : reports) {
            const QStringList back = roundTrip(name, lines);
            QCOMPARE(withText(back), withText(expectedText(lines)));
        }
    }
};

QTEST_MAIN(TestPdfReports)
#include "tst_pdfreports.moc"
