#include "downloads/copier/FileCopy.h"

#include "downloads/copier/PartialFile.h"
#include "runtime/RunTimeError.h"

#include <QFileInfo>

#include <algorithm>
#include <chrono>

namespace netrove {
namespace {

using namespace std::chrono_literals;
using Clock = CopyMeter::Clock;

// Big requests keep a fast line busy; on a slow one each must end well before its time limit.
constexpr quint32 SmallestRead = 256 * 1024;
constexpr auto ShortRead = 500ms;
constexpr auto LongRead = 2000ms;

quint32 NextRead(quint32 length, Clock::duration took) {
    if (took < ShortRead)
        return std::min(length * 2, CopySource::MaxRead);
    return took > LongRead ? std::max(length / 2, SmallestRead) : length;
}

QByteArray IdentityOf(const QString& name, const CopySourceState& state) {
    return name.toUtf8() + '\n' + QByteArray::number(state.length) + '\n' +
           QByteArray::number(state.modified);
}

/// Links count too, wherever they lead.
bool IsThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

} // namespace

void FileCopy::Run() {
    const CopySourceState state = source_.Inspect();
    if (!target_.mayReplace && IsThere(target_.path) && !QFileInfo(target_.path).isDir())
        throw RunTimeError(ErrorNumber::FileAlreadyExists);
    PartialFile partial(target_.path, IdentityOf(name_, state), disk_);
    meter_.Begin(partial.Length(), state.length, Clock::now());
    partial.Reserve(state.length);
    try {
        Fill(partial, state.length);
        CheckUnchanged(state);
        partial.Finish(state.modified, target_.mayReplace);
    } catch (const RunTimeError& error) {
        // A part that no later copy can continue, or that fills the disk, is removed.
        if (error.Number() == static_cast<int>(ErrorNumber::FileAlreadyOpen) ||
            error.Number() == static_cast<int>(ErrorNumber::DiskFull))
            partial.Discard();
        throw;
    }
}

/// Reads at least once, even if the length is 0, so that a file that can't be read fails.
void FileCopy::Fill(PartialFile& partial, qint64 length) {
    quint32 readLength = SmallestRead;
    do {
        check_();
        const qint64 before = partial.Length();
        const auto begin = Clock::now();
        const auto wanted = static_cast<quint32>(std::min<qint64>(readLength, length - before));
        source_.Read(before, wanted, [&](QByteArrayView bytes) {
            partial.Append(bytes);
            meter_.Add(bytes.size(), Clock::now());
        });
        if (partial.Length() - before != wanted)
            throw RunTimeError(ErrorNumber::FileAlreadyOpen);
        readLength = NextRead(readLength, Clock::now() - begin);
    } while (partial.Length() < length);
    check_();
}

void FileCopy::CheckUnchanged(const CopySourceState& before) {
    if (source_.Inspect() != before)
        throw RunTimeError(ErrorNumber::FileAlreadyOpen);
}

} // namespace netrove
