#include "OpenOptions.h"

#include <algorithm>

namespace netrove {
namespace {

class ExclusionList : public OpenOptions {
protected:
    void SetUp() override {
        Open();
        Find<QTabWidget>("SSTab1").setCurrentIndex(OptionControls::Search);
        List().setFocus();
    }

    /// The rows as "name|type", selected ones as "*name|type", unchecked ones with "-".
    std::string Rows() {
        QStringList rows;
        for (int row = 1; row <= List().Count(); ++row)
            rows.append((List().Selected(row) ? Text("*") : QString()) +
                        (List().Checked(row) ? QString() : Text("-")) + List().Text(row) + u'|' +
                        List().SubItem(row, 1));
        return rows.join(u' ').toStdString();
    }

    void Fill(std::initializer_list<const char*> entries) {
        settings.ExcNetNodes.clear();
        for (const char* entry : entries)
            settings.ExcNetNodes.append(Text(entry));
        SetUp();
    }

    void Trigger(const char* item) { Find<QAction>(item).trigger(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&List(), key, modifiers);
    }

    /// Opens the dialog for one node by the menu, and uses it.
    void InAddDialog(const std::function<void(frmAddNetNode&)>& use) {
        InForm<frmAddNetNode>([this] { Trigger("mnuAddNetNode"); }, use);
    }

    /// A button that is pressed so goes down at once, and up some time later.
    static void PressMnemonic(frmAddNetNode& add, Qt::Key key) {
        QTest::keyClick(add.focusWidget(), key, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] {
            const auto buttons = add.findChildren<QAbstractButton*>();
            return std::none_of(buttons.begin(), buttons.end(),
                                [](const auto* button) { return button->isDown(); });
        }));
    }

    /// Types the name, chooses the type by its mnemonic and confirms with Enter.
    void Add(const char* name, Qt::Key type) {
        InAddDialog([&](frmAddNetNode& add) {
            auto& input = FindIn<QLineEdit>(add, "txtNetNodeName");
            EXPECT_TRUE(input.hasFocus());
            QTest::keyClicks(&input, Text(name));
            PressMnemonic(add, type);
            QTest::keyClick(add.focusWidget(), Qt::Key_Return);
        });
    }
};

TEST_F(ExclusionList, IsAWorkingCopyThatNodesAreRemovedFrom) {
    Fill({"a|True|Folder", "b|False|Network", "c|True|Printer"});
    EXPECT_EQ(Rows(), "a|Folder -b|Network c|Printer");
    EXPECT_EQ(List().SmallIcon(2), Text("Network"));
    List().SetSelected(1, true);
    List().SetSelected(3, true);
    Trigger("mnuRemSel");
    EXPECT_EQ(Rows(), "-b|Network");
    EXPECT_EQ(dialogs.Boxes(), "") << "the menu asks nothing";

    SetUp();
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete); // answered with OK, which isn't Yes
    EXPECT_EQ(dialogs.WholeBoxes(),
              "question, Yes/No(No): Delete Nodes?: Delete the selected nodes?");
    EXPECT_FALSE(IsEnabled("cmdApply"));
    dialogs.Answer = MessageAnswer::Yes;
    Press(Qt::Key_Delete);
    EXPECT_EQ(Rows(), "");
    EXPECT_TRUE(IsEnabled("cmdApply"));
    Click("CancelCmd");
    EXPECT_EQ(settings.ExcNetNodes.size(), 3);
}

TEST_F(ExclusionList, NodesAreAdded) {
    Fill({"Temp|True|Folder", "x|True|Folder"});
    Add("Temp", Qt::Key_S);
    EXPECT_EQ(Rows(), "Temp|Folder x|Folder *Temp|Workstation") << "a name for each type";
    EXPECT_TRUE(IsEnabled("cmdApply"));
    Add("WG", Qt::Key_W);
    Add(" Net ", Qt::Key_N);
    EXPECT_EQ(Rows(), "Temp|Folder x|Folder Temp|Workstation WG|Workgroup *Net|Network");
    EXPECT_EQ(dialogs.Boxes(), "");

    Press(Qt::Key_A, Qt::ControlModifier);
    Add("TEMP", Qt::Key_F);
    EXPECT_EQ(dialogs.WholeBoxes(), "exclamation: Node warning: Node already exists in the list.");
    EXPECT_EQ(Rows(), "*Temp|Folder x|Folder Temp|Workstation WG|Workgroup Net|Network");
    List().SetSelected(2, true);
    EXPECT_EQ(List().SelectedCount(), 2) << "several again";
    Click("OKCmd");
    EXPECT_EQ(settings.ExcNetNodes.join(u' '),
              Text("Temp|True|Folder x|True|Folder Temp|True|Workstation WG|True|Workgroup "
                   "Net|True|Network"));
}

TEST_F(ExclusionList, TheDialogForANodeChecksTheName) {
    InAddDialog([this](frmAddNetNode& add) {
        auto& input = FindIn<QLineEdit>(add, "txtNetNodeName");
        for (const auto& [name, problem] :
             TextPairs{{"  ", "Empty network node!"},
                       {"\"a\"", "Network node has an illegal character!"}}) {
            input.setText(Text(name));
            FindIn(add, "cmdOK").setFocus();
            QTest::keyClick(add.focusWidget(), Qt::Key_Return);
            EXPECT_EQ(dialogs.TakeWhole(),
                      std::string("critical: Network node error...: ") + problem);
            EXPECT_TRUE(add.isVisible() && input.hasFocus());
        }
        QTest::keyClick(&input, Qt::Key_F1);
        EXPECT_EQ(helps, 1);
        QTest::keyClick(&input, Qt::Key_Escape);
        EXPECT_FALSE(add.isVisible());
    });
    EXPECT_FALSE(IsEnabled("cmdApply"));
}

} // namespace
} // namespace netrove
