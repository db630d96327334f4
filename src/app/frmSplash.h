// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

/// The splash screen, shown while the program starts.
class frmSplash final : public QWidget
{
    Q_OBJECT

public:
    frmSplash();

    /// Shows the window and returns when it has been drawn, or after half a second if the desktop does not
    /// show it. Input of the user waits meanwhile.
    void showAtOnce();

Q_SIGNALS:
    void painted();

protected:
    void paintEvent(QPaintEvent* event) override;
};
