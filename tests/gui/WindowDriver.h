#pragma once

#include "mainwindow/frmNetrove.h"

#include <QTest>
#include <gtest/gtest.h>

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

    template <typename Widget>
    Widget& Find(const char* name) {
        auto* widget = window_.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("There is no %s.", name);
        return *widget;
    }

    void Click(const char* name) { QTest::mouseClick(&Find<QWidget>(name), Qt::LeftButton); }

    /// Presses the right button in the middle of the control.
    void RightClick(const char* name) { QTest::mouseClick(&Find<QWidget>(name), Qt::RightButton); }

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
        QTest::keyClicks(&input, QString::fromUtf8(text));
    }

    /// Types the text and presses Enter; gives back control when the search has ended.
    void Search(const char* text) {
        Type(text);
        QTest::keyClick(&Find<QWidget>("LstSearchFor"), Qt::Key_Return);
    }

    QString Caption() { return Find<QLabel>("RetFileLbl").text(); }

    QStringList Rows() {
        auto& list = Find<ListView>("lvwResults");
        QStringList rows;
        for (int row = 1; row <= list.Count(); ++row)
            rows.append(list.SubItem(row, 1) + list.Text(row));
        return rows;
    }

private:
    frmNetrove& window_;
};

} // namespace netrove
