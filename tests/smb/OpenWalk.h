#pragma once

#include "platform/ReadAhead.h"

namespace netrove {

/// A walk that goes everywhere.
class OpenWalk : public WalkPlan {
public:
    bool EntersWorkgroup(const QString& /*name*/) const override { return true; }
    bool EntersComputer(const QString& /*remoteName*/) const override { return true; }
    bool EntersShare(const QString& /*remoteName*/) const override { return true; }
    bool EntersFolder(const QString& /*folderPath*/, qsizetype /*nodeLength*/,
                      int /*depth*/) const override {
        return true;
    }
    QStringList AdminShares() const override { return {}; }
};

} // namespace netrove
