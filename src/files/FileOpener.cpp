// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileOpener.h"

#include "data/DatabaseSession.h"
#include "files/FilesTexts.h"
#include "platform/Shell.h"
#include "util/FileStrings.h"

#include <QFileInfo>

#include <algorithm>

namespace {

constexpr auto readerFolder = u"\\data\\viewers\\Acrobat5\\Windows\\Reader\\";
constexpr auto readerName = u"AcroRd32.exe";
constexpr QStringView organizationWithChart = u"Organization_cd"; ///< the icon of its row

QString text(QStringView view)
{
    return view.toString();
}

QString notFound(const QString& path)
{
    return FilesTexts::tr("File not found: %1").arg(path);
}

/// The extension of a name or path, with `/` or `\` between folders.
QString extensionOf(const QString& path)
{
    FileStrings parts;
    parts.CrackFileName(QString(path).replace(u'/', u'\\'));
    return parts.extension();
}

/// The number between the first letter of a document's icon key and the ending that says it is on a disc.
int fileType(const QString& iconKey)
{
    return iconKey.mid(1, iconKey.size() - 3).toInt();
}

/// Whether a stored path of a chart can be one that a user chose.
bool isPossiblePath(const QString& path)
{
    const QStringList parts = QString(path).replace(u'\\', u'/').split(u'/');
    return !parts.contains(QStringLiteral("..")) && std::none_of(path.begin(), path.end(), [](QChar c) {
        return c.category() == QChar::Other_Control;
    });
}

/// The names that a chart may have in its folder: with the extension of the file that was chosen for it, and
/// as the distribution names charts.
QStringList chartNames(qint64 organization, const QString& stored)
{
    const QString name = QString::number(organization) + u'.';
    const QString extension = extensionOf(stored);
    const QString distributed = name + QStringLiteral("pdf");
    if (extension.isEmpty()) return {distributed, name};
    return {name + extension, distributed};
}

} // namespace

QString FileOpener::openDoc(const QString& fileName, const QString& iconKey) const
{
    if (iconKey.contains(QStringLiteral("ng"))) return FilesTexts::tr("Copyright permissions not granted.");
    const QString path = m_at.folder.machinePath(m_at.documents) + fileName;
    if (!ProgramFolder::isPlainName(fileName)) return notFound(path);
    if (iconKey.endsWith(QStringLiteral("cd"))) {
        const Disc disc = fileType(iconKey) == DistributionDiscs::photoFileType ? Disc::Photos : Disc::Data;
        return openOnDisc(disc, m_at.documents, {fileName});
    }
    const auto file = m_at.folder.find(m_at.documents, fileName);
    return file ? openFile(*file) : notFound(path);
}

QString FileOpener::openOrgChart(qint64 organization, const QString& iconKey) const
{
    if (iconKey != organizationWithChart) {
        return FilesTexts::tr("No chart currently associated with this organization.");
    }
    const QString stored = storedChart(organization);
    if (!isPossiblePath(stored)) return notFound(m_at.folder.machinePath(m_at.organizationCharts) + stored);
    const QStringList names = chartNames(organization, stored);
    if (const auto file = chartInFolder(names)) return openFile(*file);
    return openOnDisc(Disc::Data, m_at.organizationCharts, names);
}

std::optional<QString> FileOpener::documentInFolder(const QString& fileName, const QString& iconKey) const
{
    if (iconKey.endsWith(QStringLiteral("ng")) || iconKey.endsWith(QStringLiteral("cd"))) return std::nullopt;
    return m_at.folder.find(m_at.documents, fileName);
}

std::optional<QString> FileOpener::orgChartInFolder(qint64 organization, const QString& iconKey) const
{
    if (iconKey != organizationWithChart) return std::nullopt;
    const QString stored = storedChart(organization);
    if (!isPossiblePath(stored)) return std::nullopt;
    return chartInFolder(chartNames(organization, stored));
}

std::optional<QString> FileOpener::chartInFolder(const QStringList& names) const
{
    for (const QString& name : names) {
        if (auto file = m_at.folder.find(m_at.organizationCharts, name)) return file;
    }
    return std::nullopt;
}

QString FileOpener::storedChart(qint64 organization) const
{
    const RecordTable profiles = m_at.session.readAll(
        QStringLiteral("SELECT OrganizationChart FROM OrganizationProfile WHERE OrganizationProfileID = ") +
        QString::number(organization));
    return profiles.count() == 0 ? QString() : profiles.text(0, u"OrganizationChart");
}

QString FileOpener::openOnDisc(Disc disc, const QString& programFolder, const QStringList& names) const
{
    const DistributionDiscs discs = DistributionDiscs::scan(m_at.volumes, m_at.discFolders);
    const auto& root = disc == Disc::Photos ? discs.photos : discs.data;
    if (!root) {
        return FilesTexts::tr("Unable to find the %1 CD. Please insert the CDROM.")
            .arg(text(disc == Disc::Photos ? DistributionDiscs::photosLabel : DistributionDiscs::dataLabel));
    }
    const ProgramFolder volume(*root);
    const QString folder = u'\\' + text(DistributionDiscs::filesFolder) + programFolder;
    for (const QString& name : names) {
        if (const auto file = volume.find(folder, name)) return openFile(*file);
    }
    return notFound(volume.machinePath(folder) + names.front());
}

QString FileOpener::openFile(const QString& file) const
{
    if (m_at.shell.open(QUrl::fromLocalFile(file))) return {};
    const QString name = QFileInfo(file).fileName();
    const QString extension = extensionOf(name);
    QString message = FilesTexts::tr("No file association available to view files of type: %1.")
                          .arg(extension.isEmpty() ? name : extension);
    if (extension.compare(QStringLiteral("pdf"), Qt::CaseInsensitive) != 0) return message;
    if (openWithDiscReader(file)) return {};
    return FilesTexts::tr("%1 Please install the Adobe Acrobat Reader.").arg(message);
}

bool FileOpener::openWithDiscReader(const QString& file) const
{
    const auto disc = DistributionDiscs::scan(m_at.volumes, m_at.discFolders).data;
    if (!disc) return false;
    const auto reader = ProgramFolder(*disc).find(text(readerFolder), text(readerName));
    return reader && m_at.shell.start(*reader, file);
}
