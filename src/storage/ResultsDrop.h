#pragma once

#include "controls/ListView.h"

#include <QObject>
#include <QStringList>

#include <functional>

namespace netrove {

/// Lets the user drop local files on a list. They are handed over when the event loop is next
/// reached: whoever they are dragged from isn't kept waiting.
class ResultsDrop : public QObject {
    Q_OBJECT

public:
    using Dropped = std::function<void(const QStringList& files)>;

    /// A child of `list`. Files are offered to be copied, nothing else is taken.
    ResultsDrop(ListView& list, Dropped dropped);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Dropped dropped_;
};

} // namespace netrove
