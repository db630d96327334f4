#pragma once

#include <QList>
#include <QObject>

class QAction;
class QToolBar;
class QToolButton;

/// Lets labels of a toolbar go before any of its buttons does: if the bar is too narrow for all of them,
/// buttons show their icons alone, as many as need be.
class ToolBarLabels final : public QObject
{
    Q_OBJECT

public:
    /// The labels of these actions of the bar go in this order, the first one first.
    /// The object belongs to the bar; the actions must outlive it.
    ToolBarLabels(QToolBar& bar, QList<QAction*> actions);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    [[nodiscard]] QToolButton& button(QAction& action) const;

    QToolBar& m_bar;
    QList<QAction*> m_actions;
};
