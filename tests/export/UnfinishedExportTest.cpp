// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFormats.h"
#include "export/ExportWork.h"
#include "export/ExportedCollection.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

qsizetype openFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size();
}

} // namespace

TEST(UnfinishedExport, CancelledAtAnyStepLeavesWhatWasThere)
{
    ExportedCollection collection;
    for (const ExportFormat& format : exportFormats()) {
        const RecordKind kind = format.kind.value_or(RecordKind::Document);
        const QString file = collection.database().folder() + u"/cancelled"_s;
        const std::vector<qint64> identifiers = collection.identifiers(kind);
        writeFile(file, "precious");
        const QStringList before = QDir(collection.database().folder()).entryList();
        const qsizetype opened = openFiles();
        bool isDone = false;
        for (int steps = 0; !isDone && steps < 100; ++steps) {
            ExportWork work(collection.session(), kind, identifiers, format, {}, file);
            for (int step = 0; step < steps && !isDone; ++step)
                isDone = !work.step();
            while (!isDone && work.undoStep()) {
            }
            if (isDone) break;
            EXPECT_EQ(QDir(collection.database().folder()).entryList(), before)
                << format.name.toStdString() << steps;
            EXPECT_EQ(contentOf(file), "precious");
        }
        EXPECT_TRUE(isDone && contentOf(file) != "precious") << format.name.toStdString();
        EXPECT_EQ(openFiles(), opened) << format.name.toStdString();
        QFile::remove(file);
    }
}

TEST(UnfinishedExport, ReplacesWhatALinkLeadsToAndKeepsItsPermissions)
{
    ExportedCollection collection;
    const QString before = collection.database().folder() + u"/before"_s;
    writeFile(before, "before");
    const QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QFile::setPermissions(before, permissions);
    QFile::link(before, collection.database().folder() + u"/Event.csv"_s);
    EXPECT_TRUE(QFileInfo(collection.exportTo("csv", RecordKind::Event)).isSymLink());
    EXPECT_TRUE(contentOf(before).startsWith("\"ID\",Title,"));
    EXPECT_EQ(QFile::permissions(before) & ~(QFile::ReadUser | QFile::WriteUser), permissions);
}
