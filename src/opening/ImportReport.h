// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The progress of a conversion.
struct ImportProgress
{
    int percent = 0;
    QString step; ///< what is done now, for the user; empty if that has not changed
};

/// The report of the process that converts an Access file. Each line has fields divided by tabs; tabs, line
/// ends and backslashes within a field are written as `\t`, `\n`, `\r` and `\\`.
class ImportReport
{
public:
    /// Takes one line without its end. Returns the progress that it tells, if any. Lines of an unknown kind
    /// are ignored.
    std::optional<ImportProgress> take(const QByteArray& line);

    /// The number of the program's own tables in the file.
    [[nodiscard]] int knownTables() const { return m_knownTables; }

    /// What the user should know about the conversion, in a few lines.
    [[nodiscard]] QString text() const;

private:
    void takeSummary(const QStringList& fields);

    int m_percent = 0;
    int m_knownTables = 0;
    QString m_tables;
    QString m_rows;
    QStringList m_unknown;
    QStringList m_missing;
    QStringList m_hidden;
    QStringList m_notes;
};
