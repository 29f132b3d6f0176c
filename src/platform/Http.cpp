#include "platform/Http.h"

#include "runtime/SourceText.h"

#include <QUrl>

namespace netrove {

bool IsWebAddress(const QString& text) {
    const QUrl address(text, QUrl::StrictMode);
    const bool isWeb = address.scheme() == "http"_L1 || address.scheme() == "https"_L1;
    return isWeb && !address.host().isEmpty();
}

} // namespace netrove
