#pragma once

#include "fakes/MemoryNetwork.h"
#include "gui/WindowDriver.h"

#include <gtest/gtest.h>

namespace netrove {

/// The window over a network in memory.
class WindowTest : public testing::Test, public WindowDriver {
protected:
    WindowTest() { Make(); }
    ~WindowTest() override { window.reset(); }

    /// A new window over what the last one has left behind.
    void Make() { window = std::make_unique<frmNetrove>(Services(network)); }

    /// Adds a file and the computer and the share that it lies on.
    void AddFile(const char* path, qint64 length = 0) {
        const QStringList parts = Text(path).split(u'\\');
        const QByteArray server = (Text("\\\\") + parts[2]).toUtf8();
        const QByteArray share = server + '\\' + parts[3].toUtf8();
        network.AddBranch({"Net", "WG", server.constData(), share.constData()});
        network.AddFile(Text(path), length);
    }

    /// Does something when the network is asked that, once: in the middle of a search.
    void When(const char* call, std::function<void()> action) {
        network.OnCall = [call = Text(call), action = std::move(action),
                          done = false](const QString& made) mutable {
            if (!done && made == call) {
                done = true;
                action();
            }
        };
    }

    MemoryNetwork network;
};

constexpr auto SearchInProgress =
    "Search In Progress: Wait until the program reaches a stopping point.";

} // namespace netrove
