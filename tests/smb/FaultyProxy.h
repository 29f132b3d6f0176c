#pragma once

#include "smb/ListeningPort.h"

#include <QByteArray>
#include <QtGlobal>

#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <thread>
#include <vector>

namespace netrove {

/// A TCP proxy on 127.0.0.1 in front of a server, in a thread of its own, that behaves as networks
/// do at their worst. Its destructor closes everything.
class FaultyProxy {
public:
    explicit FaultyProxy(quint16 server) : serverPort_(server), thread_([this] { Run(); }) {}
    ~FaultyProxy() {
        ending_ = true;
        thread_.join();
    }

    [[nodiscard]] quint16 Port() const { return listener_.Port(); }

    /// What the server says is held back for so long, all of it side by side.
    void Delay(std::chrono::milliseconds delay) { delay_ = delay.count(); }
    /// Once the server has said so many more bytes in all, nothing more is passed on. 0: at once.
    void FallSilentAfter(qint64 bytes) { SetLimit(bytes, Fault::Silent); }
    /// Once the server has said so many more bytes in all, every connection is closed.
    void CloseAfter(qint64 bytes) { SetLimit(bytes, Fault::Close); }
    /// Closes every connection now, and gives how many there were. New ones are taken.
    int CloseAll();
    void Heal() { fault_ = Fault::None; }

    /// The connections taken so far.
    [[nodiscard]] int Connections() const { return connections_; }
    /// What the server has said so far, in bytes.
    [[nodiscard]] qint64 Bytes() const { return bytes_; }

private:
    enum class Fault { None, Silent, Close };
    using Clock = std::chrono::steady_clock;
    struct Held {
        QByteArray bytes; ///< empty: the server has closed
        Clock::time_point due;
    };
    struct Pair {
        UniqueDescriptor client;
        UniqueDescriptor server;
        std::deque<Held> held = {}; ///< what the server has said
    };

    void SetLimit(qint64 bytes, Fault fault) {
        limit_ = bytes_ + bytes;
        fault_ = fault;
    }
    void Run();
    void Accept();
    [[nodiscard]] bool Serve(Pair& pair, short client, short server);
    [[nodiscard]] bool PassHeld(Pair& pair);
    [[nodiscard]] bool LimitReached() const { return fault_ != Fault::None && bytes_ >= limit_; }

    quint16 serverPort_;
    ListeningPort listener_;
    std::atomic<qint64> delay_ = 0;
    std::atomic<qint64> limit_ = 0;
    std::atomic<Fault> fault_ = Fault::None;
    std::atomic<int> connections_ = 0;
    std::atomic<int> open_ = 0;
    std::atomic<qint64> bytes_ = 0;
    std::atomic<bool> ending_ = false;
    std::vector<Pair> pairs_; ///< the thread's alone
    std::thread thread_;
};

} // namespace netrove
