// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>

class QAction;
class QToolBar;
class QToolButton;

/// Keeps all buttons of a toolbar visible: if the bar is too narrow, as many of them as necessary lose their
/// texts.
class ToolBarLabels final : public QObject
{
    Q_OBJECT

public:
    /// The actions of the bar lose their texts in this order. The object belongs to the bar; the actions must
    /// outlive it.
    ToolBarLabels(QToolBar& bar, QList<QAction*> actions);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    [[nodiscard]] QToolButton& button(QAction& action) const;

    QToolBar& m_bar;
    QList<QAction*> m_actions;
};
