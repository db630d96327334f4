#include "app/StdREG.h"

#include "platform/IniSettingsStore.h"
#include "support/ScriptedPlatform.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(StdREG, KeepsValuesUnderTheKeyAndItsSections)
{
    MemorySettings store;
    StdREG settings(store);
    EXPECT_EQ(settings.GetRegString(QString(), QStringLiteral("DBFile")), QString());
    settings.WriteRegString(QString(), QStringLiteral("DBFile"), QStringLiteral("  my data.sqlite "));
    settings.WriteRegString(QStringLiteral("Window"), QStringLiteral("DBFile"), QStringLiteral("other"));
    EXPECT_EQ(settings.GetRegString(QString(), QStringLiteral("DBFile")), QStringLiteral("my data.sqlite"));
    EXPECT_EQ(settings.GetRegString(QStringLiteral("Window"), QStringLiteral("DBFile")),
              QStringLiteral("other"));
    EXPECT_EQ(store.values.begin()->first, QStringLiteral("SOFTWARE/Tessary/Orvik Database/1.0/DBFile"));
}

TEST(StdREG, OutlivesTheProgramInAFileOfTheUser)
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    const QString name = QStringLiteral("Données \"1\".sqlite");
    {
        IniSettingsStore store;
        StdREG(store).WriteRegString(QString(), QStringLiteral("DBFile"), name);
    }
    IniSettingsStore store;
    EXPECT_EQ(StdREG(store).GetRegString(QString(), QStringLiteral("DBFile")), name);
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("Orvik/Orvik Database.ini"))));
}

} // namespace
