#pragma once

#include <QWidget>

/// What the user sees while the program starts.
class frmSplash final : public QWidget
{
    Q_OBJECT

public:
    frmSplash();

protected:
    void paintEvent(QPaintEvent* event) override;
};
