// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

class Timeline;
class QLabel;
class QLineEdit;

/// The modal dialog that asks for a date and moves the timeline to it. Lives for one opening.
class frmGoToDate final : public QDialog
{
    Q_OBJECT

public:
    /// The timeline must outlive the dialog.
    frmGoToDate(Timeline& timeline, QWidget* parent);

private:
    void layOut();
    void cmdOK();

    Timeline& m_timeline;
    QLineEdit* txtDate;
    QLabel* lblProblem;
};
