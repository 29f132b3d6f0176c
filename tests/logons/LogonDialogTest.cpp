#include "fakes/DialogTest.h"
#include "fakes/MemoryKeyring.h"
#include "logons/frmLogon.h"
#include "logons/frmLogons.h"
#include "redirector/RemotePlace.h"
#include "smb/SmbMessages.h"

#include <QElapsedTimer>
#include <QFile>

#include <thread>

namespace netrove {
namespace {

/// A place whose computer says what it is told to, or nothing as long as it is asked.
class ToldPlace : public RemotePlace {
public:
    std::optional<LogonResult> Result;

    std::unique_ptr<CopySource> OpenFile(OwnConnections& /*connections*/,
                                         const std::stop_token& /*stop*/) const override {
        return nullptr;
    }
    QString Trouble(OwnConnections& /*connections*/,
                    const std::stop_token& /*stop*/) const override {
        return {};
    }
    LogonResult TryLogon(const StoredLogon& /*logon*/, const std::stop_token& stop) const override {
        while (!Result && !stop.stop_requested())
            std::this_thread::yield();
        return Result.value_or(LogonResult::GivenUp);
    }
};

/// The dialog over a keyring in memory.
class LogonDialogTest : public DialogTest<frmLogons> {
protected:
    void Open() {
        ShowDialog(std::make_unique<frmLogons>(
            LogonServices{.logons = logons,
                          .dialogs = dialogs,
                          .placeOf = [this](const QString& /*name*/) { return place; }},
            nullptr));
    }

    /// Clicks a button, and waits until what that began has ended.
    void Do(const char* button) {
        Click(button);
        AwaitRest();
    }
    void AwaitRest() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return IsEnabled("lvwLogons"); }));
    }

    void UseForm(const char* button, const std::function<void(frmLogon&)>& use) {
        InForm<frmLogon>([&] { Do(button); }, use);
    }

    /// Types the texts into one field after the other, and confirms them.
    static void Fill(frmLogon& form, const QStringList& texts) {
        for (const QString& text : texts) {
            if (&text != &texts.first())
                QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
            QTest::keyClicks(form.focusWidget(), text);
        }
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    }

    void Add(const char* computer, const char* user, const QString& password) {
        UseForm("cmdAdd", [&](frmLogon& form) {
            Fill(form, {Text(computer), Text(user), password});
        });
    }

    /// The rows of the list, their columns joined by "|".
    std::string Rows() {
        QStringList rows;
        const auto& list = Find<QTreeWidget>("lvwLogons");
        for (int at = 0; at < list.topLevelItemCount(); ++at) {
            QStringList columns;
            for (int column = 0; column < list.columnCount(); ++column)
                columns += list.topLevelItem(at)->text(column);
            rows += columns.join(u'|');
        }
        return rows.join(u'\n').toStdString();
    }

    std::string State() { return Find<QLabel>("lblState").text().toStdString(); }

    std::shared_ptr<MemoryKeyring> keyring = std::make_shared<MemoryKeyring>();
    std::shared_ptr<Logons> logons = std::make_shared<Logons>(keyring);
    std::shared_ptr<ToldPlace> place;
};

