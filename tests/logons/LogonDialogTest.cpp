#include "desktop/WindowYield.h"
#include "fakes/DesktopFakes.h"
#include "fakes/Find.h"
#include "fakes/MemoryKeyring.h"
#include "fakes/UseDialog.h"
#include "logons/frmLogon.h"
#include "logons/frmLogons.h"
#include "redirector/SmbPlace.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaServer.h"

#include <QFile>
#include <QTest>

namespace netrove {
namespace {

/// The dialog over a keyring in memory, used with keys and mouse.
class LogonDialogTest : public testing::Test {
protected:
    void Open() {
        Show({});
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        AwaitRest();
    }

    void Show(const QString& computer) {
        dialog = std::make_unique<frmLogons>(
            LogonServices{.logons = logons,
                          .dialogs = dialogs,
                          .placeOf = [this](const QString& name) { return PlaceOf(name); },
                          .look = {.openHelp = [this] { ++helps; }},
                          .computer = computer},
            nullptr);
        dialog->show();
    }

    [[nodiscard]] std::shared_ptr<const RemotePlace> PlaceOf(const QString& computer) const {
        if (!shareList)
            return nullptr;
        SmbRequest request = *shareList;
        request.computer = computer;
        return std::make_shared<SmbPlace>(
            std::make_shared<SmbSettings>(SmbSettings{SambaServer::Helper(), SmbLimits(), logons}),
            request);
    }

