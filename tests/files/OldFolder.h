// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/SharedFolderSplit.h"
#include "support/TestDatabase.h"
#include "util/FileAccess.h"

/// The statement for a file that a database names: `2.pdf` by a document, `hist:2.pdf` by a former version,
/// `deleted:2.pdf` by a deleted one, `chart:7:C:\x.tif` by an organization, `former:7` by what the journal
/// tells of one.
inline QString rowOf(const QString& named)
{
    const QString rest = named.section(u':', 1);
    if (named.startsWith(u"hist:"_s))
        return u"INSERT INTO Document_HIST (FileLocation) VALUES ('%1')"_s.arg(rest);
    if (named.startsWith(u"chart:"_s)) {
        return u"INSERT INTO OrganizationProfile (OrganizationProfileID, OrganizationChart, ChartOption) "
               u"VALUES "
               "(%1, '%2', 1)"_s.arg(rest.section(u':', 0, 0), rest.section(u':', 1));
    }
    if (named.startsWith(u"former:"_s)) {
        return u"INSERT INTO Journal (Step, Moment, What, Kind, Identifier, After, UndoStep, RedoStep) "
               u"VALUES "
               u"(1, '', 'change', 'Organization', %1, '{\"Files\":[{\"Name\":\"%1.pdf\"}]}', 1, 0)"_s.arg(
                   rest);
    }
    const bool isDeleted = named.startsWith(u"deleted:"_s);
    return u"INSERT INTO Document (FileLocation, dStatus) VALUES ('%1', '%2')"_s.arg(
        isDeleted ? rest : named, isDeleted ? u"DELETED"_s : u"ACTIVE"_s);
}

/// A folder whose files need not reach a disk, if there is one.
inline QString memory()
{
    const QString folder = u"/dev/shm"_s;
    return isWritable(folder) ? folder : QDir::tempPath();
}

/// A data folder that databases share, and a place for those that move.
class OldFolder
{
public:
    /// `base` is where the old folder is made: on another file system than the place, or on the same one.
    explicit OldFolder(const QString& base = memory()) : m_folder(base + u"/split-XXXXXX"_s)
    {
        QDir().mkpath(data());
    }

    [[nodiscard]] QString data() const { return m_folder.filePath(u"old/data"_s); }
    [[nodiscard]] QString place() const { return m_new.filePath(u"place"_s); }
    [[nodiscard]] QString file(const QString& name) const { return data() + u'/' + name; }

    /// Adds a database whose records name those files, separated by blanks.
    void addDatabase(const QString& name, const QString& named, bool isOlder = false) const
    {
        static const TestDatabase empty;
        QFile::copy(empty.fileName(), file(name));
        SQLite::Database database(file(name).toStdString(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA synchronous = OFF; BEGIN");
        database.exec((u"INSERT INTO Venue VALUES (2, '%1')"_s.arg(name)).toStdString());
        for (const QString& each : named.split(u' ', Qt::SkipEmptyParts))
            database.exec(rowOf(each).toStdString());
        database.exec(isOlder ? "DROP TABLE Journal; PRAGMA user_version = 1; COMMIT" : "COMMIT");
    }

    /// Adds files, separated by blanks, each of which begins with its own name.
    void addFiles(const QString& names) const
    {
        for (const QString& name : names.split(u' ', Qt::SkipEmptyParts))
            writeFile(file(name), name.toUtf8() + '\n' + QByteArray(9000, 'x') + "end");
    }

    SharedFolderSplit::Result split(const QString& opened, const QString& preferred = {}) const
    {
        return SharedFolderSplit(data(), place())
            .run(file(opened), preferred.isEmpty() ? QString() : file(preferred));
    }

    /// The files of a folder and those below it; with the name that a database or another file was made with
    /// if that is not where it is.
    [[nodiscard]] QStringList filesIn(const QString& folder) const
    {
        QStringList files;
        QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString path = entries.next();
            const QString name = QDir(folder).relativeFilePath(path);
            files << name;
            const QString made = madeAs(path);
            if (!name.endsWith(made, Qt::CaseInsensitive)) files.back() += u'=' + made;
        }
        files.sort();
        return files;
    }

    /// All that is there: the old folder, then the place.
    [[nodiscard]] std::string all() const
    {
        return (filesIn(data()) + QStringList(u"|"_s) + filesIn(place())).join(u' ').toStdString();
    }

    /// The name of a file when it was made, as its content tells; `broken` if it is not whole.
    static QString madeAs(const QString& path)
    {
        const QByteArray content = contentOf(path);
        if (!content.startsWith("SQLite format 3")) {
            return content.endsWith("end") ? QString::fromUtf8(content.left(content.indexOf('\n')))
                                           : u"broken"_s;
        }
        try {
            SQLite::Database database(path.toStdString());
            if (database.execAndGet("PRAGMA integrity_check").getString() != "ok") return u"broken"_s;
            return QString::fromStdString(database.execAndGet("SELECT VenueName FROM Venue").getString());
        } catch (const SQLite::Exception&) {
            return u"broken"_s;
        }
    }

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_new{memory() + u"/split-XXXXXX"_s};
};