TEST_F(LogonDialogTest, LogonsAreAddedChangedAndRemoved) {
    Open();
    EXPECT_EQ(Rows(), "");
    EXPECT_FALSE(IsEnabled("cmdTest"));
    Add("\\\\attic", "HOME\\bob", Text("one"));
    Add("all computers", "bob", Text("two"));
    EXPECT_EQ(Rows(), "All computers|bob|Keyring|\nattic|HOME\\bob|Keyring|");

    // The form shows no password, and leaves the one there is unless another is typed.
    auto& list = Find<QTreeWidget>("lvwLogons");
    list.setCurrentItem(list.topLevelItem(1));
    UseForm("cmdChange", [](frmLogon& form) {
        EXPECT_EQ(FindIn<QLineEdit>(form, "txtPassword").text(), QString());
        QTest::keyClick(&FindIn(form, "chkRemember"), Qt::Key_Space);
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Rows(), "All computers|bob|Keyring|\nattic|HOME\\bob|This session|");
    EXPECT_EQ(logons->All()[1].password.Bytes().toByteArray(), QByteArray("one"));
    EXPECT_EQ(DecodeLogons(keyring->entries.value(Text("logons"))).size(), 1U);

    dialogs.Answer = MessageAnswer::No;
    Add("ATTIC", "eve", Text("three"));
    EXPECT_EQ(logons->All()[1].user, Text("HOME\\bob"));
    Click("cmdRemove");
    dialogs.Answer = MessageAnswer::Yes;
    Do("cmdRemove");
    const std::string remove =
        "|question, Yes/No(No): Network Logon: Remove the logon for \"attic\"?";
    EXPECT_EQ(dialogs.WholeBoxes(), "question, Yes/No(No): Network Logon: There is a logon for "
                                    "\"ATTIC\" already.\nReplace it?" +
                                        remove + remove);
    EXPECT_EQ(Rows(), "All computers|bob|Keyring|");
    Do("cmdRemove");
    EXPECT_EQ(Rows(), "");
    EXPECT_TRUE(keyring->entries.isEmpty());
}

TEST_F(LogonDialogTest, TheFormTakesNoHalfLogon) {
    Open();
    for (const auto& [computer, user] :
         TextPairs{{"", "bob"}, {"a\\b", "bob"}, {"A", ""}, {"A", "HOME\\"}}) {
        Add(computer, user, Text("p"));
        EXPECT_TRUE(dialogs.TakeWhole().starts_with("exclamation: Add Logon: ")) << computer;
    }
    EXPECT_EQ(Rows(), "");
}

TEST_F(LogonDialogTest, WithoutAKeyringTheSessionKeepsThem) {
    keyring->isThere = false;
    Open();
    UseForm("cmdAdd", [](frmLogon& form) {
        EXPECT_FALSE(FindIn(form, "chkRemember").isEnabled());
        EXPECT_TRUE(FindIn(form, "lblNoKeyring").isVisible());
    });
    Add("A", "bob", Text("p"));
    EXPECT_EQ(Rows(), "A|bob|This session|");

    // One that stays locked says so.
    keyring->isThere = true;
    keyring->refuses = true;
    Add("B", "bob", Text("p"));
    EXPECT_NE(State().find("until Netrove ends"), std::string::npos) << State();
    EXPECT_EQ(Rows(), "A|bob|This session|\nB|bob|This session|");
}

TEST_F(LogonDialogTest, TheDialogLivesWhileTheKeyringAsksTheUser) {
    keyring->isSlow = true;
    Open();
    EXPECT_TRUE(IsShown("barBusy"));
    EXPECT_FALSE(IsEnabled("cmdAdd"));
    Click("cmdClose");
    EXPECT_FALSE(dialog->isVisible());
    dialog.reset();
    keyring->Answer(); // to nobody
    QCoreApplication::processEvents();
}

/// How often these bytes stand in the memory that this process can write to, but for their own
/// place.
qsizetype CountInMemory(const QByteArray& wanted) {
    const auto own = reinterpret_cast<quintptr>(wanted.constData());
    QFile maps(Text("/proc/self/maps"));
    QFile memory(Text("/proc/self/mem"));
    EXPECT_TRUE(maps.open(QIODevice::ReadOnly) &&
                memory.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    qsizetype found = 0;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() < 5 || !fields[1].startsWith("rw"))
            continue;
        const QList<QByteArray> range = fields[0].split('-');
        const quintptr begin = range[0].toULongLong(nullptr, 16);
        const quintptr end = range[1].toULongLong(nullptr, 16);
        if (end - begin > (quintptr{64} << 20)) // the sanitizers' own
            continue;
        memory.seek(static_cast<qint64>(begin));
        QByteArray bytes = memory.read(static_cast<qint64>(end - begin));
        found += bytes.count(wanted) - (own >= begin && own < end ? 1 : 0);
        Wipe(bytes); // else it is found there the next time
    }
    return found;
}

/// What a password has been in doesn't keep it.
TEST_F(LogonDialogTest, NoTraceStaysInMemory) {
    Open();
    // Neither the program's constants nor the test's own copies shall be found.
    QString password;
    QByteArray narrow;
    QByteArray wide;
    for (const char before : QByteArray("Rnbqds,vnqc,zmc,rnld,lnqd")) {
        const char character = static_cast<char>(before + 1);
        password += QLatin1Char(character);
        narrow += character;
        wide.append(character).append('\0');
    }
    const auto count = [&] { return CountInMemory(narrow) + CountInMemory(wide); };
    keyring->isThere = false;
    Add("A", "bob", password);
    Wipe(password);
    SmbRequest request{.host = Text("A")};
    ASSERT_EQ(logons->Apply(request), Logons::Turn::Go);
    QByteArray sent = EncodeQuestion(request);
    Wipe(sent);
    request.logon.reset();
    EXPECT_EQ(count(), 1) << "where it is kept";
    dialogs.Answer = MessageAnswer::Yes;
    Do("cmdRemove");
    EXPECT_EQ(count(), 0);
}

TEST_F(LogonDialogTest, ALogonIsTested) {
    Open();
    Add("FILER", "daemon", Text("p"));
    SmbRequest request{.host = Text("FILER"), .computer = Text("FILER")};
    ASSERT_EQ(logons->Apply(request), Logons::Turn::Go);
    static_cast<void>(logons->Note(request, SmbEnd::LogonRefused));
    place = std::make_shared<ToldPlace>();
    for (const auto& [result, state] : {std::pair(LogonResult::Refused, "FILER refused daemon"),
                                        {LogonResult::LetIn, "FILER: logged on as daemon."},
                                        {LogonResult::Unreachable, "FILER can't be reached."}}) {
        place->Result = result;
        Do("cmdTest");
        EXPECT_TRUE(State().starts_with(state)) << State();
    }
    EXPECT_EQ(Rows(), "FILER|daemon|Keyring|Refused");
    place.reset();
    Do("cmdTest");
    EXPECT_NE(State().find("isn't reached"), std::string::npos) << State();
    UseForm("cmdChange", [](frmLogon& form) { Fill(form, {Text("right")}); });
    EXPECT_EQ(Rows(), "FILER|daemon|Keyring|");
}

TEST_F(LogonDialogTest, TheDialogLivesWhileAComputerIsSilent) {
    place = std::make_shared<ToldPlace>();
    Open();
    dialogs.Inputs = {Text("\\\\filer")};
    Add("All computers", "daemon", Text("right"));
    Click("cmdTest");
    EXPECT_TRUE(IsShown("barBusy"));
    EXPECT_EQ(State(), "Logging on to filer as daemon...");
    QElapsedTimer clock;
    clock.start();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Space); // the button to cancel has the focus
    AwaitRest();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(Rows(), "All computers|daemon|Keyring|");
    EXPECT_FALSE(IsShown("barBusy"));
    // Closed in the middle of one.
    dialogs.Inputs = {Text("filer")};
    Click("cmdTest");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    dialog.reset();
}

} // namespace
} // namespace netrove
