// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/FormerFiles.h"

#include "data/DatabaseSession.h"
#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "files/FileUpload.h"
#include "journal/JournalTexts.h"
#include "journal/Snapshot.h"
#include "journal/UploadedFiles.h"
#include "util/Error.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <system_error>

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

namespace {

const QString filesTable = Snapshots::fileRows.toString();
const QString chartsFolder = u"orgcharts"_s;
const QString unfinishedName = u".replaced-"_s; ///< before the name that a former file gets by the commit

/// SHA-256 in hexadecimal; std::nullopt if there is no file. Throws Error.
std::optional<QString> hashOf(const fs::path& file)
{
    if (!fs::is_regular_file(FileBlocks::statusOf(file))) return std::nullopt;
    return QString::fromLatin1(UploadedFiles::hashOf(file).toHex());
}

/// `57.pdf` of that content becomes `57-<hash>.pdf`.
QString formerName(const QString& name, const QString& hash)
{
    const qsizetype point = name.indexOf(u'.');
    return name.left(point) + u'-' + hash + name.mid(point);
}

/// The row of `Files` for a chart.
HeldRow rowOf(const QString& name, const std::optional<QString>& hash)
{
    HeldRow row{{u"Folder"_s, chartsFolder}, {u"Name"_s, name}};
    if (hash) row.emplace_back(u"Hash"_s, *hash);
    return row;
}

/// Whether a row, which may come from anywhere, tells of a chart of the organization and leads nowhere else.
bool isOfChart(const HeldRow& row, qint64 organization)
{
    static const QRegularExpression hash(uR"(\A([0-9a-f]{64})?\z)"_s);
    const QString name = textOf(row, u"Name");
    return textOf(row, u"Folder") == chartsFolder && ProgramFolder::isPlainName(name) &&
           name.startsWith(QString::number(organization) + u'.') &&
           hash.match(textOf(row, u"Hash")).hasMatch();
}

std::optional<QString> hashIn(const HeldRow& row)
{
    const QString hash = textOf(row, u"Hash");
    return hash.isEmpty() ? std::nullopt : std::optional(hash);
}

const HeldRow* rowNamed(const std::vector<HeldRow>& rows, const QString& name)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&name](const HeldRow& row) { return textOf(row, u"Name") == name; });
    return found == rows.end() ? nullptr : &*found;
}

/// Gives a file a second name, by a copy if the file system cannot.
void duplicate(const fs::path& from, const fs::path& to)
{
    std::error_code code;
    fs::create_directories(to.parent_path(), code);
    FileBlocks::require(code, to.parent_path());
    fs::remove(to, code);
    const bool isLink = fs::is_symlink(from, code);
    if (!isLink) fs::create_hard_link(from, to, code);
    if (isLink || code) FileCopy::copyFile(from, to);
    FileBlocks::syncFolder(to.parent_path());
    FileBlocks::syncFolder(to.parent_path().parent_path());
}

/// The content that a chart has since the last step of the journal that replaced it, which may be none.
std::optional<std::optional<QString>> lastReplacement(DatabaseSession& session, qint64 organization,
                                                      const QString& name)
{
    const auto steps = HeldRows(session).read(
        u"SELECT After FROM Journal WHERE Kind = 'Organization' AND Identifier = ? ORDER BY Number DESC"_s,
        {organization});
    for (const HeldRow& step : steps) {
        const Snapshot after = Snapshots::fromJson(valueOf(step, u"After"));
        if (const HeldRow* to = rowNamed(after.rows(filesTable), name)) return hashIn(*to);
    }
    return std::nullopt;
}

} // namespace

FormerFiles::~FormerFiles()
{
    for (auto change = m_changes.rbegin(); change != m_changes.rend(); ++change)
        putBack(*change);
}

fs::path FormerFiles::chart(const QString& name) const
{
    return FileBlocks::pathOf(m_folder.folderPath(ProgramFolders::organizationCharts) + name);
}

fs::path FormerFiles::former(const QString& name, const QString& hash) const
{
    return FileBlocks::pathOf(m_folder.folderPath(ProgramFolders::formerCharts) + formerName(name, hash));
}

