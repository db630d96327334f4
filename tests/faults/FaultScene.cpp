// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults/FaultScene.h"

#include "files/Archive.h"
#include "support/Testing.h"
#include "util/Error.h"

#include <QDataStream>

#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
namespace {

using SystemCalls::Effect;

constexpr int mostFaultsShown = 12;

/// A file system in memory, where a disk would only be slower.
QString quickPlace()
{
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/orvik-faults"_s;
}

/// The rows of a database by its tables; whoever opens it undoes what was not finished.
FaultScene::Content rowsOf(const QString& file)
{
    FaultScene::Content content;
    try {
        SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
        const auto add = [&](const QString& part, const std::string& statement) {
            QByteArray& all = content[u'#' + part];
            SQLite::Statement rows(database, statement);
            while (rows.executeStep())
                all += QByteArray::fromStdString(rows.getColumn(0).getString()) + '\n';
        };
        add(u"soundness"_s, "PRAGMA integrity_check");
        add(u"version"_s, "PRAGMA user_version");
        add(u"schema"_s, "SELECT type || name || ifnull(sql, '') FROM sqlite_master ORDER BY 1");
        SQLite::Statement tables(database,
                                 "SELECT m.name, group_concat('quote(\"' || c.name || '\")', '||') FROM "
                                 "sqlite_master AS m, pragma_table_info(m.name) AS c WHERE m.type = 'table' "
                                 "GROUP BY m.name");
        while (tables.executeStep()) {
            const std::string table = tables.getColumn(0).getString();
            add(QString::fromStdString(table),
                "SELECT " + tables.getColumn(1).getString() + " FROM \"" + table + "\" ORDER BY 1");
        }
    } catch (const SQLite::Exception& exception) {
        content[QString()] = exception.what();
    }
    return content;
}

/// Most of the files were looked into before.
const FaultScene::Content& knownRowsOf(const QString& file)
{
    static QHash<QByteArray, FaultScene::Content> known;
    if (QFile::exists(file + u"-journal"_s)) return known[{}] = rowsOf(file);
    const QByteArray bytes = ::contentOf(file);
    const auto found = known.constFind(bytes);
    return found != known.constEnd() ? *found : *known.insert(bytes, rowsOf(file));
}

/// What is in a backup or a workbook, or why it cannot be read.
QByteArray entriesOf(const QString& archive)
{
    QByteArray all;
    try {
        ArchiveReader reader(archive);
        while (const auto entry = reader.next()) {
            // it has the moment at which a workbook was written
            if (entry->name == u"docProps/core.xml") continue;
            all += entry->name.toUtf8() + '\n';
            for (std::string_view block = reader.read(); !block.empty(); block = reader.read())
                all.append(block.data(), static_cast<qsizetype>(block.size()));
        }
    } catch (const Error& error) {
        return QByteArray("broken: ") + error.what();
    }
    return all;
}

void copyFolder(const QString& from, const QString& to)
{
    fs::remove_all(to.toStdString());
    fs::copy(from.toStdString(), to.toStdString(), fs::copy_options::recursive);
}

/// Which calls fail in turn, counted from 1.
std::vector<int> chosenOf(const std::vector<quint64>& kinds)
{
    constexpr int endsTaken = 3;
    constexpr int nextTaken = 40;
    static const bool takesAll = qEnvironmentVariableIsSet("ORVIK_EACH_CALL");
    QHash<quint64, int> numbers;
    for (const quint64 kind : kinds)
        ++numbers[kind];
    QHash<quint64, int> seen;
    std::vector<int> chosen;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const int before = seen[kinds[i]]++;
        const bool isAtEnd = before < endsTaken || before >= numbers[kinds[i]] - endsTaken;
        if (takesAll || isAtEnd || before % nextTaken == 0) chosen.push_back(static_cast<int>(i) + 1);
    }
    return chosen;
}

void writeAll(int descriptor, const QByteArray& data)
{
    for (qsizetype done = 0; done < data.size();) {
        const ssize_t written =
            ::write(descriptor, data.constData() + done, static_cast<std::size_t>(data.size() - done));
        if (written <= 0) return;
        done += written;
    }
}

QByteArray readAll(int descriptor)
{
    QByteArray all;
    char buffer[1 << 16];
    for (ssize_t count = ::read(descriptor, buffer, sizeof buffer); count > 0;
         count = ::read(descriptor, buffer, sizeof buffer))
        all.append(buffer, count);
    return all;
}

/// What differs, by names; empty if nothing does.
QString differences(const FaultScene::Content& is, const FaultScene::Content& expected)
{
    QStringList names;
    for (auto file = is.begin(); file != is.end(); ++file) {
        if (!expected.contains(file.key()))
            names << u'+' + file.key();
        else if (expected.value(file.key()) != file.value())
            names << u'*' + file.key();
    }
    for (auto file = expected.begin(); file != expected.end(); ++file)
        if (!is.contains(file.key())) names << u'-' + file.key();
    return names.join(u' ');
}

