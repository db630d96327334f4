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
class AsFarAsPossible final : public SteppedWork
{
public:
    explicit AsFarAsPossible(FolderCopy& work) : m_work(work) {}

    bool step() override
    {
        try {
            return m_work.step();
        } catch (const Error& error) {
            if (!FileBlocks::isOfReading(error.number())) throw;
            m_failures << error.description();
            m_work.skipFile();
        }
        return true;
    }
    bool undoStep() override { return m_work.undoStep(); }
    [[nodiscard]] QString title() const override { return m_work.title(); }
    [[nodiscard]] QString remark() const override { return m_work.remark(); }
    [[nodiscard]] QString text() const override { return m_work.text(); }
    [[nodiscard]] std::optional<int> percent() const override { return m_work.percent(); }

    [[nodiscard]] const QStringList& failures() const { return m_failures; }

private:
    FolderCopy& m_work;
    QStringList m_failures;
};

FolderList filesOf(const ProgramFolder& folder)
{
    const std::pair<QString, const char*> folders[] = {{ProgramFolders::documents, "documents"},
                                                       {ProgramFolders::organizationCharts, "orgcharts"},
                                                       {ProgramFolders::maps, "maps"}};
    FolderList list;
    for (const auto& [path, name] : folders) {
        const QString found = folder.folderPath(path);
        if (QFileInfo(found).isDir()) list.add(found, name);
    }
    return list;
}

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
    FolderList files = filesOf(folder);
    if (!works.run(files)) return std::nullopt;
    FolderCopy copy(files, collection.dataFolder());
    AsFarAsPossible copying(copy);
    if (!works.run(copying)) return std::nullopt;
    RescuedCollection rescued{collection.target() + file, rescue.lines()};
    for (const QString& failure : copying.failures())
        rescued.lines << CheckTexts::tr("A file could not be copied: %1").arg(failure);
    collection.complete();
    return rescued;
}
