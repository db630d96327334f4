// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "journal/UndoSteps.h"
#include "platform/Platform.h"

#include <QDialog>

#include <vector>

class QLabel;
class VersionComparison;

/// The modal dialog that asks whether a step is taken back, or done again, although records or entries of
/// lists were changed since, and shows what was. Lives for one question.
class frmChangedSince final : public QDialog
{
    Q_OBJECT

public:
    frmChangedSince(const Platform& platform, QWidget* parent);

    /// `step` is what would be done, as "Undo Delete of 3 Documents"; there is at least one difference.
    /// Returns whether it is to be done all the same. Return, Esc and the window's close button mean that it
    /// is not.
    [[nodiscard]] bool ask(const QString& step, const std::vector<StepDifference>& differences);

    void done(int result) override;

private:
    Platform m_platform;
    QLabel* m_caption;
    VersionComparison* m_comparison;
};
