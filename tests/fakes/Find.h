#pragma once

#include "fakes/Text.h"

#include <QWidget>

namespace netrove {

/// What has that name in the window: a test can't go on where it is missing.
template <typename Object = QWidget>
Object& FindIn(const QObject& window, const char* name) {
    auto* object = window.findChild<Object*>(Text(name));
    if (!object)
        qFatal("There is no %s.", name);
    return *object;
}

} // namespace netrove
