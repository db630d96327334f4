// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/ConverterOutput.h"

#include "opening/OpeningTexts.h"

#include <QProcess>

namespace {

constexpr int crashNumber = 5;

/// The last line of the error output, without its first field.
QString errorText(const QByteArray& output)
{
    const QByteArray line = output.trimmed().split('\n').back();
    const auto tab = line.indexOf('\t');
    return QString::fromUtf8(tab < 0 ? line : line.mid(tab + 1));
}

} // namespace

QStringList ConverterOutput::arguments(const QString& source, const QString& target, bool replace)
{
    QStringList arguments;
    if (replace) arguments << QStringLiteral("--replace");
    return arguments << source << target;
}

std::vector<ImportProgress> ConverterOutput::take(QProcess& process)
{
    std::vector<ImportProgress> told;
    m_rest += process.readAllStandardOutput();
    for (auto end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        auto progress = m_report.take(m_rest.left(end));
        m_rest.remove(0, end + 1);
        if (progress) told.push_back(std::move(*progress));
    }
    return told;
}

DatabaseConverter::Result ConverterOutput::result(QProcess& process, bool isCancelled)
{
    using End = DatabaseConverter::Result::End;
    take(process);
    DatabaseConverter::Result result;
    result.report = m_report;
    if (process.error() == QProcess::FailedToStart) {
        result.status = static_cast<int>(process.error());
        result.error = OpeningTexts::tr("The program that converts Access files cannot be started: %1")
                           .arg(process.errorString());
    } else if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        result.end = End::Done;
    } else if (isCancelled) {
        result.end = End::Cancelled;
    } else {
        result.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : crashNumber;
        result.error = errorText(process.readAllStandardError());
        if (result.error.isEmpty()) result.error = OpeningTexts::tr("The conversion ended without a word.");
    }
    return result;
}
