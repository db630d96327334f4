// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/MissingFiles.h"

#include "data/DatabaseSession.h"
#include "files/FileUpload.h"
#include "files/FolderNames.h"
#include "files/ProgramFolder.h"
#include "opening/OpeningTexts.h"

#include <QSet>

MissingFiles MissingFiles::count(DatabaseSession& session, const ProgramFolder& folder)
{
    MissingFiles missing;
    const FolderNames documents(folder.folderPath(ProgramFolders::documents));
    RecordSet files = session.read(QStringLiteral(
        "SELECT FileLocation FROM Document WHERE dStatus <> 'DELETED' AND FileLocation <> ''"));
    while (files.next()) {
        const QString name = files.text(0);
        if (!ProgramFolder::isPlainName(name) || !documents.contains(name)) ++missing.documents;
    }

    const FolderNames charts(folder.folderPath(ProgramFolders::organizationCharts));
    RecordSet profiles = session.read(QStringLiteral(
        "SELECT OrganizationProfileID, OrganizationChart FROM OrganizationProfile WHERE ChartOption <> 0 AND "
        "OrganizationProfileID IN (SELECT OrganizationID FROM Organization WHERE Status <> 'DELETED')"));
    QSet<qint64> withoutFile; // an organization may have two profiles
    while (profiles.next()) {
        const QString name = QString::number(profiles.integer(0)) + u'.';
        // the distribution has every chart as a PDF
        const bool isThere = charts.contains(name + FileUpload::extension(profiles.text(1))) ||
                             charts.contains(name + QStringLiteral("pdf"));
        if (!isThere) withoutFile << profiles.integer(0);
    }
    missing.charts = static_cast<int>(withoutFile.size());
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
