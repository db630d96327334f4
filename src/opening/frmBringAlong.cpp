// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/frmBringAlong.h"

#include "files/SteppedWork.h"

#include <QElapsedTimer>

namespace {

constexpr int windowlessMilliseconds = 300; ///< work that is done sooner shows no window
constexpr int sliceMilliseconds = 40;

} // namespace

frmBringAlong::frmBringAlong(SteppedWork& work, QWidget* parent) : ProgressWindow(parent), m_work(work)
{
    setObjectName(QStringLiteral("frmBringAlong"));
    setWindowTitle(tr("Bringing Files Along"));
    setTitle(tr("The files of documents and charts beside the database stay as they are."));
    setBarName(tr("Progress"));
    connect(&m_timer, &QTimer::timeout, this, &frmBringAlong::goOn);
}

bool frmBringAlong::run()
{
    if (!workFor(windowlessMilliseconds)) return true;
    setStep(m_work.text());
    setPercent(m_work.percent());
    m_timer.start(0);
    const bool isDone = exec() == QDialog::Accepted;
    m_timer.stop();
    if (m_failure) std::rethrow_exception(m_failure);
    return isDone;
}

/// What was done is taken back before the window closes: for many files, that takes a while too.
void frmBringAlong::reject()
{
    if (m_cancelled) return;
    m_cancelled = true;
    showStopping();
}

/// Returns whether there is more to do.
bool frmBringAlong::workFor(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (m_cancelled ? m_work.undoStep() : m_work.step()) {
        if (time.hasExpired(milliseconds)) return true;
    }
    return false;
}

void frmBringAlong::goOn()
{
    try {
        if (!workFor(sliceMilliseconds)) done(m_cancelled ? QDialog::Rejected : QDialog::Accepted);
    } catch (...) {
        // it must not pass through the event loop
        m_failure = std::current_exception();
        accept();
    }
    if (m_cancelled) return;
    setStep(m_work.text());
    setPercent(m_work.percent());
}
