#include "platform/DesktopFileDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

QString DesktopFileDialogs::openFile(const QString& title, const QString& filter)
{
    const QString file =
        QFileDialog::getOpenFileName(QApplication::activeWindow(), title, m_lastFolder, filter);
    if (!file.isEmpty()) m_lastFolder = QFileInfo(file).path();
    return file;
}
