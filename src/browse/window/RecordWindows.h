// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "platform/Platform.h"
#include "views/clsView.h"

#include <QObject>

#include <vector>

class PositionPicker;
class QWidget;
class RecordEditors;
struct ProgramState;

/// The windows that change records other than by their editors: that of the lists, and that of the deleted
/// records. Lives as long as the main window.
class RecordWindows final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    RecordWindows(const Platform& platform, ProgramState& state, PositionPicker& positions,
                  RecordEditors& editors, QWidget& window);

    void openLists();

    /// Begins with the deleted records of that kind.
    void openDeleted(RecordKind kind);

Q_SIGNALS:
    /// The user asked for a view in the window of the lists, which is closed.
    void viewWanted(const clsView& view);

    /// Entries of lists were changed, and no view was asked for.
    void listsChanged();

    /// Deleted records are active again.
    void restored(RecordKind kind, const std::vector<qint64>& identifiers);

private:
    Platform m_platform;
    ProgramState& m_state;
    PositionPicker& m_positions;
    RecordEditors& m_editors;
    QWidget& m_window;
};
