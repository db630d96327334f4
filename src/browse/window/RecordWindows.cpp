// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/RecordWindows.h"

#include "editors/RecordEditors.h"
#include "history/frmDeletedRecords.h"
#include "lists/frmLists.h"
#include "map/MarkerPictures.h"
#include "state/ProgramState.h"
#include "views/PositionPicker.h"
#include "views/clsCities.h"

#include <QWidget>

RecordWindows::RecordWindows(const Platform& platform, ProgramState& state, PositionPicker& positions,
                             RecordEditors& editors, QWidget& window)
    : QObject(&window),
      m_platform(platform),
      m_state(state),
      m_positions(positions),
      m_editors(editors),
      m_window(window)
{
}

void RecordWindows::openLists()
{
    constexpr double swatch = 12;
    const auto marker = [this](qint64 function) {
        return MarkerPictures::picture(clsCities::colourOf(function), swatch, m_window.devicePixelRatioF());
    };
    frmLists dialog({m_platform, m_state.session, m_state.folder, m_state.queries, m_positions, marker},
                    &m_window);
    dialog.showLists();
    if (const auto& view = dialog.wantedView())
        Q_EMIT viewWanted(*view);
    else if (dialog.hasChanged())
        Q_EMIT listsChanged();
}

void RecordWindows::openDeleted(RecordKind kind)
{
    const auto view = [this](RecordKind shown, qint64 identifier, QWidget& over) {
        m_editors.viewOver(over, shown, identifier);
    };
    const auto history = [this](RecordKind shown, qint64 identifier, QWidget& over) {
        m_editors.showHistoryOver(over, shown, identifier);
    };
    frmDeletedRecords dialog({m_platform, m_state.session, view, history}, &m_window);
    connect(&dialog, &frmDeletedRecords::restored, this, &RecordWindows::restored);
    dialog.showDeleted(kind);
}
