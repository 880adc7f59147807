// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// `TextBox` over QLineEdit. Writing a different `Text` from code raises `Change` before the
// write returns (QLineEdit::textChanged does exactly that). What the user types, pastes or
// drops loses the control characters U+0000 to U+001F but tab: a saved file could not carry
// them and would not load again.

#include <QLineEdit>

class TextBox : public QLineEdit {
    Q_OBJECT

public:
    explicit TextBox(const QString& name, QWidget* parent = nullptr);

    QString Text() const { return text(); }
    // `Text` written from code: kept exactly as given, control characters included, so a
    // `Change` handler that writes the box back into a document changes nothing there.
    void setText(const QString& text);

    // `Locked` stops the user, not the code.
    bool Locked() const { return isReadOnly(); }
    void setLocked(bool locked) { setReadOnly(locked); }

    // `MaxLength`: 0, the default, is no limit. The limit holds for the user's edits only; a
    // write from code is never cut (QLineEdit would cut it and so change the text that a
    // `Change` handler writes back into a document).
    int MaxLength() const { return m_maxLength; }
    void setMaxLength(int maxLength);

    void SetFocus() { setFocus(Qt::OtherFocusReason); }

signals:
    void Change();

private:
    friend class TextBoxInputValidator;

    int m_maxLength = 0;
    qsizetype m_lengthBefore = 0; // length of the text before the edit under validation
    bool m_writingFromCode = false;
};
