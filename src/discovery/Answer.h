#pragma once

#include "discovery/FoundComputer.h"

#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace netrove {

/// What one host has answered once, to one way of asking (FoundBy).
struct Answer {
    FoundBy foundBy = FoundBy::WsDiscovery;
    QString name;
    QString address; ///< as in FoundComputer; may be empty
    std::optional<QString> workgroup = {};
    quint16 port = 0; ///< of SMB; 0 where it wasn't told
    bool isMasterBrowser = false;
    bool sharesFiles = true; ///< false where it only adds to what others say of the computer
    QString model = {};

    /// Answers to the same way of asking stand together, those to better ways first.
    bool operator<(const Answer& other) const;
};

using Answers = std::set<Answer>;
using TakeAnswer = std::function<void(Answer answer)>;

/// The computers that the answers are about, in the order of their names. Answers with the same
/// name, in any case, are about the same computer, and so are answers from the same address to
/// different ways of asking. An answer without sharesFiles adds to a computer but makes none.
[[nodiscard]] std::vector<FoundComputer> MergeAnswers(const Answers& answers);

} // namespace netrove