fs::path FormerFiles::unfinished(const QString& name, const QString& hash) const
{
    return FileBlocks::pathOf(m_folder.folderPath(ProgramFolders::formerCharts) + unfinishedName +
                              formerName(name, hash));
}

std::optional<fs::path> FormerFiles::kept(const QString& name, const QString& hash) const
{
    for (const fs::path& path : {former(name, hash), unfinished(name, hash)}) {
        if (hashOf(path) == hash) return path;
    }
    return std::nullopt;
}

FormerFiles::Change& FormerFiles::keep(const QString& name, const std::optional<QString>& before,
                                       const std::optional<QString>& after)
{
    if (before) duplicate(chart(name), unfinished(name, *before));
    return m_changes.emplace_back(Change{name, before, after});
}

void FormerFiles::keepChart(const QString& chosenPath, qint64 organization)
{
    const QString name = FileUpload::chartName(chosenPath, organization);
    const fs::path source = FileBlocks::pathOf(FileUpload::existingFile(chosenPath).value_or(chosenPath));
    if (!fs::is_regular_file(FileBlocks::statusOf(source))) return; // the copy fails with the reason
    m_isKept = true;
    const fs::path target = chart(name);
    if (fs::is_regular_file(FileBlocks::statusOf(target)) && FileCopy::haveSameContent(source, target))
        return;
    keep(name, hashOf(target), hashOf(source));
}

void FormerFiles::takeChart(const QString& chosenPath, qint64 organization)
{
    if (!m_isKept) keepChart(chosenPath, organization);
    FileUpload(m_folder).copyChart(chosenPath, organization);
    for (Change& change : m_changes) {
        change.isReplaced = true;
        FileBlocks::syncFolder(chart(change.name).parent_path());
    }
}

QStringList FormerFiles::bringBack(const std::vector<HeldRow>& wanted, qint64 organization)
{
    QStringList gone;
    for (const HeldRow& row : wanted) {
        if (!isOfChart(row, organization)) continue;
        const QString name = textOf(row, u"Name");
        const std::optional<QString> after = hashIn(row);
        const fs::path target = chart(name);
        const std::optional<QString> before = hashOf(target);
        if (before == after) continue;
        const std::optional<fs::path> content = after ? kept(name, *after) : std::nullopt;
        if (after && !content) {
            gone << name;
            continue;
        }
        Change& change = keep(name, before, after);
        std::error_code code;
        content ? FileCopy::copyFile(*content, target) : static_cast<void>(fs::remove(target, code));
        FileBlocks::require(code, target);
        change.isReplaced = true;
        FileBlocks::syncFolder(target.parent_path());
    }
    return gone;
}

QString FormerFiles::goneMessage(const QString& name)
{
    return JournalTexts::tr("The chart %1 stays as it is: its former file is gone from the folder %2.")
        .arg(name, u"orgcharts/former"_s);
}

bool FormerFiles::hasReplaced() const
{
    return std::any_of(m_changes.begin(), m_changes.end(),
                       [](const Change& change) { return change.isReplaced; });
}

void FormerFiles::note(Snapshot& before, Snapshot& after)
{
    for (Change& change : m_changes) {
        if (!change.isReplaced || std::exchange(change.isNoted, true)) continue;
        // what is new has nothing before it, not even rows of this table
        if (change.before || !before.isEmpty())
            before.tables[filesTable].push_back(rowOf(change.name, change.before));
        after.tables[filesTable].push_back(rowOf(change.name, change.after));
    }
}

void FormerFiles::finish()
{
    std::error_code ignored; // what fails here is settled when the collection is opened next
    for (const Change& change : m_changes) {
        if (!change.before) continue;
        const fs::path path = unfinished(change.name, *change.before);
        if (change.isReplaced)
            fs::rename(path, former(change.name, *change.before), ignored);
        else
            fs::remove(path, ignored);
    }
    m_changes.clear();
}

