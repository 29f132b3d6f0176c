#include "fakes/Files.h"
#include "fakes/Text.h"
#include "online/webfiles/DonationLinks.h"
#include "online/webfiles/Version.h"
#include "online/webfiles/WebFile.h"
#include "online/webfiles/WebSite.h"
#include "runtime/ExpectRaised.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(WebFilesTest, VersionsAreNumbers) {
    const Version own = Version::FromText(Text("0.99.5"));
    for (const char* newer : {"1.0.0", "0.100.0", "0.99.6", "0.99.10\r\n", "0.99.5.7"})
        EXPECT_GT(Version::FromText(Text(newer)), own) << newer;
    for (const char* older : {"0.98.9", "0.99.0005", "-1.200.200", " 0 . 99 . 4 "})
        EXPECT_LE(Version::FromText(Text(older)), own) << older;
    EXPECT_EQ(Version::FromText(Text("00.99.0005")).Text(), Text("0.99.5"));
    using enum ErrorNumber;
    const std::pair<const char*, ErrorNumber> broken[] = {
        {"", SubscriptOutOfRange}, {"1.2", SubscriptOutOfRange}, {"1..2", TypeMismatch},
        {"1.2.", TypeMismatch},    {"1.2.x", TypeMismatch},      {"1.2.3 4", TypeMismatch},
        {"1.2.32768", Overflow},   {"1.2.1e999", Overflow},
    };
    for (const auto& [version, number] : broken) {
        const QString text = Text(version);
        ExpectRaised(
            number, [&] { return Version::FromText(text).Text(); }, text);
    }
}

TEST(WebFilesTest, DonationLinksComeInPairs) {
    const struct {
        const char* answer;
        const char* captions; ///< joined by "|"; null for a failure
        const char* addresses = nullptr;
    } cases[] = {{"tbs_Don A http://a/", "A", "http://a/"},
                 {"TBS_DON A http://a/ B", "A|B", "http://a/"},
                 {"TBS_DON A http://a/ B https://b C http://c D javascript:d", "A|B|C",
                  "http://a/|https://b|http://c"},
                 {"TBS_DON A http://a/ B\r\nC https://b/\r\n", "A|B\r\nC", "http://a/|https://b/"},
                 {"TBS_DON  http://a/", "", "http://a/"},
                 {"TBS_DON A", nullptr},
                 {"TBS_DON A file:///etc/passwd", nullptr},
                 {"TBS_DON A http://a/ B smb://S/D", nullptr},
                 {"TBS_DON A http://a/ B ", nullptr},
                 {"TBS_DON\r\nA http://a/", nullptr},
                 {"TBS_DOM A http://a/", nullptr}};
    for (const auto& [answer, captions, addresses] : cases) {
        DonationLinks links;
        const bool isTaken =
            !FailureOf([&, text = answer] { links = ReadDonationLinks(Text(text)); });
        EXPECT_EQ(isTaken, captions != nullptr) << answer;
        EXPECT_EQ(links.captions.join(u'|'), Text(captions)) << answer;
        EXPECT_EQ(links.addresses.join(u'|'), Text(addresses)) << answer;
    }
}

TEST(WebFilesTest, HugeTextsAreCut) {
    for (const QString& text : {QString(), Text("a\r\n\nb"), Text("a\n"), QString(1000, u'a')})
        EXPECT_EQ(WebFile::Shown(text), text);
    const QString line(1 << 20, u'a');
    EXPECT_EQ(WebFile::Shown(line).remove(u'\n'), line);
    EXPECT_EQ(WebFile::Shown(line).indexOf(u'\n'), 1000);
    EXPECT_EQ(WebFile::Shown(QString(1 << 20, u'\n')).size(), 5000);
    const QString address = Text("http://a/") + line;
    EXPECT_EQ(WebFile::Link(address.left(2000)).size(), 2000);
    ExpectRaised(
        ErrorNumber::InvalidProcedureCall, [&] { (void)WebFile::Link(address); }, Text("long"));
}

TEST(WebFilesTest, ADeploymentNamesTheSite) {
    const QTemporaryDir folder;
    const ProfileFile file(folder.filePath(Text("netrove.ini")));
    const WebSite builtIn{.address = Text("https://built.example/"), .contact = Text("a@b")};
    const auto read = [&](const char* content) {
        WriteFile(file.Path(), content);
        const WebSite site = WebSite::Read(file, builtIn);
        return site.address.toStdString() + ' ' + site.contact.toStdString();
    };
    EXPECT_EQ(read(""), "https://built.example/ a@b");
    EXPECT_EQ(read("[Web]\nAddress=http://intranet/netrove/\nContact=c@d\n"),
              "http://intranet/netrove/ c@d");
    EXPECT_EQ(read("[Web]\nAddress=file:///srv\n"), "https://built.example/ a@b");
    EXPECT_EQ(WebFile::Address(Text("http://intranet/netrove/"), WebFile::NewsPath),
              Text("http://intranet/netrove/files/Netrove2.nwz"));
}

} // namespace
} // namespace netrove
