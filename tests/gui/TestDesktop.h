#pragma once

#include "desktop/DesktopFileTypes.h"
#include "desktop/WindowYield.h"
#include "fakes/DesktopFakes.h"
#include "mainwindow/ProgramServices.h"
#include "platform/Tray.h"

#include <QTemporaryDir>

namespace netrove {

/// A tray that comes and goes as the test wants.
class FakeTray : public Tray {
public:
    std::optional<QString> Tip; ///< of the icon, while one is shown
    QRect Location;             ///< of the icon
    bool Works = true;

    [[nodiscard]] bool IsThere() const override { return Works; }
    void Show(const QString& tip, QMenu& /*menu*/) override { Tip = tip; }
    void SetTip(const QString& tip) override { Tip = tip; }
    void Remove() override { Tip.reset(); }
    [[nodiscard]] QRect Place() const override { return Location; }

    void Become(bool works) {
        Works = works;
        Q_EMIT Changed();
    }
    void DoubleClick() { Q_EMIT DoubleClicked(); }
};

/// What a program with the main window has around it: a desktop that records what is asked of it,
/// and a folder that goes with it.
struct TestDesktop {
    QTemporaryDir folder;
    RecordedDialogs dialogs;
    RecordedShell shell;
    DesktopFileTypes fileTypes;
    TestSystem system;
    RecordedHttp http;
    FakeTray tray;
    WindowYield yield;
    std::function<std::unique_ptr<CopyQ>()> newCopyQ = [] { return nullptr; };

    /// For a window over this network, whose settings are in that folder.
    template <typename SomeNetwork>
    ProgramServices ServicesIn(const QString& applicationFolder, SomeNetwork& network) {
        return {.network = network,
                .files = network,
                .dialogs = dialogs,
                .shell = shell,
                .fileTypes = fileTypes,
                .systemIcon = [this](int index) { return fileTypes.Icon(index); },
                .system = system,
                .tray = tray,
                .applicationFolder = applicationFolder,
                .webAddress = QStringLiteral("https://www.example.com/"),
                .contactAddress = QStringLiteral("netrove@example.com"),
                .http = &http,
                .newCopyQ = [this] { return newCopyQ(); },
                .letAbandon =
                    [this](QAbstractButton& button, std::function<bool()> isPressed) {
                        yield.SetAbandon(button, std::move(isPressed));
                    }};
    }
    template <typename SomeNetwork>
    ProgramServices Services(SomeNetwork& network) {
        return ServicesIn(folder.path(), network);
    }
};

} // namespace netrove
