// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/VisibleEvents.h"

#include <QWidget>

class QBoxLayout;
class QLabel;
class QToolButton;

/// The notice over a window without events. Names the nearest events before and after it, with a link to
/// each.
class EmptyWindowNotice final : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyWindowNotice(QWidget* parent);

    /// Shows the nearest events, in the middle of the parent; on one line if the parent is too low for three.
    void showNearest(const std::optional<NearestEvent>& before, const std::optional<NearestEvent>& after);

Q_SIGNALS:
    /// The link to an event was clicked.
    void chosen(qint64 eventId);

private:
    QToolButton* makeLink(const QString& name, const QString& icon);
    void fill(QToolButton& link, const std::optional<NearestEvent>& nearest, const QString& words, int room);

    QBoxLayout* m_layout;
    QLabel* m_text;
    QToolButton* m_before;
    QToolButton* m_after;
};
