// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// Takes a file that is dropped anywhere on a window, even on a field that would take its name as text.
/// Several files are not taken. Lives as long as the window.
class FileDrop final : public QObject
{
    Q_OBJECT

public:
    /// Watches the window and the widgets that it has now.
    explicit FileDrop(QWidget* window);

    void setEnabled(bool enabled) { m_isEnabled = enabled; }

    /// The message for a user who dropped several files.
    [[nodiscard]] static QString severalText();

Q_SIGNALS:
    /// A file of this machine was dropped.
    void dropped(const QString& file);

    /// More than one file was dropped; none is taken.
    void severalDropped();

    /// Files are held over the window, or no longer are.
    void dragged(bool isOver);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeFiles(const QStringList& files);

    bool m_isEnabled = true;
};
