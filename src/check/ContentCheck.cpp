// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ContentCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"
#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "files/FolderNames.h"
#include "journal/Snapshot.h"
#include "journal/UploadedFiles.h"
#include "util/Error.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 rowsAtOnce = 2000; ///< of the journal, of which hardly one tells of a file
constexpr int entriesAtOnce = 100;

/// What the content of a former chart is by its name; empty for any other file.
QByteArray hashInName(const QString& name)
{
    static const QRegularExpression former(uR"(\Aorgcharts/former/[0-9]+-([0-9a-f]{64})(\.|\z))"_s);
    const auto match = former.match(name);
    return match.hasMatch() ? QByteArray::fromHex(match.captured(1).toLatin1()) : QByteArray();
}

QString pageFolderOf(const QString& name)
{
    const qsizetype end = name.indexOf(u"_files/");
    return end < 0 ? QString() : name.left(end + 7);
}

} // namespace

bool ContentCheck::step()
{
    switch (m_stage) {
    case Stage::Journal:
        return readJournal();
    case Stage::Listing:
        return list();
    case Stage::Files:
        return readFiles();
    case Stage::Done:
        break;
    }
    return false;
}

bool ContentCheck::readJournal()
{
    DatabaseSession& session = m_database.session();
    m_stage = Stage::Listing;
    if (!session.keepsJournal()) return true;
    try {
        const HeldRows rows(session);
        const auto last = rows.read(u"SELECT ifnull(max(Number), 0) AS Last FROM Journal"_s);
        for (const HeldRow& row : rows.read(u"SELECT Kind, Identifier, After FROM Journal WHERE Number > ? "
                                            u"AND Number <= ? AND %1 ORDER BY "
                                            "Number"_s.arg(UploadedFiles::condition()),
                                            {m_lastRow, m_lastRow + rowsAtOnce}))
            know(row);
        m_lastRow += rowsAtOnce;
        if (m_lastRow < wholeNumberOf(last.front(), u"Last")) m_stage = Stage::Journal;
    } catch (const Error& error) {
        hinder(error); // what is known until then is compared
    }
    return true;
}

void ContentCheck::know(const HeldRow& row)
{
    const RecordKind kind =
        textOf(row, u"Kind") == u"Organization" ? RecordKind::Organization : RecordKind::Document;
    Snapshot after;
    try {
        after = Snapshots::fromJson(valueOf(row, u"After"));
    } catch (const Error&) {
        return; // told of where the journal is read
    }
    const std::vector<UploadedFiles::File> files = UploadedFiles::filesIn(after);
    // a page's folder is replaced as a whole
    for (const UploadedFiles::File& file : files) {
        const QString folder = FolderNames::comparable(pageFolderOf(file.name));
        if (folder.isEmpty()) continue;
        m_known.removeIf([&folder](const auto& each) { return each.key().startsWith(folder); });
        break;
    }
    for (const UploadedFiles::File& file : files) {
        const QString key = FolderNames::comparable(file.name);
        if (file.sha256.isEmpty())
            m_known.remove(key);
        else
            m_known.insert(key, {file.name, file.sha256, kind, wholeNumberOf(row, u"Identifier")});
    }
}

bool ContentCheck::list()
{
    if (!std::exchange(m_isListing, true)) {
        m_notes.emplace(m_notesFile);
        m_list = FolderList::of(m_folder, {ProgramFolders::documents, ProgramFolders::organizationCharts});
    }
    for (int i = 0; i < entriesAtOnce; ++i) {
        if (m_list.step()) continue;
        m_stage = Stage::Files;
        break;
    }
    return true;
}

