#include "redirector/Network.h"
#include "redirector/SmbProvider.h"
#include "search/NWSearch.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaTest.h"

#include <QFile>

#include <algorithm>

namespace netrove {
namespace {

class SmbSearchTest : public SambaTest {
protected:
    /// What a search from a new root finds: paths below the share with their lengths.
    std::string Found() {
        const Settings settings;
        TroubleshootingLog log(settings);
        const ExclusionLists lists;
        NWSearch search({.files = *network_,
                         .settings = settings,
                         .exclusions = lists,
                         .log = log,
                         .ahead = network_.get()});
        search.SetRecurseFolders(true);
        QStringList found;
        search.ItemFound = [&](const QString& path) {
            found += path.section(u'\\', 4) + u' ' + QString::number(network_->Length(path));
        };
        search.BeginSearch(Text("*.txt"), std::make_shared<NetResource>(*network_));
        found.sort();
        return found.join(u'|').toStdString();
    }

    /// Those that the last search has asked for their shares in vain.
    auto SilentComputers() {
        return std::ranges::count_if(network_->Report().All(), [](const NotSearched& one) {
            return !one.IsShare() && !one.answersNow;
        });
    }

    static std::unique_ptr<Network> MakeNetwork(const std::vector<SmbHost>& hosts,
                                                const SmbLimits& limits = {}) {
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        providers.push_back(
            std::make_unique<SmbProvider>(Text("LAN"), hosts, SambaServer::Helper(), limits));
        return std::make_unique<Network>(std::move(providers));
    }

    std::unique_ptr<Network> network_ = MakeNetwork({samba_->Host()});
};

TEST_F(SmbSearchTest, EverySearchSeesTheNetworkAsItIs) {
    samba_->AddFile(Text("public/gone/1.txt"), "1");
    samba_->AddFile(Text("public/stays/2.txt"), "22");
    samba_->Stop();
    EXPECT_EQ(Found(), "");
    EXPECT_EQ(SilentComputers(), 1);

    ASSERT_TRUE(samba_->Start());
    EXPECT_EQ(Found(), "gone\\1.txt 1|stays\\2.txt 2") << "a refused connection isn't remembered";
    EXPECT_EQ(SilentComputers(), 0);

    EXPECT_TRUE(QFile::remove(samba_->Path(Text("public/gone/1.txt"))));
    samba_->AddFile(Text("public/stays/2.txt"), "4444");
    samba_->AddFile(Text("public/new/3.txt"), "333");
    EXPECT_EQ(Found(), "new\\3.txt 3|stays\\2.txt 4");
    // Neither does it take what somebody has read in between.
    EXPECT_EQ(network_->Length(Text("\\\\FILER\\PUBLIC\\new\\3.txt")), 3);
    EXPECT_TRUE(network_->CanEnter(Text("\\\\FILER\\PUBLIC\\new")));
    samba_->AddFile(Text("public/new/3.txt"), "55555");
    EXPECT_EQ(Found(), "new\\3.txt 5|stays\\2.txt 4");

    // A computer that was silent is tried again, too.
    FaultyProxy proxy(samba_->Port());
    network_ = MakeNetwork(FilerAt(proxy.Port()), {.negotiate = std::chrono::milliseconds(500)});
    proxy.FallSilentAfter(0);
    EXPECT_EQ(Found(), "");
    proxy.Heal();
    EXPECT_EQ(Found(), "new\\3.txt 5|stays\\2.txt 4");

    samba_->Stop();
    EXPECT_EQ(Found(), "");
    EXPECT_EQ(SilentComputers(), 1) << "it was asked for its shares";
}

} // namespace
} // namespace netrove
