#include "platform/desktop/DesktopDialogs.h"

#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "platform/desktop/WindowYield.h"
#include "runtime/Yield.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
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

TEST_F(DesktopDialogsTest, LetsFoldersBeChosen) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("inner")));
    for (const bool network : {false, true}) {
        const auto user = [&](Qt::Key key) {
            return [&, key](QFileDialog& chooser) {
                EXPECT_EQ(chooser.windowTitle(), QStringLiteral("Where?"));
                EXPECT_EQ(chooser.supportedSchemes().contains(QStringLiteral("smb")), network);
                auto* input = chooser.findChild<QLineEdit*>();
                input->setText(folder.filePath(QStringLiteral("inner")));
                Press(*input, key);
            };
        };
        const auto choose = [&] { return dialogs.ChooseFolder(QStringLiteral("Where?"), network); };
        EXPECT_EQ(AnswerBox<QFileDialog>(user(Qt::Key_Return), choose),
                  folder.filePath(QStringLiteral("inner")));
        EXPECT_EQ(AnswerBox<QFileDialog>(user(Qt::Key_Escape), choose), std::nullopt);
    }
}

TEST_F(DesktopDialogsTest, LetsAFontBeChosen) {
    const ChosenFont before{.family = QStringLiteral("DejaVu Sans"),
                            .points = 9,
                            .bold = true,
                            .underline = true,
                            .charSet = 238,
                            .color = 0x112233};
    const auto choose = [&] { return dialogs.ChooseFont(before); };
    const auto chosen = AnswerBox<QFontDialog>(
        [&](QFontDialog& chooser) {
            EXPECT_TRUE(chooser.currentFont().bold() && chooser.currentFont().underline());
            QFont font(chooser.currentFont().family(), 14);
            font.setUnderline(true);
            font.setStrikeOut(true);
            chooser.setCurrentFont(font);
            Press(chooser, Qt::Key_Return);
        },
        choose);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->points, 14);
    EXPECT_EQ(std::tuple(chosen->bold, chosen->underline, chosen->strikeOut),
              std::tuple(false, true, true));
    EXPECT_EQ(chosen->charSet, before.charSet) << "what the chooser doesn't show stays";
    EXPECT_FALSE(
        AnswerBox<QFontDialog>([](QFontDialog& box) { Press(box, Qt::Key_Escape); }, choose));
}

TEST_F(DesktopDialogsTest, KeepsAFontThatIsNotInstalled) {
    const ChosenFont before{.family = QStringLiteral("No Such Family"), .points = 8.25};
    const auto chosen =
        AnswerBox<QFontDialog>([](QFontDialog& chooser) { Press(chooser, Qt::Key_Return); },
                               [&] { return dialogs.ChooseFont(before); });
    ASSERT_TRUE(chosen);
    EXPECT_EQ(std::tuple(chosen->family, chosen->points), std::tuple(before.family, before.points));
}

/// The computers of a network of two workgroups, one of them in a second provider.
class ComputerChoosing : public DesktopDialogsTest {
protected:
    ComputerChoosing() {
        network.AddNode({}, NetEnum::DisplayNetwork, Text("Net"));
        network.AddNode({}, NetEnum::DisplayNetwork, Text("Other"));
        network.AddNode(Text("Net"), NetEnum::DisplayDomain, Text("WG"));
        network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("\\\\S"));
        network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("\\\\T"));
        network.AddNode(Text("Other"), NetEnum::DisplayServer, Text("\\\\U"));
        network.AddNode(Text("\\\\S"), NetEnum::DisplayShare, Text("\\\\S\\D"));
        network.OnCall = [this](const QString& call) { calls.append(call); };
        dialogs.SetNetwork(network);
        SetYieldAlways(true);
    }
    ~ComputerChoosing() override { SetYieldAlways(false); }

    /// Lets the user act when the network has been read: before that, handlers run inside that.
    std::optional<QString> Choose(std::function<void(QDialog&, QTreeWidget&)> user) {
        QTimer look;
        look.callOnTimeout([&] {
            auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (box &&
                box->findChild<QLabel*>(Text("lblState"))->text() == Text("3 computers found."))
                user(*box, *box->findChild<QTreeWidget*>());
        });
        look.start(5);
        return dialogs.ChooseComputer(Text("Which?"));
    }

    WindowYield yield;
    MemoryNetwork network;
    QStringList calls;
};

TEST_F(ComputerChoosing, GivesTheNameAlone) {
    EXPECT_EQ(Choose([](QDialog& box, QTreeWidget& tree) {
                  auto* ok = box.findChild<QPushButton*>(Text("cmdOk"));
                  QTest::keyClick(&tree, Qt::Key_Down);
                  for (int level = 0; level < 2; ++level) {
                      QTest::keyClick(&tree, Qt::Key_Return);
                      EXPECT_FALSE(ok->isEnabled()) << "a provider, a workgroup";
                      QTest::keyClick(&tree, Qt::Key_Down);
                  }
                  QTest::keyClick(&tree, Qt::Key_Down);
                  QTest::keyClick(&tree, Qt::Key_Return);
              }),
              Text("T"));
    EXPECT_FALSE(calls.contains(Text("open \\\\S"))) << "nobody asks a computer for its shares";
}

TEST_F(ComputerChoosing, CanBeClosedInTheMiddle) {
    network.OnCall = [this](const QString& call) {
        calls.append(call);
        if (call == Text("open WG"))
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    };
    EXPECT_EQ(dialogs.ChooseComputer(Text("Which?")), std::nullopt);
    EXPECT_FALSE(calls.contains(Text("open Other")));
}

} // namespace
} // namespace netrove
