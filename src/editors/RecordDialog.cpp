// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/RecordDialog.h"

#include "data/DatabaseSession.h"
#include "editors/AddressEdit.h"
#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/FieldWithNew.h"
#include "editors/FileDrop.h"
#include "editors/LinkList.h"
#include "editors/PickedLists.h"
#include "editors/PickerEdit.h"
#include "editors/frmPicList.h"
#include "platform/Messages.h"
#include "platform/Shell.h"
#include "records/PickedEntries.h"
#include "widgets/WindowSize.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

RecordDialog::RecordDialog(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                           const QString& name, QSize firstSize, QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_session(session),
      m_newEntries(newEntries),
      m_firstSize(firstSize),
      m_layout(new QVBoxLayout(this))
{
    setObjectName(name);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
}

void RecordDialog::setForm(QWidget* form)
{
    m_form = form;
    FormControls::takeAnyLength(*form);
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("scrollArea"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(form);
    m_layout->addWidget(scroll);
    const auto lines = form->findChildren<QLineEdit*>();
    for (QLineEdit* line : lines) {
        // once it is left, a long text shows its beginning
        if (qobject_cast<PickerEdit*>(line) != nullptr) continue;
        connect(line, &QLineEdit::editingFinished, line, [line] { line->setCursorPosition(0); });
    }
    makeButtons();
}

void RecordDialog::makeButtons()
{
    m_ok = new QPushButton(this);
    m_ok->setObjectName(QStringLiteral("cmdOK"));
    m_ok->setDefault(true);
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cancel->setAutoDefault(false);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(m_ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    lblRequired = new QLabel(tr("Fields marked * are required."), this);
    lblRequired->setObjectName(QStringLiteral("lblRequired"));
    cmdHistory = new QPushButton(tr("History…"), this);
    cmdHistory->setObjectName(QStringLiteral("cmdHistory"));
    cmdHistory->setAutoDefault(false);
    // every letter that could stand behind Alt belongs to a field of one of the three forms
    cmdHistory->setShortcut(Qt::CTRL | Qt::Key_H);
    cmdHistory->setToolTip(tr("Shows the versions of this record (%1)")
                               .arg(cmdHistory->shortcut().toString(QKeySequence::NativeText)));
    m_buttons = new QHBoxLayout;
    m_buttons->addWidget(cmdHistory);
    m_buttons->addWidget(lblRequired);
    m_buttons->addStretch();
    m_buttons->addWidget(buttons);
    m_layout->addLayout(m_buttons);
    connect(cmdHistory, &QPushButton::clicked, this, &RecordDialog::historyAsked);
    connect(m_ok, &QPushButton::clicked, this, &RecordDialog::cmdOK);
    connect(m_cancel, &QPushButton::clicked, this, &RecordDialog::reject);
    // in a text of several lines, Return alone begins a new line
    for (const QKeyCombination key : {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}) {
        connect(new QShortcut(key, this), &QShortcut::activated, m_ok, &QPushButton::click);
    }
}

void RecordDialog::markRequired(const std::vector<QWidget*>& fields)
{
    const auto labels = m_form->findChildren<QLabel*>();
    for (QWidget* field : fields) {
        const auto label = std::find_if(labels.begin(), labels.end(),
                                        [field](const QLabel* each) { return each->buddy() == field; });
        m_required.push_back({field, field->accessibleName(), *label, (*label)->text()});
    }
}

void RecordDialog::showRequired(bool canBeEdited)
{
    lblRequired->setVisible(canBeEdited);
    for (const RequiredField& each : m_required) {
        each.label->setText(canBeEdited ? tr("%1 *").arg(each.caption) : each.caption);
        each.field->setAccessibleName(canBeEdited ? tr("%1, required").arg(each.name) : each.name);
    }
}

void RecordDialog::addFileButton(const QString& caption, const QString& toolTip)
{
    cmdOpenFile = new QPushButton(caption, this);
    cmdOpenFile->setObjectName(QStringLiteral("cmdOpenFile"));
    cmdOpenFile->setAutoDefault(false);
    cmdOpenFile->setToolTip(toolTip);
    m_buttons->insertWidget(0, cmdOpenFile);
    setTabOrder(cmdOpenFile, cmdHistory);
    connect(cmdOpenFile, &QPushButton::clicked, this, &RecordDialog::fileAsked);
}

bool RecordDialog::run(EditorMode mode, QWidget* firstField)
{
    setMode(mode);
    WindowSize::restore(*this, m_platform.settings, m_firstSize);
    FormControls::showBeginnings(*m_form);
    firstField->setFocus();
    m_opened = FormControls::state(*m_form);
    return exec() == Accepted;
}

void RecordDialog::setMode(EditorMode mode)
{
    m_mode = mode;
    setWindowTitle(captionFor(mode));
    if (mode == EditorMode::View) {
        FormControls::lock(*m_form);
    } else {
        FormControls::unlock(*m_form);
    }
    const bool canBeEdited = mode != EditorMode::View || !m_session.isReadOnly();
    m_ok->setText(mode == EditorMode::View ? tr("Edit") : tr("OK"));
    m_ok->setEnabled(canBeEdited);
    m_ok->setToolTip(canBeEdited ? QString() : tr("The database can be read, but not changed."));
    showRequired(mode != EditorMode::View);
    for (FieldWithNew* field : m_form->findChildren<FieldWithNew*>())
        field->setOffered(mode != EditorMode::View);
    cmdHistory->setVisible(mode == EditorMode::View);
    if (cmdOpenFile != nullptr) cmdOpenFile->setVisible(mode == EditorMode::View);
    applyMode(mode);
}

void RecordDialog::cmdOK()
{
    if (m_mode == EditorMode::View) {
        setMode(EditorMode::Edit);
        m_opened = FormControls::state(*m_form);
        return;
    }
    // some fields only take what was typed when they lose the focus
    m_ok->setFocus();
    if (saveRecord()) accept();
}

void RecordDialog::readAgain()
{
    FormControls::clear(*m_form);
    runTrapped("populateFields", [this] { populateFields(recordId()); });
    FormControls::showBeginnings(*m_form);
}

void RecordDialog::reject()
{
    const QString question = tr("Close without saving your changes?");
    if (isChanged() && !m_platform.messages.ask(question, Question::Discard)) return;
    QDialog::reject();
}

void RecordDialog::setVisible(bool visible)
{
    QDialog::setVisible(visible);
    // Qt selects the text of the first field, so that the next key would replace the record's title
    if (auto* line = qobject_cast<QLineEdit*>(focusWidget()); visible && line != nullptr) {
        line->setCursorPosition(0);
    }
}

void RecordDialog::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}

bool RecordDialog::isChanged() const
{
    return m_mode != EditorMode::View && FormControls::state(*m_form) != m_opened;
}

bool RecordDialog::updateTrapped(const char* name, std::optional<StoredState>& stored,
                                 const std::function<std::optional<RecordConflict>()>& update)
{
    for (;;) {
        std::optional<RecordConflict> conflict;
        const bool worked = runTrapped(name, [&] { conflict = update(); });
        if (!conflict) {
            m_hasWritten = true;
            return worked;
        }
        if (!m_platform.messages.ask(questionOf(*conflict), Question::Loss)) return false;
        stored->known = std::move(conflict->found);
    }
}

QString RecordDialog::questionOf(const RecordConflict& conflict)
{
    const QString fields = conflict.fields.join(u'\n');
    if (!conflict.isDeleted) {
        return tr("This record was changed after you opened it. These fields differ:\n\n%1\n\n"
                  "Save over these changes?")
            .arg(fields);
    }
    if (fields.isEmpty()) {
        return tr("This record was deleted after you opened it. Save your changes to it all the same? "
                  "It stays deleted.");
    }
    return tr("This record was deleted after you opened it, and these fields differ:\n\n%1\n\n"
              "Save over these changes all the same? The record stays deleted.")
        .arg(fields);
}

bool RecordDialog::refuse(const QString& message, QWidget* field)
{
    m_platform.messages.show(message);
    bringIntoSight(field);
    return false;
}

void RecordDialog::showField(QWidget* field)
{
    for (QWidget* outer = field; outer != nullptr && outer != this; outer = outer->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(outer);
        if (tabs == nullptr) continue;
        for (int page = 0; page < tabs->count(); ++page) {
            if (tabs->widget(page)->isAncestorOf(field)) tabs->setCurrentIndex(page);
        }
    }
    if (field->isVisible()) {
        findChild<QScrollArea*>(QStringLiteral("scrollArea"))->ensureWidgetVisible(field);
    }
}

void RecordDialog::bringIntoSight(QWidget* field)
{
    showField(field);
    if (!field->isVisible()) return;
    field->setFocus(Qt::OtherFocusReason);
    const auto* combo = qobject_cast<QComboBox*>(field);
    QLineEdit* line = combo == nullptr ? qobject_cast<QLineEdit*>(field) : combo->lineEdit();
    if (line != nullptr) line->selectAll();
}

void RecordDialog::fillCombo(EntryCombo& combo, const std::function<void(std::vector<ListEntry>&)>& fill)
{
    if (m_isLocked && !isVisible()) return;
    std::vector<ListEntry> entries;
    runTrapped("fillList", [&] {
        try {
            fill(entries);
        } catch (const Error& error) {
            m_isLocked = error.isOfLock();
            throw;
        }
    });
    combo.fill(std::move(entries));
}

void RecordDialog::connectAddress(AddressEdit* address)
{
    connect(address, &AddressEdit::opened, this, [this](const QUrl& link) {
        if (!m_platform.shell.open(link)) {
            m_platform.messages.show(tr("There is no program to open this address: %1").arg(link.toString()));
        }
    });
}

void RecordDialog::connectList(LinkList* list)
{
    connect(list, &LinkList::addPressed, this, [this, list] { pickFor(*list); });
    connect(list, &LinkList::newPressed, this, [this, list] {
        if (const auto added = addEntry(*listOf(list->kind()))) list->append({added->name, added->key});
    });
    connect(list, &LinkList::opened, this, &RecordDialog::recordAsked);
}

void RecordDialog::connectDrop(FileDrop* drop, QWidget* field)
{
    connect(drop, &FileDrop::dragged, field, [this, field](bool isOver) {
        if (isOver) showField(field);
        FormControls::light(*field, isOver);
    });
    connect(drop, &FileDrop::severalDropped, this,
            [this] { m_platform.messages.show(FileDrop::severalText()); });
}

FieldWithNew* RecordDialog::withNew(EntryCombo* combo, ListKind list, const char* button)
{
    auto* field = new FieldWithNew(combo, list, button, combo->parentWidget());
    connect(field, &FieldWithNew::newPressed, this, [this, combo, list] {
        const auto added = addEntry(list);
        if (!added) return;
        combo->append({added->name, added->key});
        combo->selectKey(added->key);
    });
    return field;
}

FieldWithNew* RecordDialog::withNew(CheckList* checks, ListKind list, const char* button)
{
    auto* field = new FieldWithNew(checks, list, button, checks->parentWidget());
    connect(field, &FieldWithNew::newPressed, this, [this, checks, list] {
        if (const auto added = addEntry(list)) checks->append({{added->name, added->key}, true});
    });
    return field;
}

std::optional<LookupEntry> RecordDialog::addEntry(ListKind list, const LookupEntry& preset)
{
    auto added = m_newEntries.add(list, preset, this);
    m_hasWritten = m_hasWritten || added;
    return added;
}

void RecordDialog::pickFor(LinkList& list)
{
    runTrapped("showList", [&] {
        PickedItems items = pickedItems(list.entries());
        if (frmPicList(m_platform, m_session, this, &m_newEntries).showList(list.kind(), items)) {
            list.setEntries(listEntries(items));
        }
    });
}
