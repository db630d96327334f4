// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/TestFiles.h"

#include <QStringList>

/// The lines of a file of cases, without the blank line at its end.
inline QStringList linesOfCases(const char* name)
{
    const QByteArray file = contentOf(QStringLiteral(ORVIK_CASES "/%1.txt").arg(QLatin1StringView(name)));
    return QString::fromUtf8(file.trimmed()).split(u'\n');
}
