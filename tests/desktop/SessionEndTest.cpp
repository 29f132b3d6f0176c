#include "desktop/SessionEnd.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>

namespace netrove {
namespace {

TEST(SessionEndTest, SignalsAndTheToolkitEndTheProgram) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT, 0}) {
        int ends = 0;
        const SessionEnd end({.isBusy = [] { return false; },
                              .refuse = [] {},
                              .save = [] {},
                              .end = [&] { ++ends; }});
        if (signal != 0) {
            std::raise(signal);
            EXPECT_EQ(ends, 0) << "not inside the signal's handler";
        } else {
            QEvent quit(QEvent::Quit); // as the session manager's end comes
            QCoreApplication::sendEvent(qApp, &quit);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return ends == 1; })) << signal;
        struct sigaction action {};
        sigaction(SIGTERM, nullptr, &action);
        EXPECT_EQ(action.sa_handler == SIG_DFL, signal != 0) << "a second one ends at once";
    }
}

TEST(SessionEndTest, TheSessionManagerHasThingsSavedAndTheProgramGoesOn) {
    QStringList calls;
    const SessionEnd end({.isBusy = [] { return true; },
                          .refuse = [&] { calls.append(QStringLiteral("refuse")); },
                          .save = [&] { calls.append(QStringLiteral("save")); },
                          .end = [&] { calls.append(QStringLiteral("end")); }});
    // This one doesn't let the program speak to its user: nothing is refused.
    auto* manager = qApp->findChild<QSessionManager*>();
    ASSERT_TRUE(manager);
    Q_EMIT qApp->commitDataRequest(*manager);
    QTest::qWait(5);
    EXPECT_EQ(calls, QStringList(QStringLiteral("save")));
}

} // namespace
} // namespace netrove
