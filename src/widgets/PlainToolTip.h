#pragma once

#include "util/ReadableLine.h"

#include <QString>
#include <QTextDocument>

/// Tool-tips whose text comes from the data: a name may hold what a tool-tip would take for its own markup.
namespace PlainToolTip {

/// What a tool-tip must be given in order to show a text as it is.
[[nodiscard]] inline QString text(const QString& whole)
{
    const QString plain = readableLine(whole);
    constexpr qsizetype longestLine = 80;
    if (!Qt::mightBeRichText(plain)) return plain;
    if (plain.size() > longestLine) return Qt::convertFromPlainText(plain);
    // markup is laid out in several lines, however short it is, unless it says otherwise
    return QStringLiteral("<p style=\"white-space:pre\">") + plain.toHtmlEscaped() + QStringLiteral("</p>");
}

} // namespace PlainToolTip
