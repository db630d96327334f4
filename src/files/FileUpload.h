// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/ProgramFolder.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Copies the files that users choose into the program's folders, each under a name made from its record.
///
/// A copy is made under a temporary name and renamed, so that its target is the old file or the whole new
/// one; the source may be the target. Every failure is an Error with the system's number.
class FileUpload
{
public:
    /// The folder must outlive the upload.
    explicit FileUpload(const ProgramFolder& folder) : m_folder(folder) {}

    /// The extension that a chosen path gives to the stored file, without the point.
    static QString extension(const QString& chosenPath);

    /// The file that a typed, chosen or dropped path means, as a path of the machine; std::nullopt if
    /// there is no such file.
    static std::optional<QString> existingFile(const QString& chosenPath);

    /// The path that a typed or pasted text means: without line ends, the blanks and quotes around it, and
    /// `file://` before it. A text that names a file as it is stays as it is.
    static QString typedPath(const QString& text);

    /// Throws Error, as the copy would, if a chosen path means no file that can be read.
    static void requireSource(const QString& chosenPath);

    /// Copies a document's file. A page with a folder of its own name and `_files` beside it is taken with
    /// that folder, and what the page says of the folder follows its new name. Returns the names of the files
    /// that were made, relative to the folder of documents. Throws Error for links that lead out of the
    /// folder.
    QStringList convertDocument(const QString& chosenPath, qint64 documentId) const;

    /// The name in the charts folder that a chosen file gets.
    [[nodiscard]] static QString chartName(const QString& chosenPath, qint64 organizationId);

    /// Copies an organization's chart under that name.
    void copyChart(const QString& chosenPath, qint64 organizationId) const;

    /// Removes from both folders what unfinished copies left there when the program was killed.
    void clearUnfinished() const;

    /// The copy that `copyChart` made of a chosen file, even if that file has gone. A path without an
    /// extension may also stand for a copy named as the distribution names charts.
    [[nodiscard]] std::optional<QString> copyOfChart(const QString& chosenPath, qint64 organizationId) const;

    /// The file of that name in the charts folder; std::nullopt if there is none or the text is not just a
    /// name.
    [[nodiscard]] std::optional<QString> fileInCharts(const QString& text) const;

    /// That copy, or a chart named as the distribution names charts.
    [[nodiscard]] std::optional<QString> storedChart(const QString& chosenPath, qint64 organizationId) const;

private:
    const ProgramFolder& m_folder;
};
