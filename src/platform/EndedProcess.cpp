// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/EndedProcess.h"

void endProcess(std::unique_ptr<QProcess> process)
{
    constexpr int patience = 100; ///< milliseconds
    if (!process) return;
    QObject::disconnect(process.get(), nullptr, nullptr, nullptr);
    process->kill();
    if (process->state() == QProcess::NotRunning || process->waitForFinished(patience)) return;
    QProcess* const left = process.release();
    QObject::connect(left, &QProcess::finished, left, &QObject::deleteLater);
}
