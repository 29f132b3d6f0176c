#include "controls/Twips.h"
#include "downloads/copier/FileCopier.h"
#include "fakes/Files.h"
#include "fakes/ListedFind.h"
#include "gui/WindowDriver.h"
#include "redirector/FolderProvider.h"
#include "redirector/NetworkReachTest.h"
#include "silent/frmSilent.h"

#include <QClipboard>
#include <QDir>

namespace netrove {
namespace {

/// A network of folders that tells of each listing, and may list whatever names it likes and give
/// the same file for each of them.
class OddProvider : public FolderProvider {
public:
    using FolderProvider::FolderProvider;

    std::function<void(const QString& node)> OnList = [](const QString& /*node*/) {};
    QStringList Names;
    QString Content;

    std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 type) override {
        OnList(node.lpRemoteName);
        return FolderProvider::List(node, type);
    }
    std::unique_ptr<FileFind> FindFirst(const UncPath& /*path*/, FindData& first) override {
        std::vector<FindData> entries;
        for (const QString& name : Names)
            entries.push_back({.attributes = 0, .fileName = name});
        auto find = std::make_unique<ListedFind>(std::move(entries));
        return find->FindNext(first) ? std::move(find) : nullptr;
    }
    FileInfo Info(const UncPath& /*path*/) override { return {.length = -1}; }
    std::optional<QString> LocalPath(const UncPath& /*path*/) override { return Content; }
};

class OddNetwork : public testing::Test, public WindowDriver {
protected:
    OddNetwork() {
        for (const char* share : {"/x&y/A/D", "/x&y/B/D", "/x&y/C/D"})
            QDir().mkpath(tree.path() + Text(share));
        newCopyQ = [this] { return std::make_unique<FileCopier>(network); };
        ProgramServices services = Services(network);
        services.report = &network.Report();
        services.reachTest = &reachTest;
        services.showLogons = [this](QWidget& owner, const auto&, const QString& computer) {
            logOns.append(owner.objectName() + u' ' + computer);
        };
        window = std::make_unique<frmNetrove>(services);
        Open();
    }
    ~OddNetwork() override { window.reset(); }

    std::vector<std::unique_ptr<NetworkProvider>> Providers() {
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        auto made = std::make_unique<OddProvider>(Text("Net"), tree.path());
        provider = made.get();
        providers.push_back(std::move(made));
        return providers;
    }

    /// Clicks the third panel; gives the window that it opens.
    frmSilent& ClickPanel() {
        QTest::mouseClick(&Bar(), Qt::LeftButton, {}, Bar().PanelRect(3).center());
        auto& dialog = *window->findChild<frmSilent*>();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        FindIn<QTimer>(dialog, "tmrRefresh").setInterval(1);
        return dialog;
    }

    /// What is wrong with the network, by lines of its file.
    void SetFaults(const QByteArray& lines) const {
        WriteFile(tree.filePath(Text("sample-network.ini")), lines);
        provider->BeginWalk(nullptr);
    }

    QTemporaryDir tree;
    OddProvider* provider = nullptr;
    Network network{Providers()};
    NetworkReachTest reachTest{network};
    QStringList logOns;
};

TEST_F(OddNetwork, SilentComputersAreListedAfterTheSearch) {
    SetFaults("[x&y/A/D]\nfault=refused\n[x&y/B]\nfault=unreachable\ndelay=0\n[x&y/C]\n"
              "fault=unreachable\ndelay=0\n");
    QStringList shown;
    provider->OnList = [&](const QString& node) {
        if (node.startsWith(Text("\\\\")) && !shown.contains(Bar().Text(3)))
            shown.append(Bar().Text(3));
        if (node == Text("\\\\C")) {
            EXPECT_EQ(Bar().ToolTipText(3), Text("2 computers done, 1 left"));
        }
    };
    const int width = Bar().MinWidth(2) + Bar().MinWidth(3);
    Search("*");
    EXPECT_EQ(shown, Texts({"3", "2", "1"}));
    EXPECT_EQ(Bar().Text(3), Text("2 computers, 1 share not searched"));
    EXPECT_GT(ToPixels(Bar().MinWidth(3)), Bar().fontMetrics().horizontalAdvance(Bar().Text(3)));
    EXPECT_EQ(Bar().MinWidth(2) + Bar().MinWidth(3), width);
    EXPECT_EQ(dialogs.Boxes(), "");

    auto& dialog = ClickPanel();
    Trigger("mnuSilent");
    ASSERT_EQ(window->findChildren<frmSilent*>().size(), 1);
    auto& list = FindIn<ListView>(dialog, "lvwSilent");
    EXPECT_EQ(Column(list, 0), "\\\\A\\D \\\\B \\\\C");
    EXPECT_EQ(Column(list, 1),
              "It isn't open to this user. It can't be reached. It can't be reached.");
    QTest::mouseClick(&FindIn(dialog, "cmdLogOn"), Qt::LeftButton);
    EXPECT_EQ(logOns, Texts({"frmSilent A"}));
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(FindIn(dialog, "cmdLogOn").isEnabled()) << "which one?";
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(
        QGuiApplication::clipboard()->text().contains(Text("\n\\\\B\tIt can't be reached.\t")));

    // Asking again starts no search; what wasn't searched stays told until the next one.
    provider->OnList = [](const QString& /*node*/) {};
    SetFaults("[x&y/C]\nfault=unreachable\ndelay=0\n");
    QTest::mouseClick(&FindIn(dialog, "cmdTryAgain"), Qt::LeftButton);
    EXPECT_EQ(Column(list, 1),
              "It answers now: search again. It answers now: search again. It can't be reached.");
    EXPECT_EQ(Bar().Text(3), Text("2 computers, 1 share not searched"));

    // The open list follows the next search, which is left alone meanwhile.
    provider->OnList = [&](const QString& node) {
        if (node == Text("\\\\B")) {
            EXPECT_TRUE(QTest::qWaitFor(
                [&] { return !FindIn(dialog, "cmdTryAgain").isEnabled() && list.Count() == 0; }));
        }
    };
    Click("cmdStartSearch");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Column(list) == "\\\\C"; }));
    EXPECT_EQ(Bar().Text(3), Text("1 computer not searched"));
    Click("cmdClearLst");
    EXPECT_EQ(Bar().Text(3), QString()) << "another job has begun";
    EXPECT_EQ(Bar().MinWidth(3), 529);
    QTest::keyClick(&list, Qt::Key_F1);
    EXPECT_EQ(shell.Opened.size(), 1);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window->findChildren<frmSilent*>().isEmpty());
}

