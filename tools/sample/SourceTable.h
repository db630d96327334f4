// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What is wrong in a source file, as `file:line: message`, or in the work as a whole.
class SourceError : public std::exception
{
public:
    explicit SourceError(const QString& text) : m_text(text.toStdString()) {}

    [[nodiscard]] const char* what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

/// The name of a source file and its columns, shared by its rows.
struct SourceHeader
{
    QString file;
    QStringList columns;
};

/// One row of a source file. Every reader names a column of the header; a value that cannot be read stops
/// the work with the row's file and line.
class SourceRow
{
public:
    SourceRow(std::shared_ptr<const SourceHeader> header, int line, QStringList fields);

    /// Empty if the row says nothing. `\n` in the file is a line break.
    [[nodiscard]] QString text(const QString& column) const;
    /// As text(), but it must not be empty.
    [[nodiscard]] QString requiredText(const QString& column) const;
    /// The parts between semicolons; an empty part or the same part twice is an error.
    [[nodiscard]] QStringList list(const QString& column) const;
    /// `yes` or `no`.
    [[nodiscard]] bool flag(const QString& column) const;
    /// `YYYY-MM-DD`; std::nullopt if the field is empty.
    [[nodiscard]] std::optional<QDate> date(const QString& column) const;
    /// `HH:MM`; std::nullopt if the field is empty.
    [[nodiscard]] std::optional<QTime> time(const QString& column) const;
    /// A decimal number within [lowest, highest]; std::nullopt if the field is empty.
    [[nodiscard]] std::optional<double> number(const QString& column, double lowest, double highest) const;
    /// A whole number from 0 on; std::nullopt if the field is empty.
    [[nodiscard]] std::optional<qint64> count(const QString& column) const;

    [[noreturn]] void fail(const QString& message) const;

private:
    std::shared_ptr<const SourceHeader> m_header;
    int m_line;
    QStringList m_fields;
};

/// A source file, read whole: UTF-8, a header line, then one row a line with tabs between its fields.
class SourceTable
{
public:
    /// Throws SourceError if the file cannot be read, is not UTF-8, or lacks one of the columns.
    SourceTable(const QString& path, const QStringList& requiredColumns);

    [[nodiscard]] const std::vector<SourceRow>& rows() const { return m_rows; }
    [[nodiscard]] const QStringList& columns() const { return m_header->columns; }

private:
    std::shared_ptr<const SourceHeader> m_header;
    std::vector<SourceRow> m_rows;
};
