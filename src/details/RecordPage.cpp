// SPDX-License-Identifier: GPL-3.0-or-later

#include "details/RecordPage.h"

#include "export/RecordReader.h"
#include "export/RecordSheet.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString scheme = u"record"_s;

/// As `record:Event/12`.
std::string addressOf(RecordKind kind, qint64 identifier)
{
    return u"%1:%2/%3"_s.arg(scheme, recordNames(kind).record).arg(identifier).toStdString();
}

} // namespace

QString recordPage(DatabaseSession& session, RecordKind kind, qint64 identifier)
{
    RecordReader reader(session, kind);
    const auto records = reader.read(std::span(&identifier, 1));
    std::string html;
    for (const ExportedRecord& record : records)
        appendRecordSheet(kind, reader.fields(), record, html, addressOf);
    return QString::fromStdString(html);
}

std::optional<LinkedRecord> linkedRecord(const QUrl& address)
{
    if (address.scheme() != scheme) return std::nullopt;
    const QString path = address.path();
    for (const RecordKind kind : recordKinds) {
        const QString begin = recordNames(kind).record + u'/';
        if (path.startsWith(begin)) return LinkedRecord{kind, path.mid(begin.size()).toLongLong()};
    }
    return std::nullopt;
}
