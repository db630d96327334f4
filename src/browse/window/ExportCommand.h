// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QObject>

class MainCommands;
class ShownView;

/// The command that exports the records of a view. Lives as long as the window.
class ExportCommand final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    ExportCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                  QObject* parent);

    void run();

Q_SIGNALS:
    /// Records were exported.
    void done(const QString& text);

private:
    Platform m_platform;
    const ShownView& m_view;
};
