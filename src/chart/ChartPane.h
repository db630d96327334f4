#pragma once

#include "platform/Platform.h"

#include <QPoint>
#include <QWidget>

class ChartView;
class QAction;
class QLabel;
class QMenu;
class QScrollArea;
struct ProgramState;

/// The chart beside the list of documents, with its pop-up menu.
class ChartPane final : public QWidget
{
    Q_OBJECT

public:
    /// The program's state must outlive the pane.
    ChartPane(const Platform& platform, ProgramState& state, QWidget* parent);
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

    Platform m_platform;
    ProgramState& m_state;
    QScrollArea* m_area;
    ChartView* m_chart;
    QLabel* m_more; ///< says how many types have no bar
    QMenu* m_menu;
    QAction* m_showOnlyType;
    QString m_selectedDocType;
    MouseState m_mouse;
};
