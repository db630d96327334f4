// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "data/RecordKind.h"
#include "platform/Platform.h"
#include "records/EditorTypes.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>

#include <optional>
#include <vector>

class DatabaseSession;
class NewEntries;
class ProgramFolder;
class QWidget;
class RecordDialog;
struct JournalStep;

/// Opens the editors over the main window, each made when it is asked for, and deletes records. Every change
/// is announced once, by `changed`. Lives as long as the window.
class RecordEditors final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the editors.
    RecordEditors(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                  const ProgramFolder& folder, QWidget& window);

    /// `file` is the path of a file to begin with, or empty.
    void addDocument(const std::optional<clsFieldInfo>& preset = {}, const QString& file = QString());
    void addEvent(const std::optional<clsFieldInfo>& preset = {});
    void addOrganization();

    /// Opens the editor of a kind that adds a record; an organization takes no preset.
    void add(RecordKind kind, const std::optional<clsFieldInfo>& preset);

    void edit(RecordKind kind, qint64 id);
    void view(RecordKind kind, qint64 id);
    void viewOver(QWidget& over, RecordKind kind, qint64 id);

    /// Shows the versions of a record. Returns whether one was restored; what is behind the window is then
    /// read again already.
    bool showHistory(RecordKind kind, qint64 id);
    bool showHistoryOver(QWidget& over, RecordKind kind, qint64 id);

    /// Shows the message for several files dropped on the window at once.
    void refuseSeveralFiles() const;

    /// Announces that active or deleted records of a kind were changed by other means, as after a save of the
    /// first of them.
    void tellOfChange(RecordKind kind, const std::vector<qint64>& ids);

    /// Asks once whether all these records may be deleted, and marks them as deleted.
    void remove(RecordKind kind, const std::vector<ListEntry>& records);

Q_SIGNALS:
    /// An event was saved; `start` is std::nullopt if it has no date. Comes before `changed`.
    void eventSaved(const std::optional<QDateTime>& start);

    /// Records of a kind were saved, deleted or restored; `id` is the saved one, or below 0.
    void changed(RecordKind kind, qint64 id);

    /// A record of that name was saved without an error. Comes after `changed`.
    void saved(RecordKind kind, qint64 id, const QString& name);

    /// Records of these names were deleted. Comes after `changed`.
    void deleted(RecordKind kind, const QStringList& names);

    /// The file of a document, or the chart of an organization, that is viewed is to be opened.
    void fileAsked(RecordKind kind, qint64 id);

private:
    void open(RecordKind kind, qint64 id, EditorMode mode, QWidget& over);
    void prepare(RecordKind kind, RecordDialog& dialog);
    [[nodiscard]] std::optional<QDateTime> startOfEvent(qint64 id) const;
    void finish(RecordKind kind, const RecordDialog& dialog);
    [[nodiscard]] bool mayDelete(RecordKind kind, const std::vector<ListEntry>& records);
    QString deleteRecord(RecordKind kind, qint64 id, JournalStep* step);
    [[nodiscard]] static QString deletionText(RecordKind kind, const QStringList& names);
    [[nodiscard]] QStringList deleteRecords(RecordKind kind, const std::vector<ListEntry>& records);

    Platform m_platform;
    DatabaseSession& m_session;
    const NewEntries& m_newEntries;
    const ProgramFolder& m_folder;
    QWidget& m_window;
};
