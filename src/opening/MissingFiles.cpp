// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/MissingFiles.h"

#include "data/DatabaseSession.h"
#include "files/FileUpload.h"
#include "files/ProgramFolder.h"
#include "opening/OpeningTexts.h"

MissingFileSearch::MissingFileSearch(const ProgramFolder& folder)
    : m_documents(folder.folderPath(ProgramFolders::documents)),
      m_charts(folder.folderPath(ProgramFolders::organizationCharts)),
      m_documentRows(QStringLiteral("Document"), QStringLiteral("DocumentID, FileLocation"),
                     QStringLiteral("dStatus COLLATE NOCASE <> 'DELETED' AND FileLocation <> ''")),
      m_profileRows(
          QStringLiteral("OrganizationProfile"), QStringLiteral("OrganizationProfileID, OrganizationChart"),
          QStringLiteral("ChartOption <> 0 AND EXISTS (SELECT 1 FROM Organization WHERE OrganizationID "
                         "= OrganizationProfileID AND Status COLLATE NOCASE <> 'DELETED')"))
{
}

std::vector<MissingFile> MissingFileSearch::next(DatabaseSession& session)
{
    std::vector<MissingFile> missing;
    if (!m_documentRows.isDone()) {
        for (const HeldRow& row : m_documentRows.next(session)) {
            const QString name = textOf(row, u"FileLocation");
            if (!ProgramFolder::isPlainName(name) || !m_documents.contains(name))
                missing.push_back({RecordKind::Document, wholeNumberOf(row, u"DocumentID"), name});
        }
        return missing;
    }
    for (const HeldRow& row : m_profileRows.next(session)) {
        const qint64 organization = wholeNumberOf(row, u"OrganizationProfileID");
        const QString name = QString::number(organization) + u'.';
        const QString chosen = name + FileUpload::extension(textOf(row, u"OrganizationChart"));
        // the distribution has every chart as a PDF
        const QString usual = name + QStringLiteral("pdf");
        if (m_charts.contains(chosen) || m_charts.contains(usual) || m_told.contains(organization)) continue;
        m_told.insert(organization);
        missing.push_back({RecordKind::Organization, organization, chosen.endsWith(u'.') ? usual : chosen});
    }
    return missing;
}

MissingFiles MissingFiles::count(DatabaseSession& session, const ProgramFolder& folder)
{
    MissingFiles missing;
    MissingFileSearch search(folder);
    while (!search.isDone()) {
        for (const MissingFile& each : search.next(session))
            ++(each.kind == RecordKind::Document ? missing.documents : missing.charts);
    }
    return missing;
}

QStringList MissingFiles::lines() const
{
    QStringList lines;
    if (documents == 1)
        lines << OpeningTexts::tr("1 document names a file that is not in the folder documents.");
    if (documents > 1)
        lines << OpeningTexts::tr("%n documents name files that are not in the folder documents.", nullptr,
                                  documents);
    if (charts == 1)
        lines << OpeningTexts::tr("1 organization has a chart that is not in the folder orgcharts.");
    if (charts > 1)
        lines << OpeningTexts::tr("%n organizations have charts that are not in the folder orgcharts.",
                                  nullptr, charts);
    return lines;
}
