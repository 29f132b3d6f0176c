#include "options/OptionChecks.h"

#include "runtime/Text.h"
#include "services/Paths.h"

#include <QFileInfo>

namespace netrove {
namespace {

constexpr double MaxFiles = 32000;
constexpr double ManyDownloads = 10;

using Controls = OptionControls;

QString Folder(const Controls& controls) {
    return Trim(controls.SaveFolTxt->text());
}
QString MaxFilesText(const Controls& controls) {
    return Trim(controls.MaxFilesTxt->text());
}
QString DownloadsText(const Controls& controls) {
    return Trim(controls.ConDLTxt->text());
}

bool HasNoneChecked(const ListView& list) {
    for (int row = 1; row <= list.Count(); ++row) {
        if (list.Checked(row))
            return false;
    }
    return true;
}

} // namespace

struct OptionChecks::Check {
    Controls::Tab tab;
    QWidget* (*focus)(const Controls&);
    bool (*fails)(const Controls&);
    const char* text;
    const char* title;
    bool isQuestion = false; ///< the user can answer Yes, and go on
};

const std::vector<OptionChecks::Check>& OptionChecks::All() {
    constexpr auto folder = [](const Controls& c) -> QWidget* { return c.SaveFolTxt; };
    constexpr auto files = [](const Controls& c) -> QWidget* { return c.MaxFilesTxt; };
    constexpr auto downloads = [](const Controls& c) -> QWidget* { return c.ConDLTxt; };
    constexpr auto nodes = [](const Controls& c) -> QWidget* { return c.lvwExcNetNode; };
    static const std::vector<Check> checks{
        {Controls::Save, folder, [](const Controls& c) { return Folder(c).isEmpty(); },
         "Need a folder.", "Folder Error..."},
        {Controls::Save, folder,
         [](const Controls& c) { return !QFileInfo::exists(LocalPath(Folder(c))); },
         "Folder does not exist.", "Folder Error..."},
        {Controls::Results, files, [](const Controls& c) { return MaxFilesText(c).isEmpty(); },
         "Need number of files.", "File Number Error..."},
        {Controls::Results, files, [](const Controls& c) { return !IsNumeric(MaxFilesText(c)); },
         "Number of files must be an integer.", "File Number Error..."},
        {Controls::Results, files,
         [](const Controls& c) { return LeadingNumber(MaxFilesText(c)) <= 0; },
         "Number of files must be positive & non-zero.", "File Number Error..."},
        {Controls::Results, files,
         [](const Controls& c) { return LeadingNumber(MaxFilesText(c)) > MaxFiles; },
         "Number of files must be less than 32,001.", "File Number Error..."},
        {Controls::Save, downloads, [](const Controls& c) { return DownloadsText(c).isEmpty(); },
         "Need number of concurrent downloads.", "Concurrent Downloads Error..."},
        {Controls::Save, downloads, [](const Controls& c) { return !IsNumeric(DownloadsText(c)); },
         "Number of concurrent downloads must be an integer.", "Concurrent Downloads Error..."},
        {Controls::Save, downloads,
         [](const Controls& c) { return LeadingNumber(DownloadsText(c)) <= 0; },
         "Number of concurrent downloads must be positive & non-zero.",
         "Concurrent Downloads Error..."},
        {Controls::Save, downloads,
         [](const Controls& c) { return LeadingNumber(DownloadsText(c)) > ManyDownloads; },
         "Recommended concurrent downloads is between 1 and 5.\r\nWould you like to proceed?",
         "Concurrent Downloads Warning...", true},
        {Controls::Search, nodes,
         [](const Controls& c) { return c.ExcNetNode.IsYes() && c.lvwExcNetNode->Count() == 0; },
         "You have selected to exlude folders but the list is empty.", "Exclude Folders Error..."},
        {Controls::Search, nodes,
         [](const Controls& c) { return c.ExcNetNode.IsYes() && HasNoneChecked(*c.lvwExcNetNode); },
         "You have selected to exlude folders but have none checked.", "Exclude Folders Error..."},
    };
    return checks;
}

bool OptionChecks::Pass() {
    for (const Check& check : All()) {
        if (!Pass(check))
            return false;
    }
    return true;
}

bool OptionChecks::Pass(const Check& check) {
    if (!check.fails(controls_))
        return true;
    controls_.SSTab1->setCurrentIndex(check.tab);
    const MessageAnswer answer =
        dialogs_.Message(check.isQuestion ? MessageIcon::Exclamation : MessageIcon::Critical,
                         QString::fromLatin1(check.text), QString::fromLatin1(check.title),
                         check.isQuestion ? MessageButtons::YesNo : MessageButtons::Ok);
    if (check.isQuestion && answer == MessageAnswer::Yes)
        return true;
    if (QWidget* control = check.focus(controls_); control->isEnabled())
        control->setFocus();
    return false;
}

} // namespace netrove
