// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/RecordLinks.h"

#include "records/RecordIdentifier.h"

#include <QSet>

#include <set>

namespace {

const QString settingColumn = QStringLiteral("Setting");

QString condition(const LinkTable& links, qint64 record)
{
    return QStringLiteral(" FROM ") + links.table + QStringLiteral(" WHERE ") + links.recordColumn +
           QStringLiteral(" = ") + QString::number(record);
}

/// Deletes a record's links and opens the table for the new ones.
EditableRecordSet replace(DatabaseSession& session, const LinkTable& links, qint64 record)
{
    session.execute(QStringLiteral("DELETE") + condition(links, record));
    return session.edit(QStringLiteral("SELECT *") + condition(links, record));
}

void addLink(EditableRecordSet& rows, const LinkTable& links, qint64 record, qint64 link)
{
    rows.addNew();
    rows.set(links.recordColumn, record);
    rows.set(links.linkColumn, link);
}

} // namespace

std::vector<ListEntry> RecordLinks::read(DatabaseSession& session, const QString& statement,
                                         const QString& displayColumn, const QString& keyColumn)
{
    std::vector<ListEntry> entries;
    QSet<qint64> taken;
    RecordSet rows = session.read(statement);
    const int display = rows.column(displayColumn);
    const int key = rows.column(keyColumn);
    while (rows.next()) {
        const qint64 identifier = rows.integer(key);
        if (taken.contains(identifier)) continue;
        taken.insert(identifier);
        entries.push_back({rows.text(display), identifier});
    }
    return entries;
}

void RecordLinks::readChecks(DatabaseSession& session, const LinkTable& links, qint64 record, bool hasSetting,
                             std::vector<CheckEntry>& entries)
{
    QSet<qint64> linked;
    RecordSet rows = session.read(QStringLiteral("SELECT *") + condition(links, record));
    const int link = rows.column(links.linkColumn);
    const int setting = hasSetting ? rows.column(settingColumn) : -1;
    while (rows.next()) {
        if (!hasSetting || rows.integer(setting) == 1) linked.insert(rows.integer(link));
    }
    for (CheckEntry& entry : entries)
        entry.isChecked = linked.contains(entry.entry.key);
}

void RecordLinks::addPlaceholder(std::vector<ListEntry>& entries)
{
    if (entries.empty()) entries.push_back(ListEntry::none());
}

void RecordLinks::rewrite(DatabaseSession& session, const LinkTable& links, qint64 record,
                          std::vector<ListEntry> entries)
{
    addPlaceholder(entries);
    EditableRecordSet rows = replace(session, links, record);
    QSet<qint64> taken;
    for (const ListEntry& entry : entries) {
        if (taken.contains(entry.key)) continue;
        taken.insert(entry.key);
        addLink(rows, links, record, entry.key);
        rows.update();
    }
}

void RecordLinks::rewriteChecked(DatabaseSession& session, const LinkTable& links, qint64 record,
                                 const std::vector<CheckEntry>& entries)
{
    EditableRecordSet rows = replace(session, links, record);
    for (const CheckEntry& entry : entries) {
        if (!entry.isChecked) continue;
        addLink(rows, links, record, entry.entry.key);
        rows.update();
    }
}

void RecordLinks::rewriteSettings(DatabaseSession& session, const LinkTable& links, qint64 record,
                                  const std::vector<CheckEntry>& entries)
{
    EditableRecordSet rows = replace(session, links, record);
    for (const CheckEntry& entry : entries) {
        addLink(rows, links, record, entry.entry.key);
        rows.set(settingColumn, qint64{entry.isChecked ? 1 : 0});
        rows.update();
    }
}

FieldValue RecordLinks::field(const LinkTable& links, const char* caption,
                              const std::vector<ListEntry>& entries)
{
    std::set<qint64> keys;
    for (const ListEntry& entry : entries)
        keys.insert(entry.key);
    QString text;
    for (const qint64 key : keys)
        text += QString::number(key) + u' ';
    return {links.table, caption, text};
}

FieldValue RecordLinks::field(const LinkTable& links, const char* caption,
                              const std::vector<CheckEntry>& entries)
{
    std::vector<ListEntry> checked;
    for (const CheckEntry& entry : entries) {
        if (entry.isChecked) checked.push_back(entry.entry);
    }
    return field(links, caption, checked);
}

void RecordLinks::requireIdentifiers(const std::vector<ListEntry>& entries)
{
    for (const ListEntry& entry : entries)
        recordIdentifier(entry.key);
}

void RecordLinks::requireIdentifiers(const std::vector<CheckEntry>& entries)
{
    for (const CheckEntry& entry : entries)
        recordIdentifier(entry.entry.key);
}

void RecordLinks::requireChecked(const std::vector<CheckEntry>& entries)
{
    for (const CheckEntry& entry : entries) {
        if (entry.isChecked) recordIdentifier(entry.entry.key);
    }
}
