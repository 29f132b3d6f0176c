#include "fakes/Files.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "platform/network/OpenNetwork.h"
#include "smb/SambaServer.h"

#include <QProcess>

namespace netrove {
namespace {

/// The window over the network that network.ini in the folder tells.
struct OpenedWindow : TestDesktop {
    explicit OpenedWindow(const QString& path)
        : opened(OpenNetwork(path)), window(ServicesIn(path, *opened.network)) {
        EXPECT_TRUE(opened.problems.isEmpty());
    }

    OpenedNetwork opened;
    frmNetrove window;
};

/// A real server, FILER in the workgroup HOME, searched by the window and by the console program.
class SambaSearch : public testing::Test {
protected:
    static constexpr int ManyFiles = 3000;

    static void SetUpTestSuite() {
        if (!SambaServer::IsAvailable())
            return;
        samba = std::make_unique<SambaServer>(Text("    workgroup = DEN"));
        for (const char* path :
             {"public/one.mp3", "public/Temp/two.mp3", "public/Music [a, b]/Ünï.MP3",
              "public/readme.txt", "hidden/secret.mp3", "unlisted/deep/x.mp3"})
            samba->AddFile(Text(path), "some content");
        for (int number = 0; number < ManyFiles; ++number)
            samba->AddFile(QStringLiteral("public/many/file %1.dat").arg(number));
    }
    static void TearDownTestSuite() { samba.reset(); }

    void SetUp() override {
        if (!samba)
            GTEST_SKIP() << "needs Samba, and root";
        ASSERT_TRUE(samba->IsRunning());
        Configure("FILER|HOME");
    }

    /// Makes network.ini name one computer, by name and workgroup, at the server's port.
    void Configure(const QByteArray& computer) {
        WriteFile(folder.filePath(Text("network.ini")),
                  "[LAN]\nType=smb\nFind=No\nComputer1=" + computer +
                      "|127.0.0.1:" + QByteArray::number(samba->Port()) + "\n");
    }

    static QStringList Sorted(QStringList paths) {
        paths.sort();
        return paths;
    }

    static inline std::unique_ptr<SambaServer> samba;
    QTemporaryDir folder;
    const QStringList songs{Text("\\\\FILER\\PUBLIC\\Music [a, b]\\Ünï.MP3"),
                            Text("\\\\FILER\\PUBLIC\\Temp\\two.mp3"),
                            Text("\\\\FILER\\PUBLIC\\one.mp3")};
};

TEST_F(SambaSearch, InTheWindow) {
    OpenedWindow opened(folder.path());
    WindowDriver driver(opened.window);
    driver.Open();

    opened.window.ProgramSettings().ExcNetNodes.clear();
    driver.Search("*.mp3");
    EXPECT_EQ(Sorted(driver.Rows()), songs);
    EXPECT_EQ(driver.Results().SubItem(1, 2), Text("0.0000"));
    opened.window.ProgramSettings().ExcNetNodes = {Text("temp|True|Folder")};
    driver.Search("*.mp3");
    EXPECT_EQ(Sorted(driver.Rows()), (QStringList{songs[0], songs[2]}));

    // The mouse presses the button at the first yield that sees rows.
    QTimer mouse;
    mouse.callOnTimeout([&] {
        if (driver.Results().Count() > 0 && driver.Find("cmdAbandon").isEnabled())
            driver.Click("cmdAbandon");
    });
    mouse.start(1);
    driver.Search("*.dat");
    mouse.stop();
    const int found = driver.Results().Count();
    EXPECT_GT(found, 0);
    EXPECT_LT(found, ManyFiles);
    driver.ExpectCaption(qPrintable(Text("Aborted, but returned %1 files").arg(found)));
    driver.Search("*.dat");
    EXPECT_EQ(driver.Results().Count(), ManyFiles);
    EXPECT_TRUE(opened.dialogs.Shown.isEmpty());
}

TEST_F(SambaSearch, StartsAtAComputerThatIsAskedForItsWorkgroup) {
    Configure("FILER|");
    OpenedWindow opened(folder.path());
    WindowDriver driver(opened.window);
    driver.Open();
    const auto input = [&](const char* name, const char* item) {
        opened.dialogs.Inputs = QStringList(Text(name));
        driver.Trigger(item);
        return driver.StartNodeText();
    };
    EXPECT_EQ(input("den", "mnuInpNetNode(1)"), Text("[Root]"));
    EXPECT_EQ(input("filer", "mnuInpNetNode(0)"), Text("\\\\FILER"));
    driver.Search("*.mp3");
    EXPECT_EQ(Sorted(driver.Rows()).last(), songs.last());
    EXPECT_EQ(input("den", "mnuInpNetNode(1)"), Text("DEN"));
}

TEST_F(SambaSearch, OnTheConsole) {
    // The programs look for network.ini in their own folder.
    for (const char* program : {"netrove-find", "netrove-smb"})
        ASSERT_TRUE(
            QFile::copy(Text(NETROVE_BIN "/") + Text(program), folder.filePath(Text(program))));
    const auto find = [this](const QStringList& arguments) {
        QProcess program;
        program.start(folder.filePath(Text("netrove-find")), arguments);
        EXPECT_TRUE(program.waitForFinished(60000));
        return QString::fromUtf8(program.readAllStandardOutput())
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    };
    EXPECT_EQ(Sorted(find({Text("*.mp3")})), songs);
    EXPECT_EQ(Sorted(find({Text("--exclude"), Text("TEMP"), Text("*.mp3")})),
              (QStringList{songs[0], songs[2]}));
    EXPECT_EQ(find({Text("--from"), Text("\\\\filer\\Hidden$"), Text("*")}),
              QStringList{Text("\\\\filer\\Hidden$\\secret.mp3")});
    EXPECT_EQ(find({Text("--from"), Text("LAN|HOME|\\\\FILER|\\\\FILER\\PUBLIC"), Text("readme*")}),
              QStringList{Text("\\\\FILER\\PUBLIC\\readme.txt")});
    EXPECT_EQ(find({Text("--from"), Text("//FILER/UNLISTED"), Text("x.*")}),
              QStringList{Text("\\\\FILER\\UNLISTED\\deep\\x.mp3")});
}

} // namespace
} // namespace netrove
