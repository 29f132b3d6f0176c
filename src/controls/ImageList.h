#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QString>

#include <vector>

namespace netrove {

/// Pictures of one size in the order in which they were added, each with a key. Lists that are
/// bound to it name their rows' pictures by key. Keys are compared exactly.
class ImageList : public QObject {
    Q_OBJECT
public:
    /// `pictureSize` is the edge of the square pictures in logical pixels.
    explicit ImageList(int pictureSize, QObject* parent = nullptr);

    [[nodiscard]] int PictureSize() const { return pictureSize_; }
    [[nodiscard]] int Count() const { return static_cast<int>(pictures_.size()); }

    /// Adds a picture at the end. Raises ErrorNumber::KeyNotUnique for a key that the list has
    /// already.
    void Add(const QString& key, const QIcon& picture);
    void Clear();

    [[nodiscard]] bool Contains(const QString& key) const { return indexes_.contains(key); }
    /// The picture with this key; an empty one where there is none.
    [[nodiscard]] QIcon Picture(const QString& key) const;

    /// By number, from 1 to Count(). Raise ErrorNumber::SubscriptOutOfRange for any other.
    [[nodiscard]] QString Key(int index) const;
    [[nodiscard]] QIcon Picture(int index) const;

private:
    struct KeyedPicture {
        QString key;
        QIcon picture;
    };

    [[nodiscard]] const KeyedPicture& At(int index) const;

    int pictureSize_;
    std::vector<KeyedPicture> pictures_;
    QHash<QString, int> indexes_;
};

} // namespace netrove
