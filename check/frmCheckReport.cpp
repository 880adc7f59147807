// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/frmCheckReport.h"

#include "check/ShowCheck.h"
#include "foundation/mdlGeneral.h"

#include <QHeaderView>
#include <QLabel>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum Column { SeverityColumn, FileColumn, RecordColumn, MessageColumn };
constexpr int PathRole = Qt::UserRole; // the finding's file, on each cell of its row

// A cell sorts by its key, and the cells of one key keep the order of the check.
class FindingCell : public QTableWidgetItem {
public:
    FindingCell(const QString& text, const QString& key, const QString& file, int order)
        : QTableWidgetItem(text), m_key(key), m_order(order)
    {
        setData(PathRole, file);
    }

    bool operator<(const QTableWidgetItem& other) const override
    {
        const auto& cell = static_cast<const FindingCell&>(other);
        return m_key < cell.m_key || (m_key == cell.m_key && m_order < cell.m_order);
    }

private:
    QString m_key;
    int m_order;
};

} // namespace

frmCheckReport::frmCheckReport(QWidget* parent)
    : QWidget(parent, Qt::Window), m_counts(new QLabel(this)), m_findings(new QTableWidget(this))
{
    setObjectName(u"frmCheckReport"_s);
    setWindowTitle(u"Show Check"_s);
    m_counts->setObjectName(u"lblCounts"_s);
    m_counts->setWordWrap(true);
    m_findings->setObjectName(u"lstFindings"_s);
    m_findings->setColumnCount(4);
    m_findings->setHorizontalHeaderLabels({u"Severity"_s, u"File"_s, u"Record"_s, u"Message"_s});
    m_findings->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_findings->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_findings->setSelectionMode(QAbstractItemView::SingleSelection);
    m_findings->setShowGrid(false);
    m_findings->setAlternatingRowColors(true);
    m_findings->verticalHeader()->hide();
    // A message names what was looked for, paths and all: it wraps rather than being cut, and
    // its row grows to hold it.
    m_findings->setWordWrap(true);
    m_findings->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_findings->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_findings->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_findings->horizontalHeader()->setSectionResizeMode(MessageColumn, QHeaderView::Stretch);
    connect(m_findings, &QTableWidget::itemActivated, this,
            [this](QTableWidgetItem* item) { emit OpenFile(item->data(PathRole).toString()); });

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_counts);
    layout->addWidget(m_findings, 1);
    resize(900, 480);
}

void frmCheckReport::ShowReport(const QString& checked, const ShowCheck& check)
{
    setWindowTitle(u"Show Check - "_s + checked);
    const QIcon errorIcon = style()->standardIcon(QStyle::SP_MessageBoxCritical);
    const QIcon warningIcon = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    const QList<Finding>& findings = check.Findings();
    m_findings->setSortingEnabled(false); // rows stay where they are put while filling
    m_findings->setRowCount(int(findings.size()));
    for (int row = 0; row < findings.size(); ++row) {
        const Finding& f = findings[row];
        const bool error = f.severity == Finding::Severity::Error;
        const QString name = mdlGeneral::GetFileName(f.file);
        const auto cell = [&](Column column, const QString& text, const QString& key) {
            m_findings->setItem(row, column, new FindingCell(text, key, f.file, row));
        };
        cell(SeverityColumn, error ? u"Error"_s : u"Warning"_s, error ? u"0"_s : u"1"_s);
        cell(FileColumn, name, name.toLower());
        cell(RecordColumn, f.record, f.record);
        cell(MessageColumn, f.message, f.message);
        m_findings->item(row, SeverityColumn)->setIcon(error ? errorIcon : warningIcon);
        m_findings->item(row, FileColumn)->setToolTip(f.file);
    }
    m_findings->setSortingEnabled(true);
    m_findings->sortByColumn(SeverityColumn, Qt::AscendingOrder);
    m_findings->setCurrentCell(0, 0);
    // With nothing to report the window holds the one sentence that says so, in its middle.
    m_findings->setVisible(!findings.isEmpty());
    m_counts->setAlignment(findings.isEmpty() ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);

    const int reached = check.FilesChecked() - 1;
    if (!findings.isEmpty())
        m_counts->setText(check.Summary() + u'.');
    else if (reached <= 0)
        m_counts->setText(u"No problems found in %1."_s.arg(checked));
    else if (reached == 1)
        m_counts->setText(u"No problems found in %1 and the file it reaches."_s.arg(checked));
    else
        m_counts->setText(u"No problems found in %1 and the %2 files it reaches."_s.arg(
            checked, QString::number(reached)));
    show();
    raise();
    activateWindow();
}
