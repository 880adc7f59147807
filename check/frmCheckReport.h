// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report of a show check: one modeless window with the findings in a table, errors first,
// and a line with the counts. A second check's report replaces the first.

#include <QWidget>

class QLabel;
class QTableWidget;
class ShowCheck;

class frmCheckReport : public QWidget {
    Q_OBJECT

public:
    explicit frmCheckReport(QWidget* parent = nullptr);

    // Shows the findings of `check` over `checked` (the name of what was checked, as the
    // caption and the counts name it) in place of any earlier report, and brings the window
    // up.
    void ShowReport(const QString& checked, const ShowCheck& check);

signals:
    // A finding was double-clicked, or Enter pressed on it: its file, to open in its manager.
    void OpenFile(const QString& file);

private:
    QLabel* m_counts;
    QTableWidget* m_findings;
};
