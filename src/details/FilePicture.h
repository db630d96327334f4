// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/LimitedProcess.h"

#include <QLabel>
#include <QPixmap>
#include <QTimer>

/// The first page of a PDF, or a picture, as large as the widget has room for. A program of its own makes it:
/// no file can delay or crash the window.
class FilePicture final : public QLabel
{
    Q_OBJECT

public:
    /// `programs` is the folder of the program that makes pictures; without one, none is shown.
    FilePicture(const QString& programs, QWidget* parent);

    /// Whether a file of this name can be shown, judged by its ending.
    [[nodiscard]] static bool canShow(const QString& file);

    /// Shows a file, or nothing if the path is empty. The picture comes a moment later, so that going from
    /// one record to the next starts no programs.
    void showFile(const QString& file);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void make();
    void take(const LimitedProcess::Result& result);

    QString m_program;
    QString m_file;
    QString m_version; ///< time and size of the file that is shown
    QTimer m_pause;
    LimitedProcess m_process;
};
