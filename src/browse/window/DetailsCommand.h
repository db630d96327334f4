// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "platform/Platform.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class BrowsePage;
class DetailsPane;
class MainCommands;
class OpenCommand;
class QUrl;
class ShownView;
struct SelectedRecord;

/// The command that shows the selected record beside the list, and what the user follows from there. Lives as
/// long as the window.
class DetailsCommand final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    DetailsCommand(const Platform& platform, const OpenCommand& open, ShownView& view, BrowsePage& page,
                   const MainCommands& commands, QObject* parent);

Q_SIGNALS:
    /// The user wants the file of a document or the chart of an organization.
    void fileAsked(RecordKind kind, qint64 identifier);

private:
    QWidget* makePane(QWidget* parent);
    void showSoon();
    void showSelected();
    void showRecord(const SelectedRecord& record);
    void follow(const QUrl& address);

    Platform m_platform;
    const OpenCommand& m_open;
    ShownView& m_view;
    BrowsePage& m_page;
    DetailsPane* m_pane = nullptr; ///< null until it is first shown
    QTimer m_pause;
    QElapsedTimer m_lastChange; ///< of the selection
};
