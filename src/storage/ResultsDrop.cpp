#include "storage/ResultsDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace netrove {
namespace {

QStringList LocalFilesOf(const QMimeData& data) {
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

ResultsDrop::ResultsDrop(ListView& list, Dropped dropped)
    : QObject(&list), dropped_(std::move(dropped)) {
    list.viewport()->setAcceptDrops(true);
    list.viewport()->installEventFilter(this);
}

bool ResultsDrop::eventFilter(QObject* watched, QEvent* event) {
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return QObject::eventFilter(watched, event);
    auto* drag = static_cast<QDropEvent*>(event);
    const QStringList files = LocalFilesOf(*drag->mimeData());
    if (files.isEmpty() || !(drag->possibleActions() & Qt::CopyAction)) {
        drag->ignore();
        return true;
    }
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (isDrop)
        QTimer::singleShot(0, this, [this, files] { dropped_(files); });
    return true;
}

} // namespace netrove
