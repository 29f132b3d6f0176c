#pragma once

#include "platform/NetworkReport.h"

#include <QString>

#include <vector>

namespace netrove {

/// Keeps the report while the network is read. Names are those of nodes, with "\\".
class ComputerReport : public NetworkReport {
public:
    void Begin() override { silent_.clear(); }
    [[nodiscard]] const std::vector<SilentComputer>& SilentComputers() const override {
        return silent_;
    }

    void NoteAnswer(const QString& computer);
    void NoteSilence(const QString& computer, const QString& reason);

private:
    std::vector<SilentComputer> silent_;
};

} // namespace netrove
