#pragma once

#include "runtime/Names.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace netrove {

class NetResource;

/// The children of a node, in order of insertion, each under its remote name. Names are unique
/// and looked up without regard to case; numbers count from 1.
class NetResources {
public:
    using Node = std::shared_ptr<NetResource>;

    /// The node with that name or number, after a yield; null if there is none.
    [[nodiscard]] Node Item(const QString& name) const;
    [[nodiscard]] Node Item(qint32 number) const;

    [[nodiscard]] qint32 Count() const { return static_cast<qint32>(nodes_.size()); }

    /// Takes a node out. Raises ErrorNumber::InvalidProcedureCall for an unknown name and
    /// ErrorNumber::SubscriptOutOfRange for an unknown number.
    void Remove(const QString& name);
    void Remove(qint32 number);

    /// Adds the node at the end, after a yield, and returns it. Raises ErrorNumber::KeyNotUnique if
    /// there is a node of that name already.
    Node AddResource(const Node& item);

    [[nodiscard]] auto begin() const { return nodes_.begin(); }
    [[nodiscard]] auto end() const { return nodes_.end(); }

private:
    [[nodiscard]] static QString Key(const QString& name) { return NameKey(name); }

    std::vector<Node> nodes_;
    QHash<QString, Node> byName_;
};

} // namespace netrove
