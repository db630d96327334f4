#pragma once

#include <QString>
#include <QTextDocument>

/// Tool-tips whose text comes from the data: a name may hold what a tool-tip would take for its own markup.
namespace PlainToolTip {

/// What a tool-tip must be given in order to show a text as it is.
[[nodiscard]] inline QString text(const QString& plain)
{
    return Qt::mightBeRichText(plain) ? Qt::convertFromPlainText(plain) : plain;
}

} // namespace PlainToolTip
