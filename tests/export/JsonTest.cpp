// SPDX-License-Identifier: GPL-3.0-or-later
// JSON as another program reads it, against what SQLite alone finds in the database.

#include "export/ExportedCollection.h"
#include "support/OtherPrograms.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonObject jsonOf(const QString& file)
{
    const ProgramRun run = runProgram(u"python3"_s, {u"-m"_s, u"json.tool"_s, file});
    EXPECT_EQ(run.errors, QByteArray());
    return QJsonDocument::fromJson(run.output).object();
}

QJsonValue valueOf(const SQLite::Column& column)
{
    if (column.isNull()) return QJsonValue::Null;
    if (column.isInteger()) return qint64{column.getInt64()};
    if (column.isFloat()) return column.getDouble();
    return QString::fromUtf8(QByteArray::fromStdString(column.getString()));
}

TEST(Json, HasTheValuesOfTheDatabase)
{
    ExportedCollection collection;
    ExportOptions options;
    options.caption = u"View \"all\""_s;
    const SQLite::Database database(collection.database().fileName().toStdString());
    for (const RecordKind kind : recordKinds) {
        const RecordNames names = recordNames(kind);
        const QJsonObject document = jsonOf(collection.exportTo("json", kind, options));
        EXPECT_EQ(document[u"kind"_s], names.record.toLower() + u's');
        EXPECT_EQ(document[u"caption"_s], options.caption);
        const QJsonArray records = document[u"records"_s].toArray();
        const std::vector<qint64> identifiers = collection.identifiers(kind);
        ASSERT_EQ(records.size(), static_cast<qsizetype>(identifiers.size()));
        for (std::size_t i = 0; i < identifiers.size(); ++i) {
            const QJsonObject record = records[static_cast<qsizetype>(i)].toObject();
            EXPECT_EQ(record[u"id"_s].toInteger(), identifiers[i]);
            const QJsonObject fields = record[u"fields"_s].toObject();
            EXPECT_EQ(record[u"name"_s].toString(), fields[names.name].toString());
            SQLite::Statement row(database, u"SELECT * FROM %1 WHERE %2 = %3"_s.arg(names.record, names.key)
                                                .arg(identifiers[i])
                                                .toStdString());
            ASSERT_TRUE(row.executeStep());
            int compared = 0;
            for (int column = 0; column < row.getColumnCount(); ++column) {
                const QString name = QString::fromStdString(row.getColumnName(column));
                SCOPED_TRACE(
                    (names.record + u' ' + QString::number(identifiers[i]) + u' ' + name).toStdString());
                if (!fields.contains(name)) continue;
                ++compared;
                const QJsonValue held = valueOf(row.getColumn(column));
                if (name.startsWith(u"Key")) {
                    EXPECT_EQ(fields[name], held.toInt() != 0);
                } else if (name.endsWith(u"ID")) {
                    EXPECT_EQ(fields[name].toObject()[u"id"_s].toInteger(),
                              held.isNull() ? 1 : held.toInteger());
                } else {
                    EXPECT_EQ(fields[name], held);
                }
            }
            EXPECT_GE(compared, kind == RecordKind::Event ? 8 : 17);
        }
    }
}

TEST(Json, NamesKeysAndLinksAndHasTheFieldsOfTheList)
{
    ExportedCollection collection;
    ExportOptions options;
    options.fields = FieldChoice::OfList;
    const auto recordOf = [&collection, &options](RecordKind kind, qint64 identifier) {
        const QJsonArray records = jsonOf(collection.exportTo("json", kind, options))[u"records"_s].toArray();
        for (const auto& each : records)
            if (each[u"id"_s] == identifier) return each.toObject();
        return QJsonObject();
    };
    const std::pair<RecordKind, const char*> cases[] = {
        {RecordKind::Document, R"({"id":2,"name":"A plain report","fields":{"Author":"Smith, Ann; Lee, Bo",
          "DocumentDate":"9/11/2001","DocumentName":"A plain report","FileTypeID":{"id":2,"name":"PDF"},"KeyDocument":true,
          "OrganizationID":{"id":2,"name":"Fire & Rescue <Troy>"}},"links":{}})"},
        {RecordKind::Event,
         R"({"id":2,"name":"Flood, \"great\"","fields":{"EventName":"Flood, \"great\"","KeyEvent":true,
          "StartDate":"2001-09-11","StartTime":"08:46","EndDate":"2001-09-12","EndTime":"23:59:30"},"links":{}})"},
        {RecordKind::Organization,
         R"({"id":3,"name":"Two profiles","fields":{"OrganizationName":"Two profiles","City":" troy",
          "State":"ny ","FunctionID":{"id":1,"name":"None"},"OrganizationTypeID":{"id":3,"name":"No. 3"},
          "OrganizationSubTypeID":{"id":99,"name":"No. 99"}},"links":{}})"}};
    for (const auto& [kind, expected] : cases) {
        const QJsonObject wanted = QJsonDocument::fromJson(expected).object();
        EXPECT_EQ(recordOf(kind, wanted[u"id"_s].toInteger()), wanted);
    }
    options.fields = FieldChoice::All;
    EXPECT_EQ(recordOf(RecordKind::Event, 2)[u"links"_s].toObject(), QJsonDocument::fromJson(R"({
        "EventVenues":[{"id":2,"name":"Harbour"},{"id":3,"name":"Café <Ünal>"}],
        "EventFunctions":[{"id":2,"name":"Rescue"}],
        "DocumentEvents":[{"id":2,"name":"A plain report"},{"id":6,"name":"Control \u0001\u000b\u000c\u001b\u001f\u007f characters"}],
        "OrganizationEvents":[{"id":2,"name":"Fire & Rescue <Troy>"},{"id":3,"name":"Two profiles"}]})")
                                                                         .object());
}

} // namespace
