#include "platform/desktop/DesktopDialogs.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace netrove {
namespace {

class DesktopDialogsTest : public testing::Test {
protected:
    /// Has `show` put a box up, and lets `user` act on it.
    template <typename Box, typename Show>
    auto AnswerBox(std::function<void(Box&)> user, Show show) {
        bool seen = false;
        QTimer look;
        look.callOnTimeout([&] {
            auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible() || seen)
                return;
            seen = true;
            user(*box);
        });
        look.start(5);
        const auto answer = show();
        EXPECT_TRUE(seen);
        return answer;
    }
    MessageAnswer Answer(MessageButtons buttons, std::function<void(QMessageBox&)> user) {
        return AnswerBox(std::move(user), [&] {
            return dialogs.Message(MessageIcon::Critical,
                                   QStringLiteral("53\r\n<b>File</b> not found"),
                                   QStringLiteral("Error in Test"), buttons);
        });
    }
    QString Input(std::function<void(QInputDialog&)> user) {
        return AnswerBox(std::move(user), [&] {
            return dialogs.InputBox(QStringLiteral("Which <b>name</b>?"), QStringLiteral("A name"));
        });
    }
    static void Press(QWidget& box, Qt::Key key) { QTest::keyClick(&box, key); }

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
    EXPECT_EQ(Answer(MessageButtons::OkCancel, press(Qt::Key_Escape)), MessageAnswer::Cancel);
    EXPECT_EQ(Answer(MessageButtons::OkCancel, press(Qt::Key_Return)), MessageAnswer::Ok);
    EXPECT_EQ(Answer(MessageButtons::YesNo, press(Qt::Key_Escape)), MessageAnswer::No);
    EXPECT_EQ(Answer(MessageButtons::YesNo, press(Qt::Key_Return)), MessageAnswer::No);
    EXPECT_EQ(Answer(MessageButtons::YesNo, [](QMessageBox& box) { box.close(); }),
              MessageAnswer::No);
    EXPECT_EQ(Answer(MessageButtons::YesNo,
                     [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }),
              MessageAnswer::Yes);
}

TEST_F(DesktopDialogsTest, GivesWhatIsTypedUnlessCancelled) {
    EXPECT_EQ(Input([](QInputDialog& box) {
                  EXPECT_EQ(box.windowTitle(), QStringLiteral("A name"));
                  const auto* label = box.findChild<QLabel*>();
                  EXPECT_EQ(label->text(), QStringLiteral("Which <b>name</b>?"));
                  EXPECT_EQ(label->textFormat(), Qt::PlainText);
                  auto* input = box.findChild<QLineEdit*>();
                  EXPECT_EQ(label->buddy(), input);
                  EXPECT_EQ(input->text(), QString());
                  QTest::keyClicks(input, QStringLiteral(" media "));
                  Press(*input, Qt::Key_Return);
              }),
              QStringLiteral(" media "));
    EXPECT_EQ(Input([](QInputDialog& box) {
                  QTest::keyClicks(box.findChild<QLineEdit*>(), QStringLiteral("media"));
                  Press(box, Qt::Key_Escape);
              }),
              QString());
}

TEST_F(DesktopDialogsTest, LetsFilesBeChosen) {
    QTemporaryDir folder;
    const QString existing = folder.filePath(QStringLiteral("old.nrr"));
    ASSERT_TRUE(QFile(existing).open(QIODevice::WriteOnly));
    FileDialogSetup setup{.title = QStringLiteral("Choose"),
                          .filter = QStringLiteral("List (*.nrr)|*.nrr|All Files (*.*)|*.*"),
                          .folder = folder.path(),
                          .fileName = QStringLiteral("new.nrr")};
    const auto user = [&](const char* name, Qt::Key key) {
        return [&, name = QString::fromLatin1(name), key](QFileDialog& chooser) {
            EXPECT_EQ(chooser.windowTitle(), setup.title);
            EXPECT_EQ(chooser.directory().path(), folder.path());
            EXPECT_EQ(chooser.nameFilters(), (QStringList{QStringLiteral("List (*.nrr) (*.nrr)"),
                                                          QStringLiteral("All Files (*.*) (*)")}));
            auto* input = chooser.findChild<QLineEdit*>();
            EXPECT_EQ(input->text(), setup.fileName);
            if (!name.isEmpty())
                input->setText(name);
            Press(*input, key);
        };
    };
    const auto save = [&] { return dialogs.SaveFile(setup); };
    const auto open = [&] { return dialogs.OpenFile(setup); };
    EXPECT_EQ(AnswerBox<QFileDialog>(user("", Qt::Key_Return), save),
              folder.filePath(QStringLiteral("new.nrr")));
    // Whoever asks for the file asks about overwriting too.
    EXPECT_EQ(AnswerBox<QFileDialog>(user("old.nrr", Qt::Key_Return), save), existing);
    EXPECT_EQ(AnswerBox<QFileDialog>(user("old.nrr", Qt::Key_Escape), save), std::nullopt);
    setup.fileName.clear();
    EXPECT_EQ(AnswerBox<QFileDialog>(user("old.nrr", Qt::Key_Return), open), existing);
}

} // namespace
} // namespace netrove
