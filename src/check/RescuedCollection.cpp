// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/RescuedCollection.h"

#include "check/CheckTexts.h"
#include "check/DatabaseRescue.h"
#include "files/FileBlocks.h"
#include "files/FolderCopy.h"
#include "files/FolderList.h"
#include "files/ProgramFolder.h"
#include "files/VersionCopies.h"
#include "opening/UnfinishedCollection.h"
#include "platform/WorkRunner.h"
#include "util/Error.h"

#include <QFileInfo>

#include <cerrno>
#include <utility>

namespace {

/// Does work that goes on after what it cannot do, and notes that. A full disk ends it, as everything does
/// that does not come from a single file.
class AsFarAsPossible final : public WrappedWork
{
public:
    explicit AsFarAsPossible(FolderCopy& work) : WrappedWork(work), m_work(work) {}

    bool step() override
    {
        try {
            return WrappedWork::step();
        } catch (const Error& error) {
            if (!FileBlocks::isOfReading(error.number())) throw;
            m_failures << error.description();
            m_work.skipFile();
        }
        return true;
    }

    [[nodiscard]] const QStringList& failures() const { return m_failures; }

private:
    FolderCopy& m_work;
    QStringList m_failures;
};

} // namespace

std::optional<RescuedCollection> RescuedCollection::make(WorkRunner& works, const QString& database,
                                                         const ProgramFolder& folder, const QString& place,
                                                         const QString& name)
{
    UnfinishedCollection::clearLeftOver(place);
    UnfinishedCollection collection(place, name);
    const QString file = VersionCopies::originalName(database);
    DatabaseRescue rescue(database, collection.dataFolder() + file);
    if (!works.run(rescue)) return std::nullopt;
    QStringList failures;
    FolderList files;
    try {
        files = FolderList::of(folder, ProgramFolders::ofFiles);
        if (!works.run(files)) return std::nullopt;
    } catch (const Error& error) {
        // what was found until then is copied all the same
        if (!FileBlocks::isOfReading(error.number())) throw;
        failures << error.description();
    }
    FolderCopy copy(files, collection.dataFolder());
    AsFarAsPossible copying(copy);
    if (!works.run(copying)) return std::nullopt;
    RescuedCollection rescued{collection.target() + file, rescue.lines()};
    for (const QString& failure : failures + copying.failures())
        rescued.lines << CheckTexts::tr("A file could not be copied: %1").arg(failure);
    collection.complete();
    return rescued;
}
