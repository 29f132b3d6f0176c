#include "desktop/DesktopDialogs.h"

#include "fakes/Find.h"
#include "fakes/UseDialog.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

namespace netrove {
namespace {

class DesktopDialogsTest : public testing::Test {
protected:
    MessageAnswer Answer(MessageButtons buttons, const std::function<void(QMessageBox&)>& user) {
        return UseDialog<QMessageBox>(
            [&] {
                return dialogs.Message(MessageIcon::Critical, Text("53\r\n<b>File</b> not found"),
                                       Text("Error in Test"), buttons);
            },
            user);
    }
    QString Input(const std::function<void(QInputDialog&)>& user) {
        return UseDialog<QInputDialog>(
            [&] { return dialogs.InputBox(Text("Which <b>name</b>?"), Text("A name")); }, user);
    }
    static void Press(QWidget& box, Qt::Key key) { QTest::keyClick(&box, key); }

    DesktopDialogs dialogs;
};

TEST_F(DesktopDialogsTest, ShowsTextsAsTheyAre) {
    QWidget window;
    dialogs.SetParent(&window);
    const auto user = [&](QMessageBox& box) {
        EXPECT_EQ(box.text(), Text("53\n<b>File</b> not found"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), Text("Error in Test"));
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.parentWidget(), &window);
        Press(box, Qt::Key_Return);
    };
    EXPECT_EQ(Answer(MessageButtons::Ok, user), MessageAnswer::Ok);
}

TEST_F(DesktopDialogsTest, BoxesHaveRoomForTheirTitlesAndLines) {
    const QString title = Text("Auto-Asterisks is turned off");
    const QString longLine = Text("The option 'Auto-Enclose Search Parameters with Asterisks' is ");
    const QString path = Text("\\\\SERVER\\SHARE\\").repeated(100);
    const struct {
        QString text;
        int lines; ///< 0: any number
    } cases[] = {{Text("53"), 1}, {longLine + Text("\r\na\r\n") + longLine, 3}, {path, 0}};
    for (const auto& [text, lines] : cases) {
        UseDialog<QMessageBox>(
            [&, &text = text] { return dialogs.Message(MessageIcon::Information, text, title); },
            [&, lines = lines](QMessageBox& box) {
                QFont bold = box.font();
                bold.setBold(true);
                EXPECT_GT(box.width(), QFontMetrics(bold).horizontalAdvance(title) + 100);
                EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
                const auto& label = *box.findChild<QLabel*>(Text("qt_msgbox_label"));
                const int spacing = label.fontMetrics().lineSpacing();
                if (lines != 0) {
                    EXPECT_EQ(label.heightForWidth(label.width()) / spacing, lines);
                }
                EXPECT_LE(label.geometry().right(), box.width());
                box.close();
            });
    }
}

TEST_F(DesktopDialogsTest, AnswersSafelyUnlessYesIsChosen) {
    using enum MessageButtons;
    const struct {
        MessageButtons buttons;
        Qt::Key key;
        MessageAnswer answer;
    } cases[] = {{Ok, Qt::Key_Escape, MessageAnswer::Ok},
                 {OkCancel, Qt::Key_Escape, MessageAnswer::Cancel},
                 {OkCancel, Qt::Key_Return, MessageAnswer::Ok},
                 {YesNo, Qt::Key_Escape, MessageAnswer::No},
                 {YesNo, Qt::Key_Return, MessageAnswer::No}};
    for (const auto& [buttons, key, answer] : cases)
        EXPECT_EQ(Answer(buttons, [key = key](QMessageBox& box) { Press(box, key); }), answer);
    const auto yes = [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); };
    EXPECT_EQ(Answer(YesNo, yes), MessageAnswer::Yes);
}

TEST_F(DesktopDialogsTest, GivesWhatIsTypedUnlessCancelled) {
    for (const bool isTaken : {true, false}) {
        const QString given = Input([&](QInputDialog& box) {
            EXPECT_EQ(box.windowTitle(), Text("A name"));
            const auto* label = box.findChild<QLabel*>();
            EXPECT_EQ(label->text(), Text("Which <b>name</b>?"));
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            QTest::keyClicks(box.findChild<QLineEdit*>(), Text(" media "));
            Press(box, isTaken ? Qt::Key_Return : Qt::Key_Escape);
        });
        EXPECT_EQ(given, isTaken ? Text(" media ") : QString());
    }
}

