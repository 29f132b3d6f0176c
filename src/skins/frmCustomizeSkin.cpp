#include "skins/frmCustomizeSkin.h"

#include "runtime/SourceText.h"
#include "skins/SkinControls.h"
#include "windowservices/WindowGeometry.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace netrove {
namespace {

/// Inner size of the dialog, in twips.
constexpr QSize ClientSize(4860, 6420);
/// The dialog's Tag while its controls are being filled, so that their changes have no effect.
constexpr auto NoEvents = "NOEVENTS";

/// A slider stands for a member by `value = member * 100 + zero`.
constexpr int Hundredths = 100;
constexpr int HueZero = 100;
constexpr int PercentZero = 100;

/// A scroll bar that is used with the keyboard too: it shows when it has the focus, and moves in
/// the direction of the arrow keys.
class Slider : public QScrollBar {
public:
    Slider(const char* name, int maximum, int value, QWidget* parent)
        : QScrollBar(Qt::Horizontal, parent) {
        constexpr int SmallChange = 1;
        constexpr int LargeChange = 10;
        setObjectName(Text(name));
        setRange(0, maximum);
        setSingleStep(SmallChange);
        setPageStep(LargeChange);
        setValue(value);
        setEnabled(false);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        static const QHash<int, SliderAction> actions{
            {Qt::Key_Left, SliderSingleStepSub}, {Qt::Key_Right, SliderSingleStepAdd},
            {Qt::Key_Up, SliderSingleStepSub},   {Qt::Key_Down, SliderSingleStepAdd},
            {Qt::Key_PageUp, SliderPageStepSub}, {Qt::Key_PageDown, SliderPageStepAdd}};
        if (const SliderAction action = actions.value(event->key(), SliderNoAction))
            triggerAction(action);
        else
            QScrollBar::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent* event) override {
        QScrollBar::paintEvent(event);
        if (!hasFocus())
            return;
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.state |= QStyle::State_KeyboardFocusChange;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

class Picture : public QWidget {
public:
    Picture(std::function<void(QPainter&)> paint, QWidget* parent)
        : QWidget(parent), paint_(std::move(paint)) {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        paint_(painter);
    }

private:
    std::function<void(QPainter&)> paint_;
};

float ToMember(const QScrollBar& slider, int zero) {
    return static_cast<float>(static_cast<double>(slider.value() - zero) / Hundredths);
}

/// A member may lie outside what its slider can show, as the settings file can be edited by hand:
/// the slider then stands at its end, and the member stays until a slider is moved.
void ShowMember(QScrollBar& slider, float member, int zero) {
    const double value = static_cast<double>(member) * Hundredths + zero;
    slider.setValue(static_cast<int>(std::lrint(std::clamp(
        value, static_cast<double>(slider.minimum()), static_cast<double>(slider.maximum())))));
}

} // namespace

frmCustomizeSkin::frmCustomizeSkin(const DialogLook& look, QWidget* window)
    : ProgramDialog(u"frmCustomizeSkin"_s, look, window)
    , chkColourise_(new QCheckBox(this))
    , chkAdjustRGB_(new QCheckBox(this))
    , hscHue_(new Slider("hscHue", 600, 100, this))
    , hscSaturation_(new Slider("hscSaturation", 100, 50, this))
    , hscRed_(new Slider("hscRed", 200, 100, this))
    , hscGreen_(new Slider("hscGreen", 200, 100, this))
    , hscBlue_(new Slider("hscBlue", 200, 100, this))
    , picSample_(new Picture([this](QPainter& painter) { DrawSample(painter); }, this))
    , cmdOk_(new QPushButton(u"OK"_s, this))
    , cmdCancel_(new QPushButton(u"Cancel"_s, this)) {
    setWindowTitle(u"Customize Skin"_s);
    MakeControls();
    Arrange();
    Connect();
}

void frmCustomizeSkin::MakeControls() {
    constexpr const char* Captions[] = {"&Hue",      "&Saturation", "&Red %",
                                        "&Green %",  "&Blue %",     "&Adjust Red Green and Blue",
                                        "&Colorize", "Sample:",     ""};
    for (size_t index = 0; index < lblInfo_.size(); ++index) {
        lblInfo_[index] = new QLabel(Text(Captions[index]), this);
        lblInfo_[index]->setObjectName(u"lblInfo(%1)"_s.arg(index));
        lblInfo_[index]->installEventFilter(this);
    }
    lblInfo_[SkinName]->setTextFormat(Qt::PlainText);
    chkColourise_->setObjectName(u"chkColourise"_s);
    chkAdjustRGB_->setObjectName(u"chkAdjustRGB"_s);
    picSample_->setObjectName(u"picSample"_s);
    picSample_->setAccessibleName(u"Sample"_s);
    picSample_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cmdOk_->setObjectName(u"cmdOk"_s);
    cmdOk_->setDefault(true);
    cmdCancel_->setObjectName(u"cmdCancel"_s);
    cmdCancel_->setAutoDefault(false);
}

void frmCustomizeSkin::Arrange() {
    auto* grid = new QGridLayout;
    AddSliders(*grid, *chkColourise_, Colorize, {{Hue, hscHue_}, {Saturation, hscSaturation_}});
    AddSliders(*grid, *chkAdjustRGB_, AdjustRGB,
               {{Red, hscRed_}, {Green, hscGreen_}, {Blue, hscBlue_}});
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOk_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblInfo_[SkinName]);
    layout->addLayout(grid);
    layout->addWidget(lblInfo_[Sample]);
    layout->addWidget(picSample_, 1);
    layout->addLayout(buttons);
}

/// A check box with its label, and below it the sliders that it governs.
void frmCustomizeSkin::AddSliders(QGridLayout& grid, QCheckBox& box, Info boxInfo,
                                  std::initializer_list<std::pair<Info, QScrollBar*>> sliders) {
    const auto name = [this](Info info, QWidget& control) {
        lblInfo_[info]->setBuddy(&control);
        control.setAccessibleName(lblInfo_[info]->text().remove(u'&'));
    };
    int row = grid.rowCount();
    grid.addWidget(&box, row, 0);
    grid.addWidget(lblInfo_[boxInfo], row, 1, 1, 2);
    name(boxInfo, box);
    for (const auto& [info, slider] : sliders) {
        ++row;
        grid.addWidget(lblInfo_[info], row, 1);
        grid.addWidget(slider, row, 2);
        name(info, *slider);
    }
    grid.setColumnStretch(2, 1);
}

void frmCustomizeSkin::Connect() {
    connect(chkColourise_, &QCheckBox::toggled, this, &frmCustomizeSkin::chkColourise_Click);
    connect(chkAdjustRGB_, &QCheckBox::toggled, this, &frmCustomizeSkin::chkAdjustRGB_Click);
    for (QScrollBar* slider : {hscHue_, hscSaturation_})
        connect(slider, &QScrollBar::valueChanged, this, &frmCustomizeSkin::WriteColorize);
    for (QScrollBar* slider : {hscRed_, hscGreen_, hscBlue_})
        connect(slider, &QScrollBar::valueChanged, this, &frmCustomizeSkin::WriteAdjustRGB);
    connect(cmdOk_, &QPushButton::clicked, this, &frmCustomizeSkin::cmdOk_Click);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmCustomizeSkin::reject);
    QWidget* before = chkColourise_;
    for (QWidget* control :
         std::initializer_list<QWidget*>{hscHue_, hscSaturation_, chkAdjustRGB_, hscRed_, hscGreen_,
                                         hscBlue_, cmdOk_, cmdCancel_}) {
        setTabOrder(before, control);
        before = control;
    }
}

