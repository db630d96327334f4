#include "opening/DatabaseOpener.h"

#include "files/DatabaseFile.h"
#include "platform/FileAttributes.h"
#include "platform/Messages.h"
#include "platform/StdREG.h"
#include "state/ProgramState.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QFileInfo>

namespace {

QString settingName()
{
    return QStringLiteral("DBFile");
}

QString convertedName(const QString& accessFile)
{
    return QFileInfo(accessFile).completeBaseName() + QStringLiteral(".sqlite");
}

} // namespace

QString DatabaseOpener::dataPath(const QString& name) const
{
    return m_state.folder.machinePath(ProgramFolders::data + name);
}

void DatabaseOpener::openNamed()
{
    const QString name = StdREG(m_platform.settings).GetRegString(QString(), settingName());
    m_state.databasePath = m_state.folder.find(ProgramFolders::data, name).value_or(dataPath(name));
    if (kindOfDatabaseFile(m_state.databasePath) == DatabaseFileKind::Access) {
        const QString source = m_state.databasePath;
        m_state.databasePath = dataPath(convertedName(name));
        const bool exists = QFileInfo::exists(m_state.databasePath);
        const bool replace =
            exists && m_platform.messages.ask(
                          QStringLiteral("%1 was converted before, to %2.\n\nDo you want to convert it "
                                         "again and replace that database? Whatever was added to it "
                                         "since is then lost. No opens it as it is.")
                              .arg(name, convertedName(name)),
                          Question::Loss);
        if (!exists || replace) {
            if (!convert(source, m_state.databasePath, replace)) {
                throw Error(ECANCELED, QStringLiteral("The conversion was cancelled. (%1)").arg(source));
            }
        }
        nameInSettings(m_state.databasePath);
    }
    open(m_state.databasePath);
    m_state.session.requireWritable();
}

bool DatabaseOpener::openChosen(const QString& file)
{
    const DatabaseFileKind kind = kindOfDatabaseFile(file);
    const QString target =
        dataPath(kind == DatabaseFileKind::Access ? convertedName(file) : QFileInfo(file).fileName());
    const bool inPlace = QFileInfo(file).canonicalFilePath() == QFileInfo(target).canonicalFilePath();
    const bool replace = !inPlace && QFileInfo::exists(target);
    if (replace && !m_platform.messages.ask(
                       QStringLiteral("The data folder holds a database %1 already.\n\nDo you want to "
                                      "replace it? What it holds is then lost.")
                           .arg(QFileInfo(target).fileName()),
                       Question::Loss)) {
        return false;
    }
    if (kind == DatabaseFileKind::Access) {
        if (!convert(file, target, replace)) return false;
    } else if (!inPlace) {
        copyDatabase(file, target);
    }
    open(target);
    m_state.databasePath = target;
    nameInSettings(target);
    m_state.session.requireWritable();
    return true;
}

bool DatabaseOpener::convert(const QString& source, const QString& target, bool replace)
{
    using End = DatabaseConverter::Result::End;
    qCInfo(startLog).noquote() << "convert:" << source << "to" << target;
    const DatabaseConverter::Result result = m_platform.converter.convert(source, target, replace);
    if (result.end == End::Cancelled) return false;
    if (result.end == End::Failed) {
        throw Error(result.status, QStringLiteral("%1 (%2)").arg(result.error, source));
    }
    m_platform.messages.show(
        QStringLiteral("The Access file %1 was converted to the database %2, which the program uses from "
                       "now on. The Access file is unchanged.\n\n%3")
            .arg(QFileInfo(source).fileName(), target, result.report.text()));
    return true;
}

void DatabaseOpener::open(const QString& file)
{
    m_platform.fileAttributes.makeWritable(file);
    qCInfo(startLog).noquote() << "open database:" << file;
    m_state.session.open(file);
}

void DatabaseOpener::nameInSettings(const QString& file)
{
    StdREG(m_platform.settings).WriteRegString(QString(), settingName(), QFileInfo(file).fileName());
}
