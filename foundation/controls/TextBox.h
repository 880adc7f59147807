#pragma once
// Part 1.3: `TextBox` over QLineEdit. Writing a different `Text` from code raises `Change`
// before the write returns (QLineEdit::textChanged does exactly that, design.md 3).

#include <QLineEdit>

class TextBox : public QLineEdit {
    Q_OBJECT

public:
    explicit TextBox(const QString& name, QWidget* parent = nullptr);

    // `Text` read; the write is QLineEdit::setText, used as it is.
    QString Text() const { return text(); }

    // `Locked` stops the user, not the code.
    bool Locked() const { return isReadOnly(); }
    void setLocked(bool locked) { setReadOnly(locked); }

    // `MaxLength`: 0, the default, is no limit. Like the original's edit control the limit
    // holds for typing only; a write from code is never cut (QLineEdit would cut it and
    // so change the text that a `Change` handler writes back into a document).
    int MaxLength() const { return m_maxLength; }
    void setMaxLength(int maxLength);

    void SetFocus() { setFocus(Qt::OtherFocusReason); }

signals:
    void Change();

private:
    friend class TextBoxLengthValidator;

    int m_maxLength = 0;
    qsizetype m_lengthBefore = 0; // length of the text before the edit under validation
};
