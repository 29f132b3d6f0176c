#include "skins/SkinSelection.h"

#include "controls/Color.h"
#include "platform/TextEncoding.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "skins/SkinControls.h"
#include "skins/SkinPalette.h"
#include "skins/SkinTable.h"
#include "skins/frmCustomizeSkin.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFile>

namespace netrove {
namespace {

/// The contrast that a text in one of the table's colours needs on the desktop's background.
constexpr double MinimumContrast = 3;

QString Section(int skinIndex) {
    return u"SkinProperties_"_s + QString::number(skinIndex);
}

/// Bytes of a skin file that are read: more than any is allowed to have.
constexpr qint64 LongestFile = 512 * 1024;

/// The built-in pictures that a skin file is used with.
constexpr int FileTitlePicture = 2;
constexpr int FileFramePicture = 3;

/// Runs the steps up to the first failure, which is shown.
template <typename Steps>
void WithTrap(QWidget& window, Dialogs& dialogs, const char* title, Steps steps) {
    const auto failure = FailureOf(steps);
    window.unsetCursor();
    dialogs.Failure(failure, Text(title));
}

/// Takes back the control's palette, and changes the one that it then inherits.
template <typename Change>
void ColorAnew(QWidget& control, Change change) {
    control.setPalette(QPalette());
    QPalette palette = control.palette();
    change(palette);
    control.setPalette(palette);
}

void SetTextColor(QWidget& control, const QColor& color) {
    ColorAnew(control, [&](QPalette& palette) { palette.setColor(QPalette::WindowText, color); });
}

/// A number that is too large for its type counts as none.
float Number(const QString& text) {
    try {
        return LeadingSingle(text);
    } catch (const RunTimeError&) {
        return 0;
    }
}

} // namespace

SkinSelection::SkinSelection(const Menu& menu, const Controls& controls, const Services& services)
    : menu_(menu), controls_(controls), services_(services), colors_(RoleColors(0)) {
    for (QAction* item : menu_.mnuSkin)
        item->setCheckable(true);
    controls_.window->installEventFilter(this);
}

SkinSelection::~SkinSelection() = default;

void SkinSelection::Detach() {
    if (modifier_)
        modifier_->Detach();
    attached_.reset();
}

qint32 SkinSelection::StoredIndex() const {
    const QString text = services_.profile.ReadIni(u"Skin"_s, u"Index"_s, u"1"_s);
    qint32 index = 0;
    // A number that is too large for its type stands for no skin either.
    if (FailureOf([&] { index = LeadingLong(text); }))
        return 0;
    return index < 0 || index > LastSkin ? 0 : index;
}

void SkinSelection::mnuSkin_Click(qint16 index) {
    WithTrap(*controls_.window, services_.dialogs, "Error in Skin Menu", [&] {
        for (int skin = 0; skin <= LastSkin; ++skin)
            menu_.mnuSkin[static_cast<size_t>(skin)]->setChecked(skin == index);
        menu_.mnuSkinCust->setEnabled(index != 0);
        services_.SkinIndex = index;
        if (!modifier_)
            throw RunTimeError(ErrorNumber::ObjectNotSet);
        const bool isSkin = index >= 1 && index <= LastSkin;
        if (!isSkin)
            Detach();
        Skin(isSkin ? index : 0);
    });
}

void SkinSelection::Skin(int index) {
    WithTrap(*controls_.window, services_.dialogs, "Error in Skinning", [&] {
        configuration_.reset();
        fileText_.clear();
        if (index != 0)
            configuration_ = std::make_shared<netrove::SkinConfiguration>(services_.painter);
        colors_ = RoleColors(index);
        if (configuration_)
            ApplyTable(index);
        ColorFixedControls(index);
        if (configuration_) {
            LoadAdjustments();
            Attach();
            ColorWindow();
        }
        services_.resize();
    });
}

void SkinSelection::ApplyTable(int index) {
    ApplyBuiltIn(index, pictures_, *configuration_);
    configuration_->TitleFont = controls_.window->font();
    configuration_->BarFont = controls_.window->font();
    pictureRatio_ = controls_.window->devicePixelRatioF();
}

/// Without a skin the backgrounds are the desktop's own, and where a text colour of the table can't
/// be read on them, the desktop's is used.
void SkinSelection::ColorFixedControls(int index) {
    const QColor back = ToColor(colors_.SkinBackColor);
    const QColor border = ToColor(colors_.SkinForeColor);
    QColor text = border;
    QColor link = ToColor(colors_.SkinLinkColor);
    if (index == 0) {
        const QPalette desktop = QApplication::palette();
        const QColor window = desktop.color(QPalette::Window);
        if (Contrast(text, window) < MinimumContrast)
            text = desktop.color(QPalette::WindowText);
        link = Legible(link, window);
    }
    const auto colorSurface = [&](QWidget& control) {
        ColorAnew(control, [&](QPalette& palette) {
            if (index != 0)
                SetSurface(palette, back, text);
        });
    };
    SetTextColor(*controls_.chkRecurse, text);
    SetTextColor(*controls_.Label1, text);
    SetTextColor(*controls_.Label2, text);
    SetTextColor(*controls_.HyperLbl, link);
    for (QPushButton* button : controls_.buttons) {
        ColorAnew(*button, [&](QPalette& palette) {
            if (index != 0)
                SetButton(palette, ToColor(colors_.SkinButtonColor));
        });
    }
    for (QFrame* shape : controls_.RecShp)
        SetTextColor(*shape, border);
    for (QFrame* line : controls_.lines)
        SetTextColor(*line, ToColor(colors_.SkinLineColor));
    colorSurface(*controls_.window);
    colorSurface(*controls_.SSTab1);
    for (int page = 0; page < controls_.SSTab1->count(); ++page)
        controls_.SSTab1->widget(page)->setPalette(QPalette());
    colorSurface(*controls_.picListHolder);
}

/// A text that isn't a Boolean ends the selection of the skin; one that isn't a number counts as 0.
void SkinSelection::LoadAdjustments() {
    const ProfileFile::Batch batch(services_.profile);
    const QString section = Section(services_.SkinIndex);
    const auto read = [&](const char* key, const char* defaultValue) {
        return services_.profile.ReadIni(section, Text(key), Text(defaultValue));
    };
    netrove::SkinConfiguration& skin = *configuration_;
    skin.Colorize = ToBoolean(read("Colorize", "False"));
    skin.Hue = Number(read("Hue", "0"));
    skin.Saturation = Number(read("Saturation", "0"));
    skin.AdjustRGB = ToBoolean(read("AdjustRGB", "False"));
    skin.PercentRed = Number(read("PercentRed", "0"));
    skin.PercentGreen = Number(read("PercentGreen", "0"));
    skin.PercentBlue = Number(read("PercentBlue", "0"));
}

void SkinSelection::SaveSkinXML() {
    if (!configuration_)
        return;
    const ProfileFile::Batch batch(services_.profile);
    const QString section = Section(services_.SkinIndex);
    const auto write = [&](const char* key, const QString& value) {
        services_.profile.WriteIni(section, Text(key), value);
    };
    const netrove::SkinConfiguration& skin = *configuration_;
    write("Name", skin.Name);
    write("Colorize", BooleanWord(skin.Colorize));
    write("Hue", SingleText(skin.Hue));
    write("Saturation", SingleText(skin.Saturation));
    write("AdjustRGB", BooleanWord(skin.AdjustRGB));
    write("PercentRed", SingleText(skin.PercentRed));
    write("PercentGreen", SingleText(skin.PercentGreen));
    write("PercentBlue", SingleText(skin.PercentBlue));
}

QString SkinSelection::SkinFilePath() const {
    return services_.applicationFolder + QDir::separator() + u"Skins"_s + QDir::separator() +
           u"Dark Metal"_s + QDir::separator() + u"skin.xml"_s;
}

bool SkinSelection::HasSkinFile() const {
    return QFile::exists(SkinFilePath());
}

void SkinSelection::LoadSkinXML() {
    if (!configuration_)
        return;
    QFile file(SkinFilePath());
    if (!file.open(QIODevice::ReadOnly)) {
        services_.dialogs.Message(MessageIcon::Information, u"Couldn't load "_s + file.fileName(),
                                  u"Netrove"_s);
        return;
    }
    const QString text = FromUtf8OrWindows1252(file.read(LongestFile));
    WithTrap(*controls_.window, services_.dialogs, "Error in Skinning", [&] {
        TakeFile(text);
        fileText_ = text;
        Attach();
        ColorWindow();
    });
}

void SkinSelection::TakeFile(const QString& text) {
    const qreal ratio = controls_.window->devicePixelRatioF();
    configuration_->LoadXML(text, pictures_.Picture(FileTitlePicture, ratio),
                            pictures_.Picture(FileFramePicture, ratio));
}

void SkinSelection::Attach() {
    modifier_->Attach(*controls_.window, *configuration_);
    attached_ = configuration_;
}

void SkinSelection::ColorWindow() {
    SkinControls(*controls_.window, *modifier_, services_.SkinIndex, colors_);
}

void SkinSelection::mnuSkinCust_Click() {
    frmCustomizeSkin dialog({.skin = this, .openHelp = services_.openHelp}, controls_.window);
    dialog.exec();
    if (dialog.Cancelled())
        return;
    SaveSkinXML();
    configuration_ = dialog.SkinConfiguration();
    if (!configuration_)
        return;
    Attach();
    ColorWindow();
}

void SkinSelection::Reskin() {
    services_.SkinIndex = SavedSkinIndex;
    mnuSkin_Click(static_cast<qint16>(SavedSkinIndex));
}

bool SkinSelection::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::ScreenChangeInternal:
        TakePictures();
        break;
    case QEvent::ApplicationPaletteChange:
        FollowDesktop();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// The window may have moved to a screen of another density.
void SkinSelection::TakePictures() {
    if (!attached_ || attached_ != configuration_ ||
        pictureRatio_ == controls_.window->devicePixelRatioF())
        return;
    ApplyTable(services_.SkinIndex);
    if (!fileText_.isEmpty())
        TakeFile(fileText_);
    Attach();
}

/// The desktop's colours, which some controls have taken over, have changed.
void SkinSelection::FollowDesktop() {
    if (!modifier_)
        return;
    ColorFixedControls(configuration_ ? services_.SkinIndex : 0);
    if (attached_ && attached_ == configuration_)
        ColorWindow();
}

} // namespace netrove
