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
    const ViewHistory& history = m_state.history;
    const QString caption = history.view(history.current()).Caption;
    const QString words = history.filter().simplified();
    return words.isEmpty() ? caption : tr("%1, filtered: %2").arg(caption, words);
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

QString ShownView::noGraphic() const
{
    return m_graphics.isHidden() ? tr("The graphic is hidden.") : tr("The graphic shows nothing.");
}
