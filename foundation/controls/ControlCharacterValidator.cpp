// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/ControlCharacterValidator.h"

QValidator::State ControlCharacterValidator::validate(QString& input, int& pos) const
{
    QString kept;
    kept.reserve(input.size());
    const qsizetype cursorBefore = pos;
    for (qsizetype i = 0; i < input.size(); ++i) {
        if (input[i].unicode() >= 0x20 || input[i] == u'\t')
            kept.append(input[i]);
        else if (i < cursorBefore)
            --pos;
    }
    input = kept;
    return Acceptable;
}
