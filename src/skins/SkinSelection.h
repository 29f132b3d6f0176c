#pragma once

#include "platform/Dialogs.h"
#include "platform/ProfileFile.h"
#include "skins/SkinFrame.h"
#include "skins/SkinOwner.h"
#include "skins/SkinPictures.h"

#include <QAction>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QObject>
#include <QPushButton>
#include <QTabWidget>

#include <array>
#include <functional>

namespace netrove {

/// Selects the skin of the main window: 0 none, 1 Trek, 2 Serenity, 3 J.I.L.L., 4 Metropolis, 5
/// Bullethead. Keeps the configuration in force and the user's adjustments of each skin, and gives
/// dialogs both.
class SkinSelection : public QObject, public SkinOwner {
public:
    static constexpr int LastSkin = 5;

    /// The items of the skin menu.
    struct Menu {
        std::array<QAction*, LastSkin + 1> mnuSkin;
        QAction* mnuSkinCust;
    };
    /// The controls of the main window that take the colours by role.
    struct Controls {
        QWidget* window;
        QCheckBox* chkRecurse;
        QLabel* Label1;
        QLabel* Label2;
        QLabel* HyperLbl;
        std::array<QPushButton*, 5> buttons;
        std::array<QFrame*, 4> RecShp;
        std::array<QFrame*, 7> lines; ///< Lne and Line1
        QTabWidget* SSTab1;
        QWidget* picListHolder;
    };
    struct Services {
        qint32& SkinIndex; ///< the setting
        ProfileFile& profile;
        Dialogs& dialogs;
        SkinFrame& painter; ///< of all configurations
        std::function<std::unique_ptr<NCSizeModifier>()> newModifier;
        std::function<void()> resize;   ///< lays the main window out
        std::function<void()> openHelp; ///< what the key F1 does
        QString applicationFolder = {}; ///< without a closing separator
    };

    SkinSelection(const Menu& menu, const Controls& controls, const Services& services);
    ~SkinSelection() override;

    /// The skin that was in force when the window went to the tray.
    qint32 SavedSkinIndex = 0;

    /// Makes the main window's frame: to be called before a skin is selected.
    void MakeModifier() { modifier_ = services_.newModifier(); }
    /// To be called when the window ends: takes its frame off.
    void Detach();
    void ReleaseModifier() { modifier_.reset(); }

    /// The stored choice; 0 where no skin has that number.
    [[nodiscard]] qint32 StoredIndex() const;

    /// Selects a skin, making everything anew even for the one in force. Any index without a skin
    /// means no skin. Failures are shown in a box, and what has been done by then stays.
    void mnuSkin_Click(qint16 index);

    /// Lets the user adjust the skin in force.
    void mnuSkinCust_Click();

    /// Whether there is a skin file: "Skins/Dark Metal/skin.xml" in the application folder.
    [[nodiscard]] bool HasSkinFile() const;
    /// Changes the skin in force to what the skin file says, with the pictures of Trek, until a
    /// skin is selected. A file that can't be read, or isn't a skin file, gives a message box and
    /// leaves the skin as it was. Does nothing without a skin.
    void LoadSkinXML();

    /// Selects again the skin that the window had before it went to the tray.
    void Reskin();

    /// Writes the adjustments of the skin in force, if there is one.
    void SaveSkinXML();

    [[nodiscard]] int SkinIndex() const override { return services_.SkinIndex; }
    [[nodiscard]] std::shared_ptr<netrove::SkinConfiguration> SkinConfiguration() const override {
        return configuration_;
    }
    [[nodiscard]] const SkinColors& Colors() const override { return colors_; }
    [[nodiscard]] std::unique_ptr<NCSizeModifier> NewModifier() const override {
        return services_.newModifier();
    }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Skin(int index);
    void ApplyTable(int index);
    [[nodiscard]] QString SkinFilePath() const;
    void TakeFile(const QString& text);
    void ColorFixedControls(int index);
    void LoadAdjustments();
    void Attach();
    void ColorWindow();
    void TakePictures();
    void FollowDesktop();

    Menu menu_;
    Controls controls_;
    Services services_;
    SkinPictures pictures_;
    SkinColors colors_;
    std::shared_ptr<netrove::SkinConfiguration> configuration_;
    /// The configuration that the window is attached to: it must survive a failed choice of another
    /// skin.
    std::shared_ptr<netrove::SkinConfiguration> attached_;
    std::unique_ptr<NCSizeModifier> modifier_;
    qreal pictureRatio_ = 0;
    QString fileText_; ///< text of the skin file that was loaded into the configuration
};

} // namespace netrove
