// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/CaseFile.h"

#include <QJsonDocument>
#include <QJsonObject>

/// How a run of the tool ended.
struct ToolRun
{
    int status = -1; ///< the exit status; -1 after a signal or if it did not end
    QString output;
    QString error;

    /// The one document of the output; empty if that is none.
    [[nodiscard]] QJsonObject json() const { return QJsonDocument::fromJson(output.toUtf8()).object(); }
};

/// What a test does with the process of the tool before and after it has started.
struct ToolHooks
{
    std::function<void(QProcess&)> prepare = {};
    std::function<void(QProcess&)> onStart = {};
};

/// Runs the tool as a process. `folder` is where it runs.
ToolRun runTool(const QStringList& arguments, const QString& folder = {}, const ToolHooks& hooks = {});

/// What is expected is how the output begins, or after `! ` the only line of an error; the end of either may
/// be `…`.
void expectAnswer(const ToolRun& run, const FileCase& expected);

/// Runs another program, such as a shell, and returns its output.
QString outputOf(const QString& program, const QStringList& arguments);

/// Two small collections in a folder of their own, gone with the object: `Rivers`, which has files and a
/// record with a past, and `Old`, which an earlier version of the program made.
class Collections
{
public:
    Collections();

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    /// All that lies below the folder: names, times and bytes.
    [[nodiscard]] QStringList everything() const;

private:
    QTemporaryDir m_folder;
};
