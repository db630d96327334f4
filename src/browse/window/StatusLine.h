#pragma once

#include "views/clsView.h"

#include <QObject>

class ElidedLabel;
class QLabel;
class QMainWindow;

/// What the status bar says: the view, what was saved last, how many rows are selected, and how many there
/// are.
class StatusLine final : public QObject
{
    Q_OBJECT

public:
    /// The panels become part of the window's status bar.
    explicit StatusLine(QMainWindow& window);

    /// Says what another view is and how many rows it has, and no longer what was saved in the one before it.
    void showView(const QString& caption, const QString& count);

    /// Until another view is shown.
    void showSaved(ViewKind kind, const QString& name);

    void showSelected(std::size_t rows);

private:
    QLabel* m_view;
    ElidedLabel* m_saved;
    QLabel* m_selection;
    QLabel* m_status;
};
