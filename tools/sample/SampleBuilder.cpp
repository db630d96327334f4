// SPDX-License-Identifier: GPL-3.0-or-later

#include "SampleBuilder.h"

#include "DocumentRecords.h"
#include "EventRecords.h"
#include "FigurePainter.h"
#include "HistoryRecords.h"
#include "LocalFiles.h"
#include "LookupTables.h"
#include "OrganizationCharts.h"
#include "OrganizationRecords.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

SampleBuilder::SampleBuilder(const QString& source, QString schemaPath, const QString& target)
    : m_source(source), m_schemaPath(std::move(schemaPath)), m_target(QDir::cleanPath(target))
{
}

void SampleBuilder::build() const
{
    const QFileInfo target(m_target);
    if (target.exists() && (!target.isDir() || !QDir(m_target).isEmpty()))
        throw SourceError(u"%1: there is something already"_s.arg(m_target));
    const QString unfinished = m_target + u".part"_s;
    QDir(unfinished).removeRecursively();
    auto cleanUp = qScopeGuard([&unfinished] { QDir(unfinished).removeRecursively(); });
    buildInto(QDir(unfinished));
    QDir().rmdir(m_target);
    if (!QDir().rename(unfinished, m_target))
        throw SourceError(u"%1: the folder cannot be made"_s.arg(m_target));
    cleanUp.dismiss();
}

void SampleBuilder::buildInto(const QDir& folder) const
{
    for (const QString& name : {u"data/documents"_s, u"data/orgcharts"_s, u"data/maps"_s}) {
        if (!folder.mkpath(name))
            throw SourceError(u"%1: the folder cannot be made"_s.arg(folder.filePath(name)));
    }
    copyMaps(folder);

    const QDir source(m_source.filePath(u"source"_s));
    SampleDatabase database(folder.filePath(u"data/orvik-sample.sqlite"_s), schema());
    const LookupTables lookups(source, m_source.filePath(u"maps/cities.tsv"_s), database);
    const OrganizationCharts charts(source);
    const OrganizationRecords organizations(source, charts.organizations(), lookups, database);
    const EventRecords events(source, lookups, organizations, database);
    const DocumentRecords documents(source, lookups, organizations, events, database);
    addHistory(source, documents, events, organizations, database);

    const FigureTables figures(source);
    const FigurePainter painter(m_source.filePath(u"maps/states.shp"_s));
    const LocalFiles files(figures, painter, events, organizations, folder.filePath(u"data/documents"_s));
    for (const DocumentFacts& document : documents.facts())
        files.check(document);

    const SourceTable chartRows(source.filePath(u"orgcharts.tsv"_s), {});
    for (const SourceRow& row : chartRows.rows()) {
        if (!row.text(u"Above"_s).isEmpty()) continue;
        const QString organization = row.text(u"Organization"_s);
        const qint64 identifier = organizations.names().find(organization, row);
        charts.write(organization, folder.filePath(u"data/orgcharts/%1.pdf"_s.arg(identifier)));
    }
    for (const DocumentFacts& document : documents.facts())
        files.write(document);
    database.finish();
}

void SampleBuilder::copyMaps(const QDir& folder) const
{
    for (const char* extension : {"shp", "shx", "dbf", "prj"}) {
        const QString name = u"maps/states."_s + QLatin1StringView(extension);
        QFile file(m_source.filePath(name));
        if (!file.copy(folder.filePath(u"data/"_s + name)))
            throw SourceError(u"%1: %2"_s.arg(file.fileName(), file.errorString()));
    }
}

QString SampleBuilder::schema() const
{
    QFile file(m_schemaPath);
    if (!file.open(QIODevice::ReadOnly)) throw SourceError(u"%1: %2"_s.arg(m_schemaPath, file.errorString()));
    return QString::fromUtf8(file.readAll());
}
