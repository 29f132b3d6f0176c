#pragma once

#include "controls/ListView.h"

#include <QObject>
#include <QStringList>

#include <functional>

namespace netrove {

/// Lets the user drop local files on a list. They are handed over when the event loop is next
/// reached, so that the program from which they are dragged needn't wait.
class ResultsDrop : public QObject {
    Q_OBJECT

public:
    using Dropped = std::function<void(const QStringList& files)>;

    /// Becomes a child of `list`. Takes only files, and only to copy them.
    ResultsDrop(ListView& list, Dropped dropped);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Dropped dropped_;
};

} // namespace netrove
