#include "find/LogonFile.h"

#include "fakes/Text.h"
#include "find/WrongUse.h"
#include "smb/SmbMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace netrove {
namespace {

class LogonFile : public testing::Test {
protected:
    /// The logon that a file with that text has, "domain/user/password"; what is wrong with it
    /// otherwise.
    std::string Read(const QByteArray& text, QFile::Permissions more = {}) {
        QFile file(folder.filePath(Text("logon")));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            return "not written";
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | more);
        try {
            const SmbLogon logon = LogonOf(ReadLogonFile(file.fileName()));
            return logon.domain.toStdString() + '/' + logon.user.toStdString() + '/' +
                   logon.password.Bytes().toByteArray().toStdString();
        } catch (const WrongUse& error) {
            return error.Text().section(u'\'', 2).trimmed().toStdString();
        }
    }

    QTemporaryDir folder;
};

TEST_F(LogonFile, HasAUserAPasswordAndMaybeADomain) {
    EXPECT_EQ(Read("username = bob\npassword = a = b c\ndomain = HOME\n"), "HOME/bob/a = b c");
    EXPECT_EQ(Read("Password=\r\n# no line\nUSERNAME=HOME\\bob\r\n"), "HOME/bob/");
    EXPECT_EQ(Read("username=bob@home"), "home/bob/");
}

TEST_F(LogonFile, MustBeTheUsersOwnAndSmall) {
    const QByteArray good = "username = bob\npassword = secret\n";
    for (const QFile::Permissions more : {QFile::ReadGroup, QFile::ReadOther, QFile::WriteOther})
        EXPECT_EQ(Read(good, more), "is open to other users (chmod 600 closes it)");
    for (const QByteArray& text :
         {QByteArray(), QByteArray("password = x\n"), QByteArray("username =\n"),
          QByteArray(good + QByteArray(5000, ' '))})
        EXPECT_EQ(Read(text), "has no line \"username = ...\"");
    EXPECT_THROW((void)ReadLogonFile(folder.path()), WrongUse);
    EXPECT_THROW((void)ReadLogonFile(folder.filePath(Text("none"))), WrongUse);
}

} // namespace
} // namespace netrove
