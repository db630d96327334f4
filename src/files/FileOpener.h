// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/DistributionDiscs.h"
#include "files/ProgramFolder.h"

#include <QString>
#include <QStringList>

#include <optional>

class DatabaseSession;
class Shell;
class Volumes;

/// Opens the files of documents and the charts of organizations: finds out whether a file lies in the
/// program's own folder or on one of the distribution discs, and hands it to the desktop. If the desktop
/// has no program for a PDF, the reader on the data disc takes its place.
class FileOpener
{
public:
    /// What the files are opened with and where they are looked for. All must outlive the opener.
    struct Surroundings
    {
        const Volumes& volumes;
        Shell& shell;
        DatabaseSession& session;
        const ProgramFolder& folder;
        QString documents;          ///< program path of the documents' folder, as `\data\documents\`
        QString organizationCharts; ///< program path of the charts' folder
        DiscFolders discFolders{};
    };

    explicit FileOpener(Surroundings surroundings) : m_at(std::move(surroundings)) {}

    /// Opens a document's file. `iconKey` is the key of its row's icon, which says where the file lies and
    /// of which type it is. Returns the message for the user, empty if the file was opened.
    [[nodiscard]] QString openDoc(const QString& fileName, const QString& iconKey) const;

    /// The same for an organization's chart. Throws Error if its profile cannot be read.
    [[nodiscard]] QString openOrgChart(qint64 organization, const QString& iconKey) const;

    /// The file that openDoc() would open, if that lies in the collection's own folder; std::nullopt
    /// otherwise.
    [[nodiscard]] std::optional<QString> documentInFolder(const QString& fileName,
                                                          const QString& iconKey) const;

    /// The same for openOrgChart(). Throws Error if the profile cannot be read.
    [[nodiscard]] std::optional<QString> orgChartInFolder(qint64 organization, const QString& iconKey) const;

private:
    enum class Disc
    {
        Data,
        Photos
    };

    [[nodiscard]] QString openOnDisc(Disc disc, const QString& programFolder, const QStringList& names) const;
    [[nodiscard]] QString openFile(const QString& file) const;
    [[nodiscard]] bool openWithDiscReader(const QString& file) const;
    [[nodiscard]] QString storedChart(qint64 organization) const;
    [[nodiscard]] std::optional<QString> chartInFolder(const QStringList& names) const;

    Surroundings m_at;
};
