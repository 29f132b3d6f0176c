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
#include <QTemporaryDir>
#include <QTest>

namespace netrove {
namespace {

class DesktopDialogsTest : public testing::Test {
protected:
    MessageAnswer Answer(const QString& text, MessageButtons buttons,
                         const std::function<void(QMessageBox&)>& user) {
        return UseDialog<QMessageBox>(
            [&] { return dialogs.Message(MessageIcon::Critical, text, title, buttons); }, user);
    }
    static void Press(QWidget& box, Qt::Key key) { QTest::keyClick(&box, key); }

    /// Types a path into the chooser that `open` shows.
    template <typename Open>
    std::optional<QString> Choose(const Open& open, const QString& path, Qt::Key key,
                                  const std::function<void(QFileDialog&, QLineEdit&)>& look) {
        return UseDialog<QFileDialog>(open, [&](QFileDialog& chooser) {
            EXPECT_EQ(chooser.windowTitle(), title);
            auto* input = chooser.findChild<QLineEdit*>();
            look(chooser, *input);
            input->setText(path);
            Press(*input, key);
        });
    }

    const QString title = Text("Auto-Asterisks is turned off");
    QTemporaryDir folder;
    DesktopDialogs dialogs;
};

TEST_F(DesktopDialogsTest, ShowsTextsAsTheyAre) {
    Answer(Text("'<b>\\\\SERVER</b>'\r\nand more"), MessageButtons::Ok, [&](QMessageBox& box) {
        EXPECT_EQ(box.text(), Text("'<b>\\\\SERVER</b>'\nand more"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), title);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        box.close();
    });
}

TEST_F(DesktopDialogsTest, AnswersSafelyUnlessYesIsChosen) {
    using enum MessageButtons;
    const std::tuple<MessageButtons, Qt::Key, MessageAnswer> cases[] = {
        {Ok, Qt::Key_Escape, MessageAnswer::Ok},
        {OkCancel, Qt::Key_Escape, MessageAnswer::Cancel},
        {OkCancel, Qt::Key_Return, MessageAnswer::Ok},
        {YesNo, Qt::Key_Escape, MessageAnswer::No},
        {YesNo, Qt::Key_Return, MessageAnswer::No}};
    for (const auto& [buttons, key, answer] : cases)
        EXPECT_EQ(Answer(title, buttons, [key = key](QMessageBox& box) { Press(box, key); }),
                  answer);
    const auto yes = [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); };
    EXPECT_EQ(Answer(title, YesNo, yes), MessageAnswer::Yes);
}

} // namespace
} // namespace netrove
