#include "redirector/ComputerReport.h"

#include "runtime/Names.h"

#include <algorithm>

namespace netrove {

void ComputerReport::Begin() {
    all_.clear();
    foundNobody_ = false;
}

NotSearched* ComputerReport::Find(const QString& name) {
    const auto found = std::ranges::find_if(
        all_, [&](const NotSearched& one) { return IsSameName(one.name, name); });
    return found == all_.end() ? nullptr : &*found;
}

/// A computer that answers later stays in the report: it has been left out of the search.
void ComputerReport::NoteAnswer(const QString& name) {
    if (NotSearched* known = Find(name))
        *known = {.name = known->name,
                  .reason = NotSearched::tr("It answers now: search again."),
                  .time = QDateTime::currentDateTime(),
                  .answersNow = true};
}

void ComputerReport::NoteSilence(const QString& name, const QString& reason) {
    const NotSearched silent{.name = name, .reason = reason, .time = QDateTime::currentDateTime()};
    if (NotSearched* known = Find(name))
        *known = silent;
    else
        all_.push_back(silent);
}

} // namespace netrove
