// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/DatabaseConverter.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

class QProcess;

/// What the process that converts an Access file tells of one conversion, whoever watches it.
class ConverterOutput
{
public:
    /// What the process is started with.
    [[nodiscard]] static QStringList arguments(const QString& source, const QString& target, bool replace);

    /// Takes what the process has said since; it may end within a line. Returns the progress that it tells.
    std::vector<ImportProgress> take(QProcess& process);

    /// What came of it, once the process has ended or could not be started. A process that was asked to end
    /// when it was all but done has done its work.
    [[nodiscard]] DatabaseConverter::Result result(QProcess& process, bool isCancelled);

private:
    QByteArray m_rest; ///< of the output: a line without its end
    ImportReport m_report;
};