TEST_F(DesktopDialogsTest, LetsFilesBeChosen) {
    QTemporaryDir folder;
    const QString existing = folder.filePath(Text("old.nrr"));
    ASSERT_TRUE(QFile(existing).open(QIODevice::WriteOnly));
    FileDialogSetup setup{.title = Text("Choose"),
                          .filter = Text("List (*.nrr)|*.nrr|All Files (*.*)|*.*"),
                          .folder = folder.path(),
                          .fileName = Text("new.nrr")};
    const auto user = [&](const char* name, Qt::Key key) {
        return [&, name = QString::fromLatin1(name), key](QFileDialog& chooser) {
            EXPECT_EQ(chooser.windowTitle(), setup.title);
            EXPECT_EQ(chooser.directory().path(), folder.path());
            EXPECT_EQ(chooser.nameFilters(),
                      Texts({"List (*.nrr) (*.nrr)", "All Files (*.*) (*)"}));
            auto* input = chooser.findChild<QLineEdit*>();
            EXPECT_EQ(input->text(), setup.fileName);
            if (!name.isEmpty())
                input->setText(name);
            Press(*input, key);
        };
    };
    const auto save = [&] { return dialogs.SaveFile(setup); };
    const auto open = [&] { return dialogs.OpenFile(setup); };
    EXPECT_EQ(UseDialog<QFileDialog>(save, user("", Qt::Key_Return)),
              folder.filePath(Text("new.nrr")));
    // Whoever asks for the file asks about overwriting too.
    EXPECT_EQ(UseDialog<QFileDialog>(save, user("old.nrr", Qt::Key_Return)), existing);
    EXPECT_EQ(UseDialog<QFileDialog>(save, user("old.nrr", Qt::Key_Escape)), std::nullopt);
    setup.fileName.clear();
    EXPECT_EQ(UseDialog<QFileDialog>(open, user("old.nrr", Qt::Key_Return)), existing);
}

TEST_F(DesktopDialogsTest, LetsFoldersBeChosen) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(Text("inner")));
    for (const bool network : {false, true}) {
        const QString start = folder.filePath(Text(network ? "gone" : ""));
        for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
            const auto chosen = UseDialog<QFileDialog>(
                [&] { return dialogs.ChooseFolder(Text("Where?"), network, start); },
                [&](QFileDialog& chooser) {
                    EXPECT_EQ(chooser.windowTitle(), Text("Where?"));
                    EXPECT_EQ(chooser.supportedSchemes(),
                              network ? Texts({"file", "smb"}) : Texts({"file"}));
                    EXPECT_EQ(chooser.directory().path(),
                              network ? QDir::homePath() : folder.path());
                    auto* input = chooser.findChild<QLineEdit*>();
                    input->setText(folder.filePath(Text("inner")));
                    Press(*input, key);
                });
            EXPECT_EQ(chosen, key == Qt::Key_Return ? std::optional(folder.filePath(Text("inner")))
                                                    : std::nullopt);
        }
    }
    const struct {
        const char* chosen;
        const char* name;
    } cases[] = {
        {"file:///a/C%23%20code", "/a/C# code"},
        {"smb://s/D/C%23%20code/", "smb://s/D/C# code"},
        {"smb://u@s/100%25%3f", "smb://s/100%?"},
        {"smb://s/", "smb://s/"},
    };
    for (const auto& [chosen, name] : cases)
        EXPECT_EQ(DesktopDialogs::FolderName(QUrl(Text(chosen)), true), Text(name)) << chosen;
    EXPECT_EQ(DesktopDialogs::FolderName(QUrl(Text("smb://s/D")), false), std::nullopt);
}

TEST_F(DesktopDialogsTest, LetsAFontBeChosen) {
    const ChosenFont before{.family = Text("DejaVu Sans"),
                            .points = 9,
                            .bold = true,
                            .underline = true,
                            .charSet = 238,
                            .color = 0x112233};
    const auto choose = [&] { return dialogs.ChooseFont(before); };
    const auto chosen = UseDialog<QFontDialog>(choose, [](QFontDialog& chooser) {
        EXPECT_TRUE(chooser.currentFont().bold() && chooser.currentFont().underline());
        QFont font(chooser.currentFont().family(), 14);
        font.setUnderline(true);
        font.setStrikeOut(true);
        chooser.setCurrentFont(font);
        Press(chooser, Qt::Key_Return);
    });
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->points, 14);
    EXPECT_TRUE(!chosen->bold && chosen->underline && chosen->strikeOut);
    EXPECT_EQ(chosen->charSet, before.charSet) << "what the chooser doesn't show stays";
    EXPECT_FALSE(
        UseDialog<QFontDialog>(choose, [](QFontDialog& box) { Press(box, Qt::Key_Escape); }));
}

TEST_F(DesktopDialogsTest, KeepsAFontThatIsNotInstalled) {
    const ChosenFont before{.family = Text("No Such Family"), .points = 8.25};
    const auto chosen =
        UseDialog<QFontDialog>([&] { return dialogs.ChooseFont(before); },
                               [](QFontDialog& chooser) { Press(chooser, Qt::Key_Return); });
    ASSERT_TRUE(chosen);
    EXPECT_EQ(std::tuple(chosen->family, chosen->points), std::tuple(before.family, before.points));
}

} // namespace
} // namespace netrove
