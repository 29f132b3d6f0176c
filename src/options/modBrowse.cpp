#include "options/modBrowse.h"

#include "runtime/SourceText.h"

namespace netrove {
namespace {

constexpr int CancelledBlanks = 260;

} // namespace

QString BrowseForFolder(const QString& title, bool fromDrives, Dialogs& dialogs,
                        const QString& start) {
    return dialogs.ChooseFolder(title, !fromDrives, start).value_or(QString(CancelledBlanks, u' '));
}

QString BrowseForComputer(const QString& title, Dialogs& dialogs) {
    const std::optional<QString> name = dialogs.ChooseComputer(title);
    return name ? "\\\\"_L1 + *name : QString();
}

} // namespace netrove
