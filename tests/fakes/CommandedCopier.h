#pragma once

#include "downloads/copier/CopyQ.h"
#include "runtime/RunTimeError.h"

#include <QHash>
#include <QStringList>

#include <functional>

namespace netrove {

/// Accepts copies and ends them when it is told to. The ids are "copy 1", "copy 2" and so on.
class CommandedCopier : public CopyQ {
public:
    QStringList Accepted; ///< "source > destination", with ">>" where it may be replaced
    QHash<QString, CopyProgress> Running;            ///< by id
    std::optional<ErrorNumber> Refusal;              ///< raised for the next copies
    std::function<void(const QString& id)> OnAccept; ///< before QueueCopy gives the id

    QString QueueCopy(const QString& source, const QString& destination,
                      Existing existing) override {
        if (Refusal)
            throw RunTimeError(*Refusal);
        const bool replaces = existing == Existing::Replace;
        Accepted.append(source + (replaces ? QStringLiteral(" >> ") : QStringLiteral(" > ")) +
                        destination);
        const QString id = QStringLiteral("copy %1").arg(Accepted.size());
        Running.insert(id, {});
        if (OnAccept)
            OnAccept(id);
        return id;
    }

    std::optional<CopyProgress> Progress(const QString& id) const override {
        return Running.contains(id) ? std::optional(Running.value(id)) : std::nullopt;
    }

    /// Ends a copy, counted from 1.
    void Finish(int copy, int errorNumber = 0) {
        const QString id = QStringLiteral("copy %1").arg(copy);
        Running.remove(id);
        Q_EMIT CopyDone(id, errorNumber);
    }
};

} // namespace netrove
