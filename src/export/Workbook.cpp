// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/Workbook.h"

#include "export/ExportTexts.h"
#include "export/WorkbookProof.h"
#include "files/FileBlocks.h"
#include "util/Error.h"

#include <QDate>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <locale.h>
#include <utility>
#include <xlsxwriter.h>

namespace {

constexpr double secondsOfDay = 24 * 60 * 60;

/// Lets the library write numbers with a point, whatever the locale of the process is.
class PlainNumbers
{
public:
    PlainNumbers() : m_plain(newlocale(LC_ALL_MASK, "C", nullptr)), m_before(uselocale(m_plain)) {}
    ~PlainNumbers()
    {
        uselocale(m_before);
        if (m_plain != nullptr) freelocale(m_plain);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    locale_t m_plain;
    locale_t m_before;
};

void require(lxw_error error, const QString& file)
{
    if (error != LXW_NO_ERROR) FileBlocks::fail(errno, FileBlocks::pathOf(file));
}

lxw_row_t rowOf(const Workbook::Cell& cell)
{
    return static_cast<lxw_row_t>(cell.row);
}

lxw_col_t columnOf(const Workbook::Cell& cell)
{
    return static_cast<lxw_col_t>(cell.column);
}

lxw_format* look(lxw_workbook* workbook, const char* numbers)
{
    lxw_format* const format = workbook_add_format(workbook);
    format_set_align(format, LXW_ALIGN_VERTICAL_TOP); // the first line of a text counts
    format_set_num_format(format, numbers);
    return format;
}

} // namespace

Workbook::Workbook(const QString& file, const QString& title)
    : m_file(file), m_temporary(QFile::encodeName(QDir::tempPath()).toStdString())
{
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = m_temporary.data();
    m_workbook = workbook_new_opt(QFile::encodeName(file).constData(), &options);
    if (m_workbook == nullptr) FileBlocks::fail(ENOMEM, FileBlocks::pathOf(file));
    m_looks = {look(m_workbook, "General"), look(m_workbook, "General"), look(m_workbook, "yyyy-mm-dd"),
               look(m_workbook, "hh:mm"), look(m_workbook, "hh:mm:ss")};
    format_set_bold(m_looks[Title]);
    format_set_bottom(m_looks[Title], LXW_BORDER_THIN);
    // as the texts among them are
    for (const Look moment : {Day, Minutes, Seconds})
        format_set_align(m_looks[moment], LXW_ALIGN_LEFT);
    std::string caption = title.toStdString();
    lxw_doc_properties properties{};
    properties.title = caption.data();
    workbook_set_properties(m_workbook, &properties);
}

/// The library forgets the temporary files of a workbook that it does not put together.
Workbook::~Workbook()
{
    if (m_workbook == nullptr) return;
    for (lxw_worksheet* const sheet : m_sheets)
        std::fclose(sheet->optimize_tmpfile);
    lxw_workbook_free(m_workbook);
}

lxw_worksheet* Workbook::addSheet(const QString& name, const std::vector<std::string>& titles)
{
    const PlainNumbers plain;
    errno = 0;
    lxw_worksheet* const sheet = workbook_add_worksheet(m_workbook, name.toUtf8().constData());
    if (sheet == nullptr) FileBlocks::fail(errno, m_temporary);
    m_sheets.push_back(sheet);
    worksheet_freeze_panes(sheet, 1, 0);
    worksheet_repeat_rows(sheet, 0, 0);
    worksheet_set_landscape(sheet);
    for (std::size_t i = 0; i < titles.size(); ++i) {
        require(
            worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(i), titles[i].c_str(), m_looks[Title]),
            m_file);
    }
    return sheet;
}

void Workbook::write(const Cell& cell, const std::string& text)
{
    const PlainNumbers plain;
    require(worksheet_write_string(cell.sheet, rowOf(cell), columnOf(cell), text.c_str(), m_looks[Plain]),
            m_file);
}

void Workbook::write(const Cell& cell, double number)
{
    const PlainNumbers plain;
    require(worksheet_write_number(cell.sheet, rowOf(cell), columnOf(cell), number, m_looks[Plain]), m_file);
}

void Workbook::write(const Cell& cell, QDate date)
{
    const PlainNumbers plain;
    lxw_datetime day{date.year(), date.month(), date.day(), 0, 0, 0};
    require(worksheet_write_datetime(cell.sheet, rowOf(cell), columnOf(cell), &day, m_looks[Day]), m_file);
}

/// A time is a part of a day.
void Workbook::write(const Cell& cell, QTime time)
{
    const PlainNumbers plain;
    const double part = QTime(0, 0).secsTo(time) / secondsOfDay;
    require(worksheet_write_number(cell.sheet, rowOf(cell), columnOf(cell), part,
                                   m_looks[time.second() == 0 ? Minutes : Seconds]),
            m_file);
}

bool Workbook::hasDay(QDate date)
{
    return date >= QDate(1900, 3, 1) && date <= QDate(9999, 12, 31);
}

void Workbook::requireRows() const
{
    for (lxw_worksheet* const sheet : m_sheets)
        if (std::ferror(sheet->optimize_tmpfile) != 0) FileBlocks::fail(errno, m_temporary);
}

void Workbook::endSheet(lxw_worksheet* sheet, std::size_t lastRow, const std::vector<std::size_t>& widths)
{
    const PlainNumbers plain;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto column = static_cast<lxw_col_t>(i);
        worksheet_set_column(sheet, column, column, static_cast<double>(widths[i]), nullptr);
    }
    worksheet_autofilter(sheet, 0, 0, static_cast<lxw_row_t>(lastRow),
                         static_cast<lxw_col_t>(widths.size() - 1));
    errno = 0;
    lxw_worksheet_write_single_row(sheet);
    if (std::fflush(sheet->optimize_tmpfile) != 0 || std::ferror(sheet->optimize_tmpfile) != 0)
        FileBlocks::fail(errno, m_temporary);
    m_rowBytes.push_back(std::ftell(sheet->optimize_tmpfile));
}

void Workbook::putTogether(lxw_workbook* workbook, const QString& file, const std::vector<qint64>& rowBytes)
{
    const PlainNumbers plain;
    errno = 0;
    require(workbook_close(workbook), file);
    if (isWholeWorkbook(file, rowBytes)) return;
    throw Error(EIO, ExportTexts::tr("Temporary files could not be written whole. Is the disk full? (%1)")
                         .arg(QDir::tempPath()));
}

bool Workbook::finish()
{
    if (!m_finishing.valid()) {
        m_finishing = std::async(std::launch::async, &Workbook::putTogether,
                                 std::exchange(m_workbook, nullptr), m_file, m_rowBytes);
    }
    if (isFinishing()) return true;
    m_finishing.get();
    return false;
}

bool Workbook::isFinishing() const
{
    constexpr std::chrono::milliseconds moment{20};
    return m_finishing.valid() && m_finishing.wait_for(moment) != std::future_status::ready;
}
