// SPDX-License-Identifier: GPL-3.0-or-later

#include "ConsoleConverter.h"

#include "opening/ConverterOutput.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace console {

namespace {

constexpr int patience = 3000; ///< milliseconds for the process to end when it is asked to
constexpr int pause = 50;      ///< milliseconds between two looks at what the user wants

} // namespace

DatabaseConverter::Result ConsoleConverter::convert(const QString& source, const QString& target,
                                                    bool replace)
{
    QProcess process;
    ConverterOutput output;
    const auto showProgress = [&] {
        for (const ImportProgress& progress : output.take(process)) {
            if (!progress.step.isEmpty()) m_step = progress.step;
            m_works.show(m_step, progress.percent);
        }
    };
    process.start(QCoreApplication::applicationDirPath() + u"/orvik-import"_s,
                  ConverterOutput::arguments(source, target, replace));
    while (process.state() != QProcess::NotRunning && !ConsoleWorks::isInterrupted()) {
        process.waitForFinished(pause);
        showProgress();
    }
    if (process.state() != QProcess::NotRunning) {
        process.terminate();
        if (!process.waitForFinished(patience)) process.kill();
        process.waitForFinished();
    }
    return output.result(process, ConsoleWorks::isInterrupted());
}

} // namespace console