bool ContentCheck::readFiles()
{
    try {
        if (m_source.is_open()) {
            const std::string_view block = FileBlocks::read(m_source, m_buffer, m_path);
            m_bytes += static_cast<qint64>(block.size());
            block.empty() ? end() : m_hash.add(block);
            return true;
        }
        for (int i = 0; i < entriesAtOnce && m_next < m_list.entries().size() && !m_source.is_open(); ++i)
            begin(m_list.entries()[m_next++]);
    } catch (const Error& error) {
        m_source.close();
        m_known.remove(FolderNames::comparable(m_name));
        // a file that went while the others were read is one that is missing, or that nobody misses
        if (QFileInfo::exists(QFile::decodeName(m_path.c_str())))
            add({CheckTexts::tr("The file %1 cannot be read: %2").arg(m_name, error.description()),
                 Finding::Step::None, std::nullopt, m_name});
    }
    if (m_source.is_open() || m_next < m_list.entries().size()) return true;
    tellMissing();
    m_notes->remove();
    if (m_unknown == 1)
        setRemark(CheckTexts::tr(
            "1 file could be read but not compared: what it held when it was taken in is not known."));
    if (m_unknown > 1)
        setRemark(CheckTexts::tr(
            "%n files could be read but not compared: what they held when they were taken in is not known.",
            nullptr, m_unknown));
    m_stage = Stage::Done;
    return false;
}

QByteArray ContentCheck::expectedOf(const QString& name) const
{
    const auto known = m_known.constFind(FolderNames::comparable(name));
    return known == m_known.constEnd() ? hashInName(name) : known->sha256;
}

void ContentCheck::begin(const FolderList::Entry& entry)
{
    m_path = entry.from;
    if (entry.isFolder || FileCopy::isUnfinished(m_path.filename())) return;
    m_name = QFile::decodeName(std::filesystem::path(entry.to).generic_string().c_str());
    const QFileInfo file(QFile::decodeName(m_path.c_str()));
    m_state = {file.size(), file.lastModified().toMSecsSinceEpoch(), expectedOf(m_name)};
    if (m_notes->has(m_name, m_state)) {
        m_bytes += m_state.size;
        if (m_state.sha256.isEmpty()) ++m_unknown;
        m_known.remove(FolderNames::comparable(m_name));
        return;
    }
    m_hash = Sha256();
    m_source = FileBlocks::open(m_path);
}

void ContentCheck::end()
{
    m_source.close();
    const QByteArray found = m_hash.result();
    if (m_state.sha256.isEmpty()) ++m_unknown;
    const bool isSound = m_state.sha256.isEmpty() || m_state.sha256 == found;
    if (isSound)
        m_notes->add(m_name, m_state);
    else
        tellDiffering(m_name, m_state.sha256);
    m_known.remove(FolderNames::comparable(m_name));
}

void ContentCheck::tellDiffering(const QString& name, const QByteArray& expected)
{
    const auto known = m_known.constFind(FolderNames::comparable(name));
    if (known == m_known.constEnd()) {
        add({CheckTexts::tr("The former chart %1 is not what it was when it was put there.").arg(name),
             Finding::Step::FindFile, std::nullopt, name, expected});
        return;
    }
    QString record = name;
    try {
        record = NamedRows::recordText(m_database.session(), known->kind, known->identifier);
    } catch (const Error& error) {
        hinder(error);
    }
    add({CheckTexts::tr("%1: the file %2 is not what it was when it was taken in.").arg(record, name),
         Finding::Step::FindFile, Finding::Record{known->kind, known->identifier}, name, expected});
}

/// Of what is known, the files that are not there. The document's own file is told of by another topic.
void ContentCheck::tellMissing()
{
    std::vector<Known> missing;
    for (const Known& known : std::as_const(m_known))
        if (!pageFolderOf(known.name).isEmpty()) missing.push_back(known);
    std::sort(missing.begin(), missing.end(), [](const Known& a, const Known& b) { return a.name < b.name; });
    for (const Known& known : missing) {
        add({CheckTexts::tr("%1: the file %2 of its page is missing.")
                 .arg(NamedRows::recordText(m_database.session(), known.kind, known.identifier), known.name),
             Finding::Step::FindFile, Finding::Record{known.kind, known.identifier}, known.name,
             known.sha256});
    }
}

std::optional<int> ContentCheck::percent() const
{
    if (m_stage != Stage::Files) return 0;
    const qint64 all = m_list.amount().bytes;
    return all == 0 ? 100 : static_cast<int>(std::min<qint64>(100, m_bytes * 100 / all));
}
