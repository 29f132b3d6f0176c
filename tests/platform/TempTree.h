#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

namespace netrove {

/// A temporary folder that tests fill; names are bytes, as the file system has them.
class TempTree {
public:
    TempTree() { dir_.setAutoRemove(false); }
    /// QTemporaryDir can't remove names that aren't UTF-8.
    ~TempTree() {
        std::error_code ignored;
        std::filesystem::remove_all(dir_.path().toStdString(), ignored);
    }

    [[nodiscard]] QString Path(const QString& below = {}) const {
        return below.isEmpty() ? dir_.path() : dir_.path() + QLatin1Char('/') + below;
    }
    [[nodiscard]] QByteArray Bytes(const QByteArray& below) const {
        return dir_.path().toUtf8() + '/' + below;
    }

    void Folder(const QByteArray& name) const {
        std::filesystem::create_directories(Bytes(name).toStdString());
    }

    void File(const QByteArray& name, const QByteArray& content = {}) const {
        const std::filesystem::path path(Bytes(name).toStdString());
        std::filesystem::create_directories(path.parent_path());
        if (!std::ofstream(path, std::ios::binary).write(content.constData(), content.size()))
            qFatal("%s can't be written", path.c_str());
    }

    /// What stands in a file; "(none)" where it can't be read.
    [[nodiscard]] QByteArray Content(const char* name) const {
        QFile file(Path(QString::fromUtf8(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    void Link(const QByteArray& name, const QByteArray& target) const {
        std::filesystem::create_symlink(target.toStdString(), Bytes(name).toStdString());
    }

private:
    QTemporaryDir dir_;
};

} // namespace netrove
