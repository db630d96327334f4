// SPDX-License-Identifier: GPL-3.0-or-later

#include "Indexer.h"

#include "TextDecoding.h"
#include "files/FileBlocks.h"
#include "filetext/FileTextFailures.h"
#include "util/Error.h"
#include "util/Sha256.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSet>

#include <chrono>
#include <cstdio>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 largestFile = 1LL << 30; ///< bytes; reading more takes longer than anybody waits
constexpr qint64 reportPause = 250;       ///< milliseconds
constexpr auto keepPause = 2s;

/// A file may change twice in what the disk takes for one moment; FAT counts in two seconds.
constexpr qint64 longestMoment = 2'000; ///< milliseconds

bool isSame(const IndexedFile& known, const IndexedFile& now)
{
    return known.size == now.size && known.changed == now.changed;
}

} // namespace

const ProcessLimits Indexer::limits = [] {
    ProcessLimits held;
#ifdef __SANITIZE_ADDRESS__ // takes terabytes of addresses, which it does not use
    held.memory = std::numeric_limits<qint64>::max();
#endif
    return held;
}();

Indexer::Indexer(IndexFile& index, const QString& folder, QString reader)
    : m_index(index), m_files(folder), m_reader(std::move(reader)), m_known(index.files())
{
    m_steps.callOnTimeout([this] { guarded(&Indexer::step); });
    m_keeping.setSingleShot(true);
    m_keeping.callOnTimeout([this] { guarded(&Indexer::keepNow); });
}

void Indexer::run(const QStringList& names)
{
    const QSet<QString> named(names.begin(), names.end());
    for (auto file = m_known.keyBegin(); file != m_known.keyEnd(); ++file) {
        if (!named.contains(*file)) m_unnamed.append(*file);
    }
    m_names = QStringList(named.begin(), named.end());
    m_total = m_names.size();
    report();
    m_steps.start(0);
    m_loop.exec();
    if (m_failure) std::rethrow_exception(m_failure);
    m_index.keep();
    report();
}

/// No exception may pass through the event loop.
void Indexer::guarded(Part part)
{
    try {
        (this->*part)();
    } catch (...) {
        m_failure = std::current_exception();
        m_steps.stop();
        m_loop.quit();
    }
}

void Indexer::step()
{
    if (!m_unnamed.isEmpty()) {
        m_index.forget(m_unnamed.takeLast());
        keepSoon();
        return;
    }
    if (m_done == m_total) {
        m_steps.stop();
        m_loop.quit();
    } else if (m_names.isEmpty() || freeReading() == nullptr) {
        m_steps.stop(); // until a process has ended
    } else {
        lookAt(m_names.takeLast());
    }
    if (m_sinceReport.hasExpired(reportPause)) report();
}

void Indexer::lookAt(const QString& name)
{
    const auto path = m_files.find(name);
    if (path) {
        compare(name, *path, m_known.value(name));
    } else {
        ++m_done;
        if (!m_known.contains(name)) return;
        m_index.forget(name);
        keepSoon();
    }
}

void Indexer::compare(const QString& name, const QString& path, const IndexedFile& known)
{
    const QFileInfo info(path);
    IndexedFile now;
    if (!info.isFile()) return fail(name, now, FileTextFailures::noFile);
    const qint64 changed = info.lastModified().toMSecsSinceEpoch();
    now.size = info.size();
    now.changed = changed;
    if (isSame(known, now)) {
        ++m_done;
        return;
    }
    if (std::abs(QDateTime::currentMSecsSinceEpoch() - changed) < longestMoment) now.changed.reset();
    if (now.size == 0) return fail(name, now, FileTextFailures::empty);
    if (now.size > largestFile) return fail(name, now, FileTextFailures::tooLarge);
    Found found;
    try {
        found = contentOf(path, now);
    } catch (const Error&) {
        now.changed.reset(); // rights may change without the file
        return fail(name, now, FileTextFailures::unreadable);
    }
    if (!known.hash.isEmpty() && known.hash == found.file.hash) {
        found.file.failure = known.failure;
        if (found.file != known) m_index.note(name, found.file);
        keepSoon();
        ++m_done;
    } else {
        read(name, path, found);
    }
}

