#include "find/FindProgram.h"

#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "find/ConsoleText.h"
#include "redirector/ComputerReport.h"
#include "runtime/Yield.h"

#include <QTemporaryFile>
#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace netrove {
namespace {

/// A file that is written through a descriptor, like a standard stream, and read back.
class StreamFile {
public:
    StreamFile() { EXPECT_TRUE(file_.open()); }

    [[nodiscard]] int Descriptor() const { return file_.handle(); }
    [[nodiscard]] QString Written() const {
        QFile file(file_.fileName());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll())
                                              : Text("can't be read");
    }

private:
    QTemporaryFile file_;
};

using Arguments = std::vector<const char*>;

class Find : public testing::Test {
protected:
    void SetUp() override {
        network.AddBranch({"Net", "WG", "\\\\S", "\\\\S\\D"});
        network.AddBranch({"Net", "WG", "\\\\HERE", "\\\\HERE\\D"});
        network.AddFile(Text("\\\\S\\D\\one.txt"), 5'000'000'000);
        network.AddFile(Text("\\\\S\\D\\OLD\\two.txt"));
        network.AddFile(Text("\\\\S\\D\\OLD\\song.mp3"));
        network.AddFile(Text("\\\\S\\C$\\admin.txt"));
        network.AddFile(Text("\\\\HERE\\D\\here.txt"));
    }

    struct Outcome {
        int status;
        QString out;
        QString err;
    };

    int RunOn(const Arguments& arguments, int out, int err) {
        QStringList texts;
        for (const char* argument : arguments)
            texts += Text(argument);
        ConsoleOutput outStream(out);
        ConsoleOutput errStream(err);
        return FindProgram(texts, {.out = outStream, .err = errStream, .signal = signal},
                           [this](const FindArguments&) { return Services(); });
    }

    Outcome Run(const Arguments& arguments) {
        const StreamFile out;
        const StreamFile err;
        const int status = RunOn(arguments, out.Descriptor(), err.Descriptor());
        return {.status = status, .out = out.Written(), .err = err.Written()};
    }

    FindServices Services() {
        const auto record = [](const UncPath& path) -> std::optional<NetRecord> {
            if (path.Server() == Text("UNKNOWN"))
                return std::nullopt;
            const qint32 type =
                path.Share().isEmpty() ? NetEnum::DisplayServer : NetEnum::DisplayShare;
            return NetRecord{.dwDisplayType = type, .lpRemoteName = path.Text()};
        };
        return {.network = network,
                .files = network,
                .record = record,
                .report = &report,
                .computer = Text("\\\\HERE")};
    }

    MemoryNetwork network;
    ComputerReport report;
    std::function<int()> signal = [] { return 0; };
};

TEST_F(Find, PrintsThePathsThatItFinds) {
    const char* const all = "\\\\S\\D\\one.txt\n\\\\S\\D\\OLD\\two.txt\n";
    const struct {
        Arguments arguments;
        const char* out;
    } cases[] = {
        {{" *.txt ,, "}, all},
        {{"--no-recurse", "*.txt"}, "\\\\S\\D\\one.txt\n"},
        {{"*.txt", "--exclude", "old"}, "\\\\S\\D\\one.txt\n"},
        {{"*.txt", "--exclude=s:Workstation", "--this-computer"}, "\\\\HERE\\D\\here.txt\n"},
        {{"--admin-shares", "*min*"}, "\\\\S\\C$\\admin.txt\n"},
        {{"--from", "Net|WG|\\\\S|", "*.txt"}, all},
        {{"--from", "\\\\S", "*.txt"}, all},
        {{"--from", "//S/D/OLD/", "*.txt"}, "\\\\S\\D\\OLD\\two.txt\n"},
        {{"--", "-x", "one.*"}, "\\\\S\\D\\one.txt\n"},
    };
    for (const auto& [arguments, out] : cases) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.out.toStdString(), out) << arguments.front();
        EXPECT_EQ(outcome.err.toStdString(), "");
        EXPECT_EQ(outcome.status, FindStatus::Found);
    }
    EXPECT_EQ(Run({"two"}).status, FindStatus::NothingFound) << "no asterisks are added";
    for (const QString& line : Run({"a", "--help"}).out.split(u'\n'))
        EXPECT_LE(line.size(), 80) << line.toStdString(); // of a terminal
}

TEST_F(Find, StopsAtTheFirstFileAboveTheLimit) {
    const Outcome cut = Run({"--max", "1", "*.txt"});
    EXPECT_EQ(cut.out, Text("\\\\S\\D\\one.txt\n"));
    EXPECT_EQ(cut.err, Text("Returned 1 files in 0 seconds. (Max return is set to 1)\n"));
    EXPECT_EQ(cut.status, FindStatus::Found);
    const Outcome exact = Run({"--max", "2", "*.txt"});
    EXPECT_EQ(exact.out.count(u'\n'), 2);
    EXPECT_TRUE(exact.err.isEmpty());
}

