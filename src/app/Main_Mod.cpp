// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Main_Mod.h"

#include "app/frmSplash.h"
#include "browse/window/frmMain.h"
#include "files/ProgramFolder.h"
#include "help/HelpFile.h"
#include "opening/DatabaseName.h"
#include "opening/DatabasePath.h"
#include "opening/SampleCollection.h"
#include "platform/OtherWindows.h"
#include "platform/Procedure.h"
#include "platform/StdREG.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QFileInfo>

Main_Mod::Main_Mod(const Platform& platform, DatabaseConverter& converter, ProgramFolder folder,
                   QString sampleFolder)
    : m_platform(platform),
      m_state(std::move(folder)),
      m_opener(platform, {converter, m_state.home, m_state.folder, m_state.session}),
      m_sampleFolder(std::move(sampleFolder))
{
}

Main_Mod::~Main_Mod() = default;

bool Main_Mod::handOver(const StartRequest& request, const QString& activationToken)
{
    const QString database = databaseOf(request);
    return !m_platform.otherWindows.listen(database) &&
           m_platform.otherWindows.call(database, {request.arguments(), activationToken});
}

/// Returns the file that a request is about; empty if there is none, which the window says when it opens it.
QString Main_Mod::databaseOf(const StartRequest& request) const
{
    try {
        return request.path.isEmpty() ? m_opener.namedFile() : databaseAt(request.path);
    } catch (const Error&) {
        return {};
    }
}

void Main_Mod::Main(const StartRequest& request)
{
    const QString name = QStringLiteral("Sub Main");
    runProcedure(m_platform.messages, name, [&] {
        frmSplash splash;
        splash.showAtOnce();
        // without a program folder, the window is shown all the same
        const bool hasFolder = runProcedure(m_platform.messages, name, [this] { prepareProgramFolder(); });
        qCInfo(startLog) << "build the main window";
        m_window = std::make_unique<frmMain>(m_platform, m_opener, m_state);
        m_window->load(hasFolder, request);
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
    if (isFirst) ProgramFolder::fillFromSample(SampleCollection::folder(m_state.home), m_sampleFolder);
    HelpFile::renew(root, m_sampleFolder);
    if (!isFirst) return;
    qCInfo(startLog).noquote() << "filled from the sample:" << m_sampleFolder;
    StdREG settings(m_platform.settings);
    const QString name = QStringLiteral("DBFile");
    const QString database = SampleCollection::ownDatabase(m_state.home);
    if (database.isEmpty() || !settings.GetRegString(QString(), name).isEmpty()) return;
    settings.WriteRegString(QString(), name, DatabaseName::nameOf(m_state.home, database));
}
