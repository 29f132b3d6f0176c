#include "controls/Twips.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "redirector/NetworkReachTest.h"
#include "silent/frmSilent.h"

#include <QClipboard>

namespace netrove {
namespace {

/// A workgroup of three computers, of which some are off; the shares of the others may be shut.
class HalfDeadProvider : public NetworkProvider {
public:
    HalfDeadProvider() : NetworkProvider(Text("Net")) {}

    QStringList Computers = Texts({"\\\\A", "\\\\B", "\\\\C"});
    QSet<QString> Off{Text("\\\\B"), Text("\\\\C")};
    bool IsShut = true;
    std::function<void(const QString& node)> OnList = [](const QString& /*node*/) {};

    std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 type) override {
        OnList(node.lpRemoteName);
        std::vector<NetRecord> records;
        switch (node.dwDisplayType) {
        case NetEnum::DisplayNetwork:
            if (!Computers.isEmpty())
                records.push_back(Record(NetEnum::DisplayDomain, Text("WG"), QString()));
            return records;
        case NetEnum::DisplayDomain:
            for (const QString& computer : Computers)
                records.push_back(Record(NetEnum::DisplayServer, computer, QString()));
            return records;
        default:
            if (Off.contains(node.lpRemoteName))
                return std::nullopt;
            if (type == NetEnum::TypeDisk)
                records.push_back(
                    Record(NetEnum::DisplayShare, node.lpRemoteName + Text("\\D"), QString()));
            return records;
        }
    }
    QString Trouble(const UncPath& path) const override {
        return path.Server() + (path.Share().isEmpty() ? Text(" is off.") : Text(" is shut."));
    }
    QString Source() const override { return Text("Net: three houses."); }
    bool Knows(const QString& /*server*/) override { return true; }
    QString Workgroup(const QString& /*server*/) override { return {}; }
    std::unique_ptr<FileFind> FindFirst(const UncPath& /*path*/, FindData& /*first*/) override {
        return nullptr;
    }
    bool CanEnter(const UncPath& /*path*/) override { return !IsShut; }
    FileInfo Info(const UncPath& /*path*/) override { return {}; }
    QByteArray Read(const UncPath& /*path*/, qint64 /*offset*/, qint64 /*length*/) override {
        return {};
    }
    std::optional<QString> LocalPath(const UncPath& /*path*/) override { return std::nullopt; }
};

class SilentComputers : public testing::Test, public TestDesktop {
protected:
    SilentComputers() {
        ProgramServices services = Services(network);
        services.report = &network.Report();
        services.reachTest = &reachTest;
        services.showLogons = [this](QWidget& owner, const auto&, const QString& computer) {
            logOns.append(owner.objectName() + u' ' + computer);
        };
        window = std::make_unique<frmNetrove>(services);
        driver.emplace(*window);
        driver->Open();
    }

    std::unique_ptr<NetworkProvider> MakeProvider() {
        auto made = std::make_unique<HalfDeadProvider>();
        provider = made.get();
        return made;
    }
    std::vector<std::unique_ptr<NetworkProvider>> Providers() {
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        providers.push_back(MakeProvider());
        return providers;
    }

    StatusBar& Bar() { return driver->Find<StatusBar>("stbStatus"); }

    /// Clicks the third panel; gives the window that it opens.
    frmSilent& ClickPanel() {
        QTest::mouseClick(&Bar(), Qt::LeftButton, {}, Bar().PanelRect(3).center());
        EXPECT_EQ(window->findChildren<frmSilent*>().size(), 1);
        auto& dialog = *window->findChild<frmSilent*>();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        FindIn<QTimer>(dialog, "tmrRefresh").setInterval(1);
        return dialog;
    }

