// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `Frame` over QGroupBox. Writing `Enabled` False disables all it contains; the
// `OptionButton`s placed directly in it form one set that excludes each other.

#include <QGroupBox>

class Frame : public QGroupBox {
    Q_OBJECT

public:
    // An empty caption gives a frame without a title.
    Frame(const QString& name, const QString& caption, QWidget* parent = nullptr);

    // `Enabled` write is QWidget::setEnabled, which reaches every child widget.
    bool Enabled() const { return isEnabled(); }

    // A detail frame whose boxes show a record that is no longer under edit (after a delete,
    // a New or an Open): the texts stay and the boxes stay enabled, but their text takes the
    // palette's placeholder-text colour, so the author sees that typing there reaches no
    // record. False brings the normal colour back.
    void ShowOrphaned(bool orphaned);
};
