#include "online/OnlineServices.h"

#include "controls/DialogRead.h"
#include "online/webfiles/WebFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

namespace netrove {

QString OnlineServices::ReadFor(QDialog& dialog, QAbstractButton& cancel,
                                QLatin1String path) const {
    QString text;
    {
        const DialogRead reading(dialog, cancel);
        text = Trim(http.OpenURL(WebFile::Address(webAddress, path)));
    }
    if (!dialog.isVisible())
        throw RunTimeError(ErrorNumber::DeviceUnavailable);
    return text;
}

} // namespace netrove
