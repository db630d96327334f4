// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFormats.h"
#include "export/ExportWork.h"
#include "export/ExportedCollection.h"
#include "files/Archive.h"
#include "support/SizeLimit.h"
#include "support/TestFiles.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What a file holds but the moment in a workbook and in a calendar.
QByteArray lastingContent(const QString& file)
{
    if (file.endsWith(u".ics"))
        return QString::fromUtf8(contentOf(file)).remove(QRegularExpression(u"DTSTAMP:.*"_s)).toUtf8();
    if (!file.endsWith(u".xlsx") || !QFile::exists(file)) return contentOf(file);
    QByteArray content;
    ArchiveReader archive(file);
    while (const auto entry = archive.next()) {
        if (entry->name == u"docProps/core.xml") continue;
        content += entry->name.toUtf8();
        for (std::string_view part = archive.read(); !part.empty(); part = archive.read())
            content.append(part.data(), static_cast<qsizetype>(part.size()));
    }
    return content;
}

qsizetype openFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size();
}

} // namespace

TEST(UnfinishedExport, AFullDiskLeavesTheWholeFileOrNone)
{
    ExportedCollection collection;
    for (const ExportFormat& format : exportFormats()) {
        const RecordKind kind = format.kind.value_or(RecordKind::Organization);
        const QByteArray name = format.name.toLatin1();
        const QString file = collection.exportTo(name.constData(), kind);
        const QByteArray whole = lastingContent(file);
        // the sheet of a workbook is written twice, the second time with some hundred bytes around its rows
        for (rlim_t limit = 0; limit < 9000; limit += 150) {
            QFile::remove(file);
            const int number = errorNumberOf([&] {
                const SizeLimit full(limit);
                static_cast<void>(collection.exportTo(name.constData(), kind));
            });
            EXPECT_EQ(lastingContent(file), number == 0 ? whole : "(no file)")
                << name.constData() << ' ' << limit;
            EXPECT_TRUE(number == 0 || number == EFBIG || number == EIO)
                << name.constData() << ' ' << limit << ' ' << number;
            EXPECT_FALSE(QFile::exists(file + u".part"_s)) << name.constData() << ' ' << limit;
        }
    }
}

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
