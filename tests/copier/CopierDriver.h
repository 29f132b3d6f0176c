#pragma once

#include "downloads/copier/FileCopier.h"
#include "fakes/Files.h"
#include "redirector/Network.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QMap>

#include <memory>
#include <vector>

namespace netrove {

/// A copier whose completions are kept, by their ids.
class CopierDriver {
public:
    explicit CopierDriver(std::unique_ptr<NetworkProvider> provider)
        : network_(One(std::move(provider))), copier_(std::in_place, network_) {
        QObject::connect(&*copier_, &CopyQ::CopyDone, &*copier_,
                         [this](const QString& id, int number) { done_.insert(id, number); });
    }

    FileCopier& Copier() { return *copier_; }
    void DropCopier() { copier_.reset(); }

    /// All completions so far; an id that comes twice stands there twice.
    [[nodiscard]] const QMultiMap<QString, int>& Done() const { return done_; }

    /// Serves the event loop until the condition holds; false after half a minute.
    template <typename Condition>
    static bool WaitUntil(Condition condition) {
        QDeadlineTimer limit(30000);
        while (!condition() && !limit.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents,
                                            20);
        return condition();
    }

    bool WaitForProgress(const QString& id) {
        return WaitUntil([&] { return copier_->Progress(id).value_or(CopyProgress()).copied > 0; });
    }

    /// The error number that the copy ends with; -1 where it doesn't end.
    int Await(const QString& id) {
        return WaitUntil([&] { return done_.contains(id); }) ? done_.value(id) : -1;
    }

    int Copy(const QString& source, const QString& target) {
        const QString id = copier_->QueueCopy(source, target, CopyQ::Existing::Replace);
        return Await(id);
    }

private:
    static std::vector<std::unique_ptr<NetworkProvider>>
    One(std::unique_ptr<NetworkProvider> provider) {
        std::vector<std::unique_ptr<NetworkProvider>> providers;
        providers.push_back(std::move(provider));
        return providers;
    }

    Network network_;
    QMultiMap<QString, int> done_;
    std::optional<FileCopier> copier_;
};

/// Bytes that show when a piece is missing or out of its place.
inline QByteArray Pattern(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype at = 0; at < size; ++at)
        bytes[at] = static_cast<char>((at * 31 + at / 251) & 0xFF);
    return bytes;
}

} // namespace netrove
