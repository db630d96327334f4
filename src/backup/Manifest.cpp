// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/Manifest.h"

#include "backup/BackupTexts.h"
#include "data/DatabaseSession.h"
#include "data/HeldRows.h"
#include "data/RecordKind.h"
#include "journal/RecordParts.h"
#include "util/Error.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr int formatVersion = 1;
constexpr qsizetype hashLength = 32;

[[noreturn]] void refuse()
{
    throw Error(EINVAL, BackupTexts::tr("The list of what the backup holds cannot be read."));
}

/// Throws Error if there is no such member or if it is of another type.
QJsonValue member(const QJsonObject& object, const QString& name, QJsonValue::Type type)
{
    QJsonValue value = object.value(name);
    if (value.type() != type) refuse();
    return value;
}

Manifest::File fileOf(const QJsonObject& object)
{
    Manifest::File file;
    file.name = member(object, u"name"_s, QJsonValue::String).toString();
    file.size = member(object, u"size"_s, QJsonValue::Double).toInteger(-1);
    file.sha256 = QByteArray::fromHex(member(object, u"sha256"_s, QJsonValue::String).toString().toLatin1());
    if (file.name.isEmpty() || file.size < 0 || file.sha256.size() != hashLength) refuse();
    return file;
}

} // namespace

QByteArray Manifest::toJson() const
{
    QJsonObject counts;
    for (auto table = rows.begin(); table != rows.end(); ++table)
        counts.insert(table.key(), table.value());
    const QJsonObject head{{u"format"_s, formatVersion},
                           {u"collection"_s, collection},
                           {u"database"_s, database},
                           {u"made"_s, made.toUTC().toString(Qt::ISODate)},
                           {u"rows"_s, counts}};
    // line by line: the whole as one document takes five times the memory
    QByteArray text = QJsonDocument(head).toJson(QJsonDocument::Compact).chopped(1) + ",\n\"files\":[";
    for (const File& file : files) {
        const QJsonObject line{{u"name"_s, file.name},
                               {u"size"_s, file.size},
                               {u"sha256"_s, QString::fromLatin1(file.sha256.toHex())}};
        if (&file != &files.front()) text += ',';
        text += '\n' + QJsonDocument(line).toJson(QJsonDocument::Compact);
    }
    return text + "\n]}\n";
}

Manifest Manifest::fromJson(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject()) refuse();
    const QJsonObject all = document.object();
    if (member(all, u"format"_s, QJsonValue::Double).toInt() > formatVersion) {
        throw Error(EINVAL, BackupTexts::tr("The backup was made by a newer version of the program."));
    }
    Manifest manifest;
    manifest.collection = member(all, u"collection"_s, QJsonValue::String).toString();
    manifest.database = member(all, u"database"_s, QJsonValue::String).toString();
    manifest.made = QDateTime::fromString(member(all, u"made"_s, QJsonValue::String).toString(), Qt::ISODate);
    const QJsonObject counts = member(all, u"rows"_s, QJsonValue::Object).toObject();
    for (auto table = counts.begin(); table != counts.end(); ++table)
        manifest.rows.insert(table.key(), table.value().toInteger(-1));
    for (const auto& each : member(all, u"files"_s, QJsonValue::Array).toArray())
        manifest.files.push_back(fileOf(each.toObject()));
    return manifest;
}

QMap<QString, qint64> Manifest::countRows(DatabaseSession& session)
{
    QMap<QString, qint64> rows;
    const HeldRows held(session);
    const auto count = [&](const QString& table) {
        const auto counted = held.read(u"SELECT count(*) AS Rows FROM "_s + table);
        rows.insert(table, std::get<qint64>(valueOf(counted.front(), u"Rows")));
    };
    for (const RecordKind kind : recordKinds) {
        const RecordParts& record = recordParts(kind);
        count(record.names.record);
        count(record.names.record + u"_HIST"_s);
        for (const PartTable& part : record.parts)
            count(part.table);
    }
    if (session.keepsJournal()) count(u"Journal"_s);
    return rows;
}
