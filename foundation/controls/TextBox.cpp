#include "foundation/controls/TextBox.h"

#include <QValidator>

#include <algorithm>
#include <limits>

// Refuses an edit that makes the text longer than `MaxLength`. QLineEdit asks a validator
// only for the user's edits (a write from code keeps its text whatever the answer), and an
// edit that shortens an over-long text is let through.
class TextBoxLengthValidator : public QValidator {
public:
    explicit TextBoxLengthValidator(TextBox* box) : QValidator(box), m_box(box) {}

    State validate(QString& input, int& /*pos*/) const override
    {
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
    setValidator(new TextBoxLengthValidator(this));
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_lengthBefore = text.size();
        emit Change();
    });
}

void TextBox::setMaxLength(int maxLength) { m_maxLength = std::max(0, maxLength); }
