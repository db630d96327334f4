// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Timeline.h"
#include "widgets/GraphicPicture.h"

#include <QWidget>

class QLabel;
class QScrollBar;
class QToolButton;
class PictureLegend;
class RulerStrip;
class TimelineBand;
class TimelinePicture;

/// The timeline beside the list of events: the ruler, the lanes with their scroll bar, and the buttons that
/// move the window and change its scale. It passes what the user does to the timeline and shows the result.
class TimelinePanel final : public QWidget
{
    Q_OBJECT

public:
    /// The references must outlive the panel.
    TimelinePanel(DatabaseSession& session, ViewHistory& history, const Clock& clock, Messages& messages,
                  QWidget* parent);

    /// Starts afresh on the database that is open.
    void mainLoad();

    /// Shows the events of the current view.
    void drawTimeline();

    /// Selects an event that was chosen in the list, and moves to it.
    void chooseEvent(qint64 eventId);

    /// Marks the event that is selected in the view, or none.
    void showSelected();

    /// Reads the limits again after an event was saved, and moves to its start.
    void updateTimeline(std::optional<Moment> savedStart);

    /// Asks for a date and goes to it.
    void goToDate();

    [[nodiscard]] const Timeline& timeline() const { return m_timeline; }

    /// The ruler and the lanes in sight; std::nullopt if the window has no events.
    [[nodiscard]] std::optional<GraphicPicture> picture() const;

Q_SIGNALS:
    /// The user selected an event on the timeline.
    void eventSelected(qint64 eventId);

    /// The user wants to see an event.
    void eventOpened(qint64 eventId);

    /// The user wants the menu of the event that was just selected, at a global position.
    void eventMenuRequested(const QPoint& position);

protected:
    void changeEvent(QEvent* event) override;

private:
    using Handler = void (Timeline::*)();

    void makeParts();
    void connectParts();
    QWidget* makeButtons();
    QToolButton* makeButton(const QString& name, const QString& icon, const QString& text, const QString& key,
                            Handler handler);
    QToolButton* makeMoreBelow();
    void run(Handler handler);
    void select(qint64 eventId);
    void showAll();
    void scrollLanes(int lanes);
    [[nodiscard]] PictureLegend legend() const;
    [[nodiscard]] int captionWidth(const QString& text) const;
    [[nodiscard]] int labelWidth(const QString& text, bool isDate) const;

    Timeline m_timeline;
    TimelinePicture* m_picture = nullptr;
    TimelineBand* m_band = nullptr;
    RulerStrip* m_ruler = nullptr;
    QScrollBar* m_scrollBar = nullptr;
    QToolButton* m_moreBelow = nullptr;
    QToolButton* m_zoomIn = nullptr;
    QToolButton* m_zoomOut = nullptr;
    QLabel* m_zoomLabel = nullptr;
};
