// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "widgets/GraphicPicture.h"

#include <QCoreApplication>
#include <QString>

#include <optional>
#include <vector>

class GraphicViews;
class ListPane;
class QWidget;
struct ProgramState;

/// What the window shows, for the commands that bring it out of the program: a view with its list and its
/// graphic.
class ShownView
{
    Q_DECLARE_TR_FUNCTIONS(ShownView)

public:
    /// All must outlive the object.
    ShownView(ProgramState& state, ListPane& list, GraphicViews& graphics, QWidget& window)
        : m_state(state), m_list(list), m_graphics(graphics), m_window(window)
    {
    }

    [[nodiscard]] ProgramState& state() const { return m_state; }
    [[nodiscard]] ListPane& list() const { return m_list; }
    [[nodiscard]] QWidget& window() const { return m_window; }

    [[nodiscard]] RecordKind kind() const;

    /// What the view is called, with the words of its filter.
    [[nodiscard]] QString caption() const;

    /// The records of the list in its order; those that are selected in it.
    [[nodiscard]] std::vector<qint64> records() const;
    [[nodiscard]] std::vector<qint64> selected() const;

    /// The graphic beside the list; std::nullopt if it shows nothing or is hidden.
    [[nodiscard]] std::optional<GraphicPicture> graphic() const;

    /// Why there is no such graphic, in a sentence for the user.
    [[nodiscard]] QString noGraphic() const;

private:
    ProgramState& m_state;
    ListPane& m_list;
    GraphicViews& m_graphics;
    QWidget& m_window;
};
