// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace {

/// The local files that are dragged.
QStringList draggedFiles(const QMimeData& data)
{
    QStringList files;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (const QString file = url.toLocalFile(); !file.isEmpty()) files << file;
    }
    return files;
}

} // namespace

FileDrop::FileDrop(QWidget* window) : QObject(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
    const auto parts = window->findChildren<QWidget*>();
    for (QWidget* part : parts) {
        if (part->acceptDrops()) part->installEventFilter(this);
    }
}

QString FileDrop::severalText()
{
    return tr("Only one file can be taken at a time. Please drop one file.");
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_isEnabled) return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::DragLeave) Q_EMIT dragged(false);
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove ||
                        event->type() == QEvent::Drop;
    if (!isDrag) return QObject::eventFilter(watched, event);
    auto* drag = static_cast<QDropEvent*>(event);
    const QStringList files = draggedFiles(*drag->mimeData());
    if (files.isEmpty()) return QObject::eventFilter(watched, event);
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (event->type() == QEvent::DragEnter) Q_EMIT dragged(true);
    if (event->type() == QEvent::Drop) {
        Q_EMIT dragged(false);
        // the program that the files come from is blocked until the drop is over
        QTimer::singleShot(0, this, [this, files] { takeFiles(files); });
    }
    return true;
}

void FileDrop::takeFiles(const QStringList& files)
{
    if (files.size() == 1) {
        Q_EMIT dropped(files.front());
    } else {
        Q_EMIT severalDropped();
    }
}
