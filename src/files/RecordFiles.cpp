// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/RecordFiles.h"

#include "data/DatabaseSession.h"
#include "files/FileUpload.h"
#include "files/FolderNames.h"
#include "files/ProgramFolder.h"

RecordFiles::RecordFiles(DatabaseSession& session)
{
    *this = begun(session);
    while (readMore(session)) {
    }
}

RecordFiles RecordFiles::begun(const DatabaseSession& session)
{
    RecordFiles files;
    files.m_isAll = false;
    const QString location = QStringLiteral("FileLocation");
    for (const char* table : {"Document", "Document_HIST"}) {
        files.m_toRead.emplace_back(
            TableScan(QString::fromLatin1(table), location, QStringLiteral("FileLocation IS NOT NULL")),
            &RecordFiles::addDocumentOf);
    }
    files.m_toRead.emplace_back(
        TableScan(QStringLiteral("OrganizationProfile"),
                  QStringLiteral("OrganizationProfileID, OrganizationChart, ChartOption"),
                  QStringLiteral("ChartOption <> 0 OR OrganizationChart <> ''")),
        &RecordFiles::addChartOf);
    if (session.keepsJournal()) {
        // the table of the files is the first in a snapshot of an organization
        files.m_toRead.emplace_back(
            TableScan(QStringLiteral("Journal"), QStringLiteral("Identifier"),
                      QStringLiteral("Kind = 'Organization' AND substr(After, 1, 9) = '{\"Files\":'")),
            &RecordFiles::addFormerChartsOf);
    }
    return files;
}

bool RecordFiles::readMore(DatabaseSession& session)
{
    if (m_toRead.empty()) return false;
    auto& [scan, handler] = m_toRead.back();
    for (const HeldRow& row : scan.next(session))
        (this->*handler)(row);
    if (scan.isDone()) m_toRead.pop_back();
    return !m_toRead.empty();
}

void RecordFiles::addDocumentOf(const HeldRow& row)
{
    addDocument(textOf(row, u"FileLocation"));
}

void RecordFiles::addChartOf(const HeldRow& row)
{
    addChart(wholeNumberOf(row, u"OrganizationProfileID"), textOf(row, u"OrganizationChart"));
}

void RecordFiles::addDocument(const QString& fileLocation)
{
    if (!ProgramFolder::isPlainName(fileLocation)) return;
    const QString name = FolderNames::comparable(fileLocation);
    m_documents.insert(name);
    const QString pageEnding = QStringLiteral(".htm");
    if (!name.endsWith(pageEnding)) return;
    m_pageFolders.insert(name.chopped(pageEnding.size()) + QStringLiteral("_files"));
}

/// A chart has the extension of the file that was chosen for it or, from the distribution, that of a PDF. A
/// bare name may also be that of a file in the charts folder.
void RecordFiles::addChart(qint64 organization, const QString& chosenPath)
{
    const QString name = QString::number(organization) + u'.';
    m_charts.insert(FolderNames::comparable(name + FileUpload::extension(chosenPath)));
    m_charts.insert(name + QStringLiteral("pdf"));
    if (ProgramFolder::isPlainName(chosenPath)) m_charts.insert(FolderNames::comparable(chosenPath));
}

void RecordFiles::addFormerChartsOf(const HeldRow& row)
{
    m_withFormerCharts.insert(QString::number(wholeNumberOf(row, u"Identifier")));
}

bool RecordFiles::hasDocument(const QString& fileName) const
{
    return m_isAll || m_documents.contains(FolderNames::comparable(fileName));
}

bool RecordFiles::hasPageFolder(const QString& folderName) const
{
    return m_isAll || m_pageFolders.contains(folderName.toCaseFolded());
}

bool RecordFiles::hasChart(const QString& fileName) const
{
    return m_isAll || m_charts.contains(FolderNames::comparable(fileName));
}

bool RecordFiles::hasFormerChart(const QString& fileName) const
{
    const QString name = fileName.section(QStringLiteral(".replaced-"), -1);
    return m_isAll || m_withFormerCharts.contains(name.section(u'-', 0, 0));
}
