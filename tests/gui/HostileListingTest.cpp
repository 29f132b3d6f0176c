#include "downloads/copier/FileCopier.h"
#include "fakes/Files.h"
#include "fakes/ListedFind.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "redirector/Network.h"

#include <QDir>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// A server that lists whatever names it likes, and gives the same file for each of them.
class HostileProvider : public NetworkProvider {
public:
    HostileProvider(const QStringList& names, QString content)
        : NetworkProvider(Text("Net")), names_(names), content_(std::move(content)) {}

    std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 type) override {
        if (type != NetEnum::TypeDisk)
            return std::vector<NetRecord>();
        switch (node.dwDisplayType) {
        case NetEnum::DisplayNetwork:
            return std::vector{Record(NetEnum::DisplayServer, Text("\\\\EVIL"), QString())};
        case NetEnum::DisplayServer:
            return std::vector{Record(NetEnum::DisplayShare, Text("\\\\EVIL\\D"), QString())};
        default:
            return std::nullopt;
        }
    }
    bool Knows(const QString& server) override { return server == Text("EVIL"); }
    QString Workgroup(const QString& /*server*/) override { return Text("x&y\n"); }
    std::unique_ptr<FileFind> FindFirst(const UncPath& /*path*/, FindData& first) override {
        std::vector<FindData> entries;
        for (const QString& name : names_)
            entries.push_back({.attributes = 0, .fileName = name});
        auto find = std::make_unique<ListedFind>(std::move(entries));
        return find->FindNext(first) ? std::move(find) : nullptr;
    }
    bool CanEnter(const UncPath& /*path*/) override { return true; }
    FileInfo Info(const UncPath& /*path*/) override { return {.length = -1}; }
    QByteArray Read(const UncPath& /*path*/, qint64 /*offset*/, qint64 /*length*/) override {
        return {};
    }
    std::optional<QString> LocalPath(const UncPath& /*path*/) override { return content_; }

private:
    QStringList names_;
    QString content_;
};

TEST(HostileListing, NoCopyLeavesTheFolder) {
    TestDesktop desktop;
    const QString home = desktop.folder.path();
    const QString content = WriteFile(desktop.folder.filePath(Text("content")), "evil");
    // What can't be a file's name at all isn't even found.
    QStringList names{Text("../up"), Text("..\\up"), Text("/tmp/up"),
                      Text(".."),    Text("."),      QString()};
    names.append(QString(QChar(u'\0')) + Text("zero"));
    const QStringList refused{Text("new\nline"),  Text("CON"),           Text("nul.txt"),
                              Text("bell\a"),     QString(300, u'x'),    Text("half.netrove-part"),
                              Text("\u0085next"), QString(QChar(0xD800))};
    const QStringList harmless{Text("~"), Text("-rf"), Text("$(x)"), Text("\u202egnp.exe"),
                               Text(" %2e%2e%2f ")};
    std::vector<std::unique_ptr<NetworkProvider>> providers;
    providers.push_back(std::make_unique<HostileProvider>(names + refused + harmless, content));
    Network network(std::move(providers));
    frmNetrove window(
        desktop.Services(network, [&] { return std::make_unique<FileCopier>(network); }));
    WindowDriver driver(window);
    driver.Open();
    driver.Search("*");
    for (const char* timer : {"DloadScanTmr", "DloadQueueTmr"})
        driver.Find<QTimer>(timer).setInterval(1);
    driver.DownloadAll();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !driver.IsDownloading(); }, 20000));
    const ListView& downloads = driver.Downloads();
    QStringList copied;
    for (int row = 1; row <= downloads.Count(); ++row) {
        if (downloads.SubItem(row, DownloadItem::Status) == Text("Done!"))
            copied.append(downloads.Text(row));
        else
            EXPECT_EQ(downloads.SubItem(row, DownloadItem::Status), Text("Error (75)"));
    }
    EXPECT_EQ(copied, harmless);
    EXPECT_GE(downloads.Count(), refused.size() - 1 + harmless.size());
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    EXPECT_EQ(QDir(home + Text("/Downloads")).entryList(all).size(), harmless.size());
    EXPECT_EQ(QDir(home).entryList(all, QDir::Name),
              (QStringList{Text("Downloads"), Text("Netrove.log"), Text("content")}));
    EXPECT_EQ(desktop.dialogs.Boxes(), "");
}

} // namespace
} // namespace netrove
