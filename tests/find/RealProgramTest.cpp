#include "fakes/Text.h"

#include <QDirIterator>
#include <QProcess>
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
        ASSERT_TRUE(program.waitForStarted(Milliseconds));
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
    for (const QString& line :
         QString::fromUtf8(program.readAllStandardOutput()).trimmed().split(u'\n')) {
        const QStringList fields = line.split(u'\t');
        ASSERT_EQ(fields.size(), 8) << line.toStdString();
        EXPECT_GT(fields[6].toInt(), 0) << line.toStdString();
        EXPECT_GE(fields[7].toInt(), 8000) << line.toStdString();
        found.append(fields[0]);
    }
    QStringList there;
    QDirIterator files(Text(NETROVE_BIN "/sample-network"), {Text("*.mp3")},
                       QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const bool isOpen = !path.contains(Text("/PELICAN/")) &&
                            !path.contains(Text("/Private/")) && !path.contains(Text("$/"));
        if (isOpen)
            there.append(files.fileName());
    }
    found.sort();
    there.sort();
    EXPECT_EQ(found.join(u'\n').toStdString(), there.join(u'\n').toStdString());
    EXPECT_FALSE(found.isEmpty());
}

TEST_F(RealFind, StopsAtASignal) {
    Start({Text("*")});
    ASSERT_TRUE(program.waitForReadyRead(Milliseconds));
    kill(static_cast<pid_t>(program.processId()), SIGTERM);
    ASSERT_TRUE(program.waitForFinished(Milliseconds));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 128 + SIGTERM);
    const QByteArray err = program.readAllStandardError();
    EXPECT_TRUE(err.contains("Aborted, but returned ")) << err.constData();
}

} // namespace
} // namespace netrove
