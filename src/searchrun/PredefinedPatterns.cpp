#include "searchrun/PredefinedPatterns.h"

#include <QLineEdit>

#include <array>

namespace netrove {
namespace {

constexpr std::array<QLatin1String, PredefinedPatterns::Count> Patterns{
    QLatin1String("*.mp3,*.mp2,*.mp1"),
    QLatin1String("*.wav,*.wma,*.au,*.ra,*.aif,*.m3u"),
    QLatin1String("*.asf,*.mpeg,*.mpg,*.avi,*.mov,*.rm,*.wmv"),
    QLatin1String("*.jpg,*.jpeg,*.gif,*.tiff,*.bmp,*.pcx,*.psp"),
    QLatin1String("*.exe"),
    QLatin1String("*.doc,*.xl*,*.htm,*.html,*.ppt,*.obd,*.mdb,*.dot,*.xlt,*.pot,*.obt,*.pub"),
    QLatin1String("*.zip,*.rar,*.ace,*.cab,*.lzh,*.tar,*.7z,*.gzip,*.gz,*.bzip,*.bz2"),
    QLatin1String("*.*"),
};

} // namespace

void PredefinedPatterns::imgFiles_MouseDown(Qt::MouseButton button, const QPoint& position) {
    if (button != Qt::RightButton)
        return;
    if (!settings_.AutoAsterisks)
        dialogs_.Message(
            MessageIcon::Information,
            QStringLiteral(
                "The option 'Auto-Enclose Search Parameters with Asterisks' is currently set \r\n"
                "to 'No'. You will have to tweak the predefined formats so that they may work  \r\n"
                "properly -OR- change the option in Tools>Options>Search."),
            QStringLiteral("Auto-Asterisks is turned off"));
    mnuPopUp5_.popup(controls_.imgFiles.mapToGlobal(position));
}

void PredefinedPatterns::mnuFiles_Click(int index) {
    controls_.LstSearchFor.setEditText(Patterns.at(static_cast<std::size_t>(index)));
}

void PredefinedPatterns::LstSearchFor_GotFocus() {
    controls_.LstSearchFor.lineEdit()->selectAll();
}

} // namespace netrove
