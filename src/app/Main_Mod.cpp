// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Main_Mod.h"

#include "app/frmSplash.h"
#include "browse/window/frmMain.h"
#include "files/ProgramFolder.h"
#include "help/HelpFile.h"
#include "opening/DatabaseName.h"
#include "platform/Procedure.h"
#include "platform/StdREG.h"
#include "util/Logging.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The path of the first database in a folder; empty if there is none.
QString firstDatabase(const QString& dataFolder)
{
    const QStringList databases =
        QDir(dataFolder).entryList({QStringLiteral("*.sqlite")}, QDir::Files, QDir::Name);
    return databases.isEmpty() ? QString() : dataFolder + databases.front();
}

} // namespace

Main_Mod::Main_Mod(const Platform& platform, DatabaseConverter& converter, ProgramFolder folder,
                   QString sampleFolder)
    : m_platform(platform),
      m_state(std::move(folder)),
      m_opener(platform, {converter, m_state.home, m_state.folder, m_state.session}),
      m_sampleFolder(std::move(sampleFolder))
{
}

Main_Mod::~Main_Mod() = default;

void Main_Mod::Main()
{
    const QString name = QStringLiteral("Sub Main");
    runProcedure(m_platform.messages, name, [&] {
        frmSplash splash;
        splash.showAtOnce();
        // without a program folder, the window is shown all the same
        const bool hasFolder = runProcedure(m_platform.messages, name, [this] { prepareProgramFolder(); });
        qCInfo(startLog) << "build the main window";
        m_window = std::make_unique<frmMain>(m_platform, m_opener, m_state);
        m_window->load(hasFolder);
        splash.close();
        m_window->show();
        qCInfo(startLog) << "the main window is shown";
    });
}

/// On a first start, makes the program folder with the sample in a folder of its own, and names that in the
/// settings. On every start, brings the guide up to date. Throws Error.
void Main_Mod::prepareProgramFolder()
{
    const QString root = m_state.home.root();
    qCInfo(startLog).noquote() << "program folder:" << root;
    const bool isFirst = !QFileInfo::exists(root);
    const QString sample = root + QStringLiteral("/Sample");
    if (isFirst) ProgramFolder::fillFromSample(sample, m_sampleFolder);
    HelpFile::renew(root, m_sampleFolder);
    if (!isFirst) return;
    qCInfo(startLog).noquote() << "filled from the sample:" << m_sampleFolder;
    StdREG settings(m_platform.settings);
    const QString name = QStringLiteral("DBFile");
    const QString database = firstDatabase(sample + QStringLiteral("/data/"));
    if (database.isEmpty() || !settings.GetRegString(QString(), name).isEmpty()) return;
    settings.WriteRegString(QString(), name, DatabaseName::nameOf(m_state.home, database));
}
