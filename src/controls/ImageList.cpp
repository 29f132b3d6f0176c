#include "controls/ImageList.h"

#include "runtime/RunTimeError.h"

namespace netrove {

ImageList::ImageList(int pictureSize, QObject* parent)
    : QObject(parent), pictureSize_(pictureSize) {}

void ImageList::Add(const QString& key, const QIcon& picture) {
    if (Contains(key))
        throw RunTimeError(ErrorNumber::KeyNotUnique);
    pictures_.push_back({key, picture});
    indexes_.insert(key, Count());
}

void ImageList::Clear() {
    pictures_.clear();
    indexes_.clear();
}

QIcon ImageList::Picture(const QString& key) const {
    const auto index = indexes_.constFind(key);
    return index == indexes_.cend() ? QIcon() : Picture(*index);
}

QString ImageList::Key(int index) const {
    return At(index).key;
}
QIcon ImageList::Picture(int index) const {
    return At(index).picture;
}

const ImageList::KeyedPicture& ImageList::At(int index) const {
    if (index < 1 || index > Count())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return pictures_[static_cast<std::size_t>(index) - 1];
}

} // namespace netrove
