// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseOpener.h"

#include "data/DatabaseSession.h"
#include "files/DatabaseFile.h"
#include "files/ProgramFolder.h"
#include "opening/DatabaseConverter.h"
#include "opening/OpeningTexts.h"
#include "platform/FileAttributes.h"
#include "platform/Messages.h"
#include "platform/StdREG.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QFileInfo>

#include <cerrno>

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
    return m_folder.machinePath(ProgramFolders::data + name);
}

QString DatabaseOpener::namedFile() const
{
    const QString name = StdREG(m_platform.settings).GetRegString(QString(), settingName());
    return m_folder.find(ProgramFolders::data, name).value_or(dataPath(name));
}

void DatabaseOpener::openNamed()
{
    const QString name = StdREG(m_platform.settings).GetRegString(QString(), settingName());
    QString file = namedFile();
    if (kindOfDatabaseFile(file) == DatabaseFileKind::Access) {
        file = convertNamed(name, file);
        nameInSettings(file);
    }
    open(file);
    requireWritable();
}

/// Converts the Access file that the settings name, unless that was done before and the user keeps it.
/// Returns the database. Throws Error.
QString DatabaseOpener::convertNamed(const QString& name, const QString& source)
{
    QString target = dataPath(convertedName(name));
    const bool exists = QFileInfo::exists(target);
    const bool replace =
        exists && m_platform.messages.ask(
                      OpeningTexts::tr("%1 was converted before, to %2.\n\nDo you want to convert it "
                                       "again and replace that database? Whatever was added to it "
                                       "since is then lost. No opens it as it is.")
                          .arg(name, convertedName(name)),
                      Question::Loss);
    const bool isNeeded = !exists || replace;
    if (isNeeded && !convert(source, target, replace)) {
        throw Error(ECANCELED, OpeningTexts::tr("The conversion was cancelled. (%1)").arg(source));
    }
    return target;
}

bool DatabaseOpener::openChosen(const QString& file)
{
    const DatabaseFileKind kind = kindOfDatabaseFile(file);
    const QString target =
        dataPath(kind == DatabaseFileKind::Access ? convertedName(file) : QFileInfo(file).fileName());
    const bool inPlace = QFileInfo(file).canonicalFilePath() == QFileInfo(target).canonicalFilePath();
    const bool replace = !inPlace && QFileInfo::exists(target);
    if (replace && !mayReplace(target)) return false;
    if (kind == DatabaseFileKind::Access) {
        if (!convert(file, target, replace)) return false;
    } else if (!inPlace) {
        copyDatabase(file, target);
    }
    open(target);
    nameInSettings(target);
    requireWritable();
    return true;
}

bool DatabaseOpener::mayReplace(const QString& target)
{
    return m_platform.messages.ask(
        OpeningTexts::tr("The data folder holds a database %1 already.\n\nDo you want to "
                         "replace it? What it holds is then lost.")
            .arg(QFileInfo(target).fileName()),
        Question::Loss);
}

/// Converts a file and tells the user what came of it; false if the user cancelled it. Throws Error.
bool DatabaseOpener::convert(const QString& source, const QString& target, bool replace)
{
    using End = DatabaseConverter::Result::End;
    qCInfo(startLog).noquote() << "convert:" << source << "to" << target;
    const DatabaseConverter::Result result = m_converter.convert(source, target, replace);
    if (result.end == End::Cancelled) return false;
    if (result.end == End::Failed) {
        throw Error(result.status, QStringLiteral("%1 (%2)").arg(result.error, source));
    }
    m_platform.messages.show(
        OpeningTexts::tr("The Access file %1 was converted to the database %2, which the program uses from "
                         "now on. The Access file is unchanged.\n\n%3")
            .arg(QFileInfo(source).fileName(), target, result.report.text()));
    return true;
}

void DatabaseOpener::open(const QString& file)
{
    if (!m_isReadOnly) m_platform.fileAttributes.makeWritable(file);
    qCInfo(startLog).noquote() << "open database:" << file;
    m_session.open(file, m_isReadOnly ? Access::Read : Access::Write);
}

/// A user who asked to read the file knows that it cannot be changed.
void DatabaseOpener::requireWritable() const
{
    if (!m_isReadOnly) m_session.requireWritable();
}

void DatabaseOpener::nameInSettings(const QString& file)
{
    StdREG(m_platform.settings).WriteRegString(QString(), settingName(), QFileInfo(file).fileName());
}
