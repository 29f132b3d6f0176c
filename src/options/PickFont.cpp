#include "options/PickFont.h"

#include "controls/FontSize.h"

namespace netrove {

bool PickFont(CharSetFont& font, quint32& color, Dialogs& dialogs) {
    const std::optional<ChosenFont> chosen = dialogs.ChooseFont({.family = font.font.family(),
                                                                 .points = FontSize(font.font),
                                                                 .bold = font.font.bold(),
                                                                 .italic = font.font.italic(),
                                                                 .underline = font.font.underline(),
                                                                 .strikeOut = font.font.strikeOut(),
                                                                 .charSet = font.charSet,
                                                                 .color = color});
    if (!chosen)
        return false;
    font.font.setFamily(chosen->family);
    font.font.setBold(chosen->bold);
    font.font.setItalic(chosen->italic);
    font.font.setStrikeOut(chosen->strikeOut);
    font.font.setUnderline(chosen->underline);
    font.charSet = chosen->charSet;
    color = chosen->color;
    SetFontSize(font.font, chosen->points);
    return true;
}

} // namespace netrove
