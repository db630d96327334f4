// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class LinkButton;
class QAbstractScrollArea;
class QLabel;

/// A notice in the middle of an empty list that says why it is empty, with a link to what can be done about
/// it.
class EmptyResultNotice final : public QWidget
{
    Q_OBJECT

public:
    /// Becomes a child of the area, which it covers in part while it is shown.
    explicit EmptyResultNotice(QAbstractScrollArea& area);

    /// Without a link if its text is empty.
    void showNotice(const QString& text, const QString& link);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void linkFollowed();

private:
    void placeInMiddle();

    QWidget& m_viewport;
    QLabel* m_text;
    LinkButton* m_link;
};
