// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/ColumnWidths.h"

#include "browse/list/ListLayout.h"
#include "browse/list/RecordListView.h"
#include "platform/StdREG.h"
#include "views/clsView.h"

#include <QHeaderView>

#include <algorithm>

namespace {

constexpr int twipsPerPixel = 15;
constexpr int defaultWidth = 96;
constexpr int widestColumn = 4000;
constexpr int widestFitted = 400;

QString section()
{
    return QStringLiteral("Window");
}

QString valueName(RecordKind kind)
{
    return QStringLiteral("Columns%1").arg(static_cast<int>(viewOf(kind)));
}

} // namespace

std::vector<int>& ColumnWidths::chosen(RecordKind kind)
{
    std::vector<int>& widths = m_chosen[kind];
    widths.resize(listLayout(kind).columns.size());
    return widths;
}

void ColumnWidths::choose(RecordKind kind, int column, int width)
{
    chosen(kind).at(static_cast<std::size_t>(column)) = width;
}

/// A width of the layout with the present size of text.
int ColumnWidths::scaled(int width) const
{
    return width * m_textSize / 100;
}

void ColumnWidths::apply(RecordKind kind)
{
    const auto& columns = listLayout(kind).columns;
    const std::vector<int>& widths = chosen(kind);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int width =
            columns[i].widthInTwips == 0 ? defaultWidth : columns[i].widthInTwips / twipsPerPixel;
        m_view.setWidth(static_cast<int>(i), widths[i] == 0 ? scaled(width) : widths[i]);
    }
}

void ColumnWidths::fitTexts(RecordKind kind)
{
    const auto& columns = listLayout(kind).columns;
    const std::vector<int>& widths = chosen(kind);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].fitsTexts || widths[i] != 0) continue;
        const int column = static_cast<int>(i);
        m_view.setWidth(column,
                        std::clamp(m_view.widthNeeded(column), scaled(defaultWidth), scaled(widestFitted)));
    }
}

void ColumnWidths::restore(SettingsStore& settings)
{
    for (const RecordKind kind : recordKinds) {
        const QStringList saved = StdREG(settings).GetRegString(section(), valueName(kind)).split(u' ');
        std::vector<int> widths;
        for (const QString& width : saved) {
            const int pixels = width.toInt();
            widths.push_back(
                pixels <= 0 ? 0 : std::clamp(pixels, m_view.header()->minimumSectionSize(), widestColumn));
        }
        if (widths.size() == listLayout(kind).columns.size()) m_chosen[kind] = widths;
    }
}

void ColumnWidths::save(SettingsStore& settings) const
{
    for (const auto& [kind, widths] : m_chosen) {
        QStringList texts;
        for (const int width : widths)
            texts << QString::number(width);
        StdREG(settings).WriteRegString(section(), valueName(kind), texts.join(u' '));
    }
}
