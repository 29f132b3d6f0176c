#pragma once

#include "browser/frmNWDialog.h"
#include "downloads/DownloadRows.h"
#include "fakes/Find.h"
#include "fakes/ListHands.h"
#include "fakes/UseDialog.h"
#include "mainwindow/frmNetrove.h"

namespace netrove {

/// Uses the main window as its user does: with keys and mouse, finding controls by their names.
class WindowDriver {
public:
    explicit WindowDriver(frmNetrove& window) : window_(window) {}

    void Open() {
        window_.Form_Load();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
        Activate();
    }

    template <typename Object = QWidget>
    Object& Find(const char* name) {
        return FindIn<Object>(window_, name);
    }

    void Click(const char* name) { QTest::mouseClick(&Find(name), Qt::LeftButton); }

    /// Presses the right button in the middle of the control.
    void RightClick(const char* name) { QTest::mouseClick(&Find(name), Qt::RightButton); }

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

    void Activate() {
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    void Type(const char* text) {
        auto& input = Find<QComboBox>("LstSearchFor");
        input.setFocus();
        input.lineEdit()->selectAll();
        QTest::keyClicks(&input, Text(text));
    }

    /// Types the text and presses Enter; gives back control when the search has ended.
    void Search(const char* text) {
        Type(text);
        QTest::keyClick(&Find("LstSearchFor"), Qt::Key_Return);
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
        EXPECT_TRUE(window_.findChildren<frmNWDialog*>().isEmpty());
        Activate();
    }

    QString Caption() { return Find<QLabel>("RetFileLbl").text(); }
    void ExpectCaption(const char* beginning) {
        EXPECT_TRUE(Caption().startsWith(Text(beginning))) << Caption().toStdString();
    }
    QString StatusText(int panel) { return Find<StatusBar>("stbStatus").Text(panel); }
    QString StartNodeText() { return Find<QLineEdit>("txtSearchStart").text(); }

    ListView& Results() { return Find<ListView>("lvwResults"); }
    ListView& Downloads() { return Find<ListView>("lvwDownloads"); }

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

private:
    frmNetrove& window_;
};

} // namespace netrove
