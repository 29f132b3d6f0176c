#include "network/NetResources.h"

#include "network/NetResource.h"
#include "runtime/RunTimeError.h"
#include "runtime/Yield.h"

namespace netrove {

NetResources::Node NetResources::Item(const QString& name) const {
    Yield();
    return byName_.value(Key(name));
}

NetResources::Node NetResources::Item(qint32 number) const {
    Yield();
    if (number < 1 || number > Count())
        return nullptr;
    return nodes_[static_cast<std::size_t>(number - 1)];
}

void NetResources::Remove(const QString& name) {
    const Node node = byName_.take(Key(name));
    if (!node)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    std::erase(nodes_, node);
}

void NetResources::Remove(qint32 number) {
    if (number < 1 || number > Count())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    Remove(nodes_[static_cast<std::size_t>(number - 1)]->RemoteName());
}

NetResources::Node NetResources::AddResource(const Node& item) {
    Yield();
    const QString key = Key(item->RemoteName());
    if (byName_.contains(key))
        throw RunTimeError(ErrorNumber::KeyNotUnique);
    byName_.insert(key, item);
    nodes_.push_back(item);
    return item;
}

} // namespace netrove
