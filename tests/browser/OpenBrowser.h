#pragma once

#include "browser/frmNWDialog.h"
#include "fakes/DialogTest.h"
#include "fakes/MemoryNetwork.h"
#include "runtime/Yield.h"

namespace netrove {

/// The browser over a network in memory, every yield making a pass of the event loop: Net with the
/// workgroup WG and in that \\S (shares D and E, a printer) and \\T (nothing); a second provider,
/// Lone, with nothing below it.
class OpenBrowser : public DialogTest<frmNWDialog> {
protected:
    OpenBrowser() {
        SetYieldAlways(true);
        network.AddBranch({"Net", "WG", "\\\\S", "\\\\S\\D"});
        network.AddBranch({"Net", "WG", "\\\\S", "\\\\S\\E"});
        network.AddBranch({"Net", "WG", "\\\\T"});
        network.AddBranch({"Lone"});
        network.AddPrinter(Text("\\\\S"), Text("\\\\S\\P"));
        network.OnCall = [this](const QString& call) {
            calls.append(call);
            if (const auto hook = onCall) // a copy, as it may set another one
                hook(call);
        };
    }
    ~OpenBrowser() override { SetYieldAlways(false); }

    void Make() {
        exclusions.ParseNetNodes(settings);
        dialog = std::make_unique<frmNWDialog>(BrowserServices{.network = network,
                                                               .settings = settings,
                                                               .exclusions = exclusions,
                                                               .log = log,
                                                               .dialogs = dialogs},
                                               nullptr);
    }

    /// Shows the dialog without its second of waiting.
    void Show() {
        Make();
        Find<QTimer>("tmrNodes").setInterval(0);
        dialog->show();
    }

    /// Shows the dialog and waits for the first level.
    void Open() {
        Show();
        ASSERT_TRUE(QTest::qWaitFor([this] { return IsEnabled("cmdOk"); }));
        Activate();
    }

    TreeView& Tree() { return Find<TreeView>("tvwNetwork"); }
    QString LabelText(const char* name) { return Find<QLabel>(name).text(); }

    void Press(Qt::Key key) { QTest::keyClick(&Tree(), key); }

    /// Selects a node by its key without the "??" and expands it, as the Right key does.
    void Expand(const char* name) {
        Tree().SetSelected(Text("??") + Text(name));
        Press(Qt::Key_Right);
    }
    void ExpandAll(std::initializer_list<const char*> names) {
        for (const char* name : names)
            Expand(name);
    }

    /// The texts of the children of a node, excluded ones as "*name", those that can be expanded
    /// as "name+".
    std::string Children(const char* name) {
        QStringList texts;
        for (const QString& key : Tree().Children(Text("??") + Text(name))) {
            const bool marked = Tree().Bold(key) && Tree().ForeColor(key) == QColor(Qt::red);
            texts.append((marked ? Text("*") : QString()) + Tree().Text(key) +
                         (Tree().Children(key).isEmpty() ? QString() : Text("+")));
        }
        return texts.join(u' ').toStdString();
    }

    /// Does something at the first yield after a call of the network, as the user's hand does.
    void AtYieldAfter(const char* call, std::function<void()> action) {
        onCall = [this, wanted = Text(call), action](const QString& made) {
            if (made != wanted)
                return;
            onCall = nullptr;
            QTimer::singleShot(0, dialog.get(), action);
        };
    }

    MemoryNetwork network;
    Settings settings;
    ExclusionLists exclusions;
    TroubleshootingLog log{settings};
    QStringList calls;
    std::function<void(const QString&)> onCall;
};

} // namespace netrove
