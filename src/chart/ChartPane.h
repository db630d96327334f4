#pragma once

#include "views/ShowOnlyViews.h"

#include <QPoint>
#include <QWidget>

class ChartView;
class Messages;
class QAction;
class QLabel;
class QMenu;
class QScrollArea;
class ViewHistory;

/// The chart beside the list of documents, with its pop-up menu.
class ChartPane final : public QWidget
{
    Q_OBJECT

public:
    /// The references must outlive the pane.
    ChartPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
              Messages& messages, QWidget* parent);
    ~ChartPane() override;

    /// Counts the documents of the current view. Where they cannot be counted, the chart is empty; no message
    /// is shown, since the list has its own.
    void drawCharts();

    /// The type of the bar pointed at last, empty before.
    [[nodiscard]] const QString& selectedDocType() const { return m_selectedDocType; }

private:
    /// The mouse as it was when a button last went down on a bar.
    struct MouseState
    {
        Qt::MouseButton button = Qt::NoButton;
        Qt::KeyboardModifiers shift;
        QPoint position; ///< global
    };

    void selectBar(int bar, Qt::MouseButton button, const QPoint& position);
    void offerMenu();
    void showOnlyType();

    DatabaseSession& m_session;
    ViewHistory& m_history;
    Messages& m_messages;
    ShowOnlyViews m_showOnly;
    QScrollArea* m_area;
    ChartView* m_chart;
    QLabel* m_more; ///< says how many types have no bar
    QMenu* m_menu;
    QAction* m_showOnlyType;
    QString m_selectedDocType;
    MouseState m_mouse;
};
