#include "copier/CopierDriver.h"
#include "fakes/Text.h"
#include "platform/TempTree.h"
#include "redirector/FolderProvider.h"
#include "redirector/SmbProvider.h"
#include "runtime/ExpectRaised.h"

namespace netrove {
namespace {

class FileCopierTest : public testing::Test {
protected:
    TempTree tree_;
    QString save_ = tree_.Path(Text("save/"));

    void SetUp() override { tree_.Folder("save"); }
};

TEST_F(FileCopierTest, TheSampleNetworkIsCopiedFromItsFolder) {
    tree_.File("network/GROUP/SERVER/SHARE/folder/file", "content");
    tree_.File("network/GROUP/SERVER/GONE/file");
    tree_.File("network/sample-network.ini", "[GROUP/SERVER/GONE]\nfault=unreachable\n");
    CopierDriver driver(
        std::make_unique<FolderProvider>(Text("Sample"), tree_.Path(Text("network"))));
    EXPECT_EQ(driver.Copy(Text("\\\\server\\share\\FOLDER\\File"), save_ + Text("file")), 0);
    EXPECT_EQ(ReadFile(save_ + Text("file")), "content");
    const auto queue = [&](const QString& source) {
        return driver.Copier().QueueCopy(source, save_ + Text("x"));
    };
    for (const char* source :
         {"\\\\SERVER\\GONE\\file", "\\\\NOBODY\\SHARE\\file", "\\\\SERVER\\SHARE", "folder/file"})
        ExpectRaised(
            ErrorNumber::PathNotFound, [&] { return queue(Text(source)); }, Text(source));
    ExpectRaised(ErrorNumber::FileNotFound, [&] { return queue(Text("\\\\SERVER\\SHARE\\none")); });
    EXPECT_EQ(driver.Copy(tree_.Path(Text("network")), save_ + Text("x")),
              static_cast<int>(ErrorNumber::PermissionDenied))
        << "a folder is no file";
}

/// The paths are those that the rows of a list lead to: location and name, folder and name.
TEST_F(FileCopierTest, NoNameLeavesTheFolder) {
    QStringList hostile{QString::fromUtf16(u"half \xd800 pair"), QString(QChar(u'\0')),
                        QString(256, u'n'), QString(128, u'\u00e9')};
    for (const char* name : {"", ".", "..", "../escaped", "..\\escaped", "below/../../escaped",
                             "/etc/escaped", "C:\\escaped", "line\nbreak", "\x1b[2J", "\x7f",
                             "\u0085", ".file.netrove-part", ".file.netrove-flushed"})
        hostile += Text(name);
    CopierDriver driver(std::make_unique<SmbProvider>(Text("LAN"), std::vector<SmbHost>()));
    for (const QString& location : {Text("\\\\SERVER\\SHARE\\folder\\"), tree_.Path(Text("/"))}) {
        for (const QString& name : hostile) {
            const auto failure =
                FailureOf([&] { (void)driver.Copier().QueueCopy(location + name, save_ + name); });
            EXPECT_TRUE(failure &&
                        (failure->Number() == static_cast<int>(ErrorNumber::PathNotFound) ||
                         failure->Number() == static_cast<int>(ErrorNumber::PathFileAccessError)))
                << name.toStdString();
        }
    }
    for (const QString& name : {Text("...three"), Text(".hidden"), Text("aux.c"), Text("CON"),
                                Text("a:b"), Text("e\u0301 \U0001F3B5"), QString(255, u'n')}) {
        tree_.File("from/" + name.toUtf8(), "content");
        EXPECT_EQ(driver.Copy(tree_.Path(Text("from/")) + name, save_ + name), 0)
            << name.toStdString();
    }
}

} // namespace
} // namespace netrove