TEST_F(OddNetwork, WhoFindsNobodyIsToldWhatToDo) {
    QDir(tree.filePath(Text("x&y"))).removeRecursively();
    Search("*");
    EXPECT_EQ(Bar().Text(3), Text("No computer found"));
    auto& dialog = ClickPanel();
    const auto& help = FindIn<QLabel>(dialog, "lblNobody");
    EXPECT_TRUE(help.isVisible());
    EXPECT_FALSE(FindIn(dialog, "lvwSilent").isVisible());
    for (const QString& part : {tree.path(), folder.filePath(Text("network.ini"))})
        EXPECT_TRUE(help.text().contains(part)) << help.text().toStdString();
    EXPECT_LE(help.heightForWidth(help.width()), help.height());

    const auto tryAgain = [&] {
        QTest::mouseClick(&FindIn(dialog, "cmdTryAgain"), Qt::LeftButton);
        return FindIn<QLabel>(dialog, "lblCount").text().toStdString();
    };
    EXPECT_EQ(tryAgain(), "There is still no computer.");
    for (const char* share : {"/WG/A/D", "/WG/B/D"})
        QDir().mkpath(tree.path() + Text(share));
    EXPECT_EQ(tryAgain(),
              "2 computers are there now: choose \"Set to Network Root\", and search again.");
}

TEST_F(OddNetwork, NoCopyLeavesTheFolder) {
    QDir(tree.path() + Text("/x&y/B")).removeRecursively();
    QDir(tree.path() + Text("/x&y/C")).removeRecursively();
    provider->Content = WriteFile(folder.filePath(Text("content")), "evil");
    const QStringList harmless{Text("~"), Text("-rf"), Text("$(x)"), Text("\u202egnp.exe"),
                               Text(" %2e%2e%2f ")};
    const QStringList refused{Text("new\nline"), QString(300, u'x'), Text("half.netrove-part"),
                              QString(QChar(0xD800))};
    // What can't be a file's name at all isn't even found.
    provider->Names = Texts({"../up", "..\\up", "/tmp/up", "..", ".", ""}) + refused + harmless;
    provider->Names.append(QChar(u'\0') + Text("zero"));
    Search("*");
    HurryDownloads();
    DownloadAll();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !IsDownloading(); }, 20000));
    QStringList copied;
    for (int row = 1; row <= Downloads().Count(); ++row) {
        const QString state = Downloads().SubItem(row, DownloadItem::Status);
        EXPECT_TRUE(state == Text("Done!") || state == Text("Error (75)"));
        if (state == Text("Done!"))
            copied.append(Downloads().Text(row));
    }
    EXPECT_EQ(copied, harmless);
    EXPECT_GE(Downloads().Count(), refused.size() - 1 + harmless.size());
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    EXPECT_EQ(QDir(folder.filePath(Text("Downloads"))).entryList(all).size(), harmless.size());
    EXPECT_EQ(QDir(folder.path()).entryList(all, QDir::Name),
              Texts({"Downloads", "Netrove.log", "content"}));
}

} // namespace
} // namespace netrove
