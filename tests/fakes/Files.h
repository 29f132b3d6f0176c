#pragma once

#include <QFile>
#include <gtest/gtest.h>

namespace netrove {

/// Makes a file of these bytes, and gives its path.
inline QString WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
        << path.toStdString();
    return path;
}

inline QByteArray ReadFile(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

} // namespace netrove
