// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/TextBox.h"

#include "foundation/controls/ControlCharacterValidator.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

// Sees every change of the text before it is shown: QLineEdit takes the text a validator
// hands back, also from a write of code, so a write from code passes unchanged. An edit of
// the user's loses its control characters, and one that makes the text longer than
// `MaxLength` is refused; an edit that shortens an over-long text is let through.
class TextBoxInputValidator : public ControlCharacterValidator {
public:
    explicit TextBoxInputValidator(TextBox* box) : ControlCharacterValidator(box), m_box(box) {}

    State validate(QString& input, int& pos) const override
    {
        if (m_box->m_writingFromCode)
            return Acceptable;
        ControlCharacterValidator::validate(input, pos);
        const int limit = m_box->m_maxLength;
        if (limit > 0 && input.size() > limit && input.size() > m_box->m_lengthBefore)
            return Invalid;
        return Acceptable;
    }

private:
    const TextBox* m_box;
};

TextBox::TextBox(const QString& name, QWidget* parent) : QLineEdit(parent)
{
    setObjectName(name);
    // QLineEdit cuts every text, also one written from code, to 32767 characters by default.
    QLineEdit::setMaxLength(std::numeric_limits<int>::max());
    setValidator(new TextBoxInputValidator(this));
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_lengthBefore = text.size();
        emit Change();
    });
}

void TextBox::setText(const QString& text)
{
    const QScopedValueRollback fromCode(m_writingFromCode, true);
    QLineEdit::setText(text);
}

void TextBox::setMaxLength(int maxLength) { m_maxLength = std::max(0, maxLength); }
