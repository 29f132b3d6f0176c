#pragma once

#include "platform/NetworkReport.h"

#include <functional>

namespace netrove {

/// Keeps the report while the network is read.
class ComputerReport : public NetworkReport {
public:
    explicit ComputerReport(std::function<QStringList()> sources = {})
        : sources_(std::move(sources)) {}

    void Begin() override;
    [[nodiscard]] const std::vector<NotSearched>& All() const override { return all_; }
    void NoteAnswer(const QString& name) override;
    void NoteSilence(const QString& name, const QString& reason) override;
    void NoteNobody() override { foundNobody_ = true; }
    [[nodiscard]] bool FoundNobody() const override { return foundNobody_; }
    [[nodiscard]] QStringList Sources() const override {
        return sources_ ? sources_() : QStringList();
    }

private:
    [[nodiscard]] NotSearched* Find(const QString& name);

    std::function<QStringList()> sources_;
    std::vector<NotSearched> all_;
    bool foundNobody_ = false;
};

} // namespace netrove