Indexer::Found Indexer::contentOf(const QString& path, const IndexedFile& now) const
{
    Found found;
    found.file = now;
    const std::filesystem::path file = FileBlocks::pathOf(path);
    std::ifstream stream = FileBlocks::open(file);
    std::string buffer;
    Sha256 hash;
    qint64 read = 0;
    for (std::string_view block = FileBlocks::read(stream, buffer, file); !block.empty();
         block = FileBlocks::read(stream, buffer, file)) {
        if (read == 0) {
            const auto beginning = block.substr(0, FileContent::beginningSize);
            found.kind = FileContent::kindOf(
                QByteArrayView(beginning.data(), static_cast<qsizetype>(beginning.size())), path);
        }
        hash.add(block);
        if (found.kind == FileContent::Kind::Text && found.text.size() <= limits.output)
            found.text.append(block.data(), static_cast<qsizetype>(block.size()));
        read += static_cast<qint64>(block.size());
        if (read > largestFile) break; // it grows while it is read
    }
    found.file.hash = hash.result();
    return found;
}

void Indexer::read(const QString& name, const QString& path, const Found& found)
{
    const bool isPdf = found.kind == FileContent::Kind::Pdf;
    if (found.kind == FileContent::Kind::Other) return fail(name, found.file, FileTextFailures::otherType);
    const bool isTooLarge = found.file.size > limits.output || found.text.size() > limits.output;
    if (!isPdf && isTooLarge) return fail(name, found.file, FileTextFailures::tooLarge);
    // no text does harm to what decodes it, and a process would take longer than that
    if (found.kind == FileContent::Kind::Text)
        store(name, found.file, TextDecoding::decoded(found.text));
    else
        startReading(name, path, found);
}

void Indexer::startReading(const QString& name, const QString& path, const Found& found)
{
    const bool isPdf = found.kind == FileContent::Kind::Pdf;
    Reading& reading = *freeReading();
    reading.isTaken = true;
    reading.name = name;
    reading.file = found.file;
    const QStringList arguments =
        isPdf ? QStringList{u"-enc"_s, u"UTF-8"_s, path, u"-"_s} : QStringList{u"--text"_s, path};
    reading.process.start(isPdf ? u"pdftotext"_s : m_reader, arguments,
                          [this, &reading](const LimitedProcess::Result& result) { take(reading, result); });
}

void Indexer::take(Reading& reading, const LimitedProcess::Result& result)
{
    reading.isTaken = false;
    try {
        IndexedFile& file = reading.file;
        file.failure = result.failure;
        if (!result.hasStarted) { // it is read once the program is installed
            file.hash.clear();
            file.changed.reset();
        }
        store(reading.name, file, QString::fromUtf8(result.output));
        m_steps.start(0);
    } catch (...) {
        m_failure = std::current_exception();
        m_loop.quit();
    }
}

/// Stores a file whose text was made, or could not be.
void Indexer::store(const QString& name, IndexedFile file, const QString& text)
{
    const QString cleaned = FileContent::cleaned(text);
    if (file.failure.isEmpty() && cleaned.isEmpty())
        file.failure = QString::fromLatin1(FileTextFailures::withoutWords);
    m_index.store(name, file, cleaned);
    keepSoon();
    ++m_done;
}

void Indexer::fail(const QString& name, IndexedFile file, const char* failure)
{
    file.failure = QString::fromLatin1(failure);
    const auto known = m_known.constFind(name);
    if (known == m_known.cend() || *known != file) {
        m_index.store(name, file, {});
        keepSoon();
    }
    ++m_done;
}

void Indexer::keepSoon()
{
    if (!m_keeping.isActive()) m_keeping.start(keepPause);
}

void Indexer::keepNow()
{
    m_index.keep();
}

void Indexer::report()
{
    std::printf("%lld %lld\n", static_cast<long long>(m_done), static_cast<long long>(m_total));
    std::fflush(stdout);
    m_sinceReport.start();
}

Indexer::Reading* Indexer::freeReading()
{
    for (Reading& reading : m_readings) {
        if (!reading.isTaken) return &reading;
    }
    return nullptr;
}