TEST_F(Find, TellsInOneLineWhatWasNotSearched) {
    report.NoteSilence(Text("\\\\OLD"), {});
    network.OnCall = [this](const QString& call) {
        if (call == Text("enter \\\\S\\D"))
            report.NoteSilence(Text("\\\\S\\D\n"), {});
    };
    const Outcome one = Run({"*.txt"});
    EXPECT_EQ(one.err, Text("netrove-find: 1 share not searched: \\\\S\\D<0A>\n"));
    EXPECT_EQ(one.status, FindStatus::Found);
    network.OnCall = [this](const QString& call) {
        for (int at = 1; call == Text("enter \\\\S\\D") && at <= 11; ++at)
            report.NoteSilence(Text("\\\\S%1").arg(at), {});
    };
    EXPECT_TRUE(Run({"*.txt"}).err.endsWith(Text(" \\\\S10 ...\n")));
    network.OnCall = {};
    network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Other"));
    EXPECT_EQ(Run({"--from", "Other", "*"}).err, Text("netrove-find: No computer found\n"));
}

TEST_F(Find, PrintsDetailsAndNamesThatForgeNothing) {
    const Outcome outcome = Run({"--details", "one*,*.mp3"});
    EXPECT_EQ(outcome.out.toStdString(),
              "one.txt\t\\\\S\\D\\\t5000000000\t2020-02-03 04:05:06\tA\t\t\t\n"
              "song.mp3\t\\\\S\\D\\OLD\\\t0\t2020-02-03 04:05:06\tA\t00:00:00\t0\t0\n");
    network.AddFile(Text("\\\\S\\D\\a\nb\tc\r\x1b[2J.bad"));
    EXPECT_EQ(Run({"*.bad"}).out, Text("\\\\S\\D\\a<0A>b\tc<0D>\x1b[2J.bad\n"));
    EXPECT_EQ(Run({"--details", "*.bad"}).out.count(u'\t'), 7);
    EXPECT_EQ(
        Escaped(Text("\t\u0085\u2028\u202Egnp\u2069.👨‍👩‍👧"), Escaping::AllControls),
        Text("<09><85><2028><202E>gnp<2069>.👨‍👩‍👧"));
}

TEST_F(Find, WrongUseIsTold) {
    const struct {
        Arguments arguments;
        const char* message;
    } cases[] = {
        {{}, "no pattern to search for"},
        {{"a,[b"}, "'[b' is no valid pattern ('[' without ']', or a range from high to low)"},
        {{"--bogus", "a"}, "Unknown option 'bogus'"},
        {{"a", "--max", "0"}, "--max takes a whole number above 0, not '0'"},
        {{"a", "--exclude=T:printer"},
         "--exclude knows no type 'printer' (folder, workstation, workgroup, network)"},
        {{"a", "--from=Net|Other"},
         "there is no 'Net|Other' on the network; its first level is 'Net'"},
        {{"a", "--from=\\\\S\\\nX"}, "cannot reach '\\\\S\\<0A>X'"},
        {{"a", "--from=\\\\UNKNOWN"}, "no network answers for '\\\\UNKNOWN'"},
        {{"a", "--from=\\S\\D"},
         "'\\S\\D' is no path of a server, share or folder (quote it for the shell: "
         "'\\\\SERVER\\SHARE')"},
        {{"a", "--log=/nowhere/at/all"}, "cannot write to '/nowhere/at/all'"},
    };
    for (const auto& [arguments, message] : cases) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.err.toStdString(),
                  std::string("netrove-find: ") + message +
                      "\nTry 'netrove-find --help' for more information.\n");
        EXPECT_TRUE(outcome.out.isEmpty());
        EXPECT_EQ(outcome.status, FindStatus::Failed);
    }
}

TEST_F(Find, ASignalStopsTheSearch) {
    SetYieldAlways(true);
    int looks = 0;
    network.OnCall = [&looks](const QString& call) {
        looks += call == Text("list \\\\S\\D\\OLD\\") ? 1 : 0;
    };
    signal = [&looks] { return looks > 0 ? SIGINT : 0; };
    const Outcome outcome = Run({"*.txt"});
    SetYieldAlways(false);
    EXPECT_EQ(outcome.out, Text("\\\\S\\D\\one.txt\n"));
    EXPECT_EQ(outcome.err, Text("Aborted, but returned 1 files in 0 seconds.\n"));
    EXPECT_EQ(outcome.status, 128 + SIGINT);

    signal = [] { return SIGTERM; };
    EXPECT_EQ(Run({"*.txt"}).status, 128 + SIGTERM) << "before the walk has begun";
}

TEST_F(Find, OutputThatFails) {
    std::signal(SIGPIPE, SIG_IGN);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const StreamFile err;
    EXPECT_EQ(RunOn({"*.txt"}, ends[1], err.Descriptor()), FindStatus::Found);
    close(ends[1]);
    EXPECT_TRUE(err.Written().isEmpty()) << "a reader that has enough";
    const int full = open("/dev/full", O_WRONLY);
    for (const char* argument : {"*.txt", "--help", "--version"})
        EXPECT_EQ(RunOn({argument}, full, err.Descriptor()), FindStatus::Failed);
    close(full);
    EXPECT_EQ(err.Written().count(Text("netrove-find: cannot write the output: ")), 3);
}

TEST_F(Find, AFailureOfAnyKindIsTold) {
    network.OnCall = [](const QString& call) {
        if (call == Text("enter \\\\S\\D"))
            throw std::bad_alloc();
    };
    const Outcome outcome = Run({"--from", "//S/D", "*.txt"});
    EXPECT_EQ(outcome.status, FindStatus::Failed);
    EXPECT_EQ(outcome.out + outcome.err, Text("netrove-find: Out of memory\n"));
}

} // namespace
} // namespace netrove