void frmCustomizeSkin::setVisible(bool visible) {
    if (visible && !std::exchange(isLoaded_, true))
        Form_Load();
    QDialog::setVisible(visible);
}

void frmCustomizeSkin::Form_Load() {
    if (Look().skin)
        configuration_ = Look().skin->SkinConfiguration();
    LoadSkin(ClientSize);
    Centre();
    if (configuration_)
        LoadAdjustments();
    picSample_->update();
}

void frmCustomizeSkin::LoadAdjustments() {
    const netrove::SkinConfiguration& skin = *configuration_;
    lblInfo_[SkinName]->setText(u"Skin Name: "_s + skin.Name);
    setProperty(TagProperty, Text(NoEvents));
    ShowMember(*hscHue_, skin.Hue, HueZero);
    ShowMember(*hscSaturation_, skin.Saturation, 0);
    if (skin.Colorize)
        chkColourise_->setChecked(true);
    ShowMember(*hscRed_, skin.PercentRed, PercentZero);
    ShowMember(*hscGreen_, skin.PercentGreen, PercentZero);
    ShowMember(*hscBlue_, skin.PercentBlue, PercentZero);
    if (skin.AdjustRGB)
        chkAdjustRGB_->setChecked(true);
    setProperty(TagProperty, QString());
}

void frmCustomizeSkin::chkColourise_Click() {
    for (QScrollBar* slider : {hscHue_, hscSaturation_})
        slider->setEnabled(chkColourise_->isChecked());
    WriteColorize();
}

void frmCustomizeSkin::chkAdjustRGB_Click() {
    for (QScrollBar* slider : {hscRed_, hscGreen_, hscBlue_})
        slider->setEnabled(chkAdjustRGB_->isChecked());
    WriteAdjustRGB();
}

bool frmCustomizeSkin::TakesEvents() const {
    return configuration_ && property(TagProperty).toString() != QLatin1String(NoEvents);
}

void frmCustomizeSkin::WriteColorize() {
    if (!TakesEvents())
        return;
    configuration_->Colorize = chkColourise_->isChecked();
    configuration_->Hue = ToMember(*hscHue_, HueZero);
    configuration_->Saturation = ToMember(*hscSaturation_, 0);
    picSample_->update();
}

void frmCustomizeSkin::WriteAdjustRGB() {
    if (!TakesEvents())
        return;
    configuration_->AdjustRGB = chkAdjustRGB_->isChecked();
    configuration_->PercentRed = ToMember(*hscRed_, PercentZero);
    configuration_->PercentGreen = ToMember(*hscGreen_, PercentZero);
    configuration_->PercentBlue = ToMember(*hscBlue_, PercentZero);
    picSample_->update();
}

/// Paints an inactive window and an active one in front of it.
void frmCustomizeSkin::DrawSample(QPainter& painter) const {
    if (!configuration_)
        return;
    const QWidget* window = parentWidget() ? parentWidget()->window() : this;
    const int width = picSample_->width();
    const int height = picSample_->height();
    const int rightOfFront = Look().skin->SkinIndex() < 3 ? 30 : 40;
    configuration_->DrawSample(*window, painter, 4, 4, width - 40, height - 40, false);
    configuration_->DrawSample(*window, painter, 32, 32, width - rightOfFront, height - 40, true);
}

void frmCustomizeSkin::cmdOk_Click() {
    cancelled_ = false;
    accept();
}

/// A click on the label of a check box counts as one on the box.
bool frmCustomizeSkin::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (watched == lblInfo_[Colorize])
            chkColourise_->toggle();
        else if (watched == lblInfo_[AdjustRGB])
            chkAdjustRGB_->toggle();
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace netrove
