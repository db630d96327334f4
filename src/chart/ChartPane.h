// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/DocumentTypeCounts.h"
#include "views/ShowOnlyViews.h"
#include "widgets/GraphicPicture.h"

#include <QPoint>
#include <QWidget>

#include <optional>
#include <vector>

class ChartView;
class Messages;
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QScrollArea;
class QToolBar;
class SettingsStore;
class ViewHistory;

/// The chart beside the list of documents, with its tools and its pop-up menu. Keeps from one run to the next
/// how its bars stand and in which order.
class ChartPane final : public QWidget
{
    Q_OBJECT

public:
    /// The references must outlive the pane.
    ChartPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
              SettingsStore& settings, Messages& messages, QWidget* parent);
    ~ChartPane() override;

    /// Counts the documents of the current view and shows them. If they cannot be counted, the chart is
    /// empty; that is not reported here, since the list reads the same view and reports it.
    void drawCharts();

    /// Says to screen readers what the chart shows and, on a chart without bars, why it has none. To be
    /// called after each drawing, once the number of documents in the view is known.
    void describe(std::size_t documents);

    /// All bars, also those out of sight; std::nullopt if there are none.
    [[nodiscard]] std::optional<GraphicPicture> picture() const;

    /// The type of the bar that was selected last; empty before.
    [[nodiscard]] const QString& selectedDocType() const { return m_selectedDocType; }

private:
    /// The state of the mouse when a bar was selected last.
    struct MouseState
    {
        Qt::MouseButton button = Qt::NoButton;
        Qt::KeyboardModifiers shift;
        QPoint position; ///< global
    };

    void makeTools();
    QAction* addTool(const QString& name, const QString& text, const QString& tip);
    void addOrder(TypeOrder order, const QString& name, const QString& text, const QString& tip);
    void layBars(bool horizontal);
    void setOrder(TypeOrder order);
    void showBars();
    void showCurrentBar();
    void selectBar(int bar, Qt::MouseButton button, const QPoint& position);
    void offerMenu();
    void showOnlyType();

    DatabaseSession& m_session;
    ViewHistory& m_history;
    SettingsStore& m_settings;
    Messages& m_messages;
    ShowOnlyViews m_showOnly;
    QToolBar* m_tools;
    QActionGroup* m_orders;
    QScrollArea* m_area;
    ChartView* m_chart;
    std::vector<DocumentTypeCount> m_counts; ///< as they were read
    TypeOrder m_order = TypeOrder::AsRead;
    QLabel* m_more;            ///< the number of types without a bar
    std::size_t m_leftOut = 0; ///< that number
    QMenu* m_menu;
    QAction* m_showOnlyType;
    QString m_selectedDocType;
    MouseState m_mouse;
};
