// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "data/RecordKind.h"
#include "editors/FormControls.h"
#include "lists/NewEntries.h"
#include "platform/Platform.h"
#include "platform/Procedure.h"
#include "records/EditorTypes.h"
#include "records/StoredState.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class AddressEdit;
class CheckList;
class DatabaseSession;
class EntryCombo;
class FieldWithNew;
class FileDrop;
class LinkList;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// What the three editors have in common: their modes, the two buttons, and how changes are saved or given
/// up.
///
/// Lives for one opening, which ends when OK has saved the record or the user cancels. OK in a dialog for
/// viewing turns it into one for editing. Cancel, Esc and the window's close button ask first if something
/// was changed.
class RecordDialog : public QDialog
{
    Q_OBJECT

public:
    /// Whether rows were written, also if a later step failed and the user then cancelled.
    [[nodiscard]] bool hasWritten() const { return m_hasWritten; }

    /// The identifier of the open record; below 0 if it was never saved.
    [[nodiscard]] virtual qint64 recordId() const = 0;

    /// The name under which it was last read or written.
    [[nodiscard]] virtual QString recordName() const = 0;

    /// Shows the record that is viewed as it is stored now.
    void readAgain();

    /// Cancel, Esc and the window's close button end here; asks first if something was changed.
    void reject() override;
    void done(int result) override;
    void setVisible(bool visible) override;

Q_SIGNALS:
    /// The user asks to see a linked document or organization while the record is viewed.
    void recordAsked(RecordKind kind, qint64 id);

    /// The user asks to open the file or the chart of the record that is viewed.
    void fileAsked();

    /// The user asks for the history of the record that is viewed.
    void historyAsked();

protected:
    /// The session and what adds entries must outlive the dialog.
    RecordDialog(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                 const QString& name, QSize firstSize, QWidget* parent);

    /// Puts a button beside a drop-down or a list with check boxes, which adds an entry to the list that it
    /// offers and selects or ticks it. `button` is its object name.
    FieldWithNew* withNew(EntryCombo* combo, ListKind list, const char* button);
    FieldWithNew* withNew(CheckList* checks, ListKind list, const char* button);

    /// Lets the user add an entry to a list. What is typed here stays.
    std::optional<LookupEntry> addEntry(ListKind list, const LookupEntry& preset = {});

    /// Puts the form into the dialog, where it scrolls when the window is small.
    void setForm(QWidget* form);

    /// Marks the captions of the fields that must not be empty while the record can be changed.
    void markRequired(const std::vector<QWidget*>& fields);

    /// Adds a button below the form that asks for the record's file, there while the record is viewed.
    void addFileButton(const QString& caption, const QString& toolTip);

    /// Shows the dialog until the user is done with it, and returns whether the record was saved.
    bool run(EditorMode mode, QWidget* firstField);

    [[nodiscard]] virtual QString captionFor(EditorMode mode) const = 0;

    /// Reads the record and shows it.
    virtual void populateFields(qint64 id) = 0;

    /// Adjusts what the caption, the buttons and the lock do not cover.
    virtual void applyMode(EditorMode mode) = 0;

    /// Checks what the controls hold and writes it. If it returns false, the user was told why.
    virtual bool saveRecord() = 0;

    /// Runs a procedure; a failure shows its message and returns false.
    template <typename Body>
    bool runTrapped(const char* name, Body&& body)
    {
        return runProcedure(m_platform.messages, QString::fromLatin1(name), std::forward<Body>(body));
    }

    /// Writes by `write`, which returns a problem if it wrote nothing. What it wrote before a failure stays
    /// in the file.
    template <typename Problem, typename FieldOf>
    bool writeTrapped(const char* name, const std::function<std::optional<Problem>()>& write, FieldOf fieldOf)
    {
        std::optional<Problem> problem;
        const bool worked = runTrapped(name, [&] { problem = write(); });
        if (problem) return refuse(problem->message, fieldOf(problem->field));
        m_hasWritten = true;
        return worked;
    }

    /// Changes a record that was read by `update`, which returns a conflict, having written nothing, if
    /// the record was changed meanwhile; asks then whether to save over it. `stored` is what was read.
    bool updateTrapped(const char* name, std::optional<StoredState>& stored,
                       const std::function<std::optional<RecordConflict>()>& update);

    void bringIntoSight(QWidget* field);

    /// Shows a message and brings the field it is about into sight and focus. Always returns false.
    bool refuse(const QString& message, QWidget* field);

    /// Fills a drop-down; if that fails, shows a message and keeps the entries read so far. While the dialog
    /// is being opened, a locked database is reported once, and nothing more is read.
    void fillCombo(EntryCombo& combo, const std::function<void(std::vector<ListEntry>&)>& fill);

    /// Whether the drop-downs could not be filled because another program locks the database. The user knows.
    [[nodiscard]] bool isLocked() const { return m_isLocked; }

    /// Lets a click on an address open it in the desktop's program for it.
    void connectAddress(AddressEdit* address);

    /// Lets the button of a list open the pick list, and a list that is viewed ask for its records.
    void connectList(LinkList* list);

    /// Shows `field`, which takes the file, while one is held over the dialog. Several files are refused.
    void connectDrop(FileDrop* drop, QWidget* field);

    [[nodiscard]] const NewEntries& newEntries() const { return m_newEntries; }
    [[nodiscard]] EditorMode mode() const { return m_mode; }
    [[nodiscard]] const Platform& platform() const { return m_platform; }
    [[nodiscard]] QWidget* form() const { return m_form; }

private:
    /// A field whose caption is marked.
    struct RequiredField
    {
        QWidget* field;
        QString name; ///< what a screen reader says of it
        QLabel* label;
        QString caption;
    };

    void makeButtons();
    void setMode(EditorMode mode);
    void showRequired(bool canBeEdited);
    void showField(QWidget* field);
    void cmdOK();
    void pickFor(LinkList& list);
    [[nodiscard]] bool isChanged() const;
    [[nodiscard]] static QString questionOf(const RecordConflict& conflict);

    Platform m_platform;
    DatabaseSession& m_session;
    const NewEntries& m_newEntries;
    EditorMode m_mode = EditorMode::Add;
    QSize m_firstSize;
    QWidget* m_form = nullptr;
    QVBoxLayout* m_layout;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    QHBoxLayout* m_buttons = nullptr;
    QLabel* lblRequired = nullptr;
    QPushButton* cmdOpenFile = nullptr; ///< of kinds that have files
    QPushButton* cmdHistory = nullptr;
    std::vector<RequiredField> m_required;
    FormControls::State m_opened; ///< what the controls held before the user could change them
    bool m_hasWritten = false;
    bool m_isLocked = false;
};
