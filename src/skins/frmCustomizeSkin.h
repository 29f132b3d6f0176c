#pragma once

#include "skins/ProgramDialog.h"
#include "skins/SkinOwner.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include <array>
#include <memory>

namespace netrove {

/// Lets the user change the colours of the skin in force: a hue and a saturation for all of it,
/// and more or less of red, green and blue. It is shown by exec(), once.
///
/// What the user changes goes at once to the configuration, which all windows share, and shows in
/// the sample; the windows take it over when they are attached to the configuration again.
class frmCustomizeSkin : public ProgramDialog {
    Q_OBJECT

public:
    /// Without a skin there is nothing to adjust.
    frmCustomizeSkin(const DialogLook& look, QWidget* window);

    /// Whether it was closed in any other way than by the OK button.
    [[nodiscard]] bool Cancelled() const { return cancelled_; }
    [[nodiscard]] const std::shared_ptr<netrove::SkinConfiguration>& SkinConfiguration() const {
        return configuration_;
    }

    void setVisible(bool visible) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum Info { Hue, Saturation, Red, Green, Blue, AdjustRGB, Colorize, Sample, SkinName };

    void MakeControls();
    void Arrange();
    void AddSliders(QGridLayout& grid, QCheckBox& box, Info boxInfo,
                    std::initializer_list<std::pair<Info, QScrollBar*>> sliders);
    void Connect();

    void Form_Load();
    void LoadAdjustments();
    void chkColourise_Click();
    void chkAdjustRGB_Click();
    void WriteColorize();
    void WriteAdjustRGB();
    [[nodiscard]] bool TakesEvents() const;
    void DrawSample(QPainter& painter) const;
    void cmdOk_Click();

    QCheckBox* chkColourise_;
    QCheckBox* chkAdjustRGB_;
    QScrollBar* hscHue_;
    QScrollBar* hscSaturation_;
    QScrollBar* hscRed_;
    QScrollBar* hscGreen_;
    QScrollBar* hscBlue_;
    std::array<QLabel*, 9> lblInfo_{};
    QWidget* picSample_;
    QPushButton* cmdOk_;
    QPushButton* cmdCancel_;
    std::shared_ptr<netrove::SkinConfiguration> configuration_;
    bool isLoaded_ = false;
    bool cancelled_ = true;
};

} // namespace netrove
