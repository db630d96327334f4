#pragma once

#include "timeline/VisibleEvents.h"

#include <QWidget>

class QBoxLayout;
class QLabel;
class QToolButton;

/// What an empty window says: that it is, and where the nearest events before and after it are. A click on
/// one of them asks to go there.
class EmptyWindowNotice final : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyWindowNotice(QWidget* parent);

    /// Says where the nearest events are and takes the middle of its parent; in one line where that is low.
    void showNearest(const std::optional<NearestEvent>& before, const std::optional<NearestEvent>& after);

Q_SIGNALS:
    void chosen(qint64 eventId);

private:
    QToolButton* makeLink(const QString& name, const QString& icon);
    void fill(QToolButton& link, const std::optional<NearestEvent>& nearest, const QString& words, int room);

    QBoxLayout* m_layout;
    QLabel* m_text;
    QToolButton* m_before;
    QToolButton* m_after;
};
