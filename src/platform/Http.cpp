#include "platform/Http.h"

#include <QUrl>

namespace netrove {

bool IsWebAddress(const QString& text) {
    const QUrl address(text, QUrl::StrictMode);
    const bool isWeb =
        address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https");
    return isWeb && !address.host().isEmpty();
}

} // namespace netrove
