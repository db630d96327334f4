// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImportError.h"
#include "Importer.h"
#include "TemporaryTarget.h"
#include "backup/CollectionBackup.h"
#include "backup/KeptBackups.h"
#include "export/ExportFormats.h"
#include "export/ExportWork.h"
#include "faults/FaultScene.h"
#include "files/ProgramFolder.h"
#include "files/VersionCopies.h"
#include "opening/CollectionMaker.h"
#include "opening/DatabaseConverter.h"
#include "opening/DatabaseUpgrade.h"
#include "opening/RestoredCollection.h"
#include "opening/UnfinishedCollection.h"
#include "platform/IniSettingsStore.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

namespace {

const QDateTime someMoment(QDate(2005, 6, 15), QTime(12, 0));

/// A collection with a database and a few files, and a folder for others.
class CollectionScene : public FaultScene
{
protected:
    void prepare(const QString& folder) override
    {
        const TestDatabase database;
        database.run(
            "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'Levées', 'ACTIVE')");
        writeFile(databaseIn(folder), database.bytes());
        writeFile(folder + u"/Rivers/data/documents/2.pdf"_s, "a report");
        writeFile(folder + u"/Rivers/data/orgcharts/2.png"_s, "a chart");
    }

    static QString databaseIn(const QString& folder) { return folder + u"/Rivers/data/Rivers.sqlite"_s; }

    /// The copy of the database that a backup makes lies in the folder too.
    static void useTemporaryIn(const QString& folder)
    {
        const QString temporary = folder + u"/temporary"_s;
        QDir().mkpath(temporary);
        qputenv("TMPDIR", QFile::encodeName(temporary));
    }

    static void backUp(const QString& folder, const QString& archive)
    {
        CollectionBackup work(databaseIn(folder), ProgramFolder(folder + u"/Rivers"_s), archive, someMoment);
        while (work.step()) {
        }
    }
};

/// A backup takes the place of an older one.
class BackupScene final : public CollectionScene
{
public:
    BackupScene() { isRepeatable = true; }

protected:
    void prepare(const QString& folder) override
    {
        CollectionScene::prepare(folder);
        backUp(folder, archiveIn(folder));
        writeFile(folder + u"/Rivers/data/documents/2.pdf"_s, "a longer report");
    }

    Act begin(const QString& folder) override
    {
        useTemporaryIn(folder);
        return [folder] { backUp(folder, archiveIn(folder)); };
    }

    static QString archiveIn(const QString& folder) { return folder + u"/Rivers.zip"_s; }
};

/// An export takes the place of an older one.
class ExportScene final : public CollectionScene
{
public:
    explicit ExportScene(const ExportFormat& format) : m_format(format) { isRepeatable = true; }

protected:
    void prepare(const QString& folder) override
    {
        CollectionScene::prepare(folder);
        writeFile(fileIn(folder), "what was exported before");
    }

    Act begin(const QString& folder) override
    {
        useTemporaryIn(folder);
        auto session = std::make_shared<DatabaseSession>();
        session->open(databaseIn(folder), Access::Read);
        return [this, folder, session] {
            const RecordKind kind = m_format.kind.value_or(RecordKind::Document);
            ExportWork work(*session, kind, {2}, m_format, {}, fileIn(folder));
            while (work.step()) {
            }
        };
    }

private:
    [[nodiscard]] QString fileIn(const QString& folder) const { return folder + u"/old"_s + m_format.ending; }

    const ExportFormat& m_format;
};

class KeptBackupScene final : public CollectionScene
{
public:
    KeptBackupScene() { isRepeatable = true; }

protected:
    void prepare(const QString& folder) override
    {
        CollectionScene::prepare(folder);
        QDir().mkpath(folder + u"/Rivers/backups"_s);
    }

    Act begin(const QString& folder) override
    {
        useTemporaryIn(folder);
        return [folder] {
            const ProgramFolder collection(folder + u"/Rivers"_s);
            KeptBackups(collection).add(databaseIn(folder), collection, someMoment);
        };
    }
};

class RestoreScene final : public CollectionScene
{
protected:
    void prepare(const QString& folder) override
    {
        CollectionScene::prepare(folder);
        backUp(folder, folder + u"/Rivers.zip"_s);
        QDir(folder + u"/Rivers"_s).removeRecursively();
    }

    Act begin(const QString& folder) override
    {
        return [folder] {
            ScriptedWorks works;
            const auto database =
                RestoredCollection::make(works, folder + u"/Rivers.zip"_s, folder, {.name = u"Again"_s});
            if (!database) throw std::logic_error("it was cancelled");
        };
    }

    void startAgain(const QString& folder) override { UnfinishedCollection::clearLeftOver(folder); }
};

class UpgradeScene final : public FaultScene
{
protected:
    void prepare(const QString& folder) override
    {
        SQLite::Database database((folder + u"/old.sqlite"_s).toStdString(),
                                  SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec(::contentOf(QStringLiteral(ORVIK_OLD_DATABASE)).toStdString());
    }

    Act begin(const QString& folder) override
    {
        return [folder] {
            const QString file = folder + u"/old.sqlite"_s;
            if (const auto hindrance = DatabaseUpgrade::bringUpToDate(file)) throw Error(*hindrance);
            DatabaseSession session;
            session.open(file);
            session.requireWritable();
        };
    }

    /// A copy that a kill left is whole, and is kept beside the next one.
    [[nodiscard]] bool isSpare(const QString& name) const override
    {
        return FaultScene::isSpare(name) || VersionCopies::isCopy(name);
    }
};

/// What the process that converts does, in this one. The Access file is only read.
class ImportScene final : public FaultScene
{
protected:
    void prepare(const QString& folder) override
    {
        writeFile(folder + u"/small.mdb"_s, ::contentOf(QStringLiteral(ORVIK_ACCESS_FILE)));
        writeFile(folder + u"/small.sqlite"_s, "what was imported before");
    }

