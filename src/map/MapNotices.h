// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class LinkButton;
class QLabel;

/// What is said over the upper edge of the map: why it is empty, what is hidden, and the offer to group
/// markers. A line is there only while it has something to say, and the map is worked as if it were not.
class MapNotices final : public QWidget
{
    Q_OBJECT

public:
    /// Becomes a child of the map, over whose upper edge it lies.
    explicit MapNotices(QWidget& map);

    /// Says why the map is empty, or nothing with an empty text.
    void explainEmpty(const QString& text) { show(*m_empty, text); }

    /// Says what is hidden, or nothing with an empty text.
    void sayHidden(const QString& text) { show(*m_hidden, text); }

    /// Offers to group the markers, or takes the offer back.
    void offerGroups(bool offered);

Q_SIGNALS:
    void groupsWanted();
    void groupsRefused();

private:
    QLabel* addLabel(const QString& name);
    LinkButton* makeLink(const QString& name, const QString& text);
    void makeOffer();
    static void show(QLabel& label, const QString& text);

    QLabel* m_empty;
    QLabel* m_hidden;
    QWidget* m_offer;
};
