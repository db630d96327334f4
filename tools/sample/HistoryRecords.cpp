// SPDX-License-Identifier: GPL-3.0-or-later

#include "HistoryRecords.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

void addHistory(const QDir& source, const DocumentRecords& documents, const EventRecords& events,
                const OrganizationRecords& organizations, SampleDatabase& database)
{
    const std::map<QString, const NameIndex*> kinds{{u"Document"_s, &documents.names()},
                                                    {u"Event"_s, &events.names()},
                                                    {u"Organization"_s, &organizations.names()}};
    const SourceTable table(source.filePath(u"history.tsv"_s),
                            {u"Kind"_s, u"Name"_s, u"UpdateTime"_s, u"Field"_s, u"Value"_s});
    for (const SourceRow& row : table.rows()) {
        const QString kind = row.requiredText(u"Kind"_s);
        const auto names = kinds.find(kind);
        if (names == kinds.end()) row.fail(u"there is no kind of record \"%1\""_s.arg(kind));
        const QString updateTime = row.requiredText(u"UpdateTime"_s);
        if (!QDateTime::fromString(updateTime, u"yyyy-MM-dd HH:mm:ss"_s).isValid())
            row.fail(u"UpdateTime is not a date and time: \"%1\""_s.arg(updateTime));
        const QString field = row.text(u"Field"_s);
        const qint64 identifier = names->second->find(row.requiredText(u"Name"_s), row);
        if (!database.copyToHistory(kind.toStdString(), identifier, updateTime, field.toStdString(),
                                    textOrNull(row.text(u"Value"_s))))
            row.fail(u"there is no column \"%1\""_s.arg(field));
    }
}
