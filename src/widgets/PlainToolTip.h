// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/ReadableLine.h"

#include <QString>
#include <QTextDocument>

/// Tool-tips whose text comes from the data: a name may hold what Qt would read as markup.
namespace PlainToolTip {

/// The text of a tool-tip that shows `text` as it is.
[[nodiscard]] inline QString text(const QString& whole)
{
    QString plain = readableLine(whole);
    constexpr qsizetype longestLine = 80;
    if (!Qt::mightBeRichText(plain)) return plain;
    if (plain.size() > longestLine) return Qt::convertFromPlainText(plain);
    // Qt breaks markup into several lines, however short, unless it says otherwise
    return QStringLiteral("<p style=\"white-space:pre\">") + plain.toHtmlEscaped() + QStringLiteral("</p>");
}

} // namespace PlainToolTip
