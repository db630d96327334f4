// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/frmImport.h"

#include <QFileInfo>
#include <QTimer>

namespace {

constexpr int patienceMilliseconds = 3000;
constexpr int crashNumber = 5;

/// The last line of the tool's error output, without its first field.
QString errorText(const QByteArray& output)
{
    const QByteArray line = output.trimmed().split('\n').back();
    const auto tab = line.indexOf('\t');
    return QString::fromUtf8(tab < 0 ? line : line.mid(tab + 1));
}

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
    QStringList arguments;
    if (replace) arguments << QStringLiteral("--replace");
    m_process.start(m_tool, arguments << source << target);
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
    m_rest += m_process.readAllStandardOutput();
    for (auto end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        const auto progress = m_result.report.take(m_rest.left(end));
        m_rest.remove(0, end + 1);
        if (!progress || m_cancelled) continue;
        setPercent(progress->percent);
        if (!progress->step.isEmpty()) setStep(progress->step);
    }
}

void frmImport::finish(int status, QProcess::ExitStatus exit)
{
    readOutput();
    using End = DatabaseConverter::Result::End;
    if (exit == QProcess::NormalExit && status == 0) {
        // also if the user cancelled it when it was all but done
        m_result.end = End::Done;
    } else if (m_cancelled) {
        m_result.end = End::Cancelled;
    } else {
        m_result.end = End::Failed;
        m_result.status = exit == QProcess::NormalExit ? status : crashNumber;
        m_result.error = errorText(m_process.readAllStandardError());
        if (m_result.error.isEmpty()) m_result.error = tr("The conversion ended without a word.");
    }
    done(QDialog::Accepted);
}

void frmImport::fail(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart) return;
    m_result.end = DatabaseConverter::Result::End::Failed;
    m_result.status = static_cast<int>(error);
    m_result.error =
        tr("The program that converts Access files cannot be started: %1").arg(m_process.errorString());
    QTimer::singleShot(0, this, [this] { done(QDialog::Rejected); });
}
