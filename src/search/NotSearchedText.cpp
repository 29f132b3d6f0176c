#include "search/NotSearchedText.h"

#include <algorithm>

namespace netrove {
namespace {

QString Computers(int count) {
    return count == 1 ? NotSearched::tr("1 computer")
                      : NotSearched::tr("%n computers", nullptr, count);
}

QString Shares(int count) {
    return count == 1 ? NotSearched::tr("1 share") : NotSearched::tr("%n shares", nullptr, count);
}

} // namespace

QString NotSearchedText(const NetworkReport& report) {
    if (report.FoundNobody())
        return NotSearched::tr("No computer found");
    const auto all = static_cast<int>(report.All().size());
    const auto shares = static_cast<int>(
        std::ranges::count_if(report.All(), [](const auto& one) { return one.IsShare(); }));
    if (all == 0)
        return {};
    if (shares == 0)
        return NotSearched::tr("%1 not searched").arg(Computers(all));
    if (shares == all)
        return NotSearched::tr("%1 not searched").arg(Shares(all));
    return NotSearched::tr("%1, %2 not searched").arg(Computers(all - shares), Shares(shares));
}

} // namespace netrove
