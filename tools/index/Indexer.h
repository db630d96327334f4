// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "FileContent.h"
#include "FolderFiles.h"
#include "IndexFile.h"
#include "platform/LimitedProcess.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <array>
#include <exception>
#include <optional>

/// Brings an index up to date with the files of a folder: step by step between the events of the processes
/// that read them. What the disk says of one file never ends it.
class Indexer
{
public:
    /// `reader` is the program that prints the text of a web page.
    Indexer(IndexFile& index, const QString& folder, QString reader);

    /// Returns once the index holds the files of these names, as far as they exist, and no other. Throws
    /// SQLite::Exception; what was kept by then stays.
    void run(const QStringList& names);

private:
    /// A file that a process reads.
    struct Reading
    {
        LimitedProcess process{limits};
        QString name;
        IndexedFile file;
        bool isTaken = false;
    };

    /// What is found at a path before its text is made.
    struct Found
    {
        IndexedFile file;
        FileContent::Kind kind = FileContent::Kind::Other;
        QByteArray text; ///< all of a text file, unless it is too large
    };

    using Part = void (Indexer::*)();
    void guarded(Part part);
    void step();
    void lookAt(const QString& name);
    void compare(const QString& name, const QString& path, const IndexedFile& known);
    [[nodiscard]] Found contentOf(const QString& path, const IndexedFile& now) const;
    void read(const QString& name, const QString& path, const Found& found);
    void startReading(const QString& name, const QString& path, const Found& found);
    void take(Reading& reading, const LimitedProcess::Result& result);
    void store(const QString& name, IndexedFile file, const QString& text);
    void fail(const QString& name, IndexedFile file, const char* failure);
    void keepSoon();
    void keepNow();
    void report();
    [[nodiscard]] Reading* freeReading();

    static const ProcessLimits limits;

    IndexFile& m_index;
    FolderFiles m_files;
    QString m_reader;
    QHash<QString, IndexedFile> m_known;
    QStringList m_names;   ///< still to be looked at, the next one last
    QStringList m_unnamed; ///< still to be forgotten
    qsizetype m_total = 0;
    qsizetype m_done = 0;
    /// Two keep two processors busy, or one while the other waits for the disk, and leave the others alone.
    std::array<Reading, 2> m_readings;
    QEventLoop m_loop;
    QTimer m_steps;
    QTimer m_keeping;
    QElapsedTimer m_sinceReport;
    std::exception_ptr m_failure;
};