/// The name in `former` goes also if the chart is still the same file, for which a rename does nothing.
void FormerFiles::putBack(const Change& change) const
{
    std::error_code ignored;
    const fs::path target = chart(change.name);
    if (!change.before) {
        if (change.isReplaced) fs::remove(target, ignored);
        return;
    }
    const fs::path path = unfinished(change.name, *change.before);
    if (change.isReplaced) fs::rename(path, target, ignored);
    if (!ignored) fs::remove(path, ignored);
}

std::vector<HeldRow> FormerFiles::wanted(const Snapshot& to, const Snapshot& from)
{
    std::vector<HeldRow> rows = to.rows(filesTable);
    for (const HeldRow& row : from.rows(filesTable)) {
        const QString name = textOf(row, u"Name");
        if (rowNamed(rows, name) == nullptr) rows.push_back(rowOf(name, std::nullopt));
    }
    return rows;
}

std::vector<HeldRow> FormerFiles::ofVersion(DatabaseSession& session, qint64 organization, qint64 number)
{
    std::vector<HeldRow> rows;
    const auto later = HeldRows(session).read(
        u"SELECT Before, After FROM Journal WHERE Kind = 'Organization' AND Identifier = ? AND Number > ? "
        "ORDER BY Number"_s,
        {organization, number});
    for (const HeldRow& step : later) {
        const std::vector<HeldRow> before = wanted(Snapshots::fromJson(valueOf(step, u"Before")),
                                                   Snapshots::fromJson(valueOf(step, u"After")));
        for (const HeldRow& row : before)
            if (rowNamed(rows, textOf(row, u"Name")) == nullptr) rows.push_back(row);
    }
    return rows;
}

bool FormerFiles::isOtherwise(const std::vector<HeldRow>& wanted, qint64 organization) const
{
    return std::any_of(wanted.begin(), wanted.end(), [&](const HeldRow& row) {
        return isOfChart(row, organization) && hashOf(chart(textOf(row, u"Name"))) != hashIn(row);
    });
}

std::map<qint64, QString> FormerFiles::replacements(DatabaseSession& session, qint64 organization)
{
    std::map<qint64, QString> hashes;
    // the table of the files is the first in a snapshot of an organization
    const auto steps = HeldRows(session).read(
        u"SELECT Number, Before FROM Journal WHERE Kind = 'Organization' AND Identifier = ? "
        "AND substr(After, 1, 9) = '{\"Files\":'"_s,
        {organization});
    for (const HeldRow& step : steps) {
        const Snapshot before = Snapshots::fromJson(valueOf(step, u"Before"));
        const std::vector<HeldRow>& rows = before.rows(filesTable);
        hashes[wholeNumberOf(step, u"Number")] = rows.empty() ? QString() : textOf(rows.front(), u"Hash");
    }
    return hashes;
}

void FormerFiles::settle(DatabaseSession& session, const ProgramFolder& folder)
{
    static const QRegularExpression pattern(uR"(\A\.replaced-([0-9]+)-([0-9a-f]{64})(\..*)\z)"_s);
    FormerFiles files(folder);
    std::vector<QRegularExpressionMatch> found;
    std::error_code code;
    for (fs::directory_iterator
             entry(FileBlocks::pathOf(folder.folderPath(ProgramFolders::formerCharts)), code),
         end;
         !code && entry != end; entry.increment(code)) {
        const QString name = QFile::decodeName(entry->path().filename().c_str());
        if (auto match = pattern.match(name); match.hasMatch()) found.push_back(std::move(match));
        if (name.startsWith(u".upload-")) fs::remove(entry->path(), code);
    }
    if (found.empty()) return;
    try {
        // another process may be in the middle of a save
        const Transaction lock(session);
        for (const QRegularExpressionMatch& match : found) {
            const QString name = match.captured(1) + match.captured(3);
            const QString before = match.captured(2);
            const auto last = lastReplacement(session, match.captured(1).toLongLong(), name);
            const std::optional<QString> now = hashOf(files.chart(name));
            files.m_changes = {Change{name, before, now, true}};
            // a chart that is what the journal says was replaced for good, by that step or a later one
            if (last && *last == now && now != before)
                files.finish();
            else
                files.putBack(files.m_changes.front());
            files.m_changes.clear();
        }
    } catch (const Error&) {
        files.m_changes.clear();
    }
}
