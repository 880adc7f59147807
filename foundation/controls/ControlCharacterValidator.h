// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Drops the control characters U+0000 to U+001F but tab from a line edit's text: a saved file
// could not carry them and would not load again. QLineEdit hands every change of its text to
// its validator before showing it, whether typed, pasted, dropped or set by code.

#include <QValidator>

class ControlCharacterValidator : public QValidator {
public:
    using QValidator::QValidator;

    // Always Acceptable; the cursor moves back by the characters dropped in front of it.
    State validate(QString& input, int& pos) const override;
};
