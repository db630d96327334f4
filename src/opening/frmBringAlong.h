// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/ProgressWindow.h"

#include <QTimer>

#include <exception>

class SteppedWork;

/// Shows the progress of work on the files that belong to a database, and lets the user cancel it. The steps
/// are taken between the events of the window.
class frmBringAlong final : public ProgressWindow
{
    Q_OBJECT

public:
    /// The work must outlive the window.
    frmBringAlong(SteppedWork& work, QWidget* parent);

    /// Does the work; the window comes up only if that takes a while. Returns false if the user cancelled
    /// it. Throws what a step throws.
    [[nodiscard]] bool run();

    void reject() override;

private:
    bool workFor(int milliseconds);
    void goOn();

    SteppedWork& m_work;
    QTimer m_timer;
    std::exception_ptr m_failure;
    bool m_cancelled = false;
};
