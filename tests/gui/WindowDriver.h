#pragma once

#include "browser/frmNWDialog.h"
#include "downloads/DownloadRows.h"
#include "fakes/Find.h"
#include "fakes/ListHands.h"
#include "fakes/UseDialog.h"
#include "gui/TestDesktop.h"
#include "mainwindow/frmNetrove.h"

namespace netrove {

/// The real window, used as its user does: with keys and mouse, finding controls by their names.
class WindowDriver : public TestDesktop {
public:
    void Open() {
        window->Form_Load();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        Activate();
    }

    void Activate() {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    template <typename Object = QWidget>
    Object& Find(const char* name) {
        return FindIn<Object>(*window, name);
    }

    void Click(const char* name, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&Find(name), button);
    }

    void Trigger(const char* item) { Find<QAction>(item).trigger(); }

    /// Clicks the item of a menu that is shown.
    void Pick(const char* menuName, const char* item) {
        auto& menu = Find<QMenu>(menuName);
        ASSERT_TRUE(menu.isVisible()) << menuName;
        QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                          menu.actionGeometry(&Find<QAction>(item)).center());
        EXPECT_FALSE(menu.isVisible()) << item;
        // The offscreen platform doesn't do this.
        Activate();
    }

    /// Types the text and presses Enter; gives back control when the search has ended.
    void Search(const char* text) {
        auto& input = Find<QComboBox>("LstSearchFor");
        input.setFocus();
        input.lineEdit()->selectAll();
        QTest::keyClicks(&input, Text(text));
        QTest::keyClick(&input, Qt::Key_Return);
    }

    /// Opens the browser with the mouse, and lets the user act on it once its first level is there.
    void Browse(const std::function<void(frmNWDialog&)>& use) {
        UseDialog<frmNWDialog>([this] { Click("cmdSetSearchStart"); }, use,
                               [](auto& browser) {
                                   auto& timer = FindIn<QTimer>(browser, "tmrNodes");
                                   if (timer.isActive() && timer.interval() > 0)
                                       timer.start(0);
                                   return FindIn(browser, "cmdOk").isEnabled();
                               });
        Activate();
    }

    /// Has the menu's item put up a modal dialog, and lets the user act on that.
    template <typename Dialog>
    void InDialog(const char* item, const std::function<void(Dialog&)>& use) {
        UseDialog<Dialog>([&] { Trigger(item); }, use,
                          [](Dialog& dialog) { return dialog.isActiveWindow(); });
        Activate();
    }

    QString Caption() { return Find<QLabel>("RetFileLbl").text(); }
    void ExpectCaption(const char* beginning) {
        EXPECT_TRUE(Caption().startsWith(Text(beginning))) << Caption().toStdString();
    }
    StatusBar& Bar() { return Find<StatusBar>("stbStatus"); }
    QString StartNodeText() { return Find<QLineEdit>("txtSearchStart").text(); }

    ListView& Results() { return Find<ListView>("lvwResults"); }
    ListView& Downloads() { return Find<ListView>("lvwDownloads"); }

    /// Has the timers of the downloads not keep a test waiting.
    void HurryDownloads() {
        for (const char* timer : {"DloadScanTmr", "DloadQueueTmr"})
            Find<QTimer>(timer).setInterval(1);
    }
    /// Selects all results and presses Enter.
    void DownloadAll() {
        Results().setFocus();
        QTest::keyClick(&Results(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&Results(), Qt::Key_Return);
    }
    /// Whether a download isn't over.
    bool IsDownloading() {
        const std::string states = Column(Downloads(), DownloadItem::Status);
        return states.find("Pending") != std::string::npos ||
               states.find("Downloading") != std::string::npos;
    }

    /// The paths of the results.
    QStringList Rows() {
        QStringList rows;
        for (int row = 1; row <= Results().Count(); ++row)
            rows.append(Results().SubItem(row, 1) + Results().Text(row));
        return rows;
    }

    std::unique_ptr<frmNetrove> window;
};

} // namespace netrove