/// The same without what the journal tells.
FaultScene::Content withoutJournal(FaultScene::Content content)
{
    content.removeIf([](const auto& entry) { return entry.key().endsWith(u"#Journal"_s); });
    return content;
}

/// Whether the call that failed was to take something away, at least its name, which then has to stay for
/// now.
bool isRemoval(const QString& failed)
{
    return failed.startsWith(u"unlink"_s) || failed.startsWith(u"rmdir"_s) || failed.startsWith(u"rename"_s);
}

} // namespace

FaultScene::FaultScene()
    : m_place(quickPlace()),
      m_folder(m_place.filePath(u"here"_s)),
      m_original(m_place.filePath(u"original"_s))
{
}

FaultScene::~FaultScene() = default;

FaultScene::Content FaultScene::contentOf(const QString& folder)
{
    Content content;
    const auto entries = [&folder] {
        return QDirIterator(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                            QDirIterator::Subdirectories);
    };
    for (auto entry = entries(); entry.hasNext();) {
        const QString path = entry.next();
        if (!path.endsWith(u".sqlite"_s)) continue;
        const Content& rows = knownRowsOf(path);
        for (auto table = rows.begin(); table != rows.end(); ++table)
            content[QDir(folder).relativeFilePath(path) + table.key()] = table.value();
    }
    for (auto entry = entries(); entry.hasNext();) {
        const QString path = entry.next();
        const QString name = QDir(folder).relativeFilePath(path);
        if (path.endsWith(u".sqlite"_s)) continue;
        const bool isArchive = archiveFormatOf(path).has_value() || path.endsWith(u".xlsx");
        content[name] = entry.fileInfo().isDir() ? QByteArray("(folder)")
                        : isArchive              ? entriesOf(path)
                                                 : ::contentOf(path);
    }
    return content;
}

FaultScene::Content FaultScene::contentHere() const
{
    Content content = contentOf(m_folder);
    content.removeIf([](const auto& entry) { return entry.key().startsWith(u"temporary"_s); });
    return content;
}

void FaultScene::act(Outcome& outcome, const SystemCalls::Fault& fault)
{
    SystemCalls::watch(m_folder.toStdString());
    Act act = begin(m_folder);
    const auto attempt = [&act](QString& error) {
        try {
            act();
            return true;
        } catch (const Error& thrown) {
            error = thrown.description();
        } catch (const std::exception& thrown) {
            error = u"not an Error: "_s + QString::fromUtf8(thrown.what());
        }
        return false;
    };
    SystemCalls::begin(fault);
    outcome.isDone = attempt(outcome.error);
    SystemCalls::end();
    outcome.kinds = SystemCalls::kinds();
    outcome.failed = QString::fromStdString(SystemCalls::failed());
    outcome.after = contentHere();
    if (!outcome.isDone || isRepeatable) attempt(outcome.retried);
    outcome.finished = contentHere();
    act = {};
    outcome.isWhole = true;
}

FaultScene::Outcome FaultScene::run(const SystemCalls::Fault& fault)
{
    copyFolder(m_original, m_folder);
    return runHere(fault);
}

/// Does the act in a process of its own, in the folder as it is.
FaultScene::Outcome FaultScene::runHere(const SystemCalls::Fault& fault)
{
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        Outcome outcome;
        act(outcome, fault);
        QByteArray data;
        QDataStream stream(&data, QIODevice::WriteOnly);
        stream << outcome.isWhole << outcome.isDone << outcome.error
               << QList<quint64>(outcome.kinds.begin(), outcome.kinds.end()) << outcome.failed
               << outcome.after << outcome.retried << outcome.finished;
        writeAll(ends[1], data);
        ::_exit(0);
    }
    ::close(ends[1]);
    const QByteArray data = readAll(ends[0]);
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    Outcome outcome;
    if (data.isEmpty()) return outcome;
    QDataStream stream(data);
    QList<quint64> kinds;
    stream >> outcome.isWhole >> outcome.isDone >> outcome.error >> kinds >> outcome.failed >>
        outcome.after >> outcome.retried >> outcome.finished;
    outcome.kinds.assign(kinds.begin(), kinds.end());
    if (isRemoval(outcome.failed)) {
        startAgain(m_folder);
        outcome.finished = contentHere();
    }
    return outcome;
}

/// Whether each file and each table is as it was or as it shall be.
bool FaultScene::isMixed(const Content& is) const
{
    const Content content = withoutJournal(is);
    for (auto each = content.begin(); each != content.end(); ++each) {
        const auto isThat = [&each](const Content& other) {
            return other.contains(each.key()) && other.value(each.key()) == each.value();
        };
        if (!isThat(m_before) && !isThat(m_after)) return false;
    }
    return true;
}

