#include "editors/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace {

/// The one file that is dragged; empty where it is no file of this machine, or more than one.
QString draggedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
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

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove ||
                        event->type() == QEvent::Drop;
    if (!isDrag || !m_isEnabled) return QObject::eventFilter(watched, event);
    auto* drag = static_cast<QDropEvent*>(event);
    const QString file = draggedFile(drag->mimeData());
    if (file.isEmpty()) return QObject::eventFilter(watched, event);
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (event->type() == QEvent::Drop) {
        // the program that the file comes from waits until the drop is over
        QTimer::singleShot(0, this, [this, file] { Q_EMIT dropped(file); });
    }
    return true;
}
