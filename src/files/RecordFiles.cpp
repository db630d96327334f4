// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/RecordFiles.h"

#include "data/DatabaseSession.h"
#include "data/HeldRows.h"
#include "files/FileUpload.h"
#include "files/FolderNames.h"
#include "files/ProgramFolder.h"

RecordFiles::RecordFiles(DatabaseSession& session)
{
    for (const char* table : {"Document", "Document_HIST"}) {
        RecordSet rows =
            session.read(QStringLiteral("SELECT FileLocation FROM ") + QString::fromLatin1(table));
        while (rows.next())
            addDocument(rows.text(0));
    }
    RecordSet profiles = session.read(QStringLiteral(
        "SELECT OrganizationProfileID, OrganizationChart, ChartOption FROM OrganizationProfile"));
    while (profiles.next()) {
        const QString chosen = profiles.text(1);
        if (profiles.integer(2) != 0 || !chosen.isEmpty()) addChart(profiles.integer(0), chosen);
    }
    if (session.keepsJournal()) addFormerCharts(session);
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

void RecordFiles::addFormerCharts(DatabaseSession& session)
{
    const auto rows = HeldRows(session).read(
        QStringLiteral("SELECT DISTINCT Identifier FROM Journal WHERE Kind = 'Organization' AND "
                       "After LIKE '%\"Files\":[%'"));
    for (const HeldRow& row : rows)
        m_withFormerCharts.insert(QString::number(std::get<qint64>(row.front().second)));
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
