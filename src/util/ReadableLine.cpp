// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/ReadableLine.h"

namespace {

constexpr qsizetype longestLine = 1000;

} // namespace

QString readableLine(const QString& text)
{
    if (text.size() <= longestLine) return text;
    const qsizetype length = text[longestLine - 1].isHighSurrogate() ? longestLine - 1 : longestLine;
    return text.first(length) + u'…';
}
