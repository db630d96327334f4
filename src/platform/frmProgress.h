// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/ProgressWindow.h"
#include "platform/WorkRate.h"

#include <QElapsedTimer>
#include <QTimer>

#include <exception>

class SteppedWork;

/// Shows the progress of long work, and lets the user cancel it. The steps are taken between the events of
/// the window.
class frmProgress final : public ProgressWindow
{
    Q_OBJECT

public:
    /// The work must outlive the window.
    frmProgress(SteppedWork& work, QWidget* parent);

    /// Does the work; the window comes up only if that takes a while. Returns false if the user cancelled
    /// it. Throws what a step throws.
    [[nodiscard]] bool run();

    void reject() override;

private:
    bool workFor(int milliseconds);
    void goOn();
    void showState();

    SteppedWork& m_work;
    QTimer m_timer;
    QElapsedTimer m_time; ///< since the work began
    WorkRate m_rate;
    std::exception_ptr m_failure;
    bool m_cancelled = false;
};
