#pragma once

#include <QWidget>

/// What the user sees while the program starts.
class frmSplash final : public QWidget
{
    Q_OBJECT

public:
    frmSplash();

    /// Shows the window and returns once it has been drawn, or after a moment if the desktop does not show
    /// it. What the user does meanwhile waits.
    void showAtOnce();

Q_SIGNALS:
    void painted();

protected:
    void paintEvent(QPaintEvent* event) override;
};
