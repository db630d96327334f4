// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QObject>

class MainCommands;
class ShownView;

/// The command that prints a view. Lives as long as the window.
class PrintCommand final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    PrintCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                 QObject* parent);

    /// The list must have been read to its end.
    void run();

Q_SIGNALS:
    /// Says what was printed; the text is empty if nothing was.
    void done(const QString& text);

private:
    Platform m_platform;
    const ShownView& m_view;
};
