// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <array>
#include <future>
#include <string>
#include <vector>

class QDate;
class QTime;
struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

/// Writes a workbook from its first row to its last by libxlsxwriter, which keeps the rows in temporary
/// files: it needs as much memory for a million as for one. The rows of each sheet have to come in their
/// order. Every failure is an Error with the system's number, also one that the library keeps to itself.
class Workbook
{
public:
    /// `file` is written at the end. `title` is that of the document; it may be empty.
    Workbook(const QString& file, const QString& title);
    /// Waits for what is being written.
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    /// The most rows that a sheet has room for, titles included.
    static constexpr std::size_t mostRows = 1048576;

    /// Begins a sheet with a row of titles that stays in sight.
    lxw_worksheet* addSheet(const QString& name, const std::vector<std::string>& titles);

    struct Cell
    {
        lxw_worksheet* sheet;
        std::size_t row; ///< 0 has the titles
        std::size_t column;
    };

    /// A text stays one, whatever it looks like. It is one of CellText.
    void write(const Cell& cell, const std::string& text);
    void write(const Cell& cell, double number);
    void write(const Cell& cell, QDate date);
    void write(const Cell& cell, QTime time);

    /// Whether a sheet can hold that day: the calendar of spreadsheets begins in 1900, and programs do not
    /// agree on the days before March of that year.
    [[nodiscard]] static bool hasDay(QDate date);

    /// Throws Error if rows could not be written. To be asked often: errno has to say why.
    void requireRows() const;

    /// Ends a sheet: its last row, and how wide its columns are, in characters.
    void endSheet(lxw_worksheet* sheet, std::size_t lastRow, const std::vector<std::size_t>& widths);

    /// Puts the file together in a thread of its own. Returns false once it is there.
    [[nodiscard]] bool finish();

    /// Waits for a moment; returns whether that is still under way.
    [[nodiscard]] bool isFinishing() const;

private:
    enum Look
    {
        Title,
        Plain,
        Day,
        Minutes,
        Seconds,
        Looks
    };

    static void putTogether(lxw_workbook* workbook, const QString& file, const std::vector<qint64>& rowBytes);

    QString m_file;
    std::string m_temporary; ///< the folder
    lxw_workbook* m_workbook;
    std::array<lxw_format*, Looks> m_looks{};
    std::vector<lxw_worksheet*> m_sheets;
    std::vector<qint64> m_rowBytes; ///< of each sheet that was ended
    std::future<void> m_finishing;
};
