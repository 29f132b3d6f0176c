#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "platform/network/Network.h"
#include "silent/frmSilent.h"

#include <QClipboard>

namespace netrove {
namespace {

/// A workgroup of three computers, of which some are off.
class HalfDeadProvider : public NetworkProvider {
public:
    HalfDeadProvider() : NetworkProvider(Text("Net")) {}

    QSet<QString> Off{Text("\\\\B"), Text("\\\\C")};
    std::function<void(const QString& node)> OnList = [](const QString& /*node*/) {};

    std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 /*type*/) override {
        OnList(node.lpRemoteName);
        switch (node.dwDisplayType) {
        case NetEnum::DisplayNetwork:
            return std::vector{Record(NetEnum::DisplayDomain, Text("WG"), QString())};
        case NetEnum::DisplayDomain:
            return std::vector{Record(NetEnum::DisplayServer, Text("\\\\A"), QString()),
                               Record(NetEnum::DisplayServer, Text("\\\\B"), QString()),
                               Record(NetEnum::DisplayServer, Text("\\\\C"), QString())};
        default:
            return Off.contains(node.lpRemoteName) ? std::nullopt
                                                   : std::optional(std::vector<NetRecord>());
        }
    }
    QString Trouble(const QString& server) const override { return server + Text(" is off."); }
    bool Knows(const QString& /*server*/) override { return true; }
    QString Workgroup(const QString& /*server*/) override { return {}; }
    std::unique_ptr<FileFind> FindFirst(const UncPath& /*path*/, FindData& /*first*/) override {
        return nullptr;
    }
    bool CanEnter(const UncPath& /*path*/) override { return false; }
    FileInfo Info(const UncPath& /*path*/) override { return {}; }
    QByteArray Read(const UncPath& /*path*/, qint64 /*offset*/, qint64 /*length*/) override {
        return {};
    }
    std::optional<QString> LocalPath(const UncPath& /*path*/) override { return std::nullopt; }
};

TEST(SilentComputers, AreListedAfterASilentSearch) {
    TestDesktop desktop;
    auto made = std::make_unique<HalfDeadProvider>();
    HalfDeadProvider& provider = *made;
    std::vector<std::unique_ptr<NetworkProvider>> providers;
    providers.push_back(std::move(made));
    Network network(std::move(providers));
    ProgramServices services = desktop.Services(network);
    services.report = &network.Report();
    frmNetrove window(services);
    WindowDriver driver(window);
    driver.Open();
    QStringList shown;
    provider.OnList = [&](const QString& node) {
        auto& bar = driver.Find<StatusBar>("stbStatus");
        if (node.startsWith(Text("\\\\")) && !shown.contains(bar.Text(3)))
            shown.append(bar.Text(3));
        if (node == Text("\\\\C")) {
            EXPECT_EQ(bar.ToolTipText(3), Text("2 computers done, 1 left"));
        }
    };
    driver.Search("*");
    EXPECT_EQ(shown, Texts({"3", "2", "1"}));
    EXPECT_EQ(driver.StatusText(3), QString());
    EXPECT_EQ(desktop.dialogs.Boxes(), "");

    driver.Trigger("mnuSilent");
    driver.Trigger("mnuSilent");
    ASSERT_EQ(window.findChildren<frmSilent*>().size(), 1);
    auto& dialog = *window.findChild<frmSilent*>();
    auto& list = FindIn<ListView>(dialog, "lvwSilent");
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Text(1) + list.SubItem(2, 1), Text("\\\\BC is off."));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(Text("\\\\B\tB is off.\t")));

    // The open list follows the next search.
    FindIn<QTimer>(dialog, "tmrRefresh").setInterval(1);
    provider.Off = {Text("\\\\C")};
    shown.clear();
    driver.Click("cmdStartSearch");
    EXPECT_EQ(shown, Texts({"2", "1"})) << "A is known";
    EXPECT_TRUE(QTest::qWaitFor([&] { return list.Count() == 1; }));
    EXPECT_EQ(list.Text(1), Text("\\\\C"));
    QTest::keyClick(&list, Qt::Key_F1);
    EXPECT_TRUE(desktop.shell.Opened.value(0).endsWith(Text("Netrove.html")));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.findChildren<frmSilent*>().isEmpty());
}

} // namespace
} // namespace netrove
