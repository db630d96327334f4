// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

class DatabaseCommands;
class ListPane;
class RecordEditors;
class RequestQueue;
class SearchCommands;
class QWidget;
struct Platform;
struct ProgramState;
struct RecordReference;
struct StartRequest;

/// Does what this start of the program and others ask of the window: a search, a record to be shown. Lives as
/// long as the window.
class StartCommands final : public QObject
{
    Q_OBJECT

public:
    /// What the requests are done with. All must outlive the object.
    struct Surroundings
    {
        const Platform& platform;
        ProgramState& state;
        const DatabaseCommands& databases;
        ListPane& list;
        RecordEditors& editors;
        SearchCommands& search;
    };

    StartCommands(const Surroundings& surroundings, QWidget& window);

    /// Does what is asked for once the window is shown and nothing else is under way.
    void add(const StartRequest& request);

Q_SIGNALS:
    /// A request waits for a dialog; the text says so.
    void delayed(const QString& text);

private:
    void perform(const StartRequest& request);
    void showRecord(const RecordReference& record);

    Surroundings m_at;
    RequestQueue* m_requests;
};
