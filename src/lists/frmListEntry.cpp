// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/frmListEntry.h"

#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "views/PositionPicker.h"
#include "widgets/DialogButtons.h"
#include "widgets/LineEdit.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int shortestLine = 40; ///< letters
constexpr int mostChoicesShown = 15;

QString degrees(double number)
{
    constexpr int decimals = 6;
    static const QRegularExpression zeros(QStringLiteral("\\.?0+$"));
    return QString::number(number, 'f', decimals).remove(zeros);
}

} // namespace

frmListEntry::frmListEntry(const Platform& platform, DatabaseSession& session, PositionPicker& positions,
                           ListKind list, QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_store(session, m_platform.clock),
      m_positions(positions),
      m_list(list)
{
    setObjectName(QStringLiteral("frmListEntry"));
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    makeFields(*form);
    QDialogButtonBox* buttons = DialogButtons::okAndCancel(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmListEntry::cmdOK);
}

QLineEdit* frmListEntry::addLine(QFormLayout& form, const char* name, const QString& caption)
{
    auto* line = new LineEdit(this);
    line->setObjectName(QString::fromLatin1(name));
    line->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * shortestLine);
    form.addRow(caption, line);
    return line;
}

QComboBox* frmListEntry::addChoice(QFormLayout& form, const char* name, const QString& caption)
{
    auto* combo = new QComboBox(this);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
    combo->setMaxVisibleItems(mostChoicesShown);
    form.addRow(caption, combo);
    return combo;
}

void frmListEntry::makeFields(QFormLayout& form)
{
    switch (m_list) {
    case ListKind::OrganizationSubTypes:
        txtName = addLine(form, "txtName", tr("&Name:"));
        cmbOf = addChoice(form, "cmbType", tr("&Type:"));
        break;
    case ListKind::States:
        txtName = addLine(form, "txtName", tr("&Abbreviation:"));
        txtDetail = addLine(form, "txtStateName", tr("&State:"));
        break;
    case ListKind::Cities:
        txtName = addLine(form, "txtName", tr("&City:"));
        makeCityFields(form);
        break;
    default:
        txtName = addLine(form, "txtName", tr("&Name:"));
    }
}

void frmListEntry::makeCityFields(QFormLayout& form)
{
    cmbOf = addChoice(form, "cmbState", tr("&State:"));
    txtLatitude = addLine(form, "txtLatitude", tr("&Latitude:"));
    txtLatitude->setPlaceholderText(tr("such as 30.27"));
    txtLongitude = addLine(form, "txtLongitude", tr("L&ongitude:"));
    txtLongitude->setPlaceholderText(tr("such as -97.74"));
    auto* map = new QPushButton(tr("On &Map…"), this);
    map->setObjectName(QStringLiteral("cmdOnMap"));
    map->setToolTip(tr("Takes the position from a click on the map"));
    map->setAutoDefault(false);
    form.addRow(QString(), map);
    connect(map, &QPushButton::clicked, this, &frmListEntry::pickPosition);
}

std::optional<LookupEntry> frmListEntry::addEntry(const LookupEntry& preset)
{
    m_isNew = true;
    if (!show(preset, tr("New: %1").arg(listEntryWord(m_list)))) return std::nullopt;
    m_entry.key = m_outcome.key;
    m_entry.name = m_entry.name.trimmed();
    return m_entry;
}

std::optional<ListOutcome> frmListEntry::changeEntry(const LookupEntry& entry)
{
    m_isNew = false;
    if (!show(entry, tr("Rename: %1").arg(listEntryWord(m_list)))) return std::nullopt;
    return m_outcome;
}

bool frmListEntry::show(const LookupEntry& entry, const QString& title)
{
    m_entry = entry;
    setWindowTitle(title);
    if (!runProcedure(m_platform.messages, QStringLiteral("fillList"), [&] { fillChoices(entry); })) {
        return false;
    }
    txtName->setText(entry.name);
    txtName->selectAll();
    if (txtDetail != nullptr) txtDetail->setText(entry.detail);
    if (txtLatitude != nullptr) showPosition(entry.position);
    return exec() == Accepted;
}

/// Throws Error.
void frmListEntry::fillChoices(const LookupEntry& entry)
{
    if (cmbOf == nullptr) return;
    const bool isCity = m_list == ListKind::Cities;
    if (isCity) cmbOf->addItem(ListEntry::none().display);
    for (const LookupEntry& each : m_store.names(isCity ? ListKind::States : ListKind::OrganizationTypes))
        cmbOf->addItem(each.name, each.key);
    if (!isCity) {
        cmbOf->setCurrentIndex(std::max(cmbOf->findData(entry.typeId), 0));
        // its organizations would have the sub-type of another type
        cmbOf->setEnabled(m_isNew && cmbOf->findData(entry.typeId) < 0);
        return;
    }
    if (cmbOf->findText(entry.detail, Qt::MatchFixedString) < 0 && !entry.detail.isEmpty()) {
        cmbOf->addItem(entry.detail);
    }
    cmbOf->setCurrentIndex(std::max(cmbOf->findText(entry.detail, Qt::MatchFixedString), 0));
}

void frmListEntry::showPosition(const std::optional<MapPosition>& position)
{
    txtLatitude->setText(position ? degrees(position->lat) : QString());
    txtLongitude->setText(position ? degrees(position->lon) : QString());
}

void frmListEntry::pickPosition()
{
    std::optional<MapPosition> position;
    // what cannot be read has no place on the map
    (void)ListStore::readPosition(txtLatitude->text(), txtLongitude->text(), position);
    if (const auto picked = m_positions.pick(position, this)) showPosition(picked);
}

/// Takes what the fields hold; returns false if the position cannot be read, which the user was told.
bool frmListEntry::take()
{
    m_entry.name = txtName->text();
    if (txtDetail != nullptr) m_entry.detail = txtDetail->text();
    if (m_list == ListKind::OrganizationSubTypes) m_entry.typeId = cmbOf->currentData().toLongLong();
    if (m_list != ListKind::Cities) return true;
    // the list of states and the city may differ in letter case
    if (m_entry.detail.compare(cmbOf->currentText(), Qt::CaseInsensitive) != 0) {
        m_entry.detail = cmbOf->currentText();
    }
    const bool isAsShown = m_entry.position && txtLatitude->text() == degrees(m_entry.position->lat) &&
                           txtLongitude->text() == degrees(m_entry.position->lon);
    if (isAsShown) return true; // with more digits than are shown
    const QString problem =
        ListStore::readPosition(txtLatitude->text(), txtLongitude->text(), m_entry.position);
    if (problem.isEmpty()) return true;
    m_platform.messages.show(problem);
    txtLatitude->setFocus();
    return false;
}

void frmListEntry::cmdOK()
{
    if (!take()) return;
    const bool worked = runProcedure(
        m_platform.messages, m_isNew ? QStringLiteral("addEntry") : QStringLiteral("changeEntry"),
        [this] { m_outcome = m_isNew ? m_store.add(m_list, m_entry) : m_store.change(m_list, m_entry); });
    if (!worked) return;
    if (m_outcome.problem.isEmpty()) return accept();
    m_platform.messages.show(m_outcome.problem);
    txtName->setFocus();
    txtName->selectAll();
}
