#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// How far a conversion has come.
struct ImportProgress
{
    int percent = 0;
    QString step; ///< for the user: what is done now
};

/// What the process that converts an Access file tells, line by line: fields divided by tabs, with tabs, line
/// ends and backslashes in a field written as `\t`, `\n`, `\r` and `\\`.
class ImportReport
{
public:
    /// Takes one line without its end. Gives the progress where the line tells of any; a line of a kind
    /// that is not known is passed over.
    std::optional<ImportProgress> take(const QByteArray& line);

    /// How many of the program's own tables the file had.
    [[nodiscard]] int knownTables() const { return m_knownTables; }

    /// What the user should know of the conversion, in a few lines.
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
