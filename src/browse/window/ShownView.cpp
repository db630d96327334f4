// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/ShownView.h"

#include "browse/list/ListPane.h"
#include "browse/window/GraphicViews.h"
#include "state/ProgramState.h"

RecordKind ShownView::kind() const
{
    return m_list.kind();
}

QString ShownView::caption() const
{
    return m_state.history.view(m_state.history.current()).Caption;
}

std::vector<qint64> ShownView::records() const
{
    std::vector<qint64> identifiers;
    const RecordListModel& model = m_list.model();
    identifiers.reserve(m_list.count());
    for (int row = 0; row < model.rowCount(); ++row)
        identifiers.push_back(model.identifier(row));
    return identifiers;
}

std::vector<qint64> ShownView::selected() const
{
    std::vector<qint64> identifiers;
    for (const SelectedRecord& record : m_list.selectedRecords())
        identifiers.push_back(record.identifier);
    return identifiers;
}

std::optional<GraphicPicture> ShownView::graphic() const
{
    return m_graphics.picture();
}
