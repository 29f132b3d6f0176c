#include "searchrun/PredefinedPatterns.h"

#include "runtime/SourceText.h"

#include <QLineEdit>

#include <array>

namespace netrove {
namespace {

constexpr std::array<QLatin1String, PredefinedPatterns::Count> Patterns{
    "*.mp3,*.mp2,*.mp1"_L1,
    "*.wav,*.wma,*.au,*.ra,*.aif,*.m3u"_L1,
    "*.asf,*.mpeg,*.mpg,*.avi,*.mov,*.rm,*.wmv"_L1,
    "*.jpg,*.jpeg,*.gif,*.tiff,*.bmp,*.pcx,*.psp"_L1,
    "*.exe"_L1,
    "*.doc,*.xl*,*.htm,*.html,*.ppt,*.obd,*.mdb,*.dot,*.xlt,*.pot,*.obt,*.pub"_L1,
    "*.zip,*.rar,*.ace,*.cab,*.lzh,*.tar,*.7z,*.gzip,*.gz,*.bzip,*.bz2"_L1,
    "*.*"_L1,
};

} // namespace

void PredefinedPatterns::imgFiles_MouseDown(Qt::MouseButton button, const QPoint& position) {
    if (button != Qt::RightButton)
        return;
    if (!settings_.AutoAsterisks)
        dialogs_.Message(
            MessageIcon::Information,
            u"The option 'Auto-Enclose Search Parameters with Asterisks' is currently set \r\n"
            "to 'No'. You will have to tweak the predefined formats so that they may work  \r\n"
            "properly -OR- change the option in Tools>Options>Search."_s,
            u"Auto-Asterisks is turned off"_s);
    mnuPopUp5_.popup(controls_.imgFiles.mapToGlobal(position));
}

void PredefinedPatterns::mnuFiles_Click(int index) {
    controls_.LstSearchFor.setEditText(Patterns.at(static_cast<std::size_t>(index)));
}

void PredefinedPatterns::LstSearchFor_GotFocus() {
    controls_.LstSearchFor.lineEdit()->selectAll();
}

} // namespace netrove
