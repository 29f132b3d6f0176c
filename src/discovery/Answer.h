#pragma once

#include "discovery/FoundComputer.h"

#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace netrove {

/// What one host said once, in one of the ways.
struct Answer {
    FoundBy foundBy = FoundBy::WsDiscovery;
    QString name;
    QString address; ///< as in FoundComputer; empty where it has none
    std::optional<QString> workgroup = {};
    quint16 port = 0; ///< of SMB; 0 where it wasn't told
    bool isMasterBrowser = false;
    bool sharesFiles = true; ///< false where it only adds to what others say of the computer
    QString model = {};

    /// Those of a way stand together, the better ways first.
    bool operator<(const Answer& other) const;
};

using Answers = std::set<Answer>;
using TakeAnswer = std::function<void(Answer answer)>;

/// The computers that the answers are about. Answers with the same name, in any case, are about the
/// same computer, and so are answers of different ways from the same address. One that only adds
/// makes no computer. In the order of names.
[[nodiscard]] std::vector<FoundComputer> MergeAnswers(const Answers& answers);

} // namespace netrove
