#include "platform/network/ComputerReport.h"

namespace netrove {

void ComputerReport::NoteAnswer(const QString& computer) {
    std::erase_if(silent_, [&](const SilentComputer& one) {
        return one.name.compare(computer, Qt::CaseInsensitive) == 0;
    });
}

void ComputerReport::NoteSilence(const QString& computer, const QString& reason) {
    NoteAnswer(computer);
    silent_.push_back({computer, reason, QDateTime::currentDateTime()});
}

} // namespace netrove
