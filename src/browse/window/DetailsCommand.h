// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "platform/Platform.h"

#include <QObject>

class BrowsePage;
class MainCommands;
class ShownView;

/// The command that shows the current record beside the list. Lives as long as the window.
class DetailsCommand final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    DetailsCommand(const Platform& platform, const ShownView& view, BrowsePage& page,
                   const MainCommands& commands, QObject* parent);

Q_SIGNALS:
    /// The user wants the file of a document or the chart of an organization.
    void fileAsked(RecordKind kind, qint64 identifier);

private:
    Platform m_platform;
    const ShownView& m_view;
    BrowsePage& m_page;
};
