#include "browser/ComputerChooser.h"

#include "desktop/WindowYield.h"
#include "fakes/Find.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/UseDialog.h"
#include "runtime/Yield.h"

#include <QLabel>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// The computers of a network of two workgroups, one of them in a second provider.
class ComputerChooserTest : public testing::Test {
protected:
    ComputerChooserTest() {
        network.AddBranch({"Net", "WG", "\\\\S", "\\\\S\\D"});
        network.AddBranch({"Net", "WG", "\\\\T"});
        network.AddBranch({"Other", "\\\\U"});
        SetYieldAlways(true);
    }
    ~ComputerChooserTest() override { SetYieldAlways(false); }

    WindowYield yield;
    MemoryNetwork network;
    QStringList calls;
};

TEST_F(ComputerChooserTest, GivesTheNameAlone) {
    network.OnCall = [this](const QString& call) { calls.append(call); };
    const auto user = [](QDialog& box) {
        auto& tree = *box.findChild<QTreeWidget*>();
        QTest::keyClick(&tree, Qt::Key_Down);
        for (int level = 0; level < 2; ++level) {
            QTest::keyClick(&tree, Qt::Key_Return);
            EXPECT_FALSE(FindIn(box, "cmdOk").isEnabled()) << "a provider, a workgroup";
            QTest::keyClick(&tree, Qt::Key_Down);
        }
        QTest::keyClick(&tree, Qt::Key_Down);
        QTest::keyClick(&tree, Qt::Key_Return);
    };
    // Before the network has been read, handlers run inside that.
    const auto isRead = [](QDialog& box) {
        return FindIn<QLabel>(box, "lblState").text() == Text("3 computers found.");
    };
    EXPECT_EQ(UseDialog<QDialog>(
                  [this] { return ComputerChooser::Choose(network, Text("Which?"), nullptr); },
                  user, isRead),
              Text("T"));
    EXPECT_FALSE(calls.contains(Text("open \\\\S"))) << "nobody asks a computer for its shares";
}

TEST_F(ComputerChooserTest, CanBeClosedInTheMiddle) {
    network.OnCall = [this](const QString& call) {
        calls.append(call);
        if (call == Text("open WG"))
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    };
    EXPECT_EQ(ComputerChooser::Choose(network, Text("Which?"), nullptr), std::nullopt);
    EXPECT_FALSE(calls.contains(Text("open Other")));
}

} // namespace
} // namespace netrove