/// What is wrong with how the act ended; empty if nothing is.
QString FaultScene::faultOf(const Outcome& outcome) const
{
    if (!outcome.isWhole) return u"the process ended"_s;
    if (outcome.isDone) {
        const QString rest = isRemoval(outcome.failed) ? QString() : differences(outcome.after, m_after);
        return rest.isEmpty() ? QString() : u"it was told done, but: "_s + rest;
    }
    if (outcome.error.startsWith(u"not an Error"_s)) return outcome.error;
    if (!outcome.error.contains(m_folder)) return u"the error names no file: "_s + outcome.error;
    const QString fromOld = differences(outcome.after, m_before);
    const QString fromNew = differences(outcome.after, m_after);
    const bool isKept = keepsTables && isMixed(outcome.after);
    if (fromOld.isEmpty() || fromNew.isEmpty() || isKept || isRemoval(outcome.failed)) return {};
    return u"neither old (%1) nor new (%2): %3"_s.arg(fromOld, fromNew, outcome.error);
}

QString FaultScene::faultOfRetry(const Outcome& outcome) const
{
    if (!outcome.retried.isEmpty()) return u"it does not work afterwards: "_s + outcome.retried;
    const QString rest = keepsTables ? differences(withoutJournal(outcome.finished), withoutJournal(m_after))
                                     : differences(outcome.finished, m_after);
    return rest.isEmpty() ? QString() : u"not whole in the end: "_s + rest;
}

void FaultScene::expectEachCall(Effect effect)
{
    const std::vector<quint64> kinds = run({effect, 0}).kinds;
    const std::size_t all = kinds.size();
    int shown = 0;
    for (const int at : chosenOf(kinds)) {
        const Outcome outcome = run({effect, at});
        QString fault = faultOf(outcome);
        if (fault.isEmpty()) fault = faultOfRetry(outcome);
        if (fault.isEmpty() || ++shown > mostFaultsShown) continue;
        ADD_FAILURE() << at << " of " << all << ": " << outcome.failed.toStdString() << "\n    "
                      << fault.toStdString();
    }
    EXPECT_LE(shown, mostFaultsShown) << "faults in all";
}

/// SQLite leaves the journal of a change that had not begun to the next change.
bool FaultScene::isSpare(const QString& name) const
{
    return name.contains(u".part"_s) || name.endsWith(u"-journal"_s);
}

void FaultScene::makeOriginal()
{
    QDir().mkpath(m_original);
    prepare(m_original);
    copyFolder(m_original, m_folder);
    m_before = contentHere();
}

void FaultScene::expectWholeOrNone()
{
    makeOriginal();
    const Outcome whole = run({});
    ASSERT_TRUE(whole.isDone) << whole.error.toStdString();
    m_after = contentHere();
    EXPECT_FALSE(differences(m_before, m_after).isEmpty()) << "the scene changes nothing";
    const std::pair<Effect, const char*> effects[] = {{Effect::Fail, "a call fails"},
                                                      {Effect::NoSpace, "the disk is full"},
                                                      {Effect::Shorten, "a call writes but half"}};
    for (const auto& [effect, name] : effects) {
        SCOPED_TRACE(name);
        expectEachCall(effect);
    }
}

int FaultScene::expectWholeOrNoneAfterKills(int kills)
{
    makeOriginal();
    const Outcome whole = run({});
    EXPECT_TRUE(whole.isDone) << whole.error.toStdString();
    m_after = contentHere();
    int killed = 0;
    for (; killed < kills && !testing::Test::HasFailure(); ++killed)
        expectWholeOrNoneAfterKill(1 + static_cast<int>(static_cast<qint64>(killed) *
                                                        static_cast<qint64>(whole.kinds.size()) / kills));
    return killed;
}

void FaultScene::expectWholeOrNoneAfterKill(int at)
{
    SCOPED_TRACE(at);
    EXPECT_FALSE(run({Effect::Kill, at}).isWhole) << "it was not killed";
    startAgain(m_folder);
    const auto essence = [this](Content content) {
        content.removeIf([this](const auto& file) { return isSpare(file.key()); });
        return content;
    };
    const Content left = contentHere();
    const QString fromOld = differences(essence(left), essence(m_before));
    const QString fromNew = differences(isRepeatable ? essence(left) : left, m_after);
    EXPECT_TRUE(fromOld.isEmpty() || fromNew.isEmpty())
        << fromOld.toStdString() << " or " << fromNew.toStdString();
    if (fromNew.isEmpty() && !isRepeatable) return;
    const Outcome again = runHere({});
    EXPECT_TRUE(again.isDone) << again.error.toStdString();
    const QString rest = differences(again.after, m_after);
    EXPECT_TRUE(rest.isEmpty() || (rest.startsWith(u'+') && isSpare(rest) && !rest.contains(u' ')))
        << rest.toStdString();
}
