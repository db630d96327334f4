// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/ConverterOutput.h"
#include "opening/DatabaseConverter.h"
#include "platform/ProgressWindow.h"

#include <QProcess>

/// Shows the progress of the conversion of an Access file, and lets the user cancel it. A process of its own
/// does the work, so that a damaged file cannot crash the program. One window runs one conversion.
class frmImport final : public ProgressWindow
{
    Q_OBJECT

public:
    /// `tool` is the path of the program that converts.
    frmImport(QString tool, QWidget* parent);
    ~frmImport() override;

    /// Runs a conversion, as in DatabaseConverter, and returns when it has ended.
    [[nodiscard]] DatabaseConverter::Result run(const QString& source, const QString& target, bool replace);

    void reject() override;

private:
    void readOutput();
    void finish();
    void fail(QProcess::ProcessError error);

    QString m_tool;
    QProcess m_process;
    ConverterOutput m_output;
    DatabaseConverter::Result m_result;
    bool m_cancelled = false;
};
