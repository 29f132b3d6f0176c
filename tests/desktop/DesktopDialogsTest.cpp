#include "platform/desktop/DesktopDialogs.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace netrove {
namespace {

class DesktopDialogsTest : public testing::Test {
protected:
    /// Puts a box up and lets `user` act on it.
    MessageAnswer Answer(MessageButtons buttons, std::function<void(QMessageBox&)> user) {
        bool seen = false;
        QTimer look;
        look.callOnTimeout([&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible() || seen)
                return;
            seen = true;
            user(*box);
        });
        look.start(5);
        const MessageAnswer answer =
            dialogs.Message(MessageIcon::Critical, QStringLiteral("53\r\n<b>File</b> not found"),
                            QStringLiteral("Error in Test"), buttons);
        EXPECT_TRUE(seen);
        return answer;
    }
    static void Press(QMessageBox& box, Qt::Key key) { QTest::keyClick(&box, key); }

    DesktopDialogs dialogs;
};

TEST_F(DesktopDialogsTest, ShowsTextsAsTheyAre) {
    QWidget window;
    dialogs.SetParent(&window);
    const auto user = [&](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("53\n<b>File</b> not found"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Error in Test"));
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.parentWidget(), &window);
        Press(box, Qt::Key_Return);
    };
    EXPECT_EQ(Answer(MessageButtons::Ok, user), MessageAnswer::Ok);
}

TEST_F(DesktopDialogsTest, AnswersSafelyUnlessYesIsChosen) {
    const auto press = [](Qt::Key key) { return [key](QMessageBox& box) { Press(box, key); }; };
    EXPECT_EQ(Answer(MessageButtons::Ok, press(Qt::Key_Escape)), MessageAnswer::Ok);
    EXPECT_EQ(Answer(MessageButtons::YesNo, press(Qt::Key_Escape)), MessageAnswer::No);
    EXPECT_EQ(Answer(MessageButtons::YesNo, press(Qt::Key_Return)), MessageAnswer::No);
    EXPECT_EQ(Answer(MessageButtons::YesNo, [](QMessageBox& box) { box.close(); }),
              MessageAnswer::No);
    EXPECT_EQ(Answer(MessageButtons::YesNo,
                     [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }),
              MessageAnswer::Yes);
}

} // namespace
} // namespace netrove
