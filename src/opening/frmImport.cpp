// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/frmImport.h"

#include <QFileInfo>
#include <QTimer>

namespace {

constexpr int patienceMilliseconds = 3000;

} // namespace

frmImport::frmImport(QString tool, QWidget* parent) : ProgressWindow(parent), m_tool(std::move(tool))
{
    setObjectName(QStringLiteral("frmImport"));
    setWindowTitle(tr("Converting an Access File"));
    setBarName(tr("Progress of the conversion"));
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &frmImport::readOutput);
    connect(&m_process, &QProcess::finished, this, &frmImport::finish);
    connect(&m_process, &QProcess::errorOccurred, this, &frmImport::fail);
}

frmImport::~frmImport() = default;

DatabaseConverter::Result frmImport::run(const QString& source, const QString& target, bool replace)
{
    setTitle(tr("%1 is being converted into a database of the program. The Access file is not changed.")
                 .arg(QFileInfo(source).fileName()));
    setStep(tr("Starting …"));
    m_process.start(m_tool, ConverterOutput::arguments(source, target, replace));
    exec();
    return m_result;
}

/// Asks the tool to end, so that it removes the unfinished database. It is killed if it does not answer.
void frmImport::reject()
{
    if (m_process.state() == QProcess::NotRunning) {
        ProgressWindow::reject();
        return;
    }
    if (m_cancelled) return;
    m_cancelled = true;
    showStopping();
    m_process.terminate();
    QTimer::singleShot(patienceMilliseconds, &m_process, &QProcess::kill);
}

void frmImport::readOutput()
{
    for (const ImportProgress& progress : m_output.take(m_process)) {
        if (m_cancelled) continue;
        setPercent(progress.percent);
        if (!progress.step.isEmpty()) setStep(progress.step);
    }
}

void frmImport::finish()
{
    readOutput();
    m_result = m_output.result(m_process, m_cancelled);
    done(QDialog::Accepted);
}

void frmImport::fail(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart) return;
    m_result = m_output.result(m_process, false);
    QTimer::singleShot(0, this, [this] { done(QDialog::Rejected); });
}
