// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/RecordReader.h"
#include "print/PrintedPages.h"

#include <QImage>
#include <QTextDocument>

#include <memory>
#include <optional>
#include <vector>

/// Records on paper, each as a sheet with its fields and links that begins on a page of its own. A record
/// that is not there any more has none.
class SheetPages final : public PrintedPages
{
public:
    /// The session must outlive the pages.
    SheetPages(const QString& caption, DatabaseSession& session, RecordKind kind,
               std::vector<qint64> records);

    [[nodiscard]] int count() const override { return static_cast<int>(m_pages.size()); }

protected:
    void restart() override;
    double measureMore() override;
    void paintContent(QPainter& painter, int page) override;

private:
    struct Page
    {
        std::size_t record; ///< its place among the records
        int number;         ///< among the pages of its sheet, from 0
    };

    [[nodiscard]] const ExportedRecord* read(std::size_t record);
    QTextDocument* sheetOf(std::size_t record);

    RecordReader m_reader;
    std::vector<qint64> m_records;
    std::span<const ExportedRecord> m_read; ///< those of a portion that are there
    std::size_t m_portion = 0;              ///< where it begins
    QImage m_paper;                         ///< measures in twips
    std::unique_ptr<QTextDocument> m_sheet; ///< the last one that was needed, null without its record
    std::optional<std::size_t> m_sheetRecord;
    std::vector<Page> m_pages;
    std::size_t m_measured = 0; ///< records
};