    Act begin(const QString& folder) override
    {
        return [folder] {
            using namespace accessimport;
            const CommandLine line{(folder + u"/small.mdb"_s).toStdString(),
                                   (folder + u"/small.sqlite"_s).toStdString(), true};
            const auto fail = [&line](int status, const char* what) {
                throw Error(status,
                            u"%1 (%2)"_s.arg(QString::fromUtf8(what), QString::fromStdString(line.source)));
            };
            QFile nowhere(u"/dev/null"_s);
            (void)nowhere.open(QIODevice::WriteOnly);
            Report report(nowhere.handle(), nowhere.handle());
            try {
                TemporaryTarget temporary(line.target, line.replace);
                importDatabase(line, temporary.path(), report);
                temporary.publish();
            } catch (const ImportError& error) {
                fail(static_cast<int>(error.status()), error.what());
            } catch (const SQLite::Exception& error) {
                fail(error.getErrorCode(), error.what());
            }
        };
    }

    void startAgain(const QString& folder) override
    {
        const accessimport::TemporaryTarget next((folder + u"/small.sqlite"_s).toStdString(), true);
    }
};

/// A database from elsewhere is copied into a collection of its own, with the files beside it.
class CopyScene final : public CollectionScene
{
protected:
    Act begin(const QString& folder) override
    {
        return [folder] {
            struct NoConverter final : DatabaseConverter
            {
                Result convert(const QString& /*source*/, const QString& /*target*/,
                               bool /*replace*/) override
                {
                    return {};
                }
            };
            ScriptedMessages messages;
            messages.heard.emplace();
            ScriptedWorks works;
            NoConverter converter;
            const ProgramFolder home(folder);
            const auto made = CollectionMaker(messages, works, converter, home, folder + u"/place"_s)
                                  .make(databaseIn(folder));
            if (!made) throw std::logic_error("it was cancelled");
        };
    }

    void startAgain(const QString& folder) override
    {
        UnfinishedCollection::clearLeftOver(folder + u"/place"_s);
    }
};

/// Settings that cannot be written stay as they are, all of them.
class SettingsScene final : public FaultScene
{
protected:
    void prepare(const QString& folder) override
    {
        writeFile(fileIn(folder), "[A]\nFirst=one\nSecond=two\n");
    }

    Act begin(const QString& folder) override
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
        auto store = std::make_shared<IniSettingsStore>();
        return [store] {
            store->setValue(u"A/First"_s, u"three"_s);
            if (!store->hindrance().isEmpty()) throw Error(EIO, store->hindrance());
        };
    }

    void startAgain(const QString& folder) override
    {
        // Qt takes over the lock of a process that is gone
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
        IniSettingsStore().setValue(u"A/First"_s, u"three"_s);
    }

    static QString fileIn(const QString& folder) { return folder + u"/Orvik/Orvik Database.ini"_s; }
};

TEST(FileFaults, ABackupReplacesAnOlderOneOnlyWhenItIsWhole)
{
    BackupScene().expectWholeOrNone();
}

TEST(FileFaults, AnExportReplacesAnOlderOneOnlyWhenItIsWhole)
{
    for (const ExportFormat& format : exportFormats()) {
        SCOPED_TRACE(format.name.toStdString());
        ExportScene(format).expectWholeOrNone();
    }
}

TEST(FileFaults, AKeptBackupIsWholeOrNotThere)
{
    KeptBackupScene().expectWholeOrNone();
}

TEST(FileFaults, ARestoredCollectionIsWholeOrNotThere)
{
    RestoreScene().expectWholeOrNone();
}

TEST(FileFaults, ADatabaseIsBroughtUpToDateOrStaysAsItWas)
{
    UpgradeScene().expectWholeOrNone();
}

TEST(FileFaults, ACopiedCollectionIsWholeOrNotThere)
{
    CopyScene().expectWholeOrNone();
}

TEST(FileFaults, AnImportedDatabaseIsWholeOrTheOldOne)
{
    ImportScene().expectWholeOrNone();
}

TEST(FileFaults, SettingsAreOldOrNew)
{
    SettingsScene().expectWholeOrNone();
}

TEST(Kills, LeaveBackupsRestoredCollectionsAndUpgradesWholeOrNotThere)
{
    int killed = 0;
    killed += BackupScene().expectWholeOrNoneAfterKills(125);
    killed += KeptBackupScene().expectWholeOrNoneAfterKills(125);
    killed += RestoreScene().expectWholeOrNoneAfterKills(125);
    killed += UpgradeScene().expectWholeOrNoneAfterKills(125);
    EXPECT_EQ(killed, 500);
}

} // namespace
