// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "print/ColumnFit.h"
#include "print/PrintedPages.h"

#include <QFontMetricsF>
#include <QStringList>
#include <QSvgRenderer>

#include <vector>

class RecordListModel;

/// A list on paper: its rows in their present order under the titles of its columns. Texts that are too wide
/// for their column go on below; what is longer than a few lines ends with an ellipsis.
class ListPages final : public PrintedPages
{
public:
    /// The model must outlive the pages and stay as it is.
    ListPages(const QString& caption, const RecordListModel& model);

    [[nodiscard]] int count() const override { return static_cast<int>(m_firstRows.size()); }

protected:
    void restart() override;
    double measureMore() override;
    void paintContent(QPainter& painter, int page) override;

private:
    struct Column
    {
        double left = 0;
        double width = 0;
        bool marksKeys = false;
    };

    void fitColumns();
    [[nodiscard]] ColumnNeed need(int column) const;
    [[nodiscard]] QString text(int row, int column) const;
    [[nodiscard]] QStringList lines(const QString& text, double width) const;
    [[nodiscard]] std::vector<QStringList> cells(int row) const;
    [[nodiscard]] double heightOf(const std::vector<QStringList>& cells) const;
    [[nodiscard]] double titlesHeight() const;
    [[nodiscard]] QRectF cell(const Column& column, double top, double height) const;
    void paintTitles(QPainter& painter);
    void paintRow(QPainter& painter, int row, const std::vector<QStringList>& cells, const QRectF& place);
    void paintKey(QPainter& painter, const QRectF& cell);

    const RecordListModel& m_model;
    QFont m_font;
    QFont m_titleFont;
    QFontMetricsF m_metrics;
    double m_lineHeight;
    QSvgRenderer m_key;
    std::vector<Column> m_columns;
    std::vector<int> m_firstRows; ///< of each page
    int m_measured = 0;           ///< rows
    double m_used = 0;            ///< of the last page, by its rows
};
