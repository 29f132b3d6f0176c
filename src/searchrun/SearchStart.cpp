#include "searchrun/SearchStart.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "services/NetworkNodes.h"
#include "services/Paths.h"
#include "services/WinVer.h"
#include "windowservices/WindowGeometry.h"

namespace netrove {
namespace {

constexpr int Workstation = 0;
constexpr int Workgroup = 1;
constexpr int Root = 3;

constexpr QLatin1Char Bar('|');

} // namespace

struct SearchStart::Question {
    QString prompt;
    QString title;
    QString warning;
    QString warningTitle;
    QString error;
    QString errorTitle;
    /// Returns the path of the node with that name.
    QString (SearchStart::*path)(const QString& name) const;
};

void SearchStart::cmdInpNetNode_Click() {
    mnuPopUp6_.popup(QPoint(CursorX(), CursorY()));
}

void SearchStart::mnuInpNetNode_Click(int index) {
    if (job_.IsRunning())
        return;
    const auto failure = FailureOf([&] {
        if (index == Workstation)
            InputNode({.prompt = u"What is the name of the workstation, computer, or server?"_s,
                       .title = u"Input a workstation name"_s,
                       .warning = u"Workstation contains an illegal character!"_s,
                       .warningTitle = u"Workstation Warning..."_s,
                       .error = u"Invalid Workstation!"_s,
                       .errorTitle = u"Workstation Error..."_s,
                       .path = &SearchStart::WorkstationPath});
        else if (index == Workgroup)
            InputNode({.prompt = u"What is the name of the workgroup or domain?"_s,
                       .title = u"Input a workgroup name"_s,
                       .warning = u"Workgroup contains an illegal character!"_s,
                       .warningTitle = u"Workgroup Warning..."_s,
                       .error = u"Invalid workgroup!"_s,
                       .errorTitle = u"Workgroup Error..."_s,
                       .path = &SearchStart::WorkgroupPath});
        else if (index == Root)
            SetToRoot();
    });
    controls_.window.unsetCursor();
    services_.dialogs.Failure(failure, u"Error in setting Network node"_s);
}

void SearchStart::InputNode(const Question& question) {
    const QString name =
        UpperCase(Trim(services_.dialogs.InputBox(question.prompt, question.title)));
    if (name.isEmpty())
        return;
    if (HasIllegalNameChars(name)) {
        services_.dialogs.Message(MessageIcon::Exclamation, question.warning,
                                  question.warningTitle);
        return;
    }
    controls_.window.setCursor(Qt::WaitCursor);
    const auto node = FindNetNode((this->*question.path)(name), services_.network);
    if (node && !node->RemoteName().isEmpty())
        SetStartNode(node);
    else
        services_.dialogs.Message(MessageIcon::Critical, question.error, question.errorTitle);
}

QString SearchStart::WorkstationPath(const QString& name) const {
    return NetEnum::LocalAreaNetwork + Bar + GetWorkgroup(name, services_.network) + Bar +
           "\\\\"_L1 + name + Bar;
}

QString SearchStart::WorkgroupPath(const QString& name) const {
    const QString path = name + Bar;
    return isWinNT_ ? NetEnum::LocalAreaNetwork + Bar + path : path;
}

void SearchStart::SetToRoot() {
    SetStartNode(std::make_shared<NetResource>(services_.network));
}

void SearchStart::SetStartNode(const std::shared_ptr<NetResource>& node) {
    if (!node)
        throw RunTimeError(ErrorNumber::ObjectNotSet);
    state_.SearchStartNode = node;
    const QString& name = node->RemoteName();
    controls_.txtSearchStart.setText(name.isEmpty() ? u"[Root]"_s : name);
}

void SearchStart::ChooseStartNode(bool isWinXP) {
    if (!isWinXP) {
        controls_.txtSearchStart.setText(u"[Root]"_s);
        return;
    }
    const QString provider = NetEnum::LocalAreaNetwork;
    NetResource root(services_.network);
    state_.SearchStartNode = root.Children()->Item(provider);
    if (!state_.SearchStartNode)
        throw RunTimeError(ErrorNumber::ObjectNotSet);
    controls_.txtSearchStart.setText(provider);
}

void SearchStart::cmdSetSearchStart_Click() {
    std::optional<CurrentJob::Run> job = job_.Begin(JobKind::Browse);
    if (!job)
        return;
    services_.dialogs.Trap(u"Error in browsing network"_s, [&] {
        job->Show();
        Browse();
    });
    Yield();
}

void SearchStart::Browse() {
    if (services_.settings.ExcludeNetNodes)
        services_.exclusions.ParseNetNodes(services_.settings);
    Yield();
    if (const auto chosen = services_.browse())
        SetStartNode(*chosen);
}

} // namespace netrove
