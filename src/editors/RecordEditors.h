#pragma once

#include "data/ListEntry.h"
#include "platform/Platform.h"
#include "records/EditorTypes.h"
#include "views/clsView.h"

#include <QDateTime>
#include <QObject>

#include <optional>
#include <vector>

class RecordDialog;
class QWidget;
struct ProgramState;

/// Opens the editors over the main window, each made when it is asked for, and deletes records. Whatever was
/// written, one notice goes out. Lives as long as the window.
class RecordEditors final : public QObject
{
    Q_OBJECT

public:
    /// All three must outlive the editors.
    RecordEditors(const Platform& platform, ProgramState& state, QWidget& window);

    /// `file` is the path of a file to begin with, or empty.
    void addDocument(const std::optional<clsFieldInfo>& preset = {}, const QString& file = QString());
    void addEvent(const std::optional<clsFieldInfo>& preset = {});
    void addOrganization();

    /// Opens the editor of a kind that adds a record; an organization takes no preset.
    void add(ViewKind kind, const std::optional<clsFieldInfo>& preset);

    /// Open a record of a kind that has records; ask nothing and do nothing for other kinds.
    void edit(ViewKind kind, qint64 id);
    void view(ViewKind kind, qint64 id);

    /// Tells a user who dropped several files on the window that only one can be taken.
    void refuseSeveralFiles() const;

    /// Asks whether the records of a kind may go, once for all of them, and marks them as deleted.
    void remove(ViewKind kind, const std::vector<ListEntry>& records);

Q_SIGNALS:
    /// An event was saved that starts then, or that has no date; comes before `changed`.
    void eventSaved(const std::optional<QDateTime>& start);

    /// Records of a kind were saved or deleted; `id` is the one that was saved, or below 0.
    void changed(ViewKind kind, qint64 id);

    /// A record of that name was saved whole; comes after `changed`.
    void saved(ViewKind kind, const QString& name);

    /// The file of a document, or the chart of an organization, that is viewed is to be opened.
    void fileAsked(ViewKind kind, qint64 id);

private:
    void open(ViewKind kind, qint64 id, EditorMode mode, QWidget& over);
    void prepare(ViewKind kind, RecordDialog& dialog);
    void finish(ViewKind kind, const RecordDialog& dialog);
    [[nodiscard]] bool mayDelete(ViewKind kind, const std::vector<ListEntry>& records);
    QString deleteRecord(ViewKind kind, qint64 id);
    [[nodiscard]] static QString deletionText(ViewKind kind, const QStringList& names);
    bool deleteRecords(ViewKind kind, const std::vector<ListEntry>& records);

    Platform m_platform;
    ProgramState& m_state;
    QWidget& m_window;
};
