// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/StdREG.h"

#include "platform/IniSettingsStore.h"
#include "support/ScriptedPlatform.h"

TEST(StdREG, KeepsValuesUnderTheKeyAndItsSections)
{
    MemorySettings store;
    StdREG settings(store);
    EXPECT_EQ(settings.GetRegString(QString(), u"DBFile"_s), QString());
    settings.WriteRegString(QString(), u"DBFile"_s, u"  my data.sqlite "_s);
    settings.WriteRegString(u"Window"_s, u"DBFile"_s, u"other"_s);
    EXPECT_EQ(settings.GetRegString(QString(), u"DBFile"_s), u"my data.sqlite"_s);
    EXPECT_EQ(settings.GetRegString(u"Window"_s, u"DBFile"_s), u"other"_s);
    EXPECT_EQ(store.values.begin()->first, u"SOFTWARE/Tessary/Orvik Database/1.0/DBFile"_s);
}

TEST(StdREG, OutlivesTheProgramInAFileOfTheUser)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    const QString name = u"Données \"1\".sqlite"_s;
    {
        IniSettingsStore store;
        StdREG(store).WriteRegString(QString(), u"DBFile"_s, name);
    }
    IniSettingsStore store;
    EXPECT_EQ(StdREG(store).GetRegString(QString(), u"DBFile"_s), name);
    EXPECT_TRUE(QFile::exists(folder.filePath(u"Orvik/Orvik Database.ini"_s)));
}

/// Files as users or other programs leave them; the values of others are as Qt writes them.
TEST(StdREG, KeepsWhatElseIsInTheFile)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    const QString file = folder.filePath(u"Orvik/Orvik Database.ini"_s);
    const QByteArray others = "list=a, b\nbytes=@ByteArray(\\x1\\xff)\n"
                              "text=\"Donn\\xe9\\x65s, \\\"1\\\"\"\nnothing=@Invalid()\nempty=\n";
    for (const QByteArray& before :
         {QByteArray(), QByteArray("\n"), QByteArray("; a=b\n[A]\n"), "[Other]\nof no meaning\n" + others}) {
        SCOPED_TRACE(before.toStdString());
        writeFile(file, before);
        const QString shown = folder.filePath(u"shown.ini"_s);
        QFile::remove(shown);
        QFile::copy(file, shown);
        IniSettingsStore store;
        store.setValue(u"A/Name"_s, u"value"_s);
        EXPECT_EQ(store.hindrance(), QString());
        const QSettings was(shown, QSettings::IniFormat);
        QSettings now(file, QSettings::IniFormat);
        EXPECT_EQ(now.value(u"A/Name"_s), u"value"_s);
        now.remove(u"A/Name"_s);
        EXPECT_EQ(now.allKeys(), was.allKeys());
        for (const QString& key : was.allKeys())
            EXPECT_EQ(now.value(key), was.value(key)) << key.toStdString();
    }
}

TEST(StdREG, HoldsWhatCannotBeWrittenUntilItCan)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    const QString file = folder.filePath(u"Orvik/Orvik Database.ini"_s);
    const QString hindrance = file + u".new"_s; // where the settings are written first
    QDir().mkpath(hindrance);
    IniSettingsStore store;
    store.setValue(u"A/First"_s, u"one"_s);
    EXPECT_TRUE(store.hindrance().endsWith(u"(%1)"_s.arg(file)));
    EXPECT_EQ(store.value(u"A/First"_s), u"one"_s);
    QDir().rmdir(hindrance);
    store.setValue(u"A/Second"_s, u"two"_s);
    EXPECT_EQ(store.hindrance(), QString());
    EXPECT_EQ(IniSettingsStore().value(u"A/First"_s), u"one"_s);
}
