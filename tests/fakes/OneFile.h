#pragma once

#include "platform/Files.h"
#include "runtime/RunTimeError.h"

#include <QByteArray>
#include <QString>

namespace netrove {

/// One file, which stands for every path but the empty one and those with "gone" in them; it
/// counts what is read of it.
class OneFile : public FileAccess {
public:
    QByteArray content;
    qint64 length = -1; ///< -1: that of the content
    quint32 attributes = FileAttribute::Archive;
    QDateTime modified{QDate(2020, 2, 3), QTime(4, 5, 6)};
    bool canRead = true;
    int reads = 0;
    qint64 bytesRead = 0;

    std::unique_ptr<FileFind> FindFirst(const QString& /*searchPath*/,
                                        FindData& /*first*/) override {
        return nullptr;
    }
    bool CanEnter(const QString& /*path*/) override { return false; }
    FileInfo Info(const QString& path) override {
        Check(path);
        return {.attributes = attributes,
                .length = length < 0 ? content.size() : length,
                .modified = modified};
    }
    QByteArray Read(const QString& path, qint64 offset, qint64 size) override {
        Check(path);
        if (!canRead)
            throw RunTimeError(ErrorNumber::DeviceIOError);
        const QByteArray piece = content.mid(offset, size);
        ++reads;
        bytesRead += piece.size();
        return piece;
    }
    std::optional<QString> LocalPath(const QString& /*path*/) override { return std::nullopt; }

private:
    static void Check(const QString& path) {
        if (path.isEmpty() || path.contains(QStringLiteral("gone")))
            throw RunTimeError(ErrorNumber::FileNotFound);
    }
};

} // namespace netrove
