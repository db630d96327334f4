// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/frmProgress.h"

#include "platform/SteppedWork.h"

namespace {

constexpr int windowlessMilliseconds = 300; ///< work that is done sooner shows no window
constexpr int sliceMilliseconds = 40;

} // namespace

frmProgress::frmProgress(SteppedWork& work, QWidget* parent) : ProgressWindow(parent), m_work(work)
{
    setObjectName(QStringLiteral("frmProgress"));
    setWindowTitle(work.title());
    setTitle(work.remark());
    setBarName(tr("Progress"));
    connect(&m_timer, &QTimer::timeout, this, &frmProgress::goOn);
}

bool frmProgress::run()
{
    m_time.start();
    if (!workFor(windowlessMilliseconds)) return true;
    showState();
    m_timer.start(0);
    const bool isDone = exec() == QDialog::Accepted;
    m_timer.stop();
    if (m_failure) std::rethrow_exception(m_failure);
    return isDone;
}

/// What was done is taken back before the window closes: for many files, that takes a while too.
void frmProgress::reject()
{
    if (m_cancelled) return;
    m_cancelled = true;
    showStopping();
}

/// Returns whether there is more to do.
bool frmProgress::workFor(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (m_cancelled ? m_work.undoStep() : m_work.step()) {
        if (time.hasExpired(milliseconds)) return true;
    }
    return false;
}

void frmProgress::goOn()
{
    try {
        if (!workFor(sliceMilliseconds)) done(m_cancelled ? QDialog::Rejected : QDialog::Accepted);
    } catch (...) {
        // it must not pass through the event loop
        m_failure = std::current_exception();
        accept();
    }
    if (!m_cancelled) showState();
}

void frmProgress::showState()
{
    setStep(m_work.text());
    setPercent(m_work.percent());
    if (const auto bytes = m_work.bytes()) m_rate.note(m_time.elapsed(), *bytes);
    setRate(m_rate.text());
}
