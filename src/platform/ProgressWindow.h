// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

/// A window that says what is being done and how far it is, with a button that ends it.
class ProgressWindow : public QDialog
{
    Q_OBJECT

protected:
    explicit ProgressWindow(QWidget* parent);

    void setTitle(const QString& text);
    void setStep(const QString& text);
    void setRate(const QString& text);
    void setBarName(const QString& accessibleName);

    /// Without a number, the bar only shows that something is done.
    void setPercent(std::optional<int> percent);

    /// For when the user has cancelled the work and it has not ended yet.
    void showStopping();

private:
    QLabel* m_title;
    QLabel* m_step;
    QLabel* m_rate;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
};
