#include "downloads/copier/FileCopier.h"

#include "downloads/copier/TargetName.h"
#include "runtime/Names.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QDir>

#include <algorithm>

namespace netrove {
namespace {

/// Whether a local path leads straight to its file: a hostile name could bring in ".." or the start
/// of another path.
bool IsPlain(const QString& path) {
    const QStringList elements = path.mid(1).split(u'/');
    return path.startsWith(u'/') && std::ranges::all_of(elements, IsLocalPathElement);
}

} // namespace

FileCopier::FileCopier(Network& network, QObject* parent) : CopyQ(parent), network_(network) {
    crew_ = std::make_unique<CopyCrew>([this](const QString& id, int errorNumber) {
        QMetaObject::invokeMethod(
            this, [this, id, errorNumber] { Finish(id, errorNumber); }, Qt::QueuedConnection);
    });
}

QString FileCopier::QueueCopy(const QString& source, const QString& destination,
                              Existing existing) {
    CheckTargetName(destination.sliced(destination.lastIndexOf(u'/') + 1));
    CopyOrder order{.id = QString::number(++lastId_),
                    .source = source,
                    .file = Locate(source),
                    .target = {.path = QDir::current().absoluteFilePath(destination),
                               .mayReplace = existing == Existing::Replace},
                    .meter = std::make_shared<CopyMeter>()};
    const QString id = order.id;
    const auto meter = order.meter;
    crew_->Add(std::move(order));
    running_.insert(id, meter);
    return id;
}

decltype(CopyOrder::file) FileCopier::Locate(const QString& source) {
    if (!source.startsWith("\\\\"_L1)) {
        if (!IsPlain(source))
            throw RunTimeError(ErrorNumber::PathNotFound);
        return source;
    }
    const auto path = UncPath::Parse(source);
    if (!path || path->Elements().isEmpty())
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (auto remote = network_.RemotePlaceOf(*path))
        return remote;
    if (auto local = network_.LocalPath(source))
        return *local;
    static_cast<void>(network_.Info(source)); // raises the reason
    throw RunTimeError(ErrorNumber::PathNotFound);
}

std::optional<CopyProgress> FileCopier::Progress(const QString& id) const {
    const auto found = running_.constFind(id);
    if (found == running_.cend())
        return std::nullopt;
    return (*found)->Progress(CopyMeter::Clock::now());
}

void FileCopier::Finish(const QString& id, int errorNumber) {
    running_.remove(id);
    if (errorNumber == static_cast<int>(ErrorNumber::FileAlreadyExists))
        Q_EMIT TargetTaken(id);
    else
        Q_EMIT CopyDone(id, errorNumber);
}

} // namespace netrove