    void AwaitRest() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return Find<QWidget>("lvwLogons").isEnabled(); }));
    }

    template <typename Object>
    Object& Find(const char* name) {
        return FindIn<Object>(*dialog, name);
    }

    void Click(const char* name) { QTest::mouseClick(&Find<QWidget>(name), Qt::LeftButton); }

    /// Presses a button that opens the form and uses it as the user's hand does.
    void InForm(const char* button, const std::function<void(frmLogon&)>& use) {
        const auto useAndClose = [&](frmLogon& form) {
            use(form);
            if (form.isVisible())
                form.reject();
        };
        UseDialog<frmLogon>(
            [&] { Click(button); }, useAndClose,
            [](frmLogon& form) { return form.focusWidget() && form.focusWidget()->hasFocus(); });
        AwaitRest();
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
        InForm("cmdAdd", [&](frmLogon& form) {
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

    WindowYield yield;
    RecordedDialogs dialogs;
    std::shared_ptr<MemoryKeyring> keyring = std::make_shared<MemoryKeyring>();
    std::shared_ptr<Logons> logons = std::make_shared<Logons>(keyring);
    std::optional<SmbRequest> shareList;
    int helps = 0;
    std::unique_ptr<frmLogons> dialog;
};

TEST_F(LogonDialogTest, LogonsAreAddedChangedAndRemoved) {
    Open();
    EXPECT_EQ(Rows(), "");
    EXPECT_FALSE(Find<QWidget>("cmdTest").isEnabled());
    Add("\\\\attic", "HOME\\bob", Text("one"));
    Add("all computers", "bob", Text("two"));
    EXPECT_EQ(Rows(), "All computers|bob|Keyring|\nattic|HOME\\bob|Keyring|");

    // The form shows no password, and leaves the one there is unless another is typed.
    auto& list = Find<QTreeWidget>("lvwLogons");
    list.setCurrentItem(list.topLevelItem(1));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_F1);
    InForm("cmdChange", [](frmLogon& form) {
        QTest::keyClick(form.focusWidget(), Qt::Key_F1);
        EXPECT_EQ(FindIn<QLineEdit>(form, "txtPassword").text(), QString());
        QTest::keyClick(&FindIn(form, "chkRemember"), Qt::Key_Space);
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Rows(), "All computers|bob|Keyring|\nattic|HOME\\bob|This session|");
    EXPECT_EQ(helps, 2);
    EXPECT_EQ(logons->All()[1].password.Bytes().toByteArray(), QByteArray("one"));
    EXPECT_EQ(DecodeLogons(keyring->entries.value(Text("logons"))).size(), 1U);

    dialogs.Answer = MessageAnswer::No;
    Add("ATTIC", "eve", Text("three"));
    EXPECT_EQ(logons->All()[1].user, Text("HOME\\bob"));
    Click("cmdRemove");
    dialogs.Answer = MessageAnswer::Yes;
    Click("cmdRemove");
    AwaitRest();
    const QString remove =
        Text("question, Yes/No(No): Network Logon: Remove the logon for \"attic\"?");
    EXPECT_EQ(dialogs.Whole,
              QStringList({Text("question, Yes/No(No): Network Logon: There is a logon for "
                                "\"ATTIC\" already.\nReplace it?"),
                           remove, remove}));
    EXPECT_EQ(Rows(), "All computers|bob|Keyring|");
    Click("cmdRemove");
    AwaitRest();
    EXPECT_EQ(Rows(), "");
    EXPECT_TRUE(keyring->entries.isEmpty());
}

TEST_F(LogonDialogTest, AComputerCanBeGivenThatIsAskedForAtOnce) {
    const auto openFor = [this](const char* title, const QStringList& typed) {
        UseDialog<frmLogon>(
            [&] {
                Show(Text("ATTIC"));
                AwaitRest();
            },
            [&](frmLogon& form) {
                EXPECT_EQ(form.windowTitle(), Text(title));
                Fill(form, typed);
            },
            [](frmLogon& form) { return form.focusWidget() && form.focusWidget()->hasFocus(); });
    };
    openFor("Add Logon", Texts({"bob", "secret"}));
    EXPECT_EQ(Rows(), "ATTIC|bob|Keyring|");
    openFor("Change Logon", Texts({"other"}));
    EXPECT_EQ(logons->All()[0].password.Bytes().toByteArray(), QByteArray("other"));
}

TEST_F(LogonDialogTest, TheFormTakesNoHalfLogon) {
    Open();
    for (const auto& [computer, user] :
         TextPairs{{"", "bob"}, {"a\\b", "bob"}, {"A", ""}, {"A", "HOME\\"}})
        Add(computer, user, Text("p"));
    EXPECT_EQ(dialogs.Whole.filter(QRegularExpression(Text("^exclamation: Add Logon: ."))).size(),
              4)
        << dialogs.WholeBoxes();
    EXPECT_EQ(Rows(), "");
}

TEST_F(LogonDialogTest, WithoutAKeyringTheSessionKeepsThem) {
    keyring->isThere = false;
    Open();
    InForm("cmdAdd", [](frmLogon& form) {
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
    dialog = std::make_unique<frmLogons>(
        LogonServices{.logons = logons, .dialogs = dialogs, .placeOf = {}}, nullptr);
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    EXPECT_TRUE(Find<QWidget>("barBusy").isVisible());
    EXPECT_FALSE(Find<QWidget>("cmdAdd").isEnabled());
    Click("cmdClose");
    EXPECT_FALSE(dialog->isVisible());
    dialog.reset();
    keyring->Answer(); // to nobody
    QCoreApplication::processEvents();
}

/// How often a text stands in the memory that this process can write to, as bytes or as UTF-16.
/// The text is given backwards, so that it doesn't find itself.
int CountInMemory(const QByteArray& reversed) {
    const char first = reversed.back();
    const auto isAt = [&](const char* at, qsizetype step) {
        for (qsizetype index = 0; index < reversed.size(); ++index) {
            if (at[index * step] != reversed[reversed.size() - 1 - index])
                return false;
        }
        return true;
    };
    QFile maps(Text("/proc/self/maps"));
    QFile memory(Text("/proc/self/mem"));
    if (!maps.open(QIODevice::ReadOnly) ||
        !memory.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return -1;
    int found = 0;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() < 5 || !fields[1].startsWith("rw"))
            continue;
        const QList<QByteArray> range = fields[0].split('-');
        const qint64 begin = range[0].toLongLong(nullptr, 16);
        const qint64 length = range[1].toLongLong(nullptr, 16) - begin;
        if (length > (qint64{64} << 20)) // the sanitizers' own
            continue;
        memory.seek(begin);
        QByteArray bytes = memory.read(length);
        const qsizetype last = bytes.size() - 2 * reversed.size();
        for (qsizetype at = bytes.indexOf(first); at >= 0 && at <= last;
             at = bytes.indexOf(first, at + 1))
            found += isAt(bytes.constData() + at, 1) || isAt(bytes.constData() + at, 2) ? 1 : 0;
        Wipe(bytes); // else it is found there the next time
    }
    return found;
}

/// What a password has been in doesn't keep it.
TEST_F(LogonDialogTest, NoTraceStaysInMemory) {
    Open();
    // Neither the program's constants nor the test's own copies shall be found.
    QString password;
    for (const char character : QByteArray("Rnbqds,vnqc,zmc,rnld,lnqd"))
        password += QChar(static_cast<char16_t>(character + 1));
    QByteArray reversed(password.toLatin1());
    std::reverse(reversed.begin(), reversed.end());
    keyring->isThere = false;
    Add("A", "bob", password);
    Wipe(password);
    SmbRequest request{.host = Text("A")};
    ASSERT_EQ(logons->Apply(request), Logons::Turn::Go);
    QByteArray sent = EncodeQuestion(request);
    Wipe(sent);
    request.logon.reset();
    EXPECT_EQ(CountInMemory(reversed), 1) << "where it is kept";
    dialogs.Answer = MessageAnswer::Yes;
    Click("cmdRemove");
    AwaitRest();
    EXPECT_EQ(CountInMemory(reversed), 0);
}

class LogonTrialTest : public LogonDialogTest {
protected:
    void SetUp() override {
        if (!SambaServer::IsAvailable())
            GTEST_SKIP() << "Samba needs to be installed and the user to be root";
        samba.emplace(Text("    map to guest = never"));
        ASSERT_TRUE(samba->IsRunning() && samba->AddUser(Text("daemon"), Text("right")));
        shareList = SmbRequest{.host = Text("127.0.0.1"), .port = samba->Port()};
        Open();
    }

    void Test() {
        Click("cmdTest");
        AwaitRest();
    }

    std::optional<SambaServer> samba;
};

TEST_F(LogonTrialTest, ALogonIsTestedOnOneConnection) {
    Add("FILER", "daemon", Text("wrong"));
    Test();
    EXPECT_NE(State().find("FILER refused daemon"), std::string::npos) << State();
    EXPECT_EQ(Rows(), "FILER|daemon|Keyring|Refused");
    InForm("cmdChange", [](frmLogon& form) { Fill(form, {Text("right")}); });
    EXPECT_EQ(Rows(), "FILER|daemon|Keyring|");
    Test();
    EXPECT_EQ(State(), "FILER: logged on as daemon.");
    shareList->port = 1;
    Test();
    EXPECT_EQ(State(), "FILER can't be reached.");
    shareList.reset();
    Test();
    EXPECT_NE(State().find("isn't reached"), std::string::npos) << State();
}

TEST_F(LogonTrialTest, TheDialogLivesMeanwhile) {
    FaultyProxy silent(samba->Port());
    silent.FallSilentAfter(0);
    shareList->port = silent.Port();
    dialogs.Inputs = {Text("\\\\filer")};
    Add("All computers", "daemon", Text("right"));
    Click("cmdTest");
    EXPECT_TRUE(Find<QWidget>("barBusy").isVisible());
    EXPECT_EQ(State(), "Logging on to filer as daemon...");
    QElapsedTimer clock;
    clock.start();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Space); // the button to cancel has the focus
    AwaitRest();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(Rows(), "All computers|daemon|Keyring|");
    EXPECT_FALSE(Find<QWidget>("barBusy").isVisible());
    // Closed in the middle of one.
    dialogs.Inputs = {Text("filer")};
    Click("cmdTest");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    dialog.reset();
}

} // namespace
} // namespace netrove
