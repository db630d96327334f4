// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportedCollection.h"

#include "export/ExportFormats.h"
#include "export/ExportWork.h"
#include "views/StandardQueries.h"

ExportedCollection::ExportedCollection()
{
    m_database.runFile("export/rows/ExportedCollection.sql");
}

std::vector<qint64> ExportedCollection::identifiers(RecordKind kind)
{
    return ExportWork::every(session(), kind, StandardQueries().of(kind)->sqlStr());
}

QString ExportedCollection::held(RecordKind kind, const QString& column, const QString& key)
{
    // as bytes, since a text may hold NUL
    const QString hexadecimal =
        m_database.ask(u"SELECT hex(CAST(ifnull(\"%1\", '') AS BLOB)) FROM %2 WHERE %2ID = %3"_s.arg(
            column, recordNames(kind).record, key));
    QString text = QString::fromUtf8(QByteArray::fromHex(hexadecimal.toLatin1()));
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

QString ExportedCollection::exportTo(const char* format, RecordKind kind, const ExportOptions& options)
{
    const ExportFormat* found = exportFormat(QString::fromLatin1(format));
    if (found == nullptr) throw std::runtime_error(std::string("no format ") + format);
    QString file = m_database.folder() + u'/' + recordNames(kind).record + found->ending;
    ExportWork work(session(), kind, identifiers(kind), *found, options, file);
    while (work.step()) {
    }
    return file;
}

QByteArray ExportedCollection::exported(const char* format, RecordKind kind, const ExportOptions& options)
{
    return contentOf(exportTo(format, kind, options));
}
