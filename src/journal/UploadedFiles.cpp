// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/UploadedFiles.h"

#include "data/DatabaseSession.h"
#include "files/FileBlocks.h"
#include "files/FolderNames.h"
#include "files/ProgramFolder.h"
#include "journal/Snapshot.h"
#include "util/Sha256.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype hashLength = 32;

/// Whether a name that came from the file leads to nowhere but a file of a record.
bool isFileOfRecord(const QString& name)
{
    const QStringList parts = name.split(u'/');
    const bool isKnown = parts.front() == u"documents" || parts.front() == u"orgcharts";
    return isKnown && parts.size() > 1 &&
           std::all_of(parts.begin(), parts.end(), &ProgramFolder::isPlainName);
}

} // namespace

std::vector<HeldRow> UploadedFiles::rowsOf(const QString& documentsFolder, const QStringList& names)
{
    std::vector<HeldRow> rows;
    for (const QString& name : names) {
        const std::filesystem::path file = FileBlocks::pathOf(documentsFolder + name);
        rows.push_back({{u"Folder"_s, u"documents"_s},
                        {u"Name"_s, name},
                        {u"Hash"_s, QString::fromLatin1(hashOf(file).toHex())}});
    }
    return rows;
}

std::vector<UploadedFiles::File> UploadedFiles::filesIn(const Snapshot& after)
{
    std::vector<File> files;
    for (const QStringView table : {Snapshots::uploadRows, Snapshots::fileRows}) {
        for (const HeldRow& row : after.rows(table.toString())) {
            const QString name = textOf(row, u"Folder") + u'/' + textOf(row, u"Name");
            const QByteArray hash = QByteArray::fromHex(textOf(row, u"Hash").toLatin1());
            if (isFileOfRecord(name) && (hash.isEmpty() || hash.size() == hashLength))
                files.push_back({name, hash});
        }
    }
    return files;
}

/// These rows are the first of a snapshot, so that no long text has to be read to find them.
QString UploadedFiles::condition()
{
    return u"(substr(After, 1, 11) = '{\"Uploads\":' OR substr(After, 1, 9) = '{\"Files\":')"_s;
}

std::optional<QByteArray> UploadedFiles::hashOf(DatabaseSession& session, RecordKind kind, qint64 identifier,
                                                const QString& name)
{
    if (!session.keepsJournal()) return std::nullopt;
    QString kinds = u"Kind = '%1'"_s.arg(recordNames(kind).record);
    if (kind == RecordKind::Document) kinds = u"Kind IN ('Document', '%1')"_s.arg(Snapshots::uploadRows);
    const auto rows = HeldRows(session).read(
        u"SELECT After FROM Journal WHERE %1 AND Identifier = ? AND %2 ORDER BY Number DESC"_s.arg(
            kinds, condition()),
        {identifier});
    for (const HeldRow& row : rows) {
        for (const File& file : filesIn(Snapshots::fromJson(valueOf(row, u"After")))) {
            if (FolderNames::comparable(file.name) != FolderNames::comparable(name)) continue;
            return file.sha256.isEmpty() ? std::nullopt : std::optional(file.sha256);
        }
    }
    return std::nullopt;
}

QByteArray UploadedFiles::hashOf(const std::filesystem::path& file)
{
    std::ifstream stream = FileBlocks::open(file);
    Sha256 hash;
    std::string buffer;
    for (;;) {
        const std::string_view block = FileBlocks::read(stream, buffer, file);
        if (block.empty()) return hash.result();
        hash.add(block);
    }
}
