// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/StdREG.h"

#include "platform/IniSettingsStore.h"
#include "support/ScriptedPlatform.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace
