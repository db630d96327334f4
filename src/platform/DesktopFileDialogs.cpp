// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopFileDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

namespace {

/// A filter in the form of the toolkit, which shows what stands before the last parentheses.
QString toolkitFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u' ', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << QStringLiteral("%1 (%2)").arg(parts[i].trimmed(), patterns.join(u' '));
    }
    return filters.join(QStringLiteral(";;"));
}

/// The ending of the first pattern of one of the toolkit's filters, without its point; an empty text if the
/// pattern takes every file.
QString endingOf(const QString& filter)
{
    static const QRegularExpression pattern(QStringLiteral(R"(\(\*\.([^ )]+)[^(]*\)$)"));
    return pattern.match(filter).captured(1);
}

} // namespace

QString DesktopFileDialogs::openFile(const QString& title, const QString& filter)
{
    QString file =
        QFileDialog::getOpenFileName(QApplication::activeWindow(), title, m_lastFolder, toolkitFilter(filter),
                                     nullptr, QFileDialog::HideNameFilterDetails | QFileDialog::ReadOnly);
    if (!file.isEmpty()) m_lastFolder = QFileInfo(file).path();
    return file;
}

QString DesktopFileDialogs::saveFile(const QString& title, const QString& proposed, const QString& filter)
{
    const QString start = QFileInfo(proposed).isAbsolute() ? proposed : QDir(m_lastFolder).filePath(proposed);
    QFileDialog dialog(QApplication::activeWindow(), title, QFileInfo(start).path(), toolkitFilter(filter));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(QFileInfo(start).fileName());
    const auto completeNames = [&] { dialog.setDefaultSuffix(endingOf(dialog.selectedNameFilter())); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, completeNames);
    completeNames();
    if (dialog.exec() != QDialog::Accepted) return {};
    QString file = dialog.selectedFiles().front();
    m_lastFolder = QFileInfo(file).path();
    return file;
}

QString DesktopFileDialogs::chooseFolder(const QString& title, const QString& start)
{
    QString folder = QFileDialog::getExistingDirectory(QApplication::activeWindow(), title,
                                                       QFileInfo(start).isDir() ? start : m_lastFolder);
    if (!folder.isEmpty()) m_lastFolder = folder;
    return folder;
}