    HalfDeadProvider* provider = nullptr;
    Network network{Providers()};
    NetworkReachTest reachTest{network};
    QStringList logOns;
    std::unique_ptr<frmNetrove> window;
    std::optional<WindowDriver> driver;
};

TEST_F(SilentComputers, AreListedAfterASilentSearch) {
    QStringList shown;
    provider->OnList = [&](const QString& node) {
        if (node.startsWith(Text("\\\\")) && !shown.contains(Bar().Text(3)))
            shown.append(Bar().Text(3));
        if (node == Text("\\\\C")) {
            EXPECT_EQ(Bar().ToolTipText(3), Text("2 computers done, 1 left"));
        }
    };
    const int width = Bar().MinWidth(2) + Bar().MinWidth(3);
    driver->Search("*");
    EXPECT_EQ(shown, Texts({"3", "2", "1"}));
    EXPECT_EQ(Bar().Text(3), Text("2 computers, 1 share not searched"));
    EXPECT_GT(ToPixels(Bar().MinWidth(3)), Bar().fontMetrics().horizontalAdvance(Bar().Text(3)));
    EXPECT_EQ(Bar().MinWidth(2) + Bar().MinWidth(3), width);
    EXPECT_EQ(dialogs.Boxes(), "");

    auto& dialog = ClickPanel();
    driver->Trigger("mnuSilent");
    ASSERT_EQ(window->findChildren<frmSilent*>().size(), 1);
    auto& list = FindIn<ListView>(dialog, "lvwSilent");
    EXPECT_EQ(Column(list, 0), "\\\\A\\D \\\\B \\\\C");
    EXPECT_EQ(Column(list, 1), "A is shut. B is off. C is off.");
    QTest::mouseClick(&FindIn(dialog, "cmdLogOn"), Qt::LeftButton);
    EXPECT_EQ(logOns, Texts({"frmSilent A"}));
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(FindIn(dialog, "cmdLogOn").isEnabled()) << "which one?";
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(Text("\n\\\\B\tB is off.\t")));

    // Asking again starts no search; what wasn't searched stays told until the next one.
    provider->OnList = [](const QString& /*node*/) {};
    provider->Off = {Text("\\\\C")};
    provider->IsShut = false;
    QTest::mouseClick(&FindIn(dialog, "cmdTryAgain"), Qt::LeftButton);
    EXPECT_EQ(Column(list, 1),
              "It answers now: search again. It answers now: search again. C is off.");
    EXPECT_EQ(Bar().Text(3), Text("2 computers, 1 share not searched"));

    // The open list follows the next search, which is left alone meanwhile.
    shown.clear();
    provider->OnList = [&](const QString& node) {
        shown.append(Bar().Text(3));
        if (node == Text("\\\\B")) {
            EXPECT_TRUE(QTest::qWaitFor(
                [&] { return !FindIn(dialog, "cmdTryAgain").isEnabled() && list.Count() == 0; }));
        }
    };
    driver->Click("cmdStartSearch");
    EXPECT_EQ(shown.value(0), Text("2")) << "A is known";
    EXPECT_TRUE(QTest::qWaitFor([&] { return list.Count() == 1; }));
    EXPECT_EQ(list.Text(1), Text("\\\\C"));
    EXPECT_EQ(Bar().Text(3), Text("1 computer not searched"));
    driver->Click("cmdClearLst");
    EXPECT_EQ(Bar().Text(3), QString()) << "another job has begun";
    EXPECT_EQ(Bar().MinWidth(3), 529);
    QTest::keyClick(&list, Qt::Key_F1);
    EXPECT_TRUE(shell.Opened.value(0).endsWith(Text("Netrove.html")));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window->findChildren<frmSilent*>().isEmpty());
}

TEST_F(SilentComputers, WhoFindsNobodyIsToldWhatToDo) {
    const QStringList computers = std::exchange(provider->Computers, {});
    driver->Search("*");
    driver->ExpectCaption("Returned 0 files");
    EXPECT_EQ(Bar().Text(3), Text("No computer found"));
    auto& dialog = ClickPanel();
    const auto& help = FindIn<QLabel>(dialog, "lblNobody");
    EXPECT_TRUE(help.isVisible());
    EXPECT_FALSE(FindIn(dialog, "lvwSilent").isVisible());
    for (const QString& part : {Text("Net: three houses."), folder.filePath(Text("network.ini"))})
        EXPECT_TRUE(help.text().contains(part)) << help.text().toStdString();
    EXPECT_LE(help.heightForWidth(help.width()), help.height());

    const auto tryAgain = [&] {
        QTest::mouseClick(&FindIn(dialog, "cmdTryAgain"), Qt::LeftButton);
        return FindIn<QLabel>(dialog, "lblCount").text().toStdString();
    };
    EXPECT_EQ(tryAgain(), "There is still no computer.");
    provider->Computers = computers;
    EXPECT_EQ(tryAgain(),
              "3 computers are there now: choose \"Set to Network Root\", and search again.");
}

} // namespace
} // namespace netrove
