// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Main_Mod.h"

#include "app/frmSplash.h"
#include "browse/window/frmMain.h"
#include "files/FileUpload.h"
#include "help/HelpFile.h"
#include "opening/DatabasePath.h"
#include "platform/OtherWindows.h"
#include "platform/Procedure.h"
#include "platform/StdREG.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QDir>

namespace {

QString firstDatabase(const QString& dataFolder)
{
    const QStringList databases =
        QDir(dataFolder).entryList({QStringLiteral("*.sqlite")}, QDir::Files, QDir::Name);
    return databases.isEmpty() ? QString() : databases.front();
}

} // namespace

Main_Mod::Main_Mod(const Platform& platform, DatabaseConverter& converter, ProgramFolder folder,
                   QString sampleFolder)
    : m_platform(platform),
      m_state(std::move(folder)),
      m_opener(platform, converter, m_state.folder, m_state.session),
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

/// On a first start, makes the program folder and names the sample in the settings. On every start, brings
/// the guide up to date and removes what an upload left unfinished. Throws Error.
void Main_Mod::prepareProgramFolder()
{
    qCInfo(startLog).noquote() << "program folder:" << m_state.folder.root();
    const bool filled = ProgramFolder::fillFromSample(m_state.folder.root(), m_sampleFolder);
    HelpFile::renew(m_state.folder.root(), m_sampleFolder);
    FileUpload(m_state.folder).clearUnfinished();
    if (!filled) return;
    qCInfo(startLog).noquote() << "filled from the sample:" << m_sampleFolder;
    StdREG settings(m_platform.settings);
    const QString name = QStringLiteral("DBFile");
    if (!settings.GetRegString(QString(), name).isEmpty()) return;
    settings.WriteRegString(QString(), name, firstDatabase(m_state.folder.machinePath(ProgramFolders::data)));
}
