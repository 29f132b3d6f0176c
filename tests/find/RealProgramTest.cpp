#include "fakes/Text.h"

#include <QDirIterator>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <csignal>

namespace netrove {
namespace {

constexpr int Milliseconds = 30'000;

/// The built program on the sample network beside it.
class RealFind : public testing::Test {
protected:
    void Start(const QStringList& arguments) {
        program.start(Text(NETROVE_BIN "/netrove-find"),
                      QStringList{Text("--from"), Text("Sample Network")} + arguments);
    }

    QProcess program;
};

TEST_F(RealFind, ListsTheAudioOfTheSampleNetwork) {
    Start({Text("--details"), Text("*.mp3")});
    ASSERT_TRUE(program.waitForFinished(Milliseconds));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardError(), "netrove-find: 1 computer, 1 share not searched: "
                                              "\\\\PELICAN \\\\BARLEY\\Private\n");
    QStringList found;
    const QRegularExpression audio(Text("^([^\t]+)(\t[^\t]*){5}\t[1-9]\\d*\t[1-9]\\d{3,}$"));
    for (const QString& line :
         QString::fromUtf8(program.readAllStandardOutput()).trimmed().split(u'\n')) {
        EXPECT_TRUE(audio.match(line).hasMatch()) << line.toStdString();
        found.append(line.section(u'\t', 0, 0));
    }
    QStringList there;
    const QRegularExpression closed(Text("/PELICAN/|/Private/|\\$/"));
    QDirIterator files(Text(NETROVE_BIN "/sample-network"), {Text("*.mp3")},
                       QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        if (!files.next().contains(closed))
            there.append(files.fileName());
    }
    found.sort();
    there.sort();
    EXPECT_EQ(found.join(u'\n').toStdString(), there.join(u'\n').toStdString());
}

TEST_F(RealFind, StopsAtASignal) {
    Start({Text("*")});
    ASSERT_TRUE(program.waitForReadyRead(Milliseconds));
    kill(static_cast<pid_t>(program.processId()), SIGTERM);
    ASSERT_TRUE(program.waitForFinished(Milliseconds));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 128 + SIGTERM);
}

} // namespace
} // namespace netrove
